#include "lumira/commands/ProductCache.h"

#include <algorithm>
#include <utility>

#include "protocol/Utf8.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

Result<OpenProduct*> ProductCache::Open(std::string_view productId) {
  const auto products = _store.Products();
  if (!products) return products.Failure();
  const auto info = std::find_if(products.Value().begin(), products.Value().end(),
                                 [&](const ProductInfo& p) { return p.id == productId; });
  if (info == products.Value().end()) {
    Forget(productId);
    return Error{ErrorKind::NotFound, "there is no product " + protocol::Quoted(productId)};
  }
  const auto open = _open.find(info->id);
  if (open != _open.end() && open->second->State() == info->state) return open->second.get();
  return Load(*info);
}

Result<OpenProduct*> ProductCache::Load(const ProductInfo& info) {
  Forget(info.id);
  Report(_progress, "Loading the product", 0, 0);
  auto product = _store.LoadProduct(info.id);
  if (!product) return product.Failure();
  if (product.Value().roots.size() != 1)
    return Error{ErrorKind::BadValue, "product " + protocol::Quoted(info.id) + " has " +
                                          std::to_string(product.Value().roots.size()) + " root parts, not one"};
  auto results = _store.LoadResults(info.id);
  if (!results) return results.Failure();
  auto filters = _store.LoadFilters(info.id);
  if (!filters) return filters.Failure();
  auto open = std::make_unique<OpenProduct>(std::move(product).Value(), info.state, std::move(results).Value(),
                                            std::move(filters).Value());
  // A structure that cannot be laid out cannot be walked through either.
  if (!open->Computation()) return open->Computation().Failure();
  return (_open[info.id] = std::move(open)).get();
}

Result<OpenProduct*> ProductCache::OpenForPart(std::string_view partId) {
  const auto product = _store.ProductOfPart(partId);
  if (!product) return product.Failure();
  return Open(product.Value());
}

}  // namespace lumira
