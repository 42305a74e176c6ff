#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lumira/engine/Rollup.h"
#include "lumira/model/Product.h"
#include "lumira/store/ConfigurationFilter.h"
#include "lumira/store/StoredResult.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

namespace lumira {

/// A product in memory, with what commands ask again and again. Parts and instances are called by their index
/// in the product.
class OpenProduct {
 public:
  /// `state` is that of the store when the product was loaded.
  OpenProduct(Product product, std::int64_t state, std::vector<StoredResult> results,
              std::vector<ConfigurationFilter> filters);

  const Product& Data() const { return _product; }
  std::int64_t State() const { return _state; }
  const std::vector<ConfigurationFilter>& Filters() const { return _filters; }

  const Part& PartAt(std::uint32_t part) const { return _product.parts[part]; }
  std::optional<std::uint32_t> FindPart(std::string_view id) const;
  protocol::Result<std::uint32_t> PartIndex(std::string_view id) const;

  /// Instances that place children in a part, in the order in which they were imported.
  std::span<const std::uint32_t> InstancesIn(std::uint32_t part) const;
  const Instance& InstanceAt(std::uint32_t instance) const { return _product.instances[instance]; }
  std::uint32_t ChildOf(std::uint32_t instance) const { return _children[instance]; }

  /// The roll-up of the whole product without any filter, or why it cannot be computed.
  const protocol::Result<Rollup>& Computation() const { return _computation; }

  protocol::Result<const ConfigurationFilter*> FilterNamed(std::string_view name) const;

  /// The last stored result of a part; nullptr without one.
  const StoredResult* ResultOf(std::string_view partId) const;
  void KeepResult(StoredResult result);

  /// Whether a stored result is there and still what would be computed.
  protocol::MassTypeStatus ComputedStatus(std::string_view partId) const;

 private:
  Product _product;
  std::int64_t _state;
  std::vector<ConfigurationFilter> _filters;
  std::unordered_map<std::string, std::uint32_t> _parts;
  std::vector<std::uint32_t> _children;  ///< part of each instance
  std::vector<std::uint32_t> _begin;     ///< per part, into `_below`
  std::vector<std::uint32_t> _below;     ///< instances, grouped by parent
  std::unordered_map<std::string, StoredResult> _results;
  protocol::Result<Rollup> _computation;
};

}  // namespace lumira
