#include "tests/services/SamplePart.h"

namespace {

TEST(BufferTexts, WriteBackEveryUneditedNumberWithTheSameBits) {
  const std::string text = protocol::WritePartData(SamplePart());
  EXPECT_EQ(LoadedBuffer().AllData(), text);
}

TEST(BufferTexts, WriteBackLengthsWithTheSameBitsEvenWhenSetAgainToTheShownMillimetres) {
  for (int k = 1; k <= 2000; ++k) {
    protocol::PartData part = SamplePart();
    part.massTypes[0].cg = protocol::Vector{k / 997.0, -k / 1013.0, 1.0 / k};
    const LoadedBuffer buffer(part);
    const auto cg = buffer->GetCG("Computed");
    ASSERT_EQ(buffer->SetCG("Computed", cg.get()), S_OK);
    ASSERT_EQ(buffer.AllData(), protocol::WritePartData(part)) << k;
  }
}

TEST(BufferTexts, KeepTheOtherCoordinatesWhenOneIsEdited) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].cg = protocol::Vector{1 / 3.0, 1 / 7.0, 1 / 9.0};
  const LoadedBuffer buffer(part);
  auto cg = buffer->GetCG("Computed");
  cg[1] = 250;
  ASSERT_EQ(buffer->SetCG("Computed", cg.get()), S_OK);
  EXPECT_EQ(buffer.Sent().massTypes[0].cg, (protocol::Vector{1 / 3.0, 0.25, 1 / 9.0}));
}

TEST(BufferTexts, GiveBackExactlyTheMillimetresThatWereSet) {
  const LoadedBuffer buffer;
  for (int k = 1; k <= 2000; ++k) {
    const double mm[3] = {k / 10.0, k / 7.0, -k * 1.1};
    ASSERT_EQ(buffer->SetCG("Weighed", mm), S_OK);
    const auto cg = buffer->GetCG("Weighed");
    for (int i = 0; i < 3; ++i) ASSERT_EQ(cg[i], mm[i]);
  }
}

TEST(BufferTexts, CarryMillimetresAsMetres) {
  const LoadedBuffer buffer;
  const double mm[3] = {1500, -20.5, 0};
  buffer->SetCG("Weighed", mm);
  EXPECT_EQ(buffer.Sent().massTypes[2].cg, (protocol::Vector{1.5, -0.0205, 0}));
}

TEST(BufferTexts, ComputeRequestNamesFilterModeSwitchAndMaterial) {
  const LoadedBuffer buffer;
  EXPECT_EQ(TextOf<KorWBAllDataBuffer>(*buffer.Get(), &KorWBAllDataBuffer::GetComputedInfo),
            "ComputeOptions/1|0%7CNo Filter|0|1|Cast iron|end");
  buffer->SetFilter("0|Service kit");
  buffer->SetReferenceInertiaMode(true);
  buffer->SetPreComputeSwitch(false);
  buffer->SetMaterialName("Steel");
  EXPECT_EQ(TextOf<KorWBAllDataBuffer>(*buffer.Get(), &KorWBAllDataBuffer::GetComputedInfo),
            "ComputeOptions/1|0%7CService kit|1|0|Steel|end");
}

protocol::ComputeReply SampleReply() {
  return {"bedplate",
          {.name = "Computed",
           .status = protocol::MassTypeStatus::Defined,
           .mass = 3.25,
           .cg = protocol::Vector{1, 2, 3},
           .inertia = protocol::Tensor{7, 8, 9, 0, 0, 0},
           .lowerDeviation = 1,
           .upperDeviation = 2}};
}

TEST(ComputeReply, ReplacesTheComputedValues) {
  const LoadedBuffer buffer;
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(SampleReply()), true), S_OK);
  EXPECT_EQ(buffer->GetMassTypeDefined("Computed"), 1);
  EXPECT_EQ(buffer->GetMass("Computed"), 3.25);
  EXPECT_EQ(buffer->GetCG("Computed")[2], 3000);
  EXPECT_EQ(buffer->GetInertia("Computed")->GetCoef(2, 2), 8);
  double deviation = 0;
  EXPECT_EQ(buffer->GetUpperDeviation("Computed", deviation), S_OK);
  EXPECT_EQ(deviation, 2);
}

