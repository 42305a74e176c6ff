#include "lumira/engine/ChosenOccurrences.h"

#include <set>
#include <utility>

#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::FilterRow;
using protocol::Quoted;
using protocol::Result;

// No identifier has it, so that a stand-in is never taken for a part of the product.
constexpr char kSeparator = '|';

Error InRow(ErrorKind kind, const std::string& place, const std::string& text) {
  return {kind, "Filter: " + place + ": " + text};
}

std::optional<Error> CheckPart(const Part& part, const FilterRow& row, const std::string& place) {
  const std::string whose = "instance " + Quoted(row.instanceId) + " places part " + Quoted(part.id);
  if (part.id != row.partId)
    return InRow(ErrorKind::BadValue, place + ", part id", whose + ", not " + Quoted(row.partId));
  if (part.revision != row.partVersion)
    return InRow(ErrorKind::BadValue, place + ", part version",
                 whose + " of version " + Quoted(part.revision) + ", not " + Quoted(row.partVersion));
  return std::nullopt;
}

}  // namespace

Result<ChosenOccurrences> ChosenOccurrences::Find(const StructureIndex& structure,
                                                  const std::vector<FilterRow>& rows) {
  ChosenOccurrences chosen;
  chosen._nodes.push_back({.part = structure.Root()});
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (auto bad = chosen.Add(structure, rows[i], i + 1)) return *bad;
  chosen.DropCovered();
  chosen.FindForms();
  return chosen;
}

// Rows below what is chosen already are checked like all others.
std::optional<Error> ChosenOccurrences::Add(const StructureIndex& structure, const FilterRow& row,
                                            std::size_t number) {
  const std::string place = "row " + std::to_string(number);
  std::uint32_t node = 0;
  for (std::size_t i = 0; i < row.path.size(); ++i) {
    const auto below = Enter(structure, node, row.path[i], place + ", path element " + std::to_string(i + 1));
    if (!below) return below.Failure();
    node = below.Value();
  }
  const auto chosen = Enter(structure, node, row.instanceId, place + ", instance id");
  if (!chosen) return chosen.Failure();
  if (auto bad = CheckPart(structure.PartAt(_nodes[chosen.Value()].part), row, place)) return bad;
  _nodes[chosen.Value()].isWhole = true;
  return std::nullopt;
}

Result<std::uint32_t> ChosenOccurrences::Enter(const StructureIndex& structure, std::uint32_t node,
                                               const std::string& id, const std::string& place) {
  const auto instance = structure.FindInstance(id);
  if (!instance || structure.ParentOf(*instance) != _nodes[node].part)
    return InRow(
        ErrorKind::NotFound, place,
        "there is no instance " + Quoted(id) + " in part " + Quoted(structure.PartAt(_nodes[node].part).id));
  const auto [below, isNew] =
      _nodes[node].below.emplace(*instance, static_cast<std::uint32_t>(_nodes.size()));
  const std::uint32_t found = below->second;
  if (isNew) _nodes.push_back({.part = structure.ChildOf(*instance)});
  return found;
}

// Keeps the nodes that no whole one stands above, in an order that has each before those below it.
void ChosenOccurrences::DropCovered() {
  std::vector<Node> kept = {std::move(_nodes[0])};
  for (std::size_t i = 0; i < kept.size(); ++i) {
    const auto below = std::exchange(kept[i].below, {});
    if (kept[i].isWhole) continue;
    std::map<std::uint32_t, std::uint32_t> renumbered;
    for (const auto& [instance, node] : below) {
      renumbered.emplace(instance, static_cast<std::uint32_t>(kept.size()));
      kept.push_back(std::move(_nodes[node]));
    }
    kept[i].below = std::move(renumbered);
  }
  _nodes = std::move(kept);
}

