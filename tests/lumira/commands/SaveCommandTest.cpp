#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include <random>

#include "SaveFixture.h"
#include "Variations.h"

namespace lumira::test {
namespace {

using protocol::MassTypeStatus;
using protocol::Tensor;
using protocol::Vector;
using testing::HasSubstr;

class SaveCommand : public SaveFixture {};

TEST_F(SaveCommand, StoresTheValuesOfAMassTypeInSi) {
  protocol::PartData data = PartDataOf("a");
  protocol::MassType& weighed = Type(data, "Weighed");
  weighed.mass = 7.25;
  weighed.cg = Vector{0.1, 0.2, 0.3};
  weighed.inertia = Tensor{1, 2, 3, -0.1, -0.2, -0.3};
  const std::string token = SaveWell(data);
  Restart();
  const MassTypeData stored = store->LoadPart("a").Value().part.massTypes.at(1);
  EXPECT_EQ(stored.properties.mass, 7.25);
  EXPECT_EQ(stored.properties.cg, (Vec3{0.1, 0.2, 0.3}));
  EXPECT_EQ(stored.properties.inertia, (InertiaTensor{1, 2, 3, -0.1, -0.2, -0.3}));
  EXPECT_EQ(PartDataOf("a").stateToken, token);
}

TEST_F(SaveCommand, StoresEverythingThatTheTabsEdit) {
  protocol::PartData data = PartDataOf("a");
  data.activeMassType = "Estimated";
  data.standardPart = true;
  data.material.name = "Brass | 50%";
  data.material.density = 8500;
  data.material.densityPriority = 1 - data.material.densityPriority;
  data.material.appliedOn = "Part Instance";
  protocol::MassType& estimated = Type(data, "Estimated");
  estimated.precisionType = 1;
  estimated.precisionValueType = 1;
  estimated.lowerPrecision = 0.5;
  estimated.upperPrecision = 0.75;
  data.documents.activeVersion = "C";
  Property(data, "count").value = "-4";
  Property(data, "checked").value = "2026-01-31";
  Property(data, "length").value = "2.5e-3";
  Property(data, "colour").value = "anything at all";
  SaveWell(data);
  Restart();
  const protocol::PartData back = PartDataOf("a");
  EXPECT_EQ(back.activeMassType, "Estimated");
  EXPECT_TRUE(back.standardPart);
  EXPECT_EQ(back.material.name, "Brass | 50%");
  EXPECT_EQ(back.material.density, 8500);
  EXPECT_EQ(back.material.densityPriority, data.material.densityPriority);
  EXPECT_EQ(back.material.appliedOn, "Part Instance");
  EXPECT_EQ(back.massTypes.at(1).precisionType, 1);
  EXPECT_EQ(back.massTypes.at(1).precisionValueType, 1);
  EXPECT_EQ(back.massTypes.at(1).lowerPrecision, 0.5);
  EXPECT_EQ(back.massTypes.at(1).upperPrecision, 0.75);
  EXPECT_EQ(back.documents.activeVersion, "C");
  EXPECT_EQ(back.properties.at(0).value, "-4");
  EXPECT_EQ(back.properties.at(1).value, "2026-01-31");
  EXPECT_EQ(back.properties.at(2).value, "2.5e-3");
  EXPECT_EQ(back.properties.at(3).value, "anything at all");
}

TEST_F(SaveCommand, OfWhatWasReadChangesNothingAndLeavesNoTrace) {
  const protocol::PartData data = PartDataOf("a");
  const std::int64_t state = store->Products().Value().at(0).state;
  EXPECT_EQ(SaveWell(data), data.stateToken);
  EXPECT_EQ(StoredText(), protocol::WritePartData(data));
  EXPECT_EQ(HistoryOf("a").total, 0);
  EXPECT_EQ(store->Products().Value().at(0).state, state);
}

TEST_F(SaveCommand, KeepsTheStandardDeviationsThatNoClientSees) {
  Part part = store->LoadPart("a").Value().part;
  part.massTypes.at(1).deviations.mass = 0.25;
  part.massTypes.at(1).deviations.cg = {1, 2, 3};
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  protocol::PartData data = PartDataOf("a");
  EXPECT_EQ(Type(data, "Weighed").lowerDeviation, 0.25);
  Type(data, "Weighed").mass = 7;
  SaveWell(data);
  const MassTypeData stored = store->LoadPart("a").Value().part.massTypes.at(1);
  EXPECT_EQ(stored.deviations, part.massTypes.at(1).deviations);
  EXPECT_FALSE(stored.bounds.has_value());
}

TEST_F(SaveCommand, TakesOtherDeviationsForLimitsThatSomebodyHasSet) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Weighed").upperDeviation = 0.5;
  SaveWell(data);
  EXPECT_EQ(store->LoadPart("a").Value().part.massTypes.at(1).bounds, (MassBounds{0, 0.5}));
  EXPECT_EQ(store->LoadPart("a").Value().part.massTypes.at(0).bounds, (MassBounds{1, 2})) << "not sent anew";
}

TEST_F(SaveCommand, DropsTheValuesOfAMassTypeThatWasRemoved) {
  protocol::PartData data = PartDataOf("a");
  protocol::MassType& removed = Type(data, "Estimated");
  removed.status = MassTypeStatus::Undefined;
  removed.mass.reset();
  SaveWell(data);
  const MassTypeData stored = store->LoadPart("a").Value().part.massTypes.at(0);
  EXPECT_EQ(stored, (MassTypeData{"Estimated", {}, {}, {}})) << "its limits are gone as well";
  EXPECT_EQ(PartDataOf("a").massTypes.at(1).status, MassTypeStatus::Undefined);
}

TEST_F(SaveCommand, OfARemovedMassTypeThatIsTypedAnewWithoutDeviationsSetsNoLimits) {
  protocol::PartData data = PartDataOf("a");
  protocol::MassType& estimated = Type(data, "Estimated");
  estimated.status = MassTypeStatus::Undefined;
  estimated.mass.reset();
  data.stateToken = SaveWell(data);
  estimated.status = MassTypeStatus::Defined;
  estimated.mass = 4;
  estimated.lowerDeviation = estimated.upperDeviation = 0;
  SaveWell(data);
  EXPECT_EQ(store->LoadPart("a").Value().part.massTypes.at(0),
            (MassTypeData{"Estimated", {4, {}, {}}, {}, {}}));
}

TEST_F(SaveCommand, DropsWhatStandsBesideAMassTypeThatIsNotDefined) {
  protocol::PartData data = PartDataOf("a");
  protocol::MassType& planned = Type(data, "Planned");
  planned.cg = Vector{0, 0, 0};  // what a panel stores for a standard part without a mass
  planned.inertia = Tensor{};
  SaveWell(data);
  EXPECT_EQ(store->LoadPart("a").Value().part.massTypes.at(2).properties, MassProperties{});
}

TEST_F(SaveCommand, DefinesAMassTypeThatHadNoValues) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Planned").status = MassTypeStatus::Defined;
  Type(data, "Planned").mass = 4;
  SaveWell(data);
  EXPECT_EQ(PartDataOf("a").massTypes.at(3).mass, 4);
  EXPECT_EQ(PartDataOf("a").massTypes.at(3).status, MassTypeStatus::Defined);
}

