#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;

class ActiveDocument : public ServerFixture {
 protected:
  void ImportWith(const std::string& documents, const std::string& properties = {},
                  const ImportOptions& options = {}) {
    ImportTables tables{TableSource{"s.csv", "parent,child\ntop,plate\ntop,bolt\n"},
                        {"m.csv",
                         "part,material,density [kg/m3],mass type,active,mass [kg],type lower precision [%]\n"
                         "plate,Steel,7850,Estimated,,9,1\nplate,,,Weighed,yes,10,\nbolt,,,Estimated,,2,\n"}};
    tables.documents = TableSource{"d.csv", documents};
    if (!properties.empty()) tables.properties = TableSource{"p.csv", properties};
    const auto report = ImportProduct(*store, tables, options);
    ASSERT_TRUE(report.Ok()) << report.Failure().message;
  }

  protocol::PartData Ask(const std::string& request) {
    const auto data = protocol::ReadPartData(Run("WBGetActiveDocInfo", request));
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData{};
  }

  static std::vector<std::string> NamesOf(const protocol::PartData& data) {
    std::vector<std::string> names;
    for (const auto& type : data.massTypes) names.push_back(type.name);
    return names;
  }
};

constexpr char kThreeRevisions[] =
    "part,document,mode,revision,check in time,attached,material,density [kg/m3],mass type,active,mass [kg],"
    "cg x [m],cg y [m],cg z [m],lower deviation [kg],upper deviation [kg],user lower precision [%]\n"
    "plate,D-1,,A,2020-01-01 00:00:00,yes,Cast iron,7200,Planned,,7,1,2,3,0.5,0.75,5\n"
    "plate,D-1,,B,2022-01-01 00:00:00,,Steel,7850,Estimated,,9,,,,,,\n"
    "plate,D-1,,B,,,,,Weighed,yes,10,,,,,,\n"
    "plate,D-1,,C,2021-01-01 00:00:00,,,,,,,,,,,,\n";

// Who works under a filter knows it; the server does not, whatever the session has asked before.
TEST_F(ActiveDocument, SaysThatItsComputedValuesAreThoseOfTheWholeProduct) {
  ImportWith(kThreeRevisions);
  Compute("plate");
  EXPECT_EQ(MassUnder("plate", "1|1|plate.1|plate||0"), 10);
  PartData({.partId = "plate", .filter = "1|1|plate.1|plate||0"});
  const protocol::PartData told = Ask("D-1|A");
  EXPECT_EQ(told.massTypes[0].mass, 10);
  EXPECT_EQ(told.filter, "0|No Filter");
}

TEST_F(ActiveDocument, GivesThePartWithTheDataOfTheRevision) {
  ImportWith(kThreeRevisions);
  const protocol::PartData data = Ask("D-1|A");
  EXPECT_EQ(data.partId, "plate");
  EXPECT_EQ(data.configurationHandler, "top");
  EXPECT_THAT(NamesOf(data), ElementsAre("Computed", "Planned"));
  EXPECT_EQ(data.activeMassType, "Planned");
  const protocol::MassType& planned = data.massTypes[1];
  EXPECT_EQ(planned.status, protocol::MassTypeStatus::Defined);
  EXPECT_EQ(planned.mass, 7);
  EXPECT_EQ(planned.cg, (protocol::Vector{1, 2, 3}));
  EXPECT_EQ(planned.lowerDeviation, 0.5);
  EXPECT_EQ(planned.upperDeviation, 0.75);
  EXPECT_EQ(planned.precisionType, 1);
  EXPECT_EQ(planned.lowerPrecision, 0.05);
  EXPECT_EQ(data.material.name, "Cast iron");
  EXPECT_EQ(data.material.density, 7200);
  EXPECT_EQ(data.documents.activeId, "D-1");
  EXPECT_EQ(data.documents.activeVersion, "A");
  EXPECT_EQ(data.documents.revisions.size(), 3u);
}

