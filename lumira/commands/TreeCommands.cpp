#include <algorithm>
#include <limits>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/EmptyRequest.h"
#include "lumira/commands/Page.h"
#include "lumira/commands/TreeNodes.h"
#include "lumira/commands/TreeSearch.h"
#include "protocol/Codec.h"
#include "protocol/Limits.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

// Of the active mass type; of the computed one only as far as it has been computed.
std::optional<double> KnownMass(const Part& part, const StoredResult* result) {
  if (const MassTypeData* active = FindMassType(part, part.activeMassType)) return active->properties.mass;
  return result == nullptr ? std::nullopt : result->computed.properties.mass;
}

int ToInt(std::int64_t count) {
  return static_cast<int>(std::min<std::int64_t>(count, std::numeric_limits<int>::max()));
}

// The root of a product that is not loaded. Everything that its result depends on is in the product, so that
// the result is up to date when the product has not changed at all. When it has, only loading could tell.
protocol::TreeNode MakeRootNode(const ProductRoot& root, std::int64_t state) {
  protocol::TreeNode node = {.partId = root.part.id,
                             .name = root.part.name,
                             .revision = root.part.revision,
                             .hasChildren = root.hasChildren,
                             .mass = KnownMass(root.part, root.result ? &*root.result : nullptr)};
  if (root.result)
    node.computedStatus =
        root.result->state == state ? protocol::MassTypeStatus::Defined : protocol::MassTypeStatus::OutOfDate;
  return node;
}

// The root as a line of the tree, from the loaded product or from the store alone.
Result<protocol::TreeNode> RootNode(Session& session, const ProductInfo& info) {
  const auto loaded = session.products.FindLoaded(info);
  if (!loaded) return loaded.Failure();
  if (const OpenProduct* product = loaded.Value())
    return MakeTreeNode(*product, product->FindPart(product->Data().roots.front()).value(), nullptr);
  const auto root = session.store.LoadRoot(info.id);
  if (!root) return root.Failure();
  return MakeRootNode(root.Value(), info.state);
}

// The list of products. One that cannot be read is listed all the same, with what is known of it, and the
// reason stands beside the list: the others can be opened.
class Listing {
 public:
  explicit Listing(Session& session) : _session(session) {}

  void Add(const ProductInfo& info) {
    if (info.damage) Complain(info.id, *info.damage);
    if (info.id.empty()) return;  // it could not even be asked for
    protocol::ProductEntry entry{.product = info.id, .root = {}, .filters = {}};
    if (!info.damage) Fill(entry, info);
    _list.products.push_back(std::move(entry));
  }

  const protocol::ProductList& List() const { return _list; }

 private:
  void Fill(protocol::ProductEntry& entry, const ProductInfo& info) {
    if (!info.roots.empty()) entry.root.partId = info.roots.front();
    auto root = RootNode(_session, info);
    if (root)
      entry.root = std::move(root).Value();
    else
      Complain(info.id, root.Failure());
    const auto filters = _session.store.LoadFilters(info.id);
    if (!filters) return Complain(info.id, filters.Failure());
    for (const ConfigurationFilter& filter : filters.Value()) entry.filters.push_back(filter.name);
  }

  void Complain(const std::string& product, const Error& error) {
    const std::string whose = product.empty() ? "a product" : "product " + protocol::Quoted(product);
    _list.problems.push_back(whose + ": " + error.message);
  }

  Session& _session;
  protocol::ProductList _list;
};

std::size_t BytesOf(const protocol::TreeNode& node) {
  return node.instanceId.size() + node.partId.size() + node.name.size() + node.revision.size();
}

std::size_t BytesOf(const protocol::Occurrence& occurrence) {
  std::size_t bytes = BytesOf(occurrence.node);
  for (const std::string& element : occurrence.instancePath) bytes += element.size();
  return bytes;
}

protocol::Occurrence MakeOccurrence(const OpenProduct& product, const FoundOccurrence& found) {
  protocol::Occurrence occurrence;
  for (std::uint32_t instance : found.instances)
    occurrence.instancePath.push_back(product.InstanceAt(instance).id);
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
          .mass = KnownMass(part, product.ResultOf(part.id))};
}

Result<std::string> GetProducts(Session& session, std::string_view request) {
  if (const auto empty = CheckIsEmpty(request); !empty) return empty.Failure();
  const auto infos = session.store.Products();
  if (!infos) return infos.Failure();
  Listing listing(session);
  for (const ProductInfo& info : infos.Value()) listing.Add(info);
  return protocol::WriteProductList(listing.List());
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
  const auto count =
      std::min<std::size_t>(static_cast<std::size_t>(request.Value().limit), instances.size() - first);
  protocol::TreeNodes reply{request.Value().partId, ToInt(std::ssize(instances)), request.Value().first, {}};
  Page<protocol::TreeNode> page(reply.nodes);
  for (std::uint32_t instance : instances.subspan(first, count)) {
    protocol::TreeNode node = MakeTreeNode(*product.Value(), product.Value()->ChildOf(instance),
                                           &product.Value()->InstanceAt(instance));
    const std::size_t bytes = BytesOf(node);
    if (!page.Add(std::move(node), bytes)) break;
  }
  return protocol::WriteTreeNodes(reply);
}

Result<std::string> SearchTree(Session& session, std::string_view text) {
  const auto request = protocol::ReadSearchRequest(text);
  if (!request) return request.Failure();
  const auto product = session.products.Open(request.Value().product);
  if (!product) return product.Failure();
  const auto found = SearchOccurrences(*product.Value(), request.Value().text,
                                       static_cast<std::size_t>(request.Value().limit));
  protocol::SearchReply reply{found.cut, {}};
  Page<protocol::Occurrence> page(reply.hits);
  for (const FoundOccurrence& hit : found.hits) {
    protocol::Occurrence occurrence = MakeOccurrence(*product.Value(), hit);
    const std::size_t bytes = BytesOf(occurrence);
    if (page.Add(std::move(occurrence), bytes)) continue;
    reply.cut = true;
    break;
  }
  return protocol::WriteSearchReply(reply);
}

}  // namespace lumira