TEST_F(SaveCommand, DoesNotStoreTheComputedValuesOfAClientButTheirPrecision) {
  protocol::PartData data = PartDataOf("a");
  protocol::MassType& computed = Type(data, "Computed");
  computed.status = MassTypeStatus::Defined;
  computed.mass = 999;
  computed.lowerDeviation = -1;  // not looked at
  computed.precisionType = 1;
  computed.upperPrecision = 0.05;
  SaveWell(data);
  const protocol::MassType back = PartDataOf("a").massTypes.at(0);
  EXPECT_EQ(back.status, MassTypeStatus::Undefined);
  EXPECT_FALSE(back.mass.has_value());
  EXPECT_EQ(back.upperPrecision, 0.05);
  EXPECT_TRUE(store->LoadResults("top").Value().empty());
}

TEST_F(SaveCommand, DoesNotStoreWhatComesWithAMassTypeOrFromTheSelection) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Estimated").massTypeUpperPrecision = 9;
  Type(data, "Estimated").upperPrecision = 0.5;
  data.instancePath = "no|where";
  data.placement = std::vector<double>(12, 7);
  data.material.referenceName = "Lead";
  data.documents.attachedVersion = "Z";
  data.documents.revisions.clear();
  data.dateFormat = "MM/DD";
  Property(data, "length").magnitude = "MASS";
  SaveWell(data);
  const protocol::PartData back = PartDataOf("a");
  EXPECT_EQ(back.massTypes.at(1).massTypeUpperPrecision, 0.04);
  EXPECT_EQ(back.massTypes.at(1).upperPrecision, 0.5);
  EXPECT_EQ(back.material.referenceName, "");
  EXPECT_EQ(back.documents.attachedVersion, "A");
  EXPECT_EQ(back.documents.revisions.size(), 3u);
  EXPECT_EQ(back.dateFormat, "YYYY-MM-DD");
  EXPECT_EQ(back.properties.at(2).magnitude, "LENGTH");
}

