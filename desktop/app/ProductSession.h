#pragma once

#include <memory>
#include <string>

#include "desktop/app/EmbeddedTransport.h"

namespace desktop {

/// The product file that is open, with its server; the PDM client speaks to it.
class ProductSession {
 public:
  ProductSession() = default;
  ~ProductSession();
  ProductSession(const ProductSession&) = delete;
  ProductSession& operator=(const ProductSession&) = delete;

  /// On failure what was open stays open.
  protocol::Result<void> Open(const std::string& file, lumira::Progress progress = {});

  bool IsOpen() const { return _transport != nullptr; }
  /// Only while a product is open.
  EmbeddedTransport& Transport() const { return *_transport; }

 private:
  std::unique_ptr<EmbeddedTransport> _transport;
};

}  // namespace desktop
