#include <algorithm>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/MaterialStatistics.h"
#include "lumira/commands/PartDataOf.h"
#include "lumira/commands/SaveConflict.h"
#include "lumira/commands/SavedValues.h"
#include "lumira/commands/TreeSearch.h"
#include "lumira/engine/ChosenOccurrences.h"
#include "lumira/model/Date.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::PartData;
using protocol::Quoted;
using protocol::Result;

// The part that a request means, and where it stands in the root part.
struct Selection {
  OpenProduct* product = nullptr;
  std::uint32_t part = 0;
  std::optional<Placement> placement;  ///< none for a part without a path that stands in several places
};

Result<OpenProduct*> OpenFor(Session& session, const protocol::PartDataRequest& request) {
  if (!request.product.empty()) return session.products.Open(request.product);
  if (!request.partId.empty()) return session.products.OpenForPart(request.partId);
  return Error{ErrorKind::BadText, "the request names neither a product nor a part"};
}

// Follows the path down, multiplying the placements on the way.
Result<Selection> Follow(OpenProduct& product, const std::vector<std::string>& path) {
  Selection selection{&product, product.FindPart(product.Data().roots.front()).value(), Placement{}};
  for (std::size_t i = 0; i < path.size(); ++i) {
    const auto instances = product.InstancesIn(selection.part);
    const auto found = std::find_if(instances.begin(), instances.end(), [&](std::uint32_t instance) {
      return product.InstanceAt(instance).id == path[i];
    });
    if (found == instances.end())
      return Error{ErrorKind::NotFound, "element " + std::to_string(i + 1) +
                                            " of the instance path: there is no instance " + Quoted(path[i]) +
                                            " in part " + Quoted(product.PartAt(selection.part).id)};
    selection.part = product.ChildOf(*found);
    selection.placement = *selection.placement * product.InstanceAt(*found).placement;
  }
  return selection;
}

// A part without a path stands somewhere definite only when the product has it once.
Selection SelectAnywhere(OpenProduct& product, std::uint32_t part) {
  Selection selection{&product, part, std::nullopt};
  const FoundOccurrences found = OccurrencesOf(product, part, 1);
  if (found.cut || found.hits.size() != 1) return selection;
  selection.placement = Placement{};
  for (std::uint32_t instance : found.hits[0].instances)
    selection.placement = *selection.placement * product.InstanceAt(instance).placement;
  return selection;
}

Result<Selection> Select(Session& session, const protocol::PartDataRequest& request) {
  const auto product = OpenFor(session, request);
  if (!product) return product.Failure();
  auto selection = Follow(*product.Value(), request.instancePath);
  if (!selection || request.partId.empty()) return selection;
  const auto part = product.Value()->PartIndex(request.partId);
  if (!part) return part.Failure();
  if (part.Value() == selection.Value().part) return selection;
  if (request.instancePath.empty()) return SelectAnywhere(*product.Value(), part.Value());
  return Error{ErrorKind::BadValue, "the instance path leads to part " +
                                        Quoted(product.Value()->PartAt(selection.Value().part).id) +
                                        ", not to " + Quoted(request.partId)};
}

// Whether a compute would take the filter; nothing is laid out for it.
Result<void> CheckFilter(const OpenProduct& product, const protocol::Filter& filter) {
  if (filter.LetsAllPass()) return {};
  if (filter.kind == protocol::Filter::Kind::User) {
    const auto chosen = ChosenOccurrences::Find(product.Structure(), filter.rows);
    return chosen ? Result<void>() : chosen.Failure();
  }
  const auto named = product.FilterNamed(filter.name);
  return named ? Result<void>() : named.Failure();
}

std::vector<double> ToNumbers(const Placement& placement) {
  std::vector<double> numbers(placement.rotation.m.begin(), placement.rotation.m.end());
  const Vec3& t = placement.translation;
  numbers.insert(numbers.end(), {t.x, t.y, t.z});
  return numbers;
}

std::string Joined(const std::vector<std::string>& elements) {
  std::string text;
  for (const std::string& element : elements) text += (text.empty() ? "" : "|") + element;
  return text;
}

// What a request is about: what was stored is the result of the whole product, and says nothing of a part of
// it that a filter leaves.
enum class Counts { Whole, WhatAFilterLeaves };

protocol::MassType ComputedTypeOf(const OpenProduct& product, const Part& part, Counts counts) {
  const StoredResult* result = counts == Counts::Whole ? product.ResultOf(part.id) : nullptr;
  const MassTypeData none{
      .name = std::string(kComputedMassType), .properties = {}, .deviations = {}, .bounds = {}};
  if (result == nullptr) return ToWire(none, protocol::MassTypeStatus::Undefined);
  return ToWire(result->computed, product.ComputedStatus(part.id));
}

// The part itself is the one that is stored now, in one piece with its details and its state: the product in
// memory may be a little older or newer.
PartData MakePartData(const Selection& selection, const protocol::PartDataRequest& request,
                      const StoredPart& stored, Counts counts) {
  const OpenProduct& product = *selection.product;
  const auto& [part, details, state] = stored;
  PartData data;
  data.partId = part.id;
  data.instancePath = Joined(request.instancePath);
  data.configurationHandler = product.Data().id;
  data.filter = request.filter;
  data.hasInstance = true;  // whatever the server tells of is in the PDM
  const PartData values = SavedDataOf(part, details);
  data.massTypes = values.massTypes;
  data.massTypes.front() = ComputedTypeOf(product, part, counts);
  data.computed = data.massTypes.front().status == protocol::MassTypeStatus::Defined;
  // What was computed can be computed again; a compute leaves this as the client has it.
  data.persisted = !part.massTypes.empty();
  if (selection.placement) data.placement = ToNumbers(*selection.placement);
  data.material.referenceName = details.referenceMaterial;
  data.material.referenceDensity = details.referenceDensity;
  data.material.statistics = MaterialStatistics(product.Structure(), selection.part);
  data.properties = details.properties;
  data.propertiesRequested = !data.properties.empty();
  if (data.propertiesRequested) data.dateFormat = kDateFormat;
  data.stateToken = ToToken(state);
  PutSavedValues(data, values);
  data.documents = details.documents;
  return data;
}

}  // namespace

Result<PartData> PartDataOf(Session& session, const protocol::PartDataRequest& request) {
  const auto filter = protocol::ReadFilter(request.filter);
  if (!filter) return filter.Failure();
  const auto selection = Select(session, request);
  if (!selection) return selection.Failure();
  if (const auto good = CheckFilter(*selection.Value().product, filter.Value()); !good) return good.Failure();
  const auto stored = session.store.LoadPart(selection.Value().product->PartAt(selection.Value().part).id);
  if (!stored) return stored.Failure();
  const Counts counts = filter.Value().LetsAllPass() ? Counts::Whole : Counts::WhatAFilterLeaves;
  return MakePartData(selection.Value(), request, stored.Value(), counts);
}

Result<std::string> GetPartData(Session& session, std::string_view text) {
  const auto request = protocol::ReadPartDataRequest(text);
  if (!request) return request.Failure();
  const auto data = PartDataOf(session, request.Value());
  if (!data) return data.Failure();
  return protocol::WritePartData(data.Value());
}

}  // namespace lumira
