#include "protocol/Codec.h"

#include "protocol/Forms.h"
#include "protocol/Limits.h"
#include "protocol/Utf8.h"
#include "protocol/WholeForm.h"

namespace protocol {
namespace {

Error BadField(std::string_view form, int number, std::string_view name, const std::string& reason) {
  return {ErrorKind::BadText, std::string(form) + ": field " + std::to_string(number) + " (" +
                                  std::string(name) + "): " + reason};
}

constexpr std::string_view kComputeRequest = "ComputeRequest";
constexpr std::string_view kDocumentRequest = "DocumentRequest";

// Why a field that stands in a request as it is cannot be one.
Result<void> CheckBareField(std::string_view form, int number, std::string_view name,
                            std::string_view value) {
  const auto refuse = [&](const std::string& reason) { return BadField(form, number, name, reason); };
  if (value.empty()) return refuse("is empty");
  if (value.find('|') != value.npos) return refuse(Quoted(value) + " holds \"|\"");
  if (value.size() > kMaxFieldBytes)
    return refuse(Quoted(value) + " longer than " + std::to_string(kMaxFieldBytes) + " bytes");
  if (const std::string problem = ProblemOfBytes(value); !problem.empty())
    return refuse(Quoted(value) + " " + problem);
  return {};
}

}  // namespace

std::string WritePartData(const PartData& data) { return WriteForm(data); }
Result<PartData> ReadPartData(std::string_view text) { return ReadForm<PartData>(text); }

std::string WriteSaveReply(const SaveReply& reply) { return WriteForm(reply); }
Result<SaveReply> ReadSaveReply(std::string_view text) { return ReadForm<SaveReply>(text); }

std::string WriteComputeOptions(const ComputeOptions& options) { return WriteForm(options); }
Result<ComputeOptions> ReadComputeOptions(std::string_view text) { return ReadForm<ComputeOptions>(text); }

std::string WriteComputeReply(const ComputeReply& reply) { return WriteForm(reply); }
Result<ComputeReply> ReadComputeReply(std::string_view text) { return ReadForm<ComputeReply>(text); }

std::string WritePartDataRequest(const PartDataRequest& request) { return WriteForm(request); }
Result<PartDataRequest> ReadPartDataRequest(std::string_view text) { return ReadForm<PartDataRequest>(text); }

std::string WriteChildrenRequest(const ChildrenRequest& request) { return WriteForm(request); }
Result<ChildrenRequest> ReadChildrenRequest(std::string_view text) { return ReadForm<ChildrenRequest>(text); }

std::string WriteSearchRequest(const SearchRequest& request) { return WriteForm(request); }
Result<SearchRequest> ReadSearchRequest(std::string_view text) { return ReadForm<SearchRequest>(text); }

std::string WriteTreeNodes(const TreeNodes& nodes) { return WriteForm(nodes); }
Result<TreeNodes> ReadTreeNodes(std::string_view text) { return ReadForm<TreeNodes>(text); }

std::string WriteProductList(const ProductList& products) { return WriteForm(products); }
Result<ProductList> ReadProductList(std::string_view text) { return ReadForm<ProductList>(text); }

std::string WriteSearchReply(const SearchReply& reply) { return WriteForm(reply); }
Result<SearchReply> ReadSearchReply(std::string_view text) { return ReadForm<SearchReply>(text); }

std::string WritePendingWarnings(const PendingWarnings& warnings) { return WriteForm(warnings); }
Result<PendingWarnings> ReadPendingWarnings(std::string_view text) { return ReadForm<PendingWarnings>(text); }

std::string WriteRootRequest(const RootRequest& request) { return WriteForm(request); }
Result<RootRequest> ReadRootRequest(std::string_view text) { return ReadForm<RootRequest>(text); }

std::string WriteCurrentRoot(const CurrentRoot& root) { return WriteForm(root); }
Result<CurrentRoot> ReadCurrentRoot(std::string_view text) { return ReadForm<CurrentRoot>(text); }

std::string WriteFiltersRequest(const FiltersRequest& request) { return WriteForm(request); }
Result<FiltersRequest> ReadFiltersRequest(std::string_view text) { return ReadForm<FiltersRequest>(text); }

std::string WriteFilterList(const FilterList& filters) { return WriteForm(filters); }
Result<FilterList> ReadFilterList(std::string_view text) { return ReadForm<FilterList>(text); }

std::string WriteHandlerRequest(const HandlerRequest& request) { return WriteForm(request); }
Result<HandlerRequest> ReadHandlerRequest(std::string_view text) { return ReadForm<HandlerRequest>(text); }

std::string WriteConfigurationHandler(const ConfigurationHandler& handler) { return WriteForm(handler); }
Result<ConfigurationHandler> ReadConfigurationHandler(std::string_view text) {
  return ReadForm<ConfigurationHandler>(text);
}

std::string WriteHistoryRequest(const HistoryRequest& request) { return WriteForm(request); }
Result<HistoryRequest> ReadHistoryRequest(std::string_view text) { return ReadForm<HistoryRequest>(text); }

std::string WriteHistory(const History& history) { return WriteForm(history); }
Result<History> ReadHistory(std::string_view text) { return ReadForm<History>(text); }

std::string WriteHistoryStateRequest(const HistoryStateRequest& request) { return WriteForm(request); }
Result<HistoryStateRequest> ReadHistoryStateRequest(std::string_view text) {
  return ReadForm<HistoryStateRequest>(text);
}

std::string WriteComputeRequest(const ComputeRequest& request) {
  return std::string(request.hasInstance ? "1|" : "0|") + request.partId + "|" +
         WriteComputeOptions(request.options);
}

Result<ComputeRequest> ReadComputeRequest(std::string_view text) {
  if (const std::string problem = ProblemOfSize(text); !problem.empty())
    return Error{ErrorKind::BadText, "ComputeRequest: " + problem};
  const std::size_t afterFlag = text.find('|');
  const std::string_view flag = text.substr(0, afterFlag);
  if (flag != "0" && flag != "1")
    return BadField(kComputeRequest, 1, "instance flag", Quoted(flag) + " is neither 0 nor 1");
  if (afterFlag == text.npos) return BadField(kComputeRequest, 2, "partId", "is missing");
  text.remove_prefix(afterFlag + 1);

  const std::size_t afterPart = text.find('|');
  if (afterPart == text.npos) return BadField(kComputeRequest, 3, "options", "is missing");
  const std::string_view part = text.substr(0, afterPart);
  if (auto good = CheckBareField(kComputeRequest, 2, "partId", part); !good) return good.Failure();
  ComputeRequest request{.hasInstance = flag == "1", .partId = std::string(part), .options = {}};

  // A client that has no options to tell sends the request all the same; the defaults hold.
  const std::string_view options = text.substr(afterPart + 1);
  if (options.empty()) return request;
  auto read = ReadComputeOptions(options);
  if (!read)
    return Error{read.Failure().kind,
                 BadField(kComputeRequest, 3, "options", read.Failure().message).message};
  request.options = std::move(read).Value();
  return request;
}

std::string WriteDocumentRequest(const DocumentRequest& request) {
  return request.documentId + "|" + request.revision;
}

Result<DocumentRequest> ReadDocumentRequest(std::string_view text) {
  if (const std::string problem = ProblemOfSize(text); !problem.empty())
    return Error{ErrorKind::BadText, std::string(kDocumentRequest) + ": " + problem};
  const std::size_t separator = text.find('|');
  if (separator == text.npos) return BadField(kDocumentRequest, 2, "revision", "is missing");
  const std::string_view id = text.substr(0, separator), revision = text.substr(separator + 1);
  if (auto good = CheckBareField(kDocumentRequest, 1, "documentId", id); !good) return good.Failure();
  if (auto good = CheckBareField(kDocumentRequest, 2, "revision", revision); !good) return good.Failure();
  return DocumentRequest{std::string(id), std::string(revision)};
}

}  // namespace protocol
