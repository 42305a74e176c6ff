#include "desktop/app/ProductSession.h"

#include <algorithm>

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

bool IsRefusalOfTheMedium(const protocol::Error& error) {
  return error.kind == protocol::ErrorKind::Storage && error.storedData == protocol::StoredData::NotToBlame;
}

/// Whether the medium keeps the content back, such as a lock that came after the opening. A reply of the
/// server tells only the reason; the store below it tells its nature, too.
bool MediumRefuses(lumira::Store& store) {
  const auto products = store.Products();
  if (!products) return IsRefusalOfTheMedium(products.Failure());
  return std::any_of(products.Value().begin(), products.Value().end(), [&](const lumira::ProductInfo& info) {
    const auto product = store.LoadProduct(info.id);
    return !product && IsRefusalOfTheMedium(product.Failure());
  });
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
  if (const auto sound = CheckContent(*transport.Value()); !sound) {
    protocol::Error unsound = sound.Failure();
    if (!MediumRefuses(transport.Value()->Store())) unsound.storedData = protocol::StoredData::Unusable;
    return unsound;
  }
  KorPdmClient::SetTransport(transport.Value().get());
  _transport = std::move(transport).Value();
  return {};
}

}  // namespace desktop