TEST(ComputeReply, LeavesEverythingElse) {
  const LoadedBuffer buffer;
  protocol::PartData expected = SamplePart();
  expected.massTypes[0] = SampleReply().computed;
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(SampleReply()), true), S_OK);
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(expected));
}

TEST(ComputeReply, WithMomentsAboutTheOriginIsTakenWithoutThem) {
  const LoadedBuffer buffer;
  protocol::PartData expected = SamplePart();
  expected.massTypes[0] = SampleReply().computed;
  protocol::ComputeReply reply = SampleReply();
  reply.firstMoment = protocol::Vector{11, 12, 13};
  reply.inertiaAtOrigin = protocol::Tensor{14, 15, 16, 17, 18, 19};
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(reply), true), S_OK);
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(expected));
}

TEST(ComputeReply, LeavesTheBoundsThatTheUserTyped) {
  const LoadedBuffer buffer;
  buffer->SetPrecisionType("Computed", 1);
  buffer->SetPrecisionValueType("Computed", 1);
  buffer->SetLowerPrecision("Computed", 0.125);
  buffer->SetUpperPrecision("Computed", 0.375);
  protocol::ComputeReply reply = SampleReply();
  reply.computed.massTypeLowerPrecision = 0.05;
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(reply), true), S_OK);
  EXPECT_EQ(buffer->GetPrecisionType("Computed"), 1);
  EXPECT_EQ(buffer->GetPrecisionValueType("Computed"), 1);
  EXPECT_EQ(buffer->GetLowerPrecision("Computed"), 0.125);
  EXPECT_EQ(buffer->GetUpperPrecision("Computed"), 0.375);
  EXPECT_EQ(buffer->GetMassTypeLowerPrecision("Computed"), 0.05);
}

TEST(ComputeReply, SaysWhetherTheObjectHasAnInstance) {
  const LoadedBuffer buffer;
  buffer->SetComputedData(protocol::WriteComputeReply(SampleReply()), false);
  EXPECT_FALSE(buffer->HasInstInLUMIRA());
}

TEST(ComputeReply, ListsTheComputedMassTypeFirstWhenItWasNotListed) {
  protocol::PartData part = SamplePart();
  part.massTypes.erase(part.massTypes.begin());
  const LoadedBuffer buffer(part);
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(SampleReply()), true), S_OK);
  EXPECT_EQ(buffer->GetMassTypeList(), (KorListValKorUnicodeString{"Computed", "Estimated", "Weighed"}));
  EXPECT_EQ(buffer->GetCG("Computed")[0], 1000);
  EXPECT_EQ(buffer->GetCG("Estimated")[0], 1500);
}

TEST(ComputeReply, MayLackValues) {
  const LoadedBuffer buffer;
  protocol::ComputeReply reply{"bedplate", {.name = "Computed", .mass = {}, .cg = {}, .inertia = {}}};
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(reply), true), S_OK);
  EXPECT_EQ(buffer->GetMass("Computed"), 0);
  EXPECT_EQ(buffer->GetCG("Computed"), nullptr);
  EXPECT_EQ(buffer->GetInertia("Computed"), nullptr);
}

