#include "lumira/engine/GraphFromProduct.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <string_view>

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;
using Complaint = std::optional<Error>;

template <class... Pieces>
Error Fail(ErrorKind kind, const Pieces&... pieces) {
  std::ostringstream text;
  (text << ... << pieces);
  return {kind, text.str()};
}

/// An instance whose names are found.
struct Use {
  std::uint32_t parent;
  std::uint32_t child;
  const Instance* instance;
};

class Builder {
 public:
  Builder(const Product& product, const CompileOptions& options) : _product(product), _options(options) {}

  Complaint Build() {
    if (auto bad = NumberParts()) return bad;
    if (auto bad = CheckRoots()) return bad;
    if (auto bad = FindUses()) return bad;
    if (auto bad = CheckExclusions()) return bad;
    FindPartlyKept();
    AddEdges();
    return AddItems();
  }

  NamedGraph Take() { return std::move(_named); }

 private:
  Complaint NumberParts() {
    _named.partIds.reserve(_product.parts.size());
    _named.partIndex.reserve(_product.parts.size());
    for (const auto& part : _product.parts) {
      const auto index = static_cast<std::uint32_t>(_named.partIds.size());
      if (!_named.partIndex.try_emplace(part.id, index).second) {
        return Fail(ErrorKind::BadValue, "part '", part.id, "' is there twice; part ids have to be unique");
      }
      _named.partIds.push_back(part.id);
    }
    return std::nullopt;
  }

  Complaint CheckRoots() const {
    for (const auto& root : _product.roots) {
      if (!_named.partIndex.contains(root)) {
        return Fail(ErrorKind::NotFound, "root: there is no part '", root, "'");
      }
    }
    return std::nullopt;
  }

  Complaint FindUses() {
    _uses.reserve(_product.instances.size());
    _isAssembly.resize(_product.parts.size());
    _instanceIds.reserve(_product.instances.size());
    for (const auto& instance : _product.instances) {
      if (!_instanceIds.insert(instance.id).second) {
        return Fail(ErrorKind::BadValue, "instance '", instance.id,
                    "' is there twice; instance ids have to be unique");
      }
      if (auto bad = FindUse(instance)) return bad;
    }
    return std::nullopt;
  }

  Complaint FindUse(const Instance& instance) {
    const auto& index = _named.partIndex;
    const auto parent = index.find(instance.parent), child = index.find(instance.child);
    if (parent == index.end()) return Unknown(instance, instance.parent);
    if (child == index.end()) return Unknown(instance, instance.child);
    if (auto bad = CheckNumbers(instance)) return bad;
    _isAssembly[parent->second] = true;
    if (_options.excludedInstances.empty() || !_options.excludedInstances.contains(instance.id)) {
      _uses.push_back({parent->second, child->second, &instance});
    } else {
      _cutInto.push_back(parent->second);
    }
    return std::nullopt;
  }

  static std::string PlaceOf(const Instance& instance) {
    return "instance '" + instance.id + "' of '" + instance.child + "' in '" + instance.parent + "': ";
  }

  static Error Unknown(const Instance& instance, const std::string& part) {
    return Fail(ErrorKind::NotFound, PlaceOf(instance), "there is no part '", part, "'");
  }

  static Complaint CheckNumbers(const Instance& instance) {
    const auto& [rotation, translation] = instance.placement;
    if (instance.quantity < 1) {
      return Fail(ErrorKind::BadValue, PlaceOf(instance), "quantity is ", instance.quantity,
                  ", expected 1 or more");
    }
    if (!IsFinite(translation)) {
      return Fail(ErrorKind::BadValue, PlaceOf(instance), "translation is (", translation.x, ", ",
                  translation.y, ", ", translation.z, "), expected finite numbers");
    }
    if (!IsRotation(rotation)) {
      return Fail(ErrorKind::BadValue, PlaceOf(instance),
                  "the placement is no rotation: its axes differ from orthonormal ones by ",
                  OrthonormalityError(rotation), " (limit ", kRotationTolerance, "), determinant ",
                  Determinant(rotation), " (expected 1)");
    }
    return std::nullopt;
  }

  Complaint CheckExclusions() const {
    for (const auto& excluded : _options.excludedInstances) {
      if (!_instanceIds.contains(excluded)) {
        return Fail(ErrorKind::NotFound, "instance '", excluded,
                    "' is to be left out, but there is none of that id");
      }
    }
    return std::nullopt;
  }

  /// What has lost something, and everything that contains it. Nothing to do without a filter.
  void FindPartlyKept() {
    _partlyKept.resize(_product.parts.size());
    for (const auto& id : _options.partlyKept) {
      if (const auto part = _named.partIndex.find(id); part != _named.partIndex.end())
        _cutInto.push_back(part->second);
    }
    if (_cutInto.empty()) return;
    std::vector<std::vector<std::uint32_t>> parents(_product.parts.size());
    for (const auto& use : _uses) parents[use.child].push_back(use.parent);
    while (!_cutInto.empty()) {
      const auto part = _cutInto.back();
      _cutInto.pop_back();
      if (_partlyKept[part]) continue;
      _partlyKept[part] = true;
      _cutInto.insert(_cutInto.end(), parents[part].begin(), parents[part].end());
    }
  }

  /// Sorted by parent first: the ids need comparing within one parent only.
  void AddEdges() {
    std::ranges::stable_sort(_uses, {}, &Use::parent);
    for (auto first = _uses.begin(); first != _uses.end();) {
      const auto last =
          std::find_if(first, _uses.end(), [&](const Use& use) { return use.parent != first->parent; });
      std::sort(first, last, [](const Use& a, const Use& b) { return a.instance->id < b.instance->id; });
      first = last;
    }
    _named.graph.edges.reserve(_uses.size());
    for (const auto& [parent, child, instance] : _uses) {
      _named.graph.edges.push_back(
          {parent, child, static_cast<double>(instance->quantity), instance->placement});
    }
  }

  Complaint AddItems() {
    std::vector<bool> hasChildren(_product.parts.size());
    for (const auto& use : _uses) hasChildren[use.parent] = true;
    _named.graph.parts.reserve(_product.parts.size());
    for (std::size_t i = 0; i < _product.parts.size(); ++i) {
      auto own = ResolveOwnData(_product.parts[i], _options.massType);
      if (!own) return own.Failure();
      const auto& [item, fromUserMassType] = own.Value();
      const bool hasOwnData = _isAssembly[i] && fromUserMassType;
      const bool isPartlyKept = hasOwnData && _partlyKept[i];
      const bool replaces = hasOwnData && !isPartlyKept;
      const bool isHollow = _isAssembly[i] && !hasChildren[i] && !replaces;
      _named.graph.parts.push_back(
          {isHollow || isPartlyKept ? Item{} : item, replaces, isHollow, isPartlyKept});
    }
    return std::nullopt;
  }

  const Product& _product;
  const CompileOptions& _options;
  NamedGraph _named;
  std::unordered_set<std::string_view> _instanceIds;
  std::vector<Use> _uses;
  std::vector<bool> _isAssembly;        ///< whether anything is placed in a part, left out or not
  std::vector<std::uint32_t> _cutInto;  ///< parts that something was left out of
  std::vector<bool> _partlyKept;        ///< those, and all that contain them
};

}  // namespace

Result<NamedGraph> GraphFromProduct(const Product& product, const CompileOptions& options) {
  Builder builder(product, options);
  if (auto bad = builder.Build()) return *bad;
  return builder.Take();
}

}  // namespace lumira
