#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lumira/engine/FilteredProduct.h"
#include "lumira/engine/Rollup.h"
#include "lumira/engine/StructureIndex.h"
#include "lumira/model/ConfigurationFilter.h"
#include "lumira/model/Product.h"
#include "lumira/store/StoredResult.h"
#include "protocol/Filter.h"
#include "protocol/PartData.h"
#include "protocol/Result.h"

namespace lumira {

/// How far the store had counted the changes of a product.
struct ProductState {
  std::int64_t data = 0;     ///< `ProductInfo::state`
  std::int64_t results = 0;  ///< `ProductInfo::resultState`
};

/// A product in memory, with what commands ask again and again. Parts and instances are called by their index
/// in the product.
class OpenProduct {
 public:
  /// `state` is that of the store when the product was loaded, with all results that it had then.
  OpenProduct(Product product, ProductState state, std::vector<StoredResult> results,
              std::vector<ConfigurationFilter> filters);
  OpenProduct(const OpenProduct&) = delete;
  OpenProduct& operator=(const OpenProduct&) = delete;

  const Product& Data() const { return _product; }
  const ProductState& State() const { return _state; }
  const std::vector<ConfigurationFilter>& Filters() const { return _filters; }

  const StructureIndex& Structure() const { return _structure; }
  const Part& PartAt(std::uint32_t part) const { return _structure.PartAt(part); }
  std::optional<std::uint32_t> FindPart(std::string_view id) const { return _structure.FindPart(id); }
  protocol::Result<std::uint32_t> PartIndex(std::string_view id) const;

  /// Instances that place children in a part, in the order in which they were imported.
  std::span<const std::uint32_t> InstancesIn(std::uint32_t part) const {
    return _structure.InstancesIn(part);
  }
  const Instance& InstanceAt(std::uint32_t instance) const { return _structure.InstanceAt(instance); }
  std::uint32_t ChildOf(std::uint32_t instance) const { return _structure.ChildOf(instance); }

  /// The roll-up of the whole product without any filter, or why it cannot be computed.
  const protocol::Result<Rollup>& Computation() const { return _computation; }

  protocol::Result<const ConfigurationFilter*> FilterNamed(std::string_view name) const;

  /// The product as a filter leaves it. The last one is kept, so that part after part can be computed under
  /// the same filter without laying the product out again. Lives until the next call with another filter.
  protocol::Result<const FilteredProduct*> Under(const protocol::Filter& filter);

  /// Takes what a save has changed of a part, and the state that the product has since. The path from the
  /// part to the root is computed anew, or all when the change decides whether an assembly or its children
  /// count.
  void TakeSaved(std::uint32_t part, const Part& saved, std::int64_t state);

  /// The last stored result of a part; nullptr without one.
  const StoredResult* ResultOf(std::string_view partId) const;

  /// Keeps a result that has just been saved, by one saving of its own.
  void KeepSaved(StoredResult result);

  /// Takes the results that the store has now instead of those that were known.
  void ReplaceResults(std::vector<StoredResult> results, std::int64_t resultState);

  /// Whether a stored result is there and still what would be computed.
  protocol::MassTypeStatus ComputedStatus(std::string_view partId) const;

 private:
  void Keep(StoredResult result);
  protocol::Result<std::unique_ptr<FilteredProduct>> Apply(const protocol::Filter& filter) const;

  Product _product;
  ProductState _state;
  std::vector<ConfigurationFilter> _filters;
  StructureIndex _structure;
  std::unordered_map<std::string, StoredResult> _results;
  protocol::Result<Rollup> _computation;
  protocol::Filter _lastFilter;
  std::unique_ptr<FilteredProduct> _filtered;  ///< under the last filter; none before the first
};

}  // namespace lumira
