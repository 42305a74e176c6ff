#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "lumira/model/Product.h"
#include "lumira/model/ProductFilters.h"
#include "protocol/Result.h"

namespace lumira {

/// Where a structure is deeper than a path can have elements (protocol::kMaxPathDepth).
struct DepthProblem {
  std::uint32_t instance = 0;  ///< index in the product; places the part that stands too deep
  std::string text;            ///< which part, how deep, and the limit
};

/// The first place that is too deep; none when there is none. Parts on a cycle are not looked at.
std::optional<DepthProblem> FindDepthProblem(const Product& product);

/// Whether the one root is the one part that is no child of another: BadValue otherwise.
protocol::Result<void> CheckRoots(const Product& product);

/// Why a part cannot be stored: BadValue for its identifier and those of its mass types (model/Identifier.h),
/// for mass types that are too many to be told (store/SizeRules.h), and for a number of any mass type, or of
/// volume times density, that the engine could not compute with.
protocol::Result<void> CheckPart(const Part& part);

/// Why a product cannot be stored: as `CheckPart`; BadValue for materials that are too many to be told, for
/// the identifiers of the product and of its instances, for attributes (names and values are identifiers,
/// names unique in the instance) and dates of instances, for roots that `CheckRoots` refuses, and for a
/// structure that is too deep; and whatever `Compile` fails with. What is stored can be opened.
protocol::Result<void> CheckProduct(const Product& product);

/// Why a configuration filter cannot be stored: BadValue for a name that is no identifier or that stands for
/// no filter at all, and for texts that are not UTF-8.
protocol::Result<void> CheckFilter(const ConfigurationFilter& filter);

/// The failure to answer when a product has no such filter.
protocol::Error UnknownFilter(std::string_view product, std::string_view filter);

/// Why these filters cannot be stored with a product: as `CheckFilter`; BadValue for a name that is there
/// twice; NotFound for a handler that is none of them; and whatever `ExcludedInstances` fails with.
protocol::Result<void> CheckFilters(const Product& product, const ProductFilters& filters);

}  // namespace lumira
