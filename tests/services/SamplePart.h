#pragma once

#include <gtest/gtest.h>

#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "services/LumWBAllDataBuffer.h"

/// A part with something in every field: a computed mass type, one that a user filled, and an empty one.
inline protocol::PartData SamplePart() {
  using namespace protocol;
  PartData part;
  part.partId = "bedplate";
  part.instancePath = "nacelle.1|bedplate.1";
  part.configurationHandler = "IEA15";
  part.hasInstance = true;
  part.computed = true;
  part.activeMassType = "Estimated";
  part.massTypes = {{.name = std::string(kComputed),
                     .status = MassTypeStatus::OutOfDate,
                     .mass = 12.5,
                     .cg = Vector{0.0123, -1, 2.5},
                     .inertia = Tensor{1, 2, 3, -0.4, -0.5, -0.6},
                     .lowerDeviation = 0.25,
                     .upperDeviation = 0.75},
                    {.name = "Estimated",
                     .status = MassTypeStatus::Defined,
                     .mass = 10.1,
                     .cg = Vector{1.5, 0, 0},
                     .inertia = Tensor{4, 5, 6, 0, 0, 0},
                     .precisionType = 1,
                     .precisionValueType = 1,
                     .lowerPrecision = 0.5,
                     .upperPrecision = 0.6,
                     .massTypeLowerPrecision = 0.01,
                     .massTypeUpperPrecision = 0.02},
                    {.name = "Weighed", .mass = {}, .cg = {}, .inertia = {}}};
  part.placement = {0, -1, 0, 1, 0, 0, 0, 0, 1, 0.5, 1, -2};
  part.material = {.name = "Cast iron",
                   .density = 7200,
                   .densityPriority = 1,
                   .referenceName = "Steel",
                   .referenceDensity = 7850,
                   .appliedOn = "Part Reference",
                   .statistics = {{"Cast iron", 7200, 1}, {"Skin", 12.5, 2}}};
  part.documents = {.used = true,
                    .activeId = "D-100",
                    .activeVersion = "B",
                    .autoMode = 1,
                    .usedSpecificRevisionBefore = true,
                    .attachedVersion = "A",
                    .revisions = {{"B", "2024-05-01", "eva", "jan", "Estimated", 42.5},
                                  {"A", "2023-01-02", "kim", std::nullopt, "", 0}}};
  part.propertiesRequested = true;
  part.dateFormat = "YYYY-MM-DD";
  part.properties = {{"finish", "painted", 0, false, false, ""},
                     {"made on", "2024-01-31", 1, true, false, ""},
                     {"reach", "1.2", 2, false, true, "LENGTH"}};
  part.stateToken = "7";
  return part;
}

/// A buffer that was loaded with a part.
class LoadedBuffer {
 public:
  explicit LoadedBuffer(const protocol::PartData& part = SamplePart())
      : _buffer(LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer)) {
    EXPECT_EQ(_buffer->SetAllData(protocol::WritePartData(part), true), S_OK) << _buffer->GetLastRefusal();
  }
  LumWBAllDataBuffer* operator->() const { return _buffer.Get(); }
  LumWBAllDataBuffer* Get() const { return _buffer.Get(); }

  KorUnicodeString AllData() const {
    KorUnicodeString text;
    EXPECT_EQ(_buffer->GetAllData(text), S_OK);
    return text;
  }
  /// What a save would send, as the server reads it.
  protocol::PartData Sent() const { return protocol::ReadPartData(AllData().Utf8()).Value(); }

 private:
  LumWBAllDataBuffer_var _buffer;
};

/// The text that an operation with an out argument gives.
template <class Buffer>
KorUnicodeString TextOf(const Buffer& buffer, HRESULT (Buffer::*get)(KorUnicodeString&) const) {
  KorUnicodeString text = "before";
  EXPECT_EQ((buffer.*get)(text), S_OK);
  return text;
}
