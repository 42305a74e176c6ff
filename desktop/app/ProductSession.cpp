#include "desktop/app/ProductSession.h"

#include "framework/pdm/KorPdmClient.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"

namespace desktop {

ProductSession::~ProductSession() { KorPdmClient::SetTransport(nullptr); }

protocol::Result<void> ProductSession::Open(const std::string& file, lumira::Progress progress) {
  auto transport = EmbeddedTransport::Open(file, std::move(progress));
  if (!transport) return transport.Failure();
  // A file may open and still be damaged inside: it must list its products before what is open is given up for it.
  const std::string products = transport.Value()->Run(std::string(protocol::kCommandProducts), "");
  if (protocol::IsErrorReply(products))
    return protocol::Error{protocol::ErrorKind::Storage, products.substr(protocol::kErrorHeader.size())};
  KorPdmClient::SetTransport(transport.Value().get());
  _transport = std::move(transport).Value();
  return {};
}

}  // namespace desktop
