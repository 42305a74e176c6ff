#include "services/KorWBAllDataBuffer.h"

#include <algorithm>
#include <set>
#include <utility>

#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/Utf8.h"
#include "services/KorWBBufferContent.h"

namespace {

// A mass type is addressed by its name, so a name may stand only once. Empty when all is well.
std::string FindDoubleMassType(const protocol::PartData& data) {
  std::set<std::string_view> seen;
  for (std::size_t i = 0; i < data.massTypes.size(); ++i)
    if (!seen.insert(data.massTypes[i].name).second)
      return "PartData: massTypes[" + std::to_string(i + 1) +
             "].name: " + protocol::Quoted(data.massTypes[i].name) + " is listed twice";
  return {};
}

std::string OtherPart(std::string_view form, const std::string& found, const std::string& expected) {
  return std::string(form) + ": field 2 (partId): " + protocol::Quoted(found) +
         " is not the part of this buffer, " + protocol::Quoted(expected);
}

// Why a reply that could be read is not for this buffer; empty when it is.
std::string FindMismatch(const protocol::ComputeReply& reply, const protocol::PartData& present) {
  if (reply.partId != present.partId) return OtherPart("ComputeReply", reply.partId, present.partId);
  if (reply.computed.name == protocol::kComputed) return {};
  return "ComputeReply: field 3 (computed.name): " + protocol::Quoted(reply.computed.name) +
         " is not the computed mass type, " + protocol::Quoted(protocol::kComputed);
}

}  // namespace

HRESULT KorWBAllDataBuffer::GetComputedInfo(KorUnicodeString& text) const {
  const protocol::PartData& data = Data().data;
  text = protocol::WriteComputeOptions({.filter = data.filter,
                                        .referenceInertiaMode = data.referenceInertiaMode,
                                        .reuseStoredResults = Data().mayReuseStoredResults,
                                        .materialName = data.material.name});
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetComputedData(const KorUnicodeString& reply, bool hasInstance) {
  const auto read = protocol::ReadComputeReply(reply.Utf8());
  if (!read) return Refuse(read.Failure().message);
  if (const std::string mismatch = FindMismatch(read.Value(), Data().data); !mismatch.empty())
    return Refuse(mismatch);
  Data().SetComputed(read.Value().computed);
  Data().data.hasInstance = hasInstance;
  Data().lastRefusal = {};
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetAllData(KorUnicodeString& text) const {
  text = protocol::WritePartData(Data().data);
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetAllData(const KorUnicodeString& text, bool newSelection) {
  auto read = protocol::ReadPartData(text.Utf8());
  if (!read) return Refuse(read.Failure().message);
  protocol::PartData loaded = std::move(read).Value();
  if (const std::string problem = FindDoubleMassType(loaded); !problem.empty()) return Refuse(problem);
  if (newSelection) {
    Data().ReplaceStored(std::move(loaded));
  } else {
    if (loaded.partId != Data().data.partId)
      return Refuse(OtherPart("PartData", loaded.partId, Data().data.partId));
    Data().TakeOtherState(std::move(loaded));
  }
  Data().lastRefusal = {};
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetSaveReply(const KorUnicodeString& reply) {
  const auto read = protocol::ReadSaveReply(reply.Utf8());
  if (!read) return Refuse(read.Failure().message);
  if (const std::string& partId = read.Value().partId; partId != Data().data.partId)
    return Refuse(OtherPart("SaveReply", partId, Data().data.partId));
  Data().SetSaved(read.Value().stateToken);
  Data().lastRefusal = {};
  return S_OK;
}

KorUnicodeString KorWBAllDataBuffer::GetLastRefusal() const { return Data().lastRefusal; }

HRESULT KorWBAllDataBuffer::Refuse(const KorUnicodeString& reason) {
  Data().lastRefusal = reason;
  return E_FAIL;
}
