#include "lumira/engine/Rollup.h"

#include <string>
#include <utility>

namespace lumira {

using protocol::Result;

Rollup::Rollup(CompiledProduct product, Spread spread)
    : _product(std::move(product)),
      _nodes(std::move(_product.structure), spread),
      _computedNodes(_nodes.Structure().NodeCount()) {}

Result<std::uint32_t> Rollup::IndexOf(std::string_view partId) const {
  const auto found = _product.partIndex.find(std::string(partId));
  if (found == _product.partIndex.end()) {
    return protocol::Error{protocol::ErrorKind::NotFound, "there is no part '" + std::string(partId) + "'"};
  }
  return found->second;
}

MassResult Rollup::Computed(std::uint32_t part) const {
  const auto node = _nodes.Structure().NodeOf(part);
  return node == kNone ? ResultFrom(_product.parts[part]) : ResultFrom(_nodes.SumsOf(node));
}

Result<MassResult> Rollup::ResultOf(std::string_view partId) const {
  const auto part = IndexOf(partId);
  if (!part) return part.Failure();
  return Computed(part.Value());
}

Result<MassResult> Rollup::ContributionOf(std::string_view partId) const {
  const auto part = IndexOf(partId);
  if (!part) return part.Failure();
  const auto& own = _product.parts[part.Value()];
  return own.replacesChildren ? ResultFrom(own) : Computed(part.Value());
}

Result<Fingerprint> Rollup::FingerprintOf(std::string_view partId) const {
  const auto part = IndexOf(partId);
  if (!part) return part.Failure();
  return _product.fingerprints.Of(part.Value());
}

Result<std::vector<Warning>> Rollup::WarningsOf(std::string_view partId, std::size_t maxExamples) const {
  const auto part = IndexOf(partId);
  if (!part) return part.Failure();
  return CollectWarnings(_product, part.Value(), Computed(part.Value()), maxExamples);
}

Result<Changed> Rollup::ChangePart(const Part& part) {
  const auto index = IndexOf(part.id);
  if (!index) return index.Failure();
  const auto own = ResolveOwnData(part, _product.massType);
  if (!own) return own.Failure();
  auto& known = _product.parts[index.Value()];
  const bool hasChildren = _nodes.Structure().NodeOf(index.Value()) != kNone;
  const bool isAssembly = hasChildren || known.replacesChildren || known.isHollow;
  const bool replaces = isAssembly && own.Value().fromUserMassType;
  if (replaces != known.replacesChildren) return Changed::NeedsCompile;
  if (known.isHollow) return Changed::PathComputed;  // it stays nothing
  known.item = own.Value().item;
  _product.fingerprints.Change(index.Value(), known);
  _computedNodes += _nodes.Change(index.Value(), known);
  return Changed::PathComputed;
}

}  // namespace lumira
