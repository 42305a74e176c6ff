#include <algorithm>
#include <limits>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/TreeNodes.h"
#include "lumira/commands/TreeSearch.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

// Of the active mass type; of the computed one only as far as it has been computed.
std::optional<double> KnownMass(const OpenProduct& product, const Part& part) {
  if (const MassTypeData* active = FindMassType(part, part.activeMassType)) return active->properties.mass;
  const StoredResult* result = product.ResultOf(part.id);
  return result == nullptr ? std::nullopt : result->computed.properties.mass;
}

int ToInt(std::int64_t count) {
  return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

protocol::ProductEntry MakeEntry(const OpenProduct& product) {
  protocol::ProductEntry entry;
  entry.product = product.Data().id;
  entry.root = MakeTreeNode(product, product.FindPart(product.Data().roots.front()).value(), nullptr);
  for (const ConfigurationFilter& filter : product.Filters()) entry.filters.push_back(filter.name);
  return entry;
}

protocol::Occurrence MakeOccurrence(const OpenProduct& product, const FoundOccurrence& found) {
  protocol::Occurrence occurrence;
  for (std::uint32_t instance : found.instances) occurrence.instancePath.push_back(product.InstanceAt(instance).id);
  if (found.instances.empty())
    occurrence.node = MakeTreeNode(product, found.root, nullptr);
  else
    occurrence.node = MakeTreeNode(product, product.ChildOf(found.instances.back()),
                                   &product.InstanceAt(found.instances.back()));
  return occurrence;
}

}  // namespace

protocol::TreeNode MakeTreeNode(const OpenProduct& product, std::uint32_t index, const Instance* instance) {
  const Part& part = product.PartAt(index);
  return {.instanceId = instance == nullptr ? std::string() : instance->id,
          .partId = part.id,
          .name = part.name,
          .revision = part.revision,
          .quantity = instance == nullptr ? 1 : ToInt(instance->quantity),
          .hasChildren = !product.InstancesIn(index).empty(),
          .computedStatus = product.ComputedStatus(part.id),
          .mass = KnownMass(product, part)};
}

Result<std::string> GetProducts(Session& session, std::string_view request) {
  if (!request.empty())
    return Error{ErrorKind::BadText, "the request should be empty, it is " + protocol::Quoted(request)};
  const auto infos = session.store.Products();
  if (!infos) return infos.Failure();
  protocol::ProductList list;
  for (const ProductInfo& info : infos.Value()) {
    const auto product = session.products.Open(info.id);
    if (!product) return product.Failure();
    list.products.push_back(MakeEntry(*product.Value()));
  }
  return protocol::WriteProductList(list);
}

Result<std::string> GetChildren(Session& session, std::string_view text) {
  const auto request = protocol::ReadChildrenRequest(text);
  if (!request) return request.Failure();
  const auto product = session.products.OpenForPart(request.Value().partId);
  if (!product) return product.Failure();
  const auto part = product.Value()->PartIndex(request.Value().partId);
  if (!part) return part.Failure();

  const auto instances = product.Value()->InstancesIn(part.Value());
  const auto first = std::min<std::size_t>(static_cast<std::size_t>(request.Value().first), instances.size());
  const auto count = std::min<std::size_t>(static_cast<std::size_t>(request.Value().limit), instances.size() - first);
  protocol::TreeNodes reply{request.Value().partId, ToInt(std::ssize(instances)), request.Value().first, {}};
  for (std::uint32_t instance : instances.subspan(first, count))
    reply.nodes.push_back(MakeTreeNode(*product.Value(), product.Value()->ChildOf(instance),
                                       &product.Value()->InstanceAt(instance)));
  return protocol::WriteTreeNodes(reply);
}

Result<std::string> SearchTree(Session& session, std::string_view text) {
  const auto request = protocol::ReadSearchRequest(text);
  if (!request) return request.Failure();
  const auto product = session.products.Open(request.Value().product);
  if (!product) return product.Failure();
  const auto found =
      SearchOccurrences(*product.Value(), request.Value().text, static_cast<std::size_t>(request.Value().limit));
  protocol::SearchReply reply{found.cut, {}};
  for (const FoundOccurrence& hit : found.hits) reply.hits.push_back(MakeOccurrence(*product.Value(), hit));
  return protocol::WriteSearchReply(reply);
}

}  // namespace lumira
