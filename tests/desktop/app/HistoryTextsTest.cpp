// What the history says of a save: names of fields, values in units, what is not known.
#include "tests/desktop/app/HistoryHarness.h"

namespace desktop::test {
namespace {

TEST_F(HistoryDialogTest, ListsWhoSavedWhenAndHowManyFields) {
  qputenv("TZ", "UTC");
  tzset();
  Serve(OneSave({{"standardPart", "0", "1"}, {"activeMassType", "Estimated", "Weighed"}}));
  dialog.Reload();
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 1");
  EXPECT_EQ(Cell(dialog.Saves(), 0, HistoryModel::Number), "1");
  EXPECT_EQ(Cell(dialog.Saves(), 0, HistoryModel::Time), "2024-05-01 12:30:00");
  EXPECT_EQ(Cell(dialog.Saves(), 0, HistoryModel::User), "eva");
  EXPECT_EQ(Cell(dialog.Saves(), 0, HistoryModel::Changes), "2");
  EXPECT_EQ(FieldRow(dialog, 0), "Standard part | no | yes");
  EXPECT_EQ(FieldRow(dialog, 1), "Active mass type | Estimated | Weighed");
}

TEST_F(HistoryDialogTest, ShowsQuantitiesInTheCurrentUnitsAndProductsWithTheirPhysicalSign) {
  Serve(OneSave({{"massTypes[Weighed].mass", "2", "2.5"},
                 {"massTypes[Weighed].cg", "1 0 -0.5", std::nullopt},
                 {"massTypes[Weighed].inertia", std::nullopt, "1 2 3 -4 5 -6"},
                 {"material.density", std::nullopt, "7850"}}));
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Mass, Weighed | 2 kg | 2.5 kg");
  EXPECT_EQ(FieldRow(dialog, 1), "Centre of gravity x, y, z, Weighed | 1000 mm, 0 mm, -500 mm | \u2013");
  EXPECT_EQ(FieldRow(dialog, 2),
            "Inertia Ixx, Iyy, Izz, Ixy, Ixz, Iyz, Weighed | \u2013 | 1 kg\u00b7m\u00b2, 2 kg\u00b7m\u00b2, "
            "3 kg\u00b7m\u00b2, 4 kg\u00b7m\u00b2, -5 kg\u00b7m\u00b2, 6 kg\u00b7m\u00b2");
  KorApplyUnitSystem("CGS");
  dialog.RefreshTexts();
  EXPECT_EQ(FieldRow(dialog, 0), "Mass, Weighed | 2000 g | 2500 g");
}

TEST_F(HistoryDialogTest, ShowsStandardDeviationsWithoutASign) {
  Serve(OneSave({{"standardDeviations[Weighed].mass", "2", "2.5"},
                 {"standardDeviations[Weighed].cg", "1 0 0.5", std::nullopt},
                 {"standardDeviations[Weighed].inertia", std::nullopt, "1 2 3 4 5 6"},
                 {"standardDeviations[Weighed].hasLimits", std::nullopt, "1"}}));
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Standard deviation of the mass, Weighed | 2 kg | 2.5 kg");
  EXPECT_EQ(FieldRow(dialog, 1), "Standard deviations of x, y, z, Weighed | 1000 mm, 0 mm, 500 mm | \u2013");
  EXPECT_EQ(FieldRow(dialog, 2),
            "Standard deviations of Ixx, Iyy, Izz, Ixy, Ixz, Iyz, Weighed | \u2013 | 1 kg\u00b7m\u00b2, 2 "
            "kg\u00b7m\u00b2, 3 kg\u00b7m\u00b2, 4 kg\u00b7m\u00b2, 5 kg\u00b7m\u00b2, 6 kg\u00b7m\u00b2");
  EXPECT_EQ(FieldRow(dialog, 3), "Deviations are limits, Weighed | \u2013 | yes");
}

TEST_F(HistoryDialogTest, ShowsBoundsInPercentOrAsMassesAsTheyWereMeantThen) {
  protocol::PartData now;
  now.massTypes.resize(1);
  now.massTypes[0].name = "Weighed";
  now.massTypes[0].precisionValueType = 1;
  protocol::History history{"p", 2, {}};
  history.entries = {
      {2,
       "2024-05-02T12:30:00Z",
       "eva",
       2,
       {{"massTypes[Weighed].precisionValueType", "0", "1"},
        {"massTypes[Weighed].lowerPrecision", "0.05", "10"}}},
      {1, "2024-05-01T12:30:00Z", "eva", 1, {{"massTypes[Weighed].lowerPrecision", "0", "0.05"}}}};
  Serve(history, now);
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Bounds given as, Weighed | Relative | Absolute");
  EXPECT_EQ(FieldRow(dialog, 1), "Lower bound, Weighed | 5% | 10 kg");
  dialog.SaveList().setCurrentIndex(dialog.Saves().index(1, 0));
  EXPECT_EQ(FieldRow(dialog, 0), "Lower bound, Weighed | 0% | 5%");
}

TEST_F(HistoryDialogTest, ShowsAPropertyThatIsAMagnitudeInTheCurrentUnit) {
  protocol::PartData now;
  now.properties = {{"Paint", "0.5", 2, false, true, "MASS"}, {"Reach", "2.5", 2, false, true, "LENGTH"}};
  Serve(OneSave({{"properties[Paint].value", "0.25", "0.5"},
                 {"properties[Colour].value", "red", "blue"},
                 {"properties[Reach].value", "1.25", "2.5"}}),
        now);
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Property Paint | 0.25 kg | 0.5 kg");
  EXPECT_EQ(FieldRow(dialog, 1), "Property Colour | red | blue");
  EXPECT_EQ(FieldRow(dialog, 2), "Property Reach | 1250 mm | 2500 mm");
}

TEST_F(HistoryDialogTest, NamesFieldsOfTheDocumentForPeople) {
  Serve(OneSave({{"documents.activeId", "DOC-1", "DOC-2"},
                 {"documents.activeVersion", "A", "B"},
                 {"documents.usedSpecificRevisionBefore", "0", "1"}}));
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Active document | DOC-1 | DOC-2");
  EXPECT_EQ(FieldRow(dialog, 1), "Revision of the active document | A | B");
  EXPECT_EQ(FieldRow(dialog, 2), "Revision selected by hand | no | yes");
}

TEST_F(HistoryDialogTest, ShowsAValueThatWasEmptyAsNone) {
  Serve(OneSave({{"properties[Colour].value", "", "red"}, {"material.name", "Steel", ""}}));
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Property Colour | \u2013 | red");
  EXPECT_EQ(FieldRow(dialog, 1), "Material | Steel | \u2013");
}

TEST_F(HistoryDialogTest, ItsButtonsSayWhatTheyBringBackAndTheirTooltipsExplainIt) {
  Serve(OneSave({{"standardPart", "0", "1"}}));
  dialog.Reload();
  EXPECT_EQ(dialog.BeforeButton().text(), "Bring back the state before\u2026");
  EXPECT_EQ(dialog.AfterButton().text(), "Bring back the state after\u2026");
  EXPECT_TRUE(dialog.BeforeButton().toolTip().contains("just before the chosen save"));
  EXPECT_TRUE(dialog.AfterButton().toolTip().contains("as the chosen save left it"));
}

TEST_F(HistoryDialogTest, ShowsAFieldThatItDoesNotKnowAsTheServerCallsIt) {
  Serve(OneSave({{"something.new", "1", "2"}}));
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "something.new | 1 | 2");
}

TEST_F(HistoryDialogTest, TellsHowManyFieldsAreNotListed) {
  protocol::History history = OneSave({{"standardPart", "0", "1"}});
  history.entries[0].changeCount = 1200;
  Serve(history);
  dialog.Reload();
  EXPECT_EQ(dialog.FieldNote(), "The first 1 of 1200 changed fields are listed.");
}

/// A save with 1200 changed fields; what it did to the kind of the bounds is not among those that are listed.
class CutSaveTest : public HistoryDialogTest {
 protected:
  CutSaveTest() {
    now.massTypes.resize(1);
    now.massTypes[0].name = "Weighed";
    now.massTypes[0].precisionValueType = 1;
    history.entries = {{3, "2024-05-03T12:30:00Z", "eva", 1, {{kLower, "20", "30"}}},
                       {2, "2024-05-02T12:30:00Z", "eva", 1200, {{kLower, "0.05", "20"}}},
                       {1, "2024-05-01T12:30:00Z", "eva", 1, {{kLower, "0.02", "0.05"}}}};
  }
  std::string RowOfSave(int number) {
    dialog.SaveList().setCurrentIndex(dialog.Saves().index(3 - number, 0));
    return FieldRow(dialog, 0);
  }

