#include "tests/services/SamplePart.h"

namespace {

TEST(SaveReply, TellsTheStateThatTheNextSaveSends) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetSaveReply("SaveReply/1|bedplate|8|end"), S_OK);
  EXPECT_EQ(buffer.Sent().stateToken, "8");
  EXPECT_EQ(buffer->GetLastRefusal(), "");
}

TEST(SaveReply, MakesTheValuesStoredOnes) {
  protocol::PartData part = SamplePart();
  part.persisted = false;
  const LoadedBuffer buffer(part);
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  bool persisted = false;
  buffer->IsPersisted(persisted);
  EXPECT_TRUE(persisted);
}

TEST(SaveReply, ChangesNothingElse) {
  protocol::PartData expected = SamplePart();
  const LoadedBuffer buffer;
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  expected.stateToken = "8";
  expected.persisted = true;
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(expected));
}

// A part whose mass type "Estimated" was told with deviations.
protocol::PartData PartWithDeviations() {
  protocol::PartData part = SamplePart();
  part.massTypes.at(1).lowerDeviation = 3;
  part.massTypes.at(1).upperDeviation = 4;
  return part;
}

// What "Delete" of the panel does.
void Delete(const LoadedBuffer& buffer, const char* massType) {
  buffer->RemoveMass(massType);
  buffer->RemoveCG(massType);
  buffer->RemoveInertia(massType);
  buffer->SetMassTypeDefined(massType, false);
}

void Type(const LoadedBuffer& buffer, const char* massType, double mass) {
  buffer->SetMass(massType, mass);
  buffer->SetMassTypeDefined(massType, true);
}

void ExpectDeviations(const LoadedBuffer& buffer, double lower, double upper) {
  const protocol::MassType estimated = buffer.Sent().massTypes.at(1);
  EXPECT_EQ(estimated.lowerDeviation, lower);
  EXPECT_EQ(estimated.upperDeviation, upper);
}

TEST(SaveReply, ToASaveOfARemovedMassTypeTakesItsDeviationsAwayForTheSaveOfANewOne) {
  const LoadedBuffer buffer(PartWithDeviations());
  Delete(buffer, "Estimated");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  Type(buffer, "Estimated", 4);
  ExpectDeviations(buffer, 0, 0);
}

TEST(SaveReply, ToASaveOfAMassTypeThatWasRemovedAndTypedAnewLeavesItsDeviations) {
  const LoadedBuffer buffer(PartWithDeviations());
  Delete(buffer, "Estimated");
  Type(buffer, "Estimated", 4);
  ExpectDeviations(buffer, 3, 4);
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  ExpectDeviations(buffer, 3, 4);
}

TEST(SaveReply, LeavesTheDeviationsOfAMassTypeThatWasToldWithoutValues) {
  protocol::PartData part = PartWithDeviations();
  part.massTypes.at(1) = {
      .name = "Estimated", .mass = {}, .cg = {}, .inertia = {}, .lowerDeviation = 3, .upperDeviation = 4};
  const LoadedBuffer buffer(part);
  Delete(buffer, "Estimated");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  ExpectDeviations(buffer, 3, 4);
}

// As after a save that was refused.
TEST(SaveReply, LeavesThemWhenItWasTypedAndDeletedAgainBeforeItWasSaved) {
  protocol::PartData part = PartWithDeviations();
  part.massTypes.at(1) = {
      .name = "Estimated", .mass = {}, .cg = {}, .inertia = {}, .lowerDeviation = 3, .upperDeviation = 4};
  const LoadedBuffer buffer(part);
  Type(buffer, "Estimated", 4);
  EXPECT_EQ(buffer->SetSaveReply("LumiraError: no"), E_FAIL);
  Delete(buffer, "Estimated");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  Type(buffer, "Estimated", 5);
  ExpectDeviations(buffer, 3, 4);
  buffer->SetSaveReply("SaveReply/1|bedplate|9|end");
  Delete(buffer, "Estimated");
  buffer->SetSaveReply("SaveReply/1|bedplate|10|end");
  ExpectDeviations(buffer, 0, 0);
}

TEST(SaveReply, MakesTheMassTypesThoseOfThePartWhereverTheyWereReadFrom) {
  protocol::PartData part = SamplePart();
  part.massTypesOrigin = {protocol::OriginKind::Revision, "A"};
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(part), false), S_OK);
  EXPECT_EQ(buffer.Sent().massTypesOrigin, part.massTypesOrigin) << "a save sends it";
  EXPECT_EQ(buffer->SetSaveReply("LumiraError: no"), E_FAIL);
  EXPECT_EQ(buffer.Sent().massTypesOrigin, part.massTypesOrigin) << "and sends it again";
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  EXPECT_EQ(buffer.Sent().massTypesOrigin, protocol::Origin{});
}

