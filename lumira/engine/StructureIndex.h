#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lumira/model/Product.h"

namespace lumira {

/// A product by numbers, for walking up and down in it: parts and instances are called by their index in the
/// product. Instances that name unknown parts are not walked through.
class StructureIndex {
 public:
  /// `product` must outlive the index, unchanged.
  explicit StructureIndex(const Product& product);

  const Product& Data() const { return _product; }
  const Part& PartAt(std::uint32_t part) const { return _product.parts[part]; }
  const Instance& InstanceAt(std::uint32_t instance) const { return _product.instances[instance]; }

  std::optional<std::uint32_t> FindPart(std::string_view id) const;
  std::optional<std::uint32_t> FindInstance(std::string_view id) const;

  /// The top of the tree; the product must have one that is among its parts.
  std::uint32_t Root() const { return *FindPart(_product.roots.front()); }

  std::uint32_t ParentOf(std::uint32_t instance) const { return _ends[instance].parent; }
  std::uint32_t ChildOf(std::uint32_t instance) const { return _ends[instance].child; }

  /// Instances that place children in a part, in the order of the product.
  std::span<const std::uint32_t> InstancesIn(std::uint32_t part) const { return _in.Of(part); }
  /// Instances that place a part, in the order of the product.
  std::span<const std::uint32_t> InstancesOf(std::uint32_t part) const { return _of.Of(part); }

  /// These parts and all below them, each part once, by index; `cut` instances are not gone through, unless
  /// it is empty.
  std::vector<bool> AtOrBelow(std::vector<std::uint32_t> parts, const std::vector<bool>& cut = {}) const;
  /// These parts and all that contain them.
  std::vector<bool> AtOrAbove(std::vector<std::uint32_t> parts) const;

 private:
  struct Ends {
    std::uint32_t parent;
    std::uint32_t child;
  };

  /// Instances grouped by a part of theirs.
  struct Groups {
    std::vector<std::uint32_t> begin;  ///< per part, into `instances`
    std::vector<std::uint32_t> instances;

    std::span<const std::uint32_t> Of(std::uint32_t part) const {
      return {instances.data() + begin[part], instances.data() + begin[part + 1]};
    }
  };

  Groups GroupBy(std::uint32_t Ends::*end) const;

  const Product& _product;
  std::unordered_map<std::string_view, std::uint32_t> _parts;
  std::vector<Ends> _ends;  ///< per instance
  Groups _in;
  Groups _of;
  /// Made with the first question; most sessions never ask.
  mutable std::unordered_map<std::string_view, std::uint32_t> _instances;
};

}  // namespace lumira