TEST_F(SaveCommand, LeavesADensityThatIsNotDefinedOut) {
  protocol::PartData data = PartDataOf("a");
  data.material.density.reset();
  SaveWell(data);
  EXPECT_FALSE(PartDataOf("a").material.density.has_value());
  data = PartDataOf("a");
  data.material.density = 0;
  SaveWell(data);
  EXPECT_EQ(PartDataOf("a").material.density, 0);
}

TEST_F(SaveCommand, WithoutARevisionByHandGoesBackToTheAutomaticOne) {
  protocol::PartData data = PartDataOf("a");
  data.documents.activeId = data.documents.activeVersion = "__null__";
  SaveWell(data);
  const protocol::Documents back = PartDataOf("a").documents;
  EXPECT_FALSE(back.usedSpecificRevisionBefore);
  EXPECT_EQ(back.activeId, "D1");
  EXPECT_EQ(back.activeVersion, "A") << "the last one, since no times are known";
  data = PartDataOf("a");
  data.documents.activeVersion = "C";
  SaveWell(data);
  EXPECT_TRUE(PartDataOf("a").documents.usedSpecificRevisionBefore);
  EXPECT_EQ(PartDataOf("a").documents.activeVersion, "C");
}

// Which revision is the automatic one may change; a choice by hand stays.
TEST_F(SaveCommand, TellsTheAutomaticRevisionFromTheSameOneChosenByHand) {
  protocol::PartData data = PartDataOf("a");
  data.documents.activeId = data.documents.activeVersion = "__null__";
  SaveWell(data);
  data = PartDataOf("a");
  ASSERT_EQ(data.documents.activeVersion, "A");
  EXPECT_EQ(SaveWell(data), data.stateToken) << "it comes back as it was told";
  EXPECT_FALSE(PartDataOf("a").documents.usedSpecificRevisionBefore);
  data.documents.usedSpecificRevisionBefore = true;
  EXPECT_NE(SaveWell(data), data.stateToken);
  PartDetails details = store->LoadDetails("a").Value();
  EXPECT_TRUE(details.documents.usedSpecificRevisionBefore);
  details.documents.revisions.push_back({"D", "", "", {}, "", 0});
  ASSERT_TRUE(store->SaveDetails("a", details).Ok());
  EXPECT_EQ(PartDataOf("a").documents.activeVersion, "A");
}