TEST(SaveReply, LeavesTheDeviationsOfDataThatWereReadAfterAMassTypeWasRemoved) {
  const LoadedBuffer buffer(PartWithDeviations());
  Delete(buffer, "Estimated");
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(PartWithDeviations()), false), S_OK);
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  ExpectDeviations(buffer, 3, 4);
}

TEST(SaveReply, ThatCannotBeReadLeavesTheDeviationsOfARemovedMassType) {
  const LoadedBuffer buffer(PartWithDeviations());
  Delete(buffer, "Estimated");
  EXPECT_EQ(buffer->SetSaveReply("LumiraError: no"), E_FAIL);
  ExpectDeviations(buffer, 3, 4);
}

TEST(SaveReply, ToSavesWithoutARevisionMakesTheChoiceAutomaticEachTime) {
  const LoadedBuffer buffer;
  for (const char* token : {"8", "9"}) {
    buffer->SetActiveDocId("D-100");
    buffer->SetActiveDocVersion("");
    EXPECT_TRUE(buffer.Sent().documents.usedSpecificRevisionBefore);
    EXPECT_EQ(buffer->SetSaveReply(KorUnicodeString(std::string("SaveReply/1|bedplate|") + token + "|end")),
              S_OK);
    EXPECT_FALSE(buffer.Sent().documents.usedSpecificRevisionBefore) << token;
  }
}

TEST(SaveReply, ToASaveWithoutADocumentBringsTheStoredOneBack) {
  const LoadedBuffer buffer;
  buffer->SetActiveDocId("__null__");
  buffer->SetActiveDocVersion("__null__");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  const protocol::Documents documents = buffer.Sent().documents;
  EXPECT_EQ(documents.activeId, "D-100");
  EXPECT_EQ(documents.activeVersion, "B");
  EXPECT_FALSE(documents.usedSpecificRevisionBefore);
}

TEST(SaveReply, ToASaveOfARevisionMakesThatTheOneChosenByTheUser) {
  protocol::PartData part = SamplePart();
  part.documents.usedSpecificRevisionBefore = false;
  const LoadedBuffer buffer(part);
  buffer->SetActiveDocVersion("A");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  EXPECT_TRUE(buffer->HasUsedSpecificRevBefore());
  buffer->SetActiveDocId("__null__");
  buffer->SetActiveDocVersion("__null__");
  buffer->SetSaveReply("SaveReply/1|bedplate|9|end");
  EXPECT_EQ(buffer.Sent().documents.activeVersion, "A");
}

TEST(SaveReply, ToASaveThatNamedNoRevisionMakesTheDocumentAutomatic) {
  for (const auto& [id, version] :
       {std::pair("D-100", ""), std::pair("D-100", "__null__"), std::pair("__null__", "A")}) {
    const LoadedBuffer buffer;
    buffer->SetActiveDocId(id);
    buffer->SetActiveDocVersion(version);
    buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
    const protocol::Documents documents = buffer.Sent().documents;
    EXPECT_EQ(documents.activeId, "D-100");
    EXPECT_EQ(documents.activeVersion, "B");
    EXPECT_FALSE(documents.usedSpecificRevisionBefore) << id << version;
  }
}

TEST(SaveReply, ToASaveOfTheDocumentAsItWasReadLeavesTheChoiceAsItWas) {
  for (const bool byHand : {false, true}) {
    protocol::PartData part = SamplePart();
    part.documents.usedSpecificRevisionBefore = byHand;
    const LoadedBuffer buffer(part);
    buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
    EXPECT_EQ(buffer->HasUsedSpecificRevBefore(), byHand);
  }
}

TEST(SaveReply, ToASaveOfTheSameRevisionAfterAnAutomaticOneMakesItTheOneChosenByTheUser) {
  const LoadedBuffer buffer;
  buffer->SetActiveDocId("__null__");
  buffer->SetActiveDocVersion("__null__");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  EXPECT_FALSE(buffer->HasUsedSpecificRevBefore());
  buffer->SetSaveReply("SaveReply/1|bedplate|9|end");  // of D-100, B; the server has no revision any more
  EXPECT_TRUE(buffer->HasUsedSpecificRevBefore());
}

TEST(SaveReply, AfterALookAtAnotherRevisionBringsTheStoredOneBack) {
  const LoadedBuffer buffer;
  protocol::PartData other = SamplePart();
  other.documents.activeVersion = "A";
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(other), false), S_OK);
  buffer->SetActiveDocId("__null__");
  buffer->SetActiveDocVersion("__null__");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  EXPECT_EQ(buffer.Sent().documents.activeVersion, "B");
}