void ChosenOccurrences::FindForms() {
  std::map<Form, std::uint32_t> known;
  for (auto node = _nodes.rbegin(); node != _nodes.rend(); ++node) {
    if (node->isWhole) continue;
    Form form;
    for (const auto& [instance, below] : node->below)
      form.emplace_back(instance, _nodes[below].isWhole ? std::nullopt : std::optional(_nodes[below].form));
    const auto [found, isNew] = known.emplace(form, static_cast<std::uint32_t>(_forms.size()));
    node->form = found->second;
    if (!isNew) continue;
    _forms.push_back(std::move(form));
    _formParts.push_back(node->part);
  }
}

// A part stands in many more places than one could walk through. Those at or below a whole node, those that
// are a node, and those that are neither are told apart by what can be below each.
ChosenOccurrences::Remainder ChosenOccurrences::RemainderOf(const StructureIndex& structure,
                                                            std::uint32_t part) const {
  const std::vector<bool> leadsThere = structure.AtOrAbove({part});
  std::vector<std::size_t> ways(leadsThere.size());  // instances in each part that lead there
  for (std::uint32_t i = 0; i < structure.Data().instances.size(); ++i)
    if (leadsThere[structure.ChildOf(i)]) ++ways[structure.ParentOf(i)];
  bool isWholeSomewhere = false, isNothingSomewhere = false;
  std::set<std::uint32_t> forms;
  for (const Node& node : _nodes) {
    if (node.isWhole) {
      isWholeSomewhere |= leadsThere[node.part];
      continue;
    }
    if (node.part == part) forms.insert(node.form);
    std::size_t waysTaken = 0;
    for (const auto& [instance, below] : node.below) waysTaken += leadsThere[_nodes[below].part];
    isNothingSomewhere |= waysTaken < ways[node.part];
  }
  Remainder remainder;
  remainder.differs = isWholeSomewhere + isNothingSomewhere + forms.size() > 1;
  if (isWholeSomewhere)
    remainder.part = structure.PartAt(part).id;
  else if (!forms.empty())
    remainder.part = StandInOf(structure, *forms.begin());
  return remainder;
}

Product ChosenOccurrences::MakeProduct(const StructureIndex& structure) const {
  const Product& whole = structure.Data();
  std::vector<std::uint32_t> tops;
  for (const Node& node : _nodes)
    if (node.isWhole) tops.push_back(node.part);
  const std::vector<bool> isTaken = structure.AtOrBelow(std::move(tops));
  Product product{.id = whole.id, .parts = {}, .instances = {}, .roots = {}};
  for (std::uint32_t i = 0; i < whole.parts.size(); ++i)
    if (isTaken[i]) product.parts.push_back(whole.parts[i]);
  for (std::uint32_t i = 0; i < whole.instances.size(); ++i)
    if (isTaken[structure.ParentOf(i)]) product.instances.push_back(whole.instances[i]);
  for (std::uint32_t form = 0; form < _forms.size(); ++form) {
    const std::string standIn = StandInOf(structure, form);
    product.parts.push_back(structure.PartAt(_formParts[form]));
    product.parts.back().id = standIn;
    for (const auto& [index, below] : _forms[form]) {
      Instance instance = structure.InstanceAt(index);
      // Begins alike for all in the stand-in, so that their order is that of the instances themselves.
      instance.id = standIn + kSeparator + instance.id;
      instance.parent = standIn;
      if (below) instance.child = StandInOf(structure, *below);
      product.instances.push_back(std::move(instance));
    }
  }
  product.roots = {StandInOf(structure, _nodes.front().form)};
  return product;
}

std::unordered_set<std::string> ChosenOccurrences::StandIns(const StructureIndex& structure) const {
  std::unordered_set<std::string> ids;
  for (std::uint32_t form = 0; form < _forms.size(); ++form) ids.insert(StandInOf(structure, form));
  return ids;
}

std::string ChosenOccurrences::StandInOf(const StructureIndex& structure, std::uint32_t form) const {
  return std::to_string(form) + kSeparator + structure.PartAt(_formParts[form]).id;
}

std::string_view ChosenOccurrences::OriginalOf(std::string_view id) {
  const std::size_t separator = id.find(kSeparator);
  return separator == id.npos ? id : id.substr(separator + 1);
}

}  // namespace lumira