TEST_F(SaveCommand, KeepsNoRevisionOfAPartThatTakesTheAutomaticOne) {
  protocol::PartData data = PartDataOf("a");
  data.documents.activeId = data.documents.activeVersion = "__null__";
  SaveWell(data);
  data = PartDataOf("a");
  Type(data, "Weighed").mass = 7;
  SaveWell(data);
  EXPECT_EQ(SQLite::Database(file).execAndGet("SELECT active_version FROM part_details").getString(), "");
}

TEST_F(SaveCommand, TakesTheAbsentDocumentOfAPartWithoutAny) {
  protocol::PartData data = PartDataOf("b");
  EXPECT_EQ(data.documents.activeId, "0");
  data.documents.activeId = data.documents.activeVersion = "__null__";
  Type(data, "Weighed").mass = 11;
  SaveWell(data);
  EXPECT_EQ(PartDataOf("b").documents.activeId, "0");
  EXPECT_EQ(PartDataOf("b").massTypes.at(1).mass, 11);
}

TEST_F(SaveCommand, KeepsTheChoiceByHandWhenAllRevisionsAreGone) {
  PartDetails details = DetailsOfA();
  details.documents.revisions.clear();
  ASSERT_TRUE(store->SaveDetails("a", details).Ok());
  protocol::PartData data = PartDataOf("a");
  data.documents.activeId = data.documents.activeVersion = "__null__";
  EXPECT_EQ(SaveWell(data), data.stateToken);
  EXPECT_TRUE(store->LoadDetails("a").Value().documents.usedSpecificRevisionBefore);
  EXPECT_EQ(HistoryOf("a").total, 0);
}

TEST_F(SaveCommand, DoesNotStoreWhatComesWithAMassTypeThatHadNoPrecisions) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Weighed").massTypeLowerPrecision = Type(data, "Weighed").massTypeUpperPrecision = 9;
  Type(data, "Weighed").upperPrecision = 0.5;
  SaveWell(data);
  const protocol::MassType back = PartDataOf("a").massTypes.at(2);
  EXPECT_EQ(back.upperPrecision, 0.5);
  EXPECT_EQ(back.massTypeLowerPrecision, 0);
  EXPECT_EQ(back.massTypeUpperPrecision, 0);
}

TEST_F(SaveCommand, DoesNotLookAtDeviationsOfAMassTypeThatIsNotDefined) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Planned").lowerDeviation = Type(data, "Planned").upperDeviation = -1;
  EXPECT_EQ(SaveWell(data), data.stateToken);
}

TEST_F(SaveCommand, TakesAnUnknownPlaceOfAMaterialThatWasThereBefore) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE part_details SET applied_on = 'Everywhere' WHERE document = 'D1'");
  protocol::PartData data = PartDataOf("a");
  data.material.name = "Brass";
  SaveWell(data);
  EXPECT_EQ(PartDataOf("a").material.appliedOn, "Everywhere");
  EXPECT_EQ(PartDataOf("a").material.name, "Brass");
}

// It has nothing that could be removed.
TEST_F(SaveCommand, LeavesTheDeviationsOfAMassTypeWithoutValuesAsTheyAre) {
  Part part = store->LoadPart("a").Value().part;
  part.massTypes.at(2).deviations.mass = 2;
  part.massTypes.at(2).deviations.cg = {1, 1, 1};
  part.massTypes.at(2).bounds = MassBounds{3, 4};
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  protocol::PartData data = PartDataOf("a");
  ASSERT_EQ(Type(data, "Planned").status, MassTypeStatus::Undefined);
  Type(data, "Weighed").mass = 7;
  SaveWell(data);
  EXPECT_EQ(store->LoadPart("a").Value().part.massTypes.at(2), part.massTypes.at(2));
  EXPECT_EQ(HistoryOf("a").entries.at(0).changes.size(), 1u);
}

TEST_F(SaveCommand, KeepsPropertiesThatAreNotSentAndTakesBlankOnes) {
  protocol::PartData data = PartDataOf("a");
  Property(data, "count").value = "  ";
  data.properties.resize(1);
  SaveWell(data);
  EXPECT_EQ(PartDataOf("a").properties.at(0).value, "  ");
  EXPECT_EQ(PartDataOf("a").properties.at(1).value, "2024-02-29");
}

