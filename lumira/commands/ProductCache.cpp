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
  const auto loaded = FindLoaded(*info);
  return !loaded || loaded.Value() != nullptr ? loaded : Load(*info);
}

Result<OpenProduct*> ProductCache::FindLoaded(const ProductInfo& info) {
  const auto open = _open.find(info.id);
  if (open == _open.end() || open->second->State().data != info.state) return nullptr;
  OpenProduct& product = *open->second;
  if (product.State().results == info.resultState) return &product;
  auto results = _store.LoadResults(info.id);
  if (!results) return results.Failure();
  product.ReplaceResults(std::move(results).Value(), info.resultState);
  return &product;
}

Result<OpenProduct*> ProductCache::Load(const ProductInfo& info) {
  Forget(info.id);
  auto product = _store.LoadProduct(info.id, _progress);
  if (!product) return product.Failure();
  if (product.Value().roots.size() != 1)
    return _store.Damage("product " + protocol::Quoted(info.id) + " has " +
                         std::to_string(product.Value().roots.size()) + " root parts, not one");
  auto results = _store.LoadResults(info.id);
  if (!results) return results.Failure();
  auto filters = _store.LoadFilters(info.id);
  if (!filters) return filters.Failure();
  const std::size_t parts = product.Value().parts.size();
  Report(_progress, "Computing", 0, parts);
  auto open =
      std::make_unique<OpenProduct>(std::move(product).Value(), ProductState{info.state, info.resultState},
                                    std::move(results).Value(), std::move(filters).Value());
  Report(_progress, "Computing", parts, parts);
  // A structure that cannot be laid out cannot be walked through either. The import lets none in.
  if (!open->Computation()) return _store.Damage(open->Computation().Failure().message);
  return (_open[info.id] = std::move(open)).get();
}

Result<OpenProduct*> ProductCache::OpenForPart(std::string_view partId) {
  const auto product = _store.ProductOfPart(partId);
  if (!product) return product.Failure();
  return Open(product.Value());
}

// A product that somebody else has changed before the save is loaded anew with its next use, as ever.
void ProductCache::TakeSaved(const Part& part, const SavedState& saved) {
  const auto open = _open.find(saved.product);
  if (open == _open.end() || open->second->State().data != saved.productBefore) return;
  if (saved.productAfter == saved.productBefore) return;
  if (const auto index = open->second->FindPart(part.id))
    open->second->TakeSaved(*index, part, saved.productAfter);
}

}  // namespace lumira
