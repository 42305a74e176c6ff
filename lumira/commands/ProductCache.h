#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "lumira/commands/OpenProduct.h"
#include "lumira/model/Progress.h"
#include "lumira/store/Store.h"

namespace lumira {

/// Keeps products loaded as long as the store says that they have not changed. Results that others have saved
/// meanwhile are read again, without the rest.
class ProductCache {
 public:
  ProductCache(Store& store, Progress progress) : _store(store), _progress(std::move(progress)) {}

  /// The product, loaded anew when anybody has changed it. Lives until the next call.
  protocol::Result<OpenProduct*> Open(std::string_view productId);

  /// The product when it is loaded and has not changed since, with all results of now; nullptr otherwise.
  protocol::Result<OpenProduct*> FindLoaded(const ProductInfo& info);

  /// The product that a part belongs to.
  protocol::Result<OpenProduct*> OpenForPart(std::string_view partId);

  /// Takes a part that this session has just saved, so that its product need not be loaded anew.
  void TakeSaved(const Part& part, const SavedState& saved);

  /// Loads the product from the store with its next use, changed or not.
  void Forget(std::string_view productId) { _open.erase(std::string(productId)); }

 private:
  protocol::Result<OpenProduct*> Load(const ProductInfo& info);

  Store& _store;
  Progress _progress;
  std::map<std::string, std::unique_ptr<OpenProduct>> _open;
};

}  // namespace lumira
