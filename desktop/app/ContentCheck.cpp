#include "desktop/app/ContentCheck.h"

#include "protocol/Codec.h"
#include "protocol/Constants.h"

namespace desktop {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;
using protocol::StoredData;

/// The failure with what it says of the stored data. The store tells that of its own failures; a text that
/// the server made of the content and nobody can read speaks against the content.
Error Judged(Error error) {
  if (error.kind == ErrorKind::BadText || error.kind == ErrorKind::BadValue)
    error.storedData = StoredData::Unusable;
  return error;
}

/// The beginning of what the product tree asks for. The root of a product that cannot be told whole is not
/// known; then the product itself is asked for, which tells why.
Result<std::string> AskForTop(lumira::Server& server, const protocol::ProductEntry& product) {
  if (product.root.partId.empty())
    return server.Execute(protocol::kCommandSearch, protocol::WriteSearchRequest({product.product, "", 1}));
  return server.Execute(protocol::kCommandChildren,
                        protocol::WriteChildrenRequest({product.root.partId, 0, 1}));
}

Result<void> CheckProduct(lumira::Server& server, const protocol::ProductEntry& product) {
  const auto top = AskForTop(server, product);
  if (!top) return Judged(top.Failure());
  return {};
}

/// What is told of several products that cannot be shown: the first failure, but none that blames the content
/// while another one has not been seen.
void Collect(Result<void>& told, const Result<void>& next) {
  const bool isMilder = !told && told.Failure().storedData == StoredData::Unusable &&
                        next.Failure().storedData == StoredData::NotToBlame;
  if (told || isMilder) told = next;
}

}  // namespace

Result<void> CheckContent(lumira::Server& server) {
  const auto reply = server.Execute(protocol::kCommandProducts, "");
  if (!reply) return Judged(reply.Failure());
  const auto list = protocol::ReadProductList(reply.Value());
  if (!list) return Judged(list.Failure());
  Result<void> told;
  for (const protocol::ProductEntry& product : list.Value().products) {
    const auto shown = CheckProduct(server, product);
    if (shown) return {};
    Collect(told, shown);
  }
  return told;
}

}  // namespace desktop
