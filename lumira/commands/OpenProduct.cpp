#include "lumira/commands/OpenProduct.h"

#include <numeric>
#include <utility>

#include "protocol/Utf8.h"

namespace lumira {
namespace {

protocol::Result<Rollup> Computed(const Product& product) {
  auto compiled = Compile(product);
  if (!compiled) return compiled.Failure();
  return Rollup(std::move(compiled).Value());
}

}  // namespace

OpenProduct::OpenProduct(Product product, ProductState state, std::vector<StoredResult> results,
                         std::vector<ConfigurationFilter> filters)
    : _product(std::move(product)),
      _state(state),
      _filters(std::move(filters)),
      _begin(_product.parts.size() + 1),
      _below(_product.instances.size()),
      _computation(Computed(_product)) {
  _parts.reserve(_product.parts.size());
  _children.reserve(_product.instances.size());
  for (std::uint32_t part = 0; part < _product.parts.size(); ++part)
    _parts.emplace(_product.parts[part].id, part);
  // Every instance names parts of the product, or the roll-up above would have failed; then there is no tree.
  if (!_computation) return;
  std::vector<std::uint32_t> parents;
  parents.reserve(_product.instances.size());
  for (const Instance& instance : _product.instances) {
    _children.push_back(_parts.at(instance.child));
    parents.push_back(_parts.at(instance.parent));
    ++_begin[parents.back() + 1];
  }
  std::partial_sum(_begin.begin(), _begin.end(), _begin.begin());
  auto next = _begin;
  for (std::uint32_t instance = 0; instance < parents.size(); ++instance)
    _below[next[parents[instance]]++] = instance;
  for (StoredResult& result : results) Keep(std::move(result));
}

std::optional<std::uint32_t> OpenProduct::FindPart(std::string_view id) const {
  const auto found = _parts.find(std::string(id));
  return found == _parts.end() ? std::nullopt : std::optional(found->second);
}

protocol::Result<std::uint32_t> OpenProduct::PartIndex(std::string_view id) const {
  if (const auto part = FindPart(id)) return *part;
  return protocol::Error{protocol::ErrorKind::NotFound, "there is no part " + protocol::Quoted(id) +
                                                            " in product " + protocol::Quoted(_product.id)};
}

std::span<const std::uint32_t> OpenProduct::InstancesIn(std::uint32_t part) const {
  return {_below.data() + _begin[part], _below.data() + _begin[part + 1]};
}

protocol::Result<const ConfigurationFilter*> OpenProduct::FilterNamed(std::string_view name) const {
  for (const ConfigurationFilter& filter : _filters)
    if (filter.name == name) return &filter;
  return protocol::Error{protocol::ErrorKind::NotFound, "there is no configuration filter " +
                                                            protocol::Quoted(name) + " in product " +
                                                            protocol::Quoted(_product.id)};
}

const StoredResult* OpenProduct::ResultOf(std::string_view partId) const {
  const auto found = _results.find(std::string(partId));
  return found == _results.end() ? nullptr : &found->second;
}

// When another session has saved in between, the store has counted further, and all results are read again.
void OpenProduct::KeepSaved(StoredResult result) {
  ++_state.results;
  Keep(std::move(result));
}

void OpenProduct::ReplaceResults(std::vector<StoredResult> results, std::int64_t resultState) {
  _results.clear();
  for (StoredResult& result : results) Keep(std::move(result));
  _state.results = resultState;
}

void OpenProduct::Keep(StoredResult result) {
  const std::string id = result.partId;
  _results.insert_or_assign(id, std::move(result));
}

protocol::MassTypeStatus OpenProduct::ComputedStatus(std::string_view partId) const {
  const StoredResult* result = ResultOf(partId);
  if (result == nullptr) return protocol::MassTypeStatus::Undefined;
  const auto now = _computation ? _computation.Value().FingerprintOf(partId)
                                : protocol::Result<Fingerprint>(_computation.Failure());
  const bool isUpToDate = now && ToText(now.Value()) == result->fingerprint;
  return isUpToDate ? protocol::MassTypeStatus::Defined : protocol::MassTypeStatus::OutOfDate;
}

}  // namespace lumira