TEST(SaveReply, AfterALookAtAnotherRevisionThatIsSavedMakesThatTheOneChosenByTheUser) {
  protocol::PartData part = SamplePart();
  part.documents.usedSpecificRevisionBefore = false;
  const LoadedBuffer buffer(part);
  part.documents.activeVersion = "A";
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(part), false), S_OK);
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  EXPECT_EQ(buffer.Sent().documents.activeVersion, "A");
  EXPECT_TRUE(buffer->HasUsedSpecificRevBefore());
}

TEST(SaveReply, OfAPartWithoutRevisionsLeavesDocumentAndChoiceAsTheyWere) {
  protocol::PartData part = SamplePart();
  part.documents.revisions.clear();
  const LoadedBuffer buffer(part);
  buffer->SetActiveDocId("__null__");
  buffer->SetActiveDocVersion("__null__");
  buffer->SetSaveReply("SaveReply/1|bedplate|8|end");
  const protocol::Documents documents = buffer.Sent().documents;
  EXPECT_EQ(documents.activeId + " " + documents.activeVersion, "D-100 B");
  EXPECT_TRUE(documents.usedSpecificRevisionBefore);
}

TEST(SaveReply, ThatCannotBeReadOrIsOfAnotherPartLeavesTheBufferAsItWas) {
  const LoadedBuffer buffer;
  buffer->SetActiveDocId("__null__");
  const KorUnicodeString before = buffer.AllData();
  for (const char* text :
       {"", "|", "SaveReply/1|bedplate|8", "SaveReply/1|bedplate|8|end|", "SaveReply/2|bedplate|8|end",
        "SaveReply/1|bedplate|end", "LumiraError: no", "SaveReply/1|other|8|end"}) {
    EXPECT_EQ(buffer->SetSaveReply(text), E_FAIL) << text;
    EXPECT_EQ(buffer.AllData(), before) << text;
    EXPECT_FALSE(buffer->GetLastRefusal().IsEmpty()) << text;
  }
}

TEST(BigTexts, OfFiveMegabytesAreWrittenAndRefusedWithTheirFieldWhenReadBack) {
  const LoadedBuffer buffer;
  const std::string huge(5'000'000, 'x');
  EXPECT_EQ(buffer->SetMaterialName(huge), S_OK);
  const KorUnicodeString text = buffer.AllData();
  const LoadedBuffer other;
  const KorUnicodeString before = other.AllData();
  EXPECT_EQ(other->SetAllData(text, true), E_FAIL);
  EXPECT_EQ(other.AllData(), before);
  EXPECT_NE(other->GetLastRefusal().SearchSubString("material.name"), -1) << other->GetLastRefusal();
}

TEST(EditedData, AreAllInTheTextOfASave) {
  const LoadedBuffer buffer;
  buffer->SetActiveMassType("Weighed");
  buffer->SetMassTypeDefined("Weighed", true);
  buffer->SetMass("Weighed", 1.0 / 3);
  const double cg[] = {100, 200, 300};
  buffer->SetCG("Weighed", cg);
  buffer->SetInertia("Weighed", KorMath3x3Matrix(1, -4, -5, -4, 2, -6, -5, -6, 3));
  buffer->SetPrecisionType("Weighed", 1);
  buffer->SetPrecisionValueType("Weighed", 1);
  buffer->SetLowerPrecision("Weighed", 0.5);
  buffer->SetUpperPrecision("Weighed", 0.75);
  buffer->SetStandardPart(true);
  buffer->SetMaterialName("a|b%:\n");
  buffer->SetDensity(1234.5);
  buffer->SetDensityPriority(0);
  buffer->SetAppliedOnObject("Part Instance");
  buffer->SetActiveDocId("D|7");
  buffer->SetActiveDocVersion("A");
  buffer->SetPropertyValue(1, "x|y");
  buffer->SetCalculationUpToDate(false);

  protocol::PartData expected = SamplePart();
  expected.activeMassType = "Weighed";
  expected.massTypes[2] = {.name = "Weighed",
                           .status = protocol::MassTypeStatus::Defined,
                           .mass = 1.0 / 3,
                           .cg = protocol::Vector{0.1, 0.2, 0.3},
                           .inertia = protocol::Tensor{1, 2, 3, -4, -5, -6},
                           .precisionType = 1,
                           .precisionValueType = 1,
                           .lowerPrecision = 0.5,
                           .upperPrecision = 0.75};
  expected.standardPart = true;
  expected.material.name = "a|b%:\n";
  expected.material.density = 1234.5;
  expected.material.densityPriority = 0;
  expected.material.appliedOn = "Part Instance";
  expected.documents.activeId = "D|7";
  expected.documents.activeVersion = "A";
  expected.properties[0].value = "x|y";
  expected.computed = false;
  EXPECT_EQ(buffer.AllData(), protocol::WritePartData(expected));
  const LoadedBuffer readBack(buffer.Sent());
  EXPECT_EQ(readBack.AllData(), buffer.AllData());
}

}  // namespace
