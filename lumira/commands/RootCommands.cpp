#include "lumira/commands/Commands.h"
#include "lumira/commands/EmptyRequest.h"
#include "protocol/Codec.h"

namespace lumira {
namespace {

using protocol::ErrorKind;
using protocol::Result;

Result<protocol::CurrentRoot> RootOf(Store& store, const std::string& product) {
  if (product.empty()) return protocol::CurrentRoot{};
  const auto root = store.LoadRoot(product);
  if (!root) return root.Failure();
  const Part& part = root.Value().part;
  return protocol::CurrentRoot{{{part.id, product}}, part.name.empty() ? part.id : part.name};
}

}  // namespace

// A product that has vanished is no current root any more, and does not become it again when it comes back.
Result<std::string> GetCurrentRoot(Session& session, std::string_view request) {
  if (const auto empty = CheckIsEmpty(request); !empty) return empty.Failure();
  auto root = RootOf(session.store, session.currentRoot);
  if (!root && root.Failure().kind == ErrorKind::NotFound) {
    session.currentRoot.clear();
    root = protocol::CurrentRoot{};
  }
  if (!root) return root.Failure();
  return protocol::WriteCurrentRoot(root.Value());
}

Result<std::string> SetCurrentRoot(Session& session, std::string_view text) {
  const auto request = protocol::ReadRootRequest(text);
  if (!request) return request.Failure();
  const auto root = RootOf(session.store, request.Value().product);
  if (!root) return root.Failure();
  session.currentRoot = request.Value().product;
  return protocol::WriteCurrentRoot(root.Value());
}

}  // namespace lumira
