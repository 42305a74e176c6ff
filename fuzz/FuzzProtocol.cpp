#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "protocol/Codec.h"
#include "protocol/ErrorReply.h"

namespace {

using protocol::Result;

void Fail(const char* what, std::string_view text) {
  std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(text.size()), text.data());
  std::abort();
}

// What can be read is written so that it reads the same, and can never be taken for an error.
template <class X>
void Check(std::string_view text, Result<X> (*read)(std::string_view), std::string (*write)(const X&)) {
  const Result<X> x = read(text);
  if (!x) {
    if (x.Failure().message.empty()) Fail("a refusal without a reason", text);
    return;
  }
  const std::string written = write(x.Value());
  const Result<X> again = read(written);
  if (!again || write(again.Value()) != written) Fail("does not come back", written);
  if (protocol::IsErrorReply(written)) Fail("looks like an error", written);
}

std::string WriteFilterText(const protocol::Filter& filter) { return protocol::WriteFilter(filter).Value(); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Check(text, protocol::ReadPartData, protocol::WritePartData);
  Check(text, protocol::ReadComputeOptions, protocol::WriteComputeOptions);
  Check(text, protocol::ReadComputeReply, protocol::WriteComputeReply);
  Check(text, protocol::ReadPartDataRequest, protocol::WritePartDataRequest);
  Check(text, protocol::ReadChildrenRequest, protocol::WriteChildrenRequest);
  Check(text, protocol::ReadSearchRequest, protocol::WriteSearchRequest);
  Check(text, protocol::ReadTreeNodes, protocol::WriteTreeNodes);
  Check(text, protocol::ReadProductList, protocol::WriteProductList);
  Check(text, protocol::ReadSearchReply, protocol::WriteSearchReply);
  Check(text, protocol::ReadRootRequest, protocol::WriteRootRequest);
  Check(text, protocol::ReadCurrentRoot, protocol::WriteCurrentRoot);
  Check(text, protocol::ReadFiltersRequest, protocol::WriteFiltersRequest);
  Check(text, protocol::ReadFilterList, protocol::WriteFilterList);
  Check(text, protocol::ReadHandlerRequest, protocol::WriteHandlerRequest);
  Check(text, protocol::ReadConfigurationHandler, protocol::WriteConfigurationHandler);
  Check(text, protocol::ReadPendingWarnings, protocol::WritePendingWarnings);
  Check(text, protocol::ReadSaveReply, protocol::WriteSaveReply);
  Check(text, protocol::ReadHistoryRequest, protocol::WriteHistoryRequest);
  Check(text, protocol::ReadHistory, protocol::WriteHistory);
  Check(text, protocol::ReadHistoryStateRequest, protocol::WriteHistoryStateRequest);
  // These carry names as they stand, so the header of an error may be among them.
  if (!protocol::IsErrorReply(text)) {
    Check(text, protocol::ReadComputeRequest, protocol::WriteComputeRequest);
    Check(text, protocol::ReadFilter, WriteFilterText);
    Check(text, protocol::ReadDocumentRequest, protocol::WriteDocumentRequest);
  }
  return 0;
}