TEST_F(SaveCommand, TakesNumbersOfEveryFiniteSizeExactly) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Weighed").mass = 5e-324;
  Type(data, "Weighed").cg = Vector{-1.7976931348623157e308, -0.0, 0.1};
  SaveWell(data);
  Restart();
  const protocol::MassType back = PartDataOf("a").massTypes.at(2);
  EXPECT_EQ(back.mass, 5e-324);
  EXPECT_EQ(back.cg, (Vector{-1.7976931348623157e308, -0.0, 0.1}));
}

TEST_F(SaveCommand, OfANegativeZeroForAZeroChangesNothing) {
  protocol::PartData data = PartDataOf("a");
  protocol::MassType& weighed = Type(data, "Weighed");
  const auto set = [&](double zero) {
    weighed.mass = weighed.lowerDeviation = weighed.upperDeviation = zero;
    weighed.lowerPrecision = weighed.upperPrecision = zero;
    weighed.cg = Vector{zero, 1, 2};
    weighed.inertia = Tensor{1, 1, 1, zero, 0, zero};
    data.material.density = zero;
  };
  weighed.precisionType = 1;
  set(0.0);
  data.stateToken = SaveWell(data);
  set(-0.0);
  EXPECT_EQ(SaveWell(data), data.stateToken);
  EXPECT_EQ(HistoryOf("a").total, 1);
}

TEST_F(SaveCommand, TakesAPlusAloneForNoNumberAndNoDate) {
  for (const char* name : {"count", "checked", "length"}) {
    protocol::PartData data = PartDataOf("a");
    Property(data, name).value = "+";
    EXPECT_THAT(Save(data), HasSubstr(std::string("(property \"") + name + "\")"));
    Property(data, name).value = " + ";
    EXPECT_THAT(Save(data), HasSubstr(std::string("(property \"") + name + "\")"));
  }
}

TEST_F(SaveCommand, KeepsAnInvalidPropertyThatNobodyHasTouched) {
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE property_values SET value = 'about three' WHERE definition = 0");
  protocol::PartData data = PartDataOf("a");
  Property(data, "colour").value = "blue";
  SaveWell(data);
  EXPECT_EQ(PartDataOf("a").properties.at(0).value, "about three");
}

// What a save has taken of a request.
void ExpectStored(const protocol::PartData& request, const protocol::PartData& stored) {
  for (const protocol::MassType& sent : request.massTypes)
    for (const protocol::MassType& type : stored.massTypes)
      if (type.name == sent.name && type.name != "Computed") {
        EXPECT_EQ(type.mass, sent.status == MassTypeStatus::Undefined ? std::nullopt : sent.mass);
        EXPECT_EQ(type.upperPrecision, sent.upperPrecision);
      }
  EXPECT_EQ(stored.material.name, request.material.name);
  EXPECT_EQ(stored.material.density, request.material.density);
  EXPECT_EQ(stored.activeMassType, request.activeMassType);
}

TEST_F(SaveCommand, StoresVariedRequestsWholeOrNotAtAll) {
  std::mt19937 random(11);
  int saved = 0, refused = 0;
  for (int i = 0; i < 1'500; ++i) {
    const std::string before = StoredText();
    const std::string request = Varied(before, random);
    const std::string reply = Run(protocol::kCommandSavePart, request);
    if (protocol::IsErrorReply(reply)) {
      ++refused;
      EXPECT_EQ(StoredText(), before) << request;
      continue;
    }
    ++saved;
    ASSERT_TRUE(protocol::ReadSaveReply(reply).Ok()) << reply;
    ExpectStored(protocol::ReadPartData(request).Value(), PartDataOf("a"));
  }
  EXPECT_GT(saved, 100);
  EXPECT_GT(refused, 500);
}

}  // namespace
}  // namespace lumira::test