TEST(FullData, OfAnotherRevisionLeavesWhatTheSelectionDecides) {
  const LoadedBuffer buffer;
  buffer->SetFilter("0|Service kit");
  buffer->SetReferenceInertiaMode(true);
  protocol::PartData revision;
  revision.partId = "bedplate";
  revision.filter = "0|Service kit";
  revision.massTypes = {{.name = "Computed", .mass = 99, .cg = {}, .inertia = {}}};
  revision.material.name = "Wood";
  revision.stateToken = "8";
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(revision), false), S_OK);

  protocol::PartData expected = revision;
  expected.instancePath = "nacelle.1|bedplate.1";
  expected.configurationHandler = "IEA15";
  expected.filter = "0|Service kit";
  expected.hasInstance = true;
  expected.referenceInertiaMode = true;
  expected.placement = SamplePart().placement;
  expected.stateToken = SamplePart().stateToken;
  expected.standardPart = SamplePart().standardPart;
  expected.propertiesRequested = SamplePart().propertiesRequested;
  expected.dateFormat = SamplePart().dateFormat;
  expected.properties = SamplePart().properties;
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(expected));
}

TEST(FullData, OfAnotherRevisionLeavesWhatWasTypedOfThePartItself) {
  const LoadedBuffer buffer;
  buffer->SetStandardPart(!SamplePart().standardPart);
  buffer->SetPropertyValue(3, "250.0");  // a length in millimetres
  protocol::PartData revision = SamplePart();
  revision.stateToken = "8";
  revision.properties[2].value = "9";
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(revision), false), S_OK);
  EXPECT_EQ(buffer->IsStandatadPart(), !SamplePart().standardPart);
  EXPECT_EQ(buffer->GetPropertyValue(3), "250.0");
  EXPECT_EQ(buffer.Sent().properties[2].value, "0.25");
  EXPECT_EQ(buffer.Sent().stateToken, SamplePart().stateToken) << "a save still finds what others have saved";
}

// A revision is told of the whole product, which is not what a filter leaves.
TEST(FullData, OfAnotherRevisionLeavesTheComputedValuesUnderAFilter) {
  const LoadedBuffer buffer;
  buffer->SetFilter("0|Service kit");
  ASSERT_EQ(buffer->SetComputedData(protocol::WriteComputeReply(SampleReply()), true), S_OK);
  protocol::PartData revision;
  revision.partId = "bedplate";
  revision.massTypes = {{.name = "Computed", .mass = 99, .cg = {}, .inertia = {}},
                        {.name = "Planned", .mass = 7, .cg = {}, .inertia = {}}};
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(revision), false), S_OK);
  EXPECT_EQ(buffer->GetMass("Computed"), 3.25);
  EXPECT_EQ(buffer->GetCG("Computed")[2], 3000);
  EXPECT_EQ(buffer->GetMass("Planned"), 7);
  EXPECT_TRUE(buffer.Sent().computed);
}

TEST(FullData, OfAnotherRevisionHasNoComputedValuesUnderAFilterWithoutACompute) {
  protocol::PartData part = SamplePart();
  part.massTypes.erase(part.massTypes.begin());
  part.computed = false;
  const LoadedBuffer buffer(part);
  buffer->SetFilter("0|Service kit");
  protocol::PartData revision;
  revision.partId = "bedplate";
  revision.computed = true;
  revision.massTypes = {{.name = "Computed", .mass = 99, .cg = {}, .inertia = {}}};
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(revision), false), S_OK);
  EXPECT_EQ(buffer.Sent().massTypes.at(0).mass, std::nullopt);
  EXPECT_FALSE(buffer.Sent().computed);
}

TEST(FullData, OfAnotherRevisionTellsTheComputedValuesWhereNothingIsFiltered) {
  const LoadedBuffer buffer;
  protocol::PartData revision;
  revision.partId = "bedplate";
  revision.filter = "1|0";  // no chosen instances: nothing is left out
  revision.massTypes = {{.name = "Computed", .mass = 99, .cg = {}, .inertia = {}}};
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(revision), false), S_OK);
  EXPECT_EQ(buffer->GetMass("Computed"), 99);
}

TEST(FullData, OfANewSelectionReplacesEverything) {
  const LoadedBuffer buffer;
  buffer->SetFilter("0|Service kit");
  protocol::PartData other;
  other.partId = "generator";
  ASSERT_EQ(buffer->SetAllData(protocol::WritePartData(other), true), S_OK);
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(other));
}

}  // namespace
