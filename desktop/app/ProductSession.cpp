#include "desktop/app/ProductSession.h"

#include "desktop/app/ContentCheck.h"
#include "framework/pdm/KorPdmClient.h"

namespace desktop {

ProductSession::~ProductSession() { KorPdmClient::SetTransport(nullptr); }

protocol::Result<void> ProductSession::Open(const std::string& file, lumira::Progress progress) {
  auto transport = EmbeddedTransport::Open(file, std::move(progress));
  if (!transport) return transport.Failure();
  if (const auto sound = CheckContent(transport.Value()->Server()); !sound) return sound.Failure();
  KorPdmClient::SetTransport(transport.Value().get());
  _transport = std::move(transport).Value();
  return {};
}

}  // namespace desktop
