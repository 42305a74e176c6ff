#include "desktop/app/PdmCommands.h"

#include "framework/pdm/KorPdmClient.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"

namespace desktop {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

Result<std::string> Run(std::string_view command, const std::string& request) {
  VARIANT sent, received;
  BuildVariant(KorUnicodeString(request), sent);
  if (Failed(RunServerCode(command, sent, received)))
    return Error{ErrorKind::NotFound,
                 "no product is open: the command \"" + std::string(command) + "\" was not sent"};
  std::string reply = received.text.Utf8();
  if (!protocol::IsErrorReply(reply)) return reply;
  return Error{ErrorKind::BadValue,
               reply.substr(reply.find(protocol::kErrorHeader) + protocol::kErrorHeader.size())};
}

template <class Reply>
Result<Reply> RunAndRead(std::string_view command, const std::string& request,
                         Result<Reply> (*read)(std::string_view)) {
  const auto reply = Run(command, request);
  if (!reply) return reply.Failure();
  return read(reply.Value());
}

}  // namespace

Result<protocol::ProductList> GetProducts() {
  return RunAndRead(protocol::kCommandProducts, {}, protocol::ReadProductList);
}

Result<protocol::TreeNodes> GetChildren(const protocol::ChildrenRequest& request) {
  return RunAndRead(protocol::kCommandChildren, protocol::WriteChildrenRequest(request),
                    protocol::ReadTreeNodes);
}

Result<protocol::SearchReply> SearchTree(const protocol::SearchRequest& request) {
  return RunAndRead(protocol::kCommandSearch, protocol::WriteSearchRequest(request),
                    protocol::ReadSearchReply);
}

Result<std::string> GetPartDataText(const protocol::PartDataRequest& request) {
  return Run(protocol::kCommandPartData, protocol::WritePartDataRequest(request));
}

Result<protocol::SaveReply> SavePart(const std::string& partDataText) {
  return RunAndRead(protocol::kCommandSavePart, partDataText, protocol::ReadSaveReply);
}

Result<protocol::History> GetHistory(const protocol::HistoryRequest& request) {
  return RunAndRead(protocol::kCommandHistory, protocol::WriteHistoryRequest(request), protocol::ReadHistory);
}

Result<protocol::PartData> GetHistoryState(const protocol::HistoryStateRequest& request) {
  return RunAndRead(protocol::kCommandHistoryState, protocol::WriteHistoryStateRequest(request),
                    protocol::ReadPartData);
}

Result<protocol::CurrentRoot> SetCurrentRoot(const protocol::RootRequest& request) {
  return RunAndRead(protocol::kCommandSetCurrentRoot, protocol::WriteRootRequest(request),
                    protocol::ReadCurrentRoot);
}

Result<protocol::FilterList> GetConfigFilters(const protocol::FiltersRequest& request) {
  return RunAndRead(protocol::kCommandFilters, protocol::WriteFiltersRequest(request),
                    protocol::ReadFilterList);
}

Result<protocol::PendingWarnings> GetFindings() {
  return RunAndRead(protocol::kCommandFindings, {}, protocol::ReadPendingWarnings);
}

}  // namespace desktop
