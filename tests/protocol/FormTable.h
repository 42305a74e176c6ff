#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "protocol/Codec.h"

namespace protocol::test {

/// One form as a test sees it: read the text, and write back what was read.
struct FormCase {
  std::string name;
  std::function<Result<std::string>(std::string_view)> rewrite;
};

template <class X>
FormCase MakeCase(std::string name, Result<X> (*read)(std::string_view), std::string (*write)(const X&)) {
  return {std::move(name), [=](std::string_view text) -> Result<std::string> {
            const Result<X> x = read(text);
            if (!x) return x.Failure();
            return write(x.Value());
          }};
}

inline FormCase FilterCase() {
  return {"Filter", [](std::string_view text) -> Result<std::string> {
            const Result<Filter> filter = ReadFilter(text);
            if (!filter) return filter.Failure();
            return WriteFilter(filter.Value());
          }};
}

/// Every form with an end mark.
inline std::vector<FormCase> EndedForms() {
  return {MakeCase<PartData>("PartData", ReadPartData, WritePartData),
          MakeCase<ComputeOptions>("ComputeOptions", ReadComputeOptions, WriteComputeOptions),
          MakeCase<ComputeRequest>("ComputeRequest", ReadComputeRequest, WriteComputeRequest),
          MakeCase<ComputeReply>("ComputeReply", ReadComputeReply, WriteComputeReply),
          MakeCase<PartDataRequest>("PartDataRequest", ReadPartDataRequest, WritePartDataRequest),
          MakeCase<ChildrenRequest>("ChildrenRequest", ReadChildrenRequest, WriteChildrenRequest),
          MakeCase<SearchRequest>("SearchRequest", ReadSearchRequest, WriteSearchRequest),
          MakeCase<TreeNodes>("TreeNodes", ReadTreeNodes, WriteTreeNodes),
          MakeCase<ProductList>("ProductList", ReadProductList, WriteProductList),
          MakeCase<SearchReply>("SearchReply", ReadSearchReply, WriteSearchReply),
          MakeCase<PendingWarnings>("PendingWarnings", ReadPendingWarnings, WritePendingWarnings),
          MakeCase<RootRequest>("RootRequest", ReadRootRequest, WriteRootRequest),
          MakeCase<CurrentRoot>("CurrentRoot", ReadCurrentRoot, WriteCurrentRoot),
          MakeCase<FiltersRequest>("FiltersRequest", ReadFiltersRequest, WriteFiltersRequest),
          MakeCase<FilterList>("FilterList", ReadFilterList, WriteFilterList),
          MakeCase<HandlerRequest>("HandlerRequest", ReadHandlerRequest, WriteHandlerRequest),
          MakeCase<ConfigurationHandler>("ConfigurationHandler", ReadConfigurationHandler,
                                         WriteConfigurationHandler),
          MakeCase<SaveReply>("SaveReply", ReadSaveReply, WriteSaveReply),
          MakeCase<HistoryRequest>("HistoryRequest", ReadHistoryRequest, WriteHistoryRequest),
          MakeCase<History>("History", ReadHistory, WriteHistory),
          MakeCase<HistoryStateRequest>("HistoryStateRequest", ReadHistoryStateRequest,
                                        WriteHistoryStateRequest)};
}

inline std::vector<FormCase> AllForms() {
  auto forms = EndedForms();
  forms.push_back(FilterCase());
  forms.push_back(MakeCase<DocumentRequest>("DocumentRequest", ReadDocumentRequest, WriteDocumentRequest));
  return forms;
}

/// An example of the document: which form it is of, and its text.
struct Example {
  std::string form;
  std::string text;
};

/// The fenced blocks marked "form NAME" of docs/protocol.md.
std::vector<Example> DocumentExamples();

}  // namespace protocol::test