TEST_F(ActiveDocument, GivesTheComputedValuesOfThePartAsItStands) {
  ImportWith(kThreeRevisions);
  EXPECT_EQ(Compute("plate").mass, 10);
  const protocol::PartData data = Ask("D-1|A");
  EXPECT_EQ(data.massTypes[0].mass, 10);
  EXPECT_TRUE(data.computed);
}

TEST_F(ActiveDocument, LeavesThePartAsItIs) {
  ImportWith(kThreeRevisions);
  Ask("D-1|A");
  const protocol::PartData data = PartDataOf("plate");
  EXPECT_THAT(NamesOf(data), ElementsAre("Computed", "Estimated", "Weighed"));
  EXPECT_EQ(data.material.name, "Steel");
  EXPECT_EQ(data.massTypes[1].massTypeLowerPrecision, 0.01);
  EXPECT_EQ(data.documents.activeVersion, "B");
}

TEST_F(ActiveDocument, OfARevisionWithoutMassDataHasNoUserMassTypes) {
  ImportWith(kThreeRevisions);
  const protocol::PartData data = Ask("D-1|C");
  EXPECT_THAT(NamesOf(data), ElementsAre("Computed"));
  EXPECT_EQ(data.activeMassType, "Computed");
  EXPECT_EQ(data.material.name, "");
  EXPECT_FALSE(data.material.density.has_value());
  EXPECT_FALSE(data.persisted);
}

TEST_F(ActiveDocument, NamesADocumentThatIsNotThere) {
  ImportWith(kThreeRevisions);
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D-2|A"), "LumiraError: there is no document \"D-2\"");
}

// Older programs did not ask who had a document.
TEST_F(ActiveDocument, OfSeveralPartsIsRefusedForAllOfThemUntilTheyAreImportedAnew) {
  const std::string documents =
      "part,document,revision,mass type,mass [kg]\nplate,D-1,A,Weighed,10\nbolt,D-2,A,Weighed,2\n";
  ImportWith(documents);
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("UPDATE part_details SET document = 'D-1'");
  EXPECT_EQ(
      Run("WBGetActiveDocInfo", "D-1|A"),
      "LumiraError: document \"D-1\" belongs to several parts, \"plate\" of product \"top\", \"bolt\" of "
      "product \"top\", so that it does not tell which of them is meant; import their products anew, "
      "with a document of its own for each part");
  ImportWith(documents, {}, {.existing = Existing::Replace, .mode = ImportMode::DryRun});
  ImportWith(documents, {}, {.existing = Existing::Replace});
  EXPECT_EQ(Ask("D-1|A").partId, "plate");
  EXPECT_EQ(Ask("D-2|A").partId, "bolt");
}

TEST_F(ActiveDocument, NamesARevisionThatIsNotThere) {
  ImportWith(kThreeRevisions);
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D-1|Z"),
            "LumiraError: document \"D-1\" of part \"plate\" has no revision \"Z\"; those known are \"A\", "
            "\"B\", \"C\"");
}

TEST_F(ActiveDocument, NamesARevisionThatHasVanishedSinceItWasTold) {
  ImportWith(kThreeRevisions);
  PartDetails details = store->LoadDetails("plate").Value();
  details.documents.revisions.erase(details.documents.revisions.begin() + 1);
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D-1|B"),
            "LumiraError: document \"D-1\" of part \"plate\" has no revision \"B\"; those known are \"A\", "
            "\"C\"");
  details.documents.revisions.clear();
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D-1|B"),
            "LumiraError: document \"D-1\" of part \"plate\" has no revision \"B\"; none is known");
}

TEST_F(ActiveDocument, NamesARevisionThatIsListedWithoutData) {
  ImportWith(kThreeRevisions);
  PartDetails details = store->LoadDetails("plate").Value();
  details.documents.revisions.push_back({"D", {}, {}, {}, {}, 0});
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D-1|D"), "LumiraError: part \"plate\" has no data of revision \"D\"");
}

