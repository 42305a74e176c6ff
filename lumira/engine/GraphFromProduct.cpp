#include "lumira/engine/GraphFromProduct.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <sstream>

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

class Builder {
 public:
  Builder(const Product& product, const CompileOptions& options) : _product(product), _options(options) {}

  Complaint Build() {
    if (auto bad = NumberParts()) return bad;
    if (auto bad = CheckInstances()) return bad;
    if (auto bad = CheckNames()) return bad;
    AddEdges();
    return AddItems();
  }

  NamedGraph Take() { return std::move(_named); }

 private:
  Complaint NumberParts() {
    for (const auto& part : _product.parts) {
      const auto index = static_cast<std::uint32_t>(_named.partIds.size());
      if (!_named.partIndex.try_emplace(part.id, index).second) {
        return Fail(ErrorKind::BadValue, "part '", part.id, "' is there twice; part ids have to be unique");
      }
      _named.partIds.push_back(part.id);
    }
    return std::nullopt;
  }

  Complaint CheckInstances() {
    std::unordered_set<std::string_view> ids;
    for (const auto& instance : _product.instances) {
      if (!ids.insert(instance.id).second) {
        return Fail(ErrorKind::BadValue, "instance '", instance.id,
                    "' is there twice; instance ids have to be unique");
      }
      if (auto bad = CheckInstance(instance)) return bad;
    }
    for (const auto& excluded : _options.excludedInstances) {
      if (!ids.contains(excluded)) {
        return Fail(ErrorKind::NotFound, "instance '", excluded,
                    "' is to be left out, but there is none of that id");
      }
    }
    return std::nullopt;
  }

  Complaint CheckInstance(const Instance& instance) const {
    const auto place =
        "instance '" + instance.id + "' of '" + instance.child + "' in '" + instance.parent + "': ";
    for (const auto& id : {instance.parent, instance.child}) {
      if (!_named.partIndex.contains(id))
        return Fail(ErrorKind::NotFound, place, "there is no part '", id, "'");
    }
    if (instance.quantity < 1) {
      return Fail(ErrorKind::BadValue, place, "quantity is ", instance.quantity, ", expected 1 or more");
    }
    const auto& [rotation, translation] = instance.placement;
    if (!IsFinite(translation)) {
      return Fail(ErrorKind::BadValue, place, "translation is (", translation.x, ", ", translation.y, ", ",
                  translation.z, "), expected finite numbers");
    }
    if (!IsRotation(rotation)) {
      return Fail(ErrorKind::BadValue, place,
                  "the placement is no rotation: its axes differ from orthonormal ones by ",
                  OrthonormalityError(rotation), " (limit ", kRotationTolerance, "), determinant ",
                  Determinant(rotation), " (expected 1)");
    }
    return std::nullopt;
  }

  Complaint CheckNames() const {
    for (const auto& root : _product.roots) {
      if (!_named.partIndex.contains(root)) {
        return Fail(ErrorKind::NotFound, "root: there is no part '", root, "'");
      }
    }
    return std::nullopt;
  }

  void AddEdges() {
    std::vector<const Instance*> instances;
    for (const auto& instance : _product.instances) {
      if (!_options.excludedInstances.contains(instance.id)) instances.push_back(&instance);
    }
    std::ranges::sort(instances, {},
                      [](const Instance* instance) -> const std::string& { return instance->id; });
    for (const auto* instance : instances) {
      _named.graph.edges.push_back({_named.partIndex.at(instance->parent),
                                    _named.partIndex.at(instance->child),
                                    static_cast<double>(instance->quantity), instance->placement});
    }
  }

  Complaint AddItems() {
    std::vector<bool> isAssembly(_product.parts.size()), hasChildren(_product.parts.size());
    for (const auto& instance : _product.instances) isAssembly[_named.partIndex.at(instance.parent)] = true;
    for (const auto& edge : _named.graph.edges) hasChildren[edge.parent] = true;
    for (std::size_t i = 0; i < _product.parts.size(); ++i) {
      auto own = ResolveOwnData(_product.parts[i], _options.massType);
      if (!own) return own.Failure();
      const auto& [item, fromUserMassType] = own.Value();
      const bool isHollow = isAssembly[i] && !hasChildren[i] && !fromUserMassType;
      _named.graph.parts.push_back({isHollow ? Item{} : item, isAssembly[i] && fromUserMassType, isHollow});
    }
    return std::nullopt;
  }

  const Product& _product;
  const CompileOptions& _options;
  NamedGraph _named;
};

}  // namespace

Result<NamedGraph> GraphFromProduct(const Product& product, const CompileOptions& options) {
  Builder builder(product, options);
  if (auto bad = builder.Build()) return *bad;
  return builder.Take();
}

}  // namespace lumira
