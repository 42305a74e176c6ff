// Deleting the values of the mass type that is shown.

#include "tests/module/EditTest.h"

using testing::IsEmpty;

namespace {

class Delete : public EditTest {
 protected:
  /// In edit mode on the mass type, with "DeleteButton" enabled.
  void OfferDelete(const protocol::PartData& part, const std::string& shownType) {
    Edit(part, shownType);
    Widget("DeleteButton").SetSensitivity(KorSensitivity::Enabled);
  }
};

TEST_F(Delete, WipesTheValuesOnTheScreenAndInTheBufferAndAsksNoServer) {
  OfferDelete(SamplePart(), "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(Text("MTMassEditor"), "...");
  for (const char* editor : {"MTCGxEditor", "MTCGyEditor", "MTCGzEditor"}) EXPECT_EQ(Text(editor), "...");
  EXPECT_EQ(MTMoments() + ", " + MTProducts(), "..., ..., ..., ..., ..., ...");
  EXPECT_EQ(Buffer().GetMassTypeDefined("Estimated"), KorWBAllDataBuffer::kNotDefined);
  EXPECT_EQ(Buffer().GetMass("Estimated"), 0);
  EXPECT_EQ(Buffer().GetCG("Estimated"), nullptr);
  EXPECT_EQ(Buffer().GetInertia("Estimated"), nullptr);
  EXPECT_THAT(Server().Requests(), IsEmpty());
}

TEST_F(Delete, OfTheActiveMassTypeMakesTheFirstOneActiveAndTheComputedOneDefined) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[0].status = protocol::MassTypeStatus::Undefined;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(SelectedLine("ActiveMassCombo"), "Computed");
  EXPECT_EQ(Buffer().GetMassTypeDefined("Computed"), KorWBAllDataBuffer::kDefined);
}

TEST_F(Delete, OfTheActiveMassTypeShowsThePrecisionOfTheOneThatBecomesActive) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[1].precisionType = 1;
  part.massTypes[1].upperPrecision = 0.25;
  OfferDelete(part, "Estimated");
  EXPECT_EQ(Text("UpperValueEditor"), "25%");
  Press("DeleteButton");
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "Computed");
  EXPECT_EQ(Text("UpperValueEditor"), "0%");
}

TEST_F(Delete, OfAnotherMassTypeLeavesTheActiveOneAlone) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Weighed";
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(SelectedLine("ActiveMassCombo"), "Weighed");
  EXPECT_EQ(Buffer().GetMassTypeDefined("Computed"), KorWBAllDataBuffer::kOutOfDate);
}

TEST_F(Delete, LeavesTheSensitivitiesAsTheyAre) {
  OfferDelete(SamplePart(), "Estimated");
  Press("DeleteButton");
  for (const char* name : {"DeleteButton", "MTMassEditor", "MTCGxEditor", "MTIxyEditor", "SaveButton"})
    EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(Delete, OfTheActiveMassTypeLeavesTheSensitivitiesAsTheyAreToo) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[1].precisionType = 1;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  for (const char* name : {"UpperValueEditor", "LowerValueEditor", "ValueTypeCombo", "DeleteButton"})
    EXPECT_TRUE(IsEnabled(name)) << name;
}

TEST_F(Delete, OfTheActiveMassTypeSavesTheBoundsOfTheOneThatBecomesActive) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  part.massTypes[1].precisionType = part.massTypes[0].precisionType = 1;
  part.massTypes[1].upperPrecision = 0.25;
  part.massTypes[0].upperPrecision = 8;
  part.massTypes[0].precisionValueType = 1;
  OfferDelete(part, "Estimated");
  Press("DeleteButton");
  EXPECT_EQ(Text("UpperValueEditor"), "8 kg");
  const protocol::MassType sent = TypeOf(Save(), "Computed");
  EXPECT_EQ(sent.upperPrecision, 8);
  EXPECT_EQ(sent.precisionValueType, 1);
}

TEST_F(Delete, ReachesTheServerWithTheNextSave) {
  OfferDelete(SamplePart(), "Estimated");
  Press("DeleteButton");
  const protocol::MassType sent = TypeOf(Save(), "Estimated");
  EXPECT_EQ(sent.status, protocol::MassTypeStatus::Undefined);
  EXPECT_FALSE(sent.mass || sent.cg || sent.inertia);
}

TEST_F(Delete, DoesNothingWithoutABuffer) {
  OfferDelete(SamplePart(), "Estimated");
  Panel().SetModel(nullptr);
  Press("DeleteButton");
  EXPECT_EQ(Text("MTMassEditor"), "4 kg");
}

}  // namespace