  static constexpr const char* kLower = "massTypes[Weighed].lowerPrecision";
  protocol::PartData now;
  protocol::History history{"p", 3, {}};
};

TEST_F(CutSaveTest, BoundsBeforeItStandAsTheyAreStoredAndTheNoteSaysWhy) {
  Serve(history, now);
  dialog.Reload();
  EXPECT_EQ(RowOfSave(3), "Lower bound, Weighed | 20 kg | 30 kg");
  EXPECT_EQ(dialog.FieldNote(), "");
  EXPECT_EQ(RowOfSave(2), "Lower bound, Weighed | 0.05 (part of the mass, or kg) | 20 kg");
  EXPECT_EQ(
      dialog.FieldNote(),
      "The first 1 of 1200 changed fields are listed.\nOf some bounds it is not known whether they were "
      "Relative or Absolute: they stand as they are stored.");
  EXPECT_EQ(RowOfSave(1),
            "Lower bound, Weighed | 0.02 (part of the mass, or kg) | 0.05 (part of the mass, or kg)");
  EXPECT_EQ(dialog.FieldNote(),
            "Of some bounds it is not known whether they were Relative or Absolute: they stand as they are "
            "stored.");
}

TEST_F(CutSaveTest, AKindThatItListsIsKnownBeforeIt) {
  history.entries[1].changes.push_back({"massTypes[Weighed].precisionValueType", "0", "1"});
  Serve(history, now);
  dialog.Reload();
  EXPECT_EQ(RowOfSave(2), "Lower bound, Weighed | 5% | 20 kg");
  EXPECT_EQ(RowOfSave(1), "Lower bound, Weighed | 2% | 5%");
}

TEST_F(HistoryDialogTest, ABoundOfAPartThatCannotBeReadStandsAsItIsStored) {
  Serve(OneSave({{"massTypes[Weighed].lowerPrecision", "0.05", std::nullopt}}));
  const auto history = server.answer;
  server.answer = [history](const std::string& command, const std::string& request) {
    return command == "WBGetPartData" ? protocol::ErrorReply("damaged") : history(command, request);
  };
  dialog.Reload();
  EXPECT_EQ(FieldRow(dialog, 0), "Lower bound, Weighed | 0.05 (part of the mass, or kg) | \u2013");
}

}  // namespace
}  // namespace desktop::test
