#include "lumira/engine/FilteredProduct.h"

#include <string>
#include <utility>

#include "lumira/engine/ChosenOccurrences.h"
#include "lumira/engine/Compile.h"
#include "lumira/engine/ExcludedInstances.h"
#include "lumira/engine/Rollup.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

FilteredResult NothingLeft(const Part& part) {
  FilteredResult nothing;
  nothing.result.mass = 0.0;
  nothing.warnings.push_back({WarningKind::NothingLeft, 1.0, 0.0, {part.id}});
  return nothing;
}

// The result of `id`, which stands for the part.
Result<FilteredResult> Evaluate(const Rollup& rollup, const std::string& id, const Part& part) {
  auto result = rollup.ResultOf(id);
  if (!result) return result.Failure();
  if (result.Value().coverage.items == 0.0) return NothingLeft(part);
  auto warnings = rollup.WarningsOf(id);
  if (!warnings) return warnings.Failure();
  return FilteredResult{std::move(result).Value(), std::move(warnings).Value()};
}

Result<Rollup> RollUp(const Product& product, const CompileOptions& options) {
  auto compiled = Compile(product, options);
  if (!compiled) return compiled.Failure();
  return Rollup(std::move(compiled).Value());
}

class ConfiguredProduct final : public FilteredProduct {
 public:
  ConfiguredProduct(const StructureIndex& structure, std::vector<bool> excluded, Rollup rollup)
      : _structure(structure),
        _excluded(std::move(excluded)),
        _takesPart(structure.AtOrBelow({structure.Root()}, _excluded)),
        _rollup(std::move(rollup)) {}

  Result<FilteredResult> ResultOf(std::uint32_t part) const override {
    const Part& data = _structure.PartAt(part);
    if (!_takesPart[part]) return NothingLeft(data);
    auto result = Evaluate(_rollup, data.id, data);
    if (result && IsLeftOutSomewhere(part))
      result.Value().warnings.push_back({WarningKind::AlsoLeftOut, 1.0, 0.0, {data.id}});
    return result;
  }

 private:
  bool IsLeftOutSomewhere(std::uint32_t part) const {
    const std::vector<bool> leadsThere = _structure.AtOrAbove({part});
    for (std::uint32_t instance = 0; instance < _excluded.size(); ++instance)
      if (_excluded[instance] && leadsThere[_structure.ChildOf(instance)]) return true;
    return false;
  }

  const StructureIndex& _structure;
  std::vector<bool> _excluded;   ///< per instance
  std::vector<bool> _takesPart;  ///< per part: stands somewhere under the root still
  Rollup _rollup;
};

class ChosenProduct final : public FilteredProduct {
 public:
  ChosenProduct(const StructureIndex& structure, ChosenOccurrences chosen, Rollup rollup)
      : _structure(structure), _chosen(std::move(chosen)), _rollup(std::move(rollup)) {}

  Result<FilteredResult> ResultOf(std::uint32_t part) const override {
    const Part& data = _structure.PartAt(part);
    const auto [differs, id] = _chosen.RemainderOf(_structure, part);
    if (differs)
      return Error{ErrorKind::BadValue,
                   "part " + Quoted(data.id) +
                       " stands in several places, and the filter leaves different things "
                       "in them; compute what it stands in, or choose the same everywhere"};
    if (!id) return NothingLeft(data);
    auto result = Evaluate(_rollup, *id, data);
    if (result)
      for (Warning& warning : result.Value().warnings) NameOriginals(warning);
    return result;
  }

 private:
  static void NameOriginals(Warning& warning) {
    for (std::string& id : warning.examples) id = std::string(ChosenOccurrences::OriginalOf(id));
  }

  const StructureIndex& _structure;
  ChosenOccurrences _chosen;
  Rollup _rollup;
};

}  // namespace

Result<std::unique_ptr<FilteredProduct>> ApplyFilter(const StructureIndex& structure,
                                                     const ConfigurationFilter& filter) {
  auto excluded = ExcludedInstances(structure, filter);
  if (!excluded) return excluded.Failure();
  CompileOptions options;
  for (std::uint32_t instance = 0; instance < excluded.Value().size(); ++instance)
    if (excluded.Value()[instance]) options.excludedInstances.insert(structure.InstanceAt(instance).id);
  auto rollup = RollUp(structure.Data(), options);
  if (!rollup) return rollup.Failure();
  return std::unique_ptr<FilteredProduct>(
      new ConfiguredProduct(structure, std::move(excluded).Value(), std::move(rollup).Value()));
}

Result<std::unique_ptr<FilteredProduct>> ApplyFilter(const StructureIndex& structure,
                                                     const std::vector<protocol::FilterRow>& rows) {
  auto chosen = ChosenOccurrences::Find(structure, rows);
  if (!chosen) return chosen.Failure();
  CompileOptions options;
  options.partlyKept = chosen.Value().StandIns(structure);
  auto rollup = RollUp(chosen.Value().MakeProduct(structure), options);
  if (!rollup) return rollup.Failure();
  return std::unique_ptr<FilteredProduct>(
      new ChosenProduct(structure, std::move(chosen).Value(), std::move(rollup).Value()));
}

}  // namespace lumira
