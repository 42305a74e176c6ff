#include "desktop/app/ProductSession.h"

#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"

namespace desktop {
namespace {

/// The reply, or the failure that it tells of.
protocol::Result<std::string> Ask(EmbeddedTransport& server, std::string_view command,
                                  const std::string& request) {
  std::string reply = server.Run(std::string(command), request);
  if (!protocol::IsErrorReply(reply)) return reply;
  return protocol::Error{protocol::ErrorKind::Storage, reply.substr(protocol::kErrorHeader.size())};
}

/// A file may open and still be damaged inside. It is of use when it is empty, or when at least one of its
/// products can be shown.
protocol::Result<void> CheckContent(EmbeddedTransport& server) {
  const auto reply = Ask(server, protocol::kCommandProducts, "");
  if (!reply) return reply.Failure();
  const auto list = protocol::ReadProductList(reply.Value());
  if (!list) return list.Failure();
  protocol::Result<void> firstFailure;
  for (const protocol::ProductEntry& product : list.Value().products) {
    const auto children =
        Ask(server, protocol::kCommandChildren, protocol::WriteChildrenRequest({product.root.partId, 0, 1}));
    if (children) return {};
    if (firstFailure) firstFailure = children.Failure();
  }
  return firstFailure;
}

}  // namespace

ProductSession::~ProductSession() { KorPdmClient::SetTransport(nullptr); }

protocol::Result<void> ProductSession::Open(const std::string& file, lumira::Progress progress) {
  auto transport = EmbeddedTransport::Open(file, std::move(progress));
  if (!transport) return transport.Failure();
  if (const auto sound = CheckContent(*transport.Value()); !sound) return sound;
  KorPdmClient::SetTransport(transport.Value().get());
  _transport = std::move(transport).Value();
  return {};
}

}  // namespace desktop
