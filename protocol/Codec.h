#pragma once

#include <string>
#include <string_view>

#include "protocol/Filter.h"
#include "protocol/History.h"
#include "protocol/PartData.h"
#include "protocol/Requests.h"
#include "protocol/Result.h"
#include "protocol/Roots.h"
#include "protocol/Tree.h"
#include "protocol/Warnings.h"

/// Writers and readers of the text forms; docs/protocol.md describes each with an example.
///
/// Every number is written in the shortest form that reads back to the same bits. A writer writes what it is
/// given; not-a-number and infinities are refused by the reader. A reader takes a text whole or refuses it
/// with BadText, naming the field by number (from 1) and name, its value and what was expected, or with
/// Unsupported when the text is of another version. No strict prefix of a written form can be read, since
/// each closes with "end"; a compute request, a document request and a filter are no forms of this kind: cut
/// short they may be another request or filter.
namespace protocol {

std::string WritePartData(const PartData& data);
Result<PartData> ReadPartData(std::string_view text);

std::string WriteSaveReply(const SaveReply& reply);
Result<SaveReply> ReadSaveReply(std::string_view text);

std::string WriteComputeOptions(const ComputeOptions& options);
Result<ComputeOptions> ReadComputeOptions(std::string_view text);

/// `flag|part|options`. The part identifier stands unescaped, as the panels write it, so it may not hold "|";
/// an empty third field means the default options.
std::string WriteComputeRequest(const ComputeRequest& request);
Result<ComputeRequest> ReadComputeRequest(std::string_view text);

/// `document|revision`, both unescaped, as the panels write them; neither may be empty or hold "|".
std::string WriteDocumentRequest(const DocumentRequest& request);
Result<DocumentRequest> ReadDocumentRequest(std::string_view text);

std::string WriteComputeReply(const ComputeReply& reply);
Result<ComputeReply> ReadComputeReply(std::string_view text);

std::string WritePartDataRequest(const PartDataRequest& request);
Result<PartDataRequest> ReadPartDataRequest(std::string_view text);

std::string WriteChildrenRequest(const ChildrenRequest& request);
Result<ChildrenRequest> ReadChildrenRequest(std::string_view text);

std::string WriteSearchRequest(const SearchRequest& request);
Result<SearchRequest> ReadSearchRequest(std::string_view text);

std::string WriteTreeNodes(const TreeNodes& nodes);
Result<TreeNodes> ReadTreeNodes(std::string_view text);

std::string WriteProductList(const ProductList& products);
Result<ProductList> ReadProductList(std::string_view text);

std::string WriteSearchReply(const SearchReply& reply);
Result<SearchReply> ReadSearchReply(std::string_view text);

std::string WritePendingWarnings(const PendingWarnings& warnings);
Result<PendingWarnings> ReadPendingWarnings(std::string_view text);

std::string WriteRootRequest(const RootRequest& request);
Result<RootRequest> ReadRootRequest(std::string_view text);

std::string WriteCurrentRoot(const CurrentRoot& root);
Result<CurrentRoot> ReadCurrentRoot(std::string_view text);

std::string WriteFiltersRequest(const FiltersRequest& request);
Result<FiltersRequest> ReadFiltersRequest(std::string_view text);

std::string WriteFilterList(const FilterList& filters);
Result<FilterList> ReadFilterList(std::string_view text);

std::string WriteHandlerRequest(const HandlerRequest& request);
Result<HandlerRequest> ReadHandlerRequest(std::string_view text);

std::string WriteConfigurationHandler(const ConfigurationHandler& handler);
Result<ConfigurationHandler> ReadConfigurationHandler(std::string_view text);

std::string WriteHistoryRequest(const HistoryRequest& request);
Result<HistoryRequest> ReadHistoryRequest(std::string_view text);

std::string WriteHistory(const History& history);
Result<History> ReadHistory(std::string_view text);

std::string WriteHistoryStateRequest(const HistoryStateRequest& request);
Result<HistoryStateRequest> ReadHistoryStateRequest(std::string_view text);

}  // namespace protocol