TEST_F(ActiveDocument, RefusesRequestsThatCannotBeRead) {
  EXPECT_EQ(Run("WBGetActiveDocInfo", ""), "LumiraError: DocumentRequest: field 2 (revision): is missing");
  EXPECT_EQ(Run("WBGetActiveDocInfo", "|A"), "LumiraError: DocumentRequest: field 1 (documentId): is empty");
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D|"), "LumiraError: DocumentRequest: field 2 (revision): is empty");
  EXPECT_EQ(Run("WBGetActiveDocInfo", "D|A|B"),
            "LumiraError: DocumentRequest: field 2 (revision): \"A|B\" holds \"|\"");
}

TEST_F(ActiveDocument, IsTheMostRecentRevisionUnlessSomethingElseIsSaid) {
  ImportWith(kThreeRevisions);
  const protocol::Documents documents = PartDataOf("plate").documents;
  EXPECT_TRUE(documents.used);
  EXPECT_EQ(documents.activeId, "D-1");
  EXPECT_EQ(documents.activeVersion, "B") << "the last check-in, not the last row";
  EXPECT_EQ(documents.autoMode, 0);
  EXPECT_EQ(documents.attachedVersion, "A");
  EXPECT_FALSE(documents.usedSpecificRevisionBefore);
}

TEST_F(ActiveDocument, IsTheLastRevisionWhenNoTimesAreKnown) {
  ImportWith("part,document,revision\nplate,D-1,B\nplate,D-1,A\n");
  EXPECT_EQ(PartDataOf("plate").documents.activeVersion, "A");
}

TEST_F(ActiveDocument, IsTheAttachedRevisionInThatMode) {
  ImportWith("part,document,mode,revision,attached\nplate,D-1,attached,A,yes\nplate,D-1,,B,\n");
  EXPECT_EQ(PartDataOf("plate").documents.activeVersion, "A");
  EXPECT_EQ(PartDataOf("plate").documents.autoMode, 1);
}

TEST_F(ActiveDocument, IsTheChosenRevisionWhateverTheModeSays) {
  ImportWith(
      "part,document,mode,revision,attached,chosen\nplate,D-1,attached,A,yes,\nplate,D-1,,B,,yes\n"
      "plate,D-1,,C,,\n");
  EXPECT_EQ(PartDataOf("plate").documents.activeVersion, "B");
  EXPECT_TRUE(PartDataOf("plate").documents.usedSpecificRevisionBefore);
}

TEST_F(ActiveDocument, StaysTheChosenRevisionWhenThatHasVanished) {
  ImportWith("part,document,revision,chosen\nplate,D-1,A,\nplate,D-1,B,yes\n");
  PartDetails details = store->LoadDetails("plate").Value();
  details.documents.revisions.pop_back();
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  EXPECT_EQ(PartDataOf("plate").documents.activeVersion, "B");
}

TEST_F(ActiveDocument, KeepsItsIdentifierWhenAClientSavesNone) {
  ImportWith(kThreeRevisions);
  PartDetails details = store->LoadDetails("plate").Value();
  details.documents.activeId = details.documents.activeVersion = "__null__";
  ASSERT_TRUE(store->SaveDetails("plate", details).Ok());
  EXPECT_EQ(PartDataOf("plate").documents.activeId, "D-1");
  EXPECT_EQ(PartDataOf("plate").documents.activeVersion, "B");
}

TEST_F(ActiveDocument, ThatCannotBeFoundIsToldAsSuch) {
  ImportWith("part,document\nplate,D-1\nbolt,\n");
  EXPECT_EQ(PartDataOf("plate").documents.activeId, "__EXCEPTION__");
  EXPECT_TRUE(PartDataOf("plate").documents.used);
  EXPECT_EQ(PartDataOf("bolt").documents.activeId, "0") << "none is attached";
  EXPECT_TRUE(PartDataOf("bolt").documents.used);
  EXPECT_EQ(PartDataOf("top").documents.activeId, "0");
  EXPECT_FALSE(PartDataOf("top").documents.used);
}

TEST_F(ActiveDocument, ComesWithThePropertiesOfThePart) {
  ImportWith(kThreeRevisions, "property,type,magnitude,part,value,unit\nlength,magnitude,LENGTH,plate,2,m\n");
  EXPECT_EQ(Ask("D-1|A").properties.at(0).value, "2");
}

}  // namespace
}  // namespace lumira::test
