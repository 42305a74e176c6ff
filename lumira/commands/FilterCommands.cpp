#include "lumira/commands/Commands.h"
#include "lumira/engine/ExcludedInstances.h"
#include "lumira/model/Counted.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

// "Leaves out 9 of 30 instances", behind what its maker says of the filter.
std::string Summary(const StructureIndex& structure, const ConfigurationFilter& filter) {
  const std::string before = filter.description.empty() ? "" : filter.description + " - ";
  const auto excluded = ExcludedInstances(structure, filter);
  if (!excluded) return before + "Cannot be applied: " + excluded.Failure().message;
  const std::size_t leftOut = CountLeftOut(structure, excluded.Value());
  return before + "Leaves out " + std::to_string(leftOut) + " of " +
         Counted(structure.Data().instances.size(), {"instance", "instances"});
}

Result<void> CheckRoot(const OpenProduct& product, const std::string& rootPart) {
  const std::string& root = product.Data().roots.front();
  if (rootPart.empty() || rootPart == root) return {};
  return Error{ErrorKind::BadValue, "the root part of product " + Quoted(product.Data().id) + " is " +
                                        Quoted(root) + ", not " + Quoted(rootPart)};
}

}  // namespace

Result<std::string> GetConfigurationFilters(Session& session, std::string_view text) {
  const auto request = protocol::ReadFiltersRequest(text);
  if (!request) return request.Failure();
  const auto& [rootParts, products] = request.Value();
  if (rootParts.size() != products.size())
    return Error{ErrorKind::BadValue, "the request has " +
                                          Counted(rootParts.size(), {"root part", "root parts"}) + " for " +
                                          Counted(products.size(), {"product", "products"})};
  protocol::FilterList list;
  for (std::size_t i = 0; i < products.size(); ++i) {
    const auto product = session.products.Open(products[i]);
    if (!product) return product.Failure();
    if (const auto good = CheckRoot(*product.Value(), rootParts[i]); !good) return good.Failure();
    for (const ConfigurationFilter& filter : product.Value()->Filters())
      list.filters.push_back(
          {products[i] + "/" + filter.name, filter.name, Summary(product.Value()->Structure(), filter)});
  }
  return protocol::WriteFilterList(list);
}

Result<std::string> GetConfigurationHandler(Session& session, std::string_view text) {
  const auto request = protocol::ReadHandlerRequest(text);
  if (!request) return request.Failure();
  const auto handler = session.store.LoadHandler(request.Value().product);
  if (!handler) return handler.Failure();
  return protocol::WriteConfigurationHandler({request.Value().product, handler.Value()});
}

Result<std::string> SetConfigurationHandler(Session& session, std::string_view text) {
  const auto request = protocol::ReadConfigurationHandler(text);
  if (!request) return request.Failure();
  const auto saved = session.store.SaveHandler(request.Value().product, request.Value().name);
  if (!saved) return saved.Failure();
  return protocol::WriteConfigurationHandler(request.Value());
}

}  // namespace lumira
