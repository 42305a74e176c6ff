#include "lumira/commands/OpenProduct.h"

#include <utility>

#include "lumira/store/ProductRules.h"
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
      _structure(_product),
      _computation(Computed(_product)) {
  for (StoredResult& result : results) Keep(std::move(result));
}

protocol::Result<std::uint32_t> OpenProduct::PartIndex(std::string_view id) const {
  if (const auto part = FindPart(id)) return *part;
  return protocol::Error{protocol::ErrorKind::NotFound, "there is no part " + protocol::Quoted(id) +
                                                            " in product " + protocol::Quoted(_product.id)};
}

protocol::Result<const ConfigurationFilter*> OpenProduct::FilterNamed(std::string_view name) const {
  for (const ConfigurationFilter& filter : _filters)
    if (filter.name == name) return &filter;
  return UnknownFilter(_product.id, name);
}

protocol::Result<const FilteredProduct*> OpenProduct::Under(const protocol::Filter& filter) {
  if (_filtered != nullptr && filter == _lastFilter) return _filtered.get();
  auto filtered = Apply(filter);
  if (!filtered) return filtered.Failure();
  _lastFilter = filter;
  _filtered = std::move(filtered).Value();
  return _filtered.get();
}

protocol::Result<std::unique_ptr<FilteredProduct>> OpenProduct::Apply(const protocol::Filter& filter) const {
  if (filter.kind == protocol::Filter::Kind::User) return ApplyFilter(_structure, filter.rows);
  const auto named = FilterNamed(filter.name);
  if (!named) return named.Failure();
  return ApplyFilter(_structure, *named.Value());
}

// The identifier, which the index looks at, stays where it is; a save changes none.
void OpenProduct::TakeSaved(std::uint32_t part, const Part& saved, std::int64_t state) {
  Part& known = _product.parts[part];
  known.massTypes = saved.massTypes;
  known.activeMassType = saved.activeMassType;
  known.material = saved.material;
  known.density = saved.density;
  known.densityPriority = saved.densityPriority;
  known.standardPart = saved.standardPart;
  _state.data = state;
  _filtered.reset();
  const auto changed = _computation ? _computation.Value().ChangePart(known) : _computation.Failure();
  if (!changed || changed.Value() == Changed::NeedsCompile) _computation = Computed(_product);
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
