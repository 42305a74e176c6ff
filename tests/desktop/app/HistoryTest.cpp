// The history of a part: who saved it, when, what changed, and an earlier state saved again.
#include <gmock/gmock.h>

#include <QAction>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>
#include <QTreeView>

#include "desktop/app/HistoryDialog.h"
#include "desktop/app/SelectionPane.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

std::string Cell(const QAbstractItemModel& model, int row, int column) {
  return model.index(row, column).data().toString().toStdString();
}

/// A row of the list of fields, cells joined by ", ".
std::string FieldRow(HistoryDialog& dialog, int row) {
  std::string cells;
  for (int column = 0; column < 3; ++column)
    cells += (column ? " | " : "") + Cell(*dialog.FieldList().model(), row, column);
  return cells;
}

// ---- what a server tells is shown ----

class HistoryDialogTest : public testing::Test {
 protected:
  HistoryDialogTest() { KorApplyUnitSystem("Mixed"); }
  ~HistoryDialogTest() override { KorApplyUnitSystem("Mixed"); }

  /// A server with this history, and with part data for units of properties and kinds of bounds.
  void Serve(protocol::History history, protocol::PartData data = {}) {
    server.answer = [history, data](const std::string& command, const std::string& request) {
      if (command == "WBGetPartData") return protocol::WritePartData(data);
      const auto asked = protocol::ReadHistoryRequest(request).Value();
      protocol::History page{history.partId, history.total, {}};
      for (const protocol::HistoryEntry& entry : history.entries)
        if ((asked.before == 0 || entry.number < asked.before) &&
            static_cast<int>(page.entries.size()) < asked.limit)
          page.entries.push_back(entry);
      return protocol::WriteHistory(page);
    };
  }
  static protocol::History OneSave(std::vector<protocol::FieldChange> changes) {
    const int count = static_cast<int>(changes.size());
    return {"p", 1, {{1, "2024-05-01T12:30:00Z", "eva", count, std::move(changes)}}};
  }
  static protocol::History Saves(int count) {
    protocol::History history{"p", count, {}};
    for (int number = count; number > 0; --number)
      history.entries.push_back({number, "2024-05-01T12:30:00Z", "eva", 0, {}});
    return history;
  }

  ScriptedTransport server;
  HistoryDialog dialog{"p", nullptr};
};

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
  EXPECT_EQ(FieldRow(dialog, 0), "Kind of bounds, Weighed | relative | absolute");
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
  EXPECT_EQ(FieldRow(dialog, 2), "Revision chosen by hand | no | yes");
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

TEST_F(HistoryDialogTest, SaysWhenThePartHasNotBeenSaved) {
  Serve({"p", 0, {}});
  dialog.Reload();
  EXPECT_EQ(dialog.Heading(), "Part p has not been saved yet.");
  EXPECT_FALSE(dialog.BeforeButton().isEnabled());
  EXPECT_FALSE(dialog.AfterButton().isEnabled());
}

TEST_F(HistoryDialogTest, AsksForFurtherSavesByTheButton) {
  Serve(Saves(250));
  dialog.Reload();
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 250; the latest 100 are listed");
  ASSERT_FALSE(dialog.MoreButton().isHidden());
  dialog.MoreButton().click();
  dialog.MoreButton().click();
  EXPECT_EQ(dialog.Heading(), "Saves of this part: 250");
  EXPECT_EQ(Cell(dialog.Saves(), 249, HistoryModel::Number), "1");
  EXPECT_TRUE(dialog.MoreButton().isHidden());
}

TEST_F(HistoryDialogTest, AsksForFurtherSavesWhenTheListIsScrolledToItsEnd) {
  Serve(Saves(250));
  dialog.show();
  dialog.Reload();
  RunPendingEvents();
  auto& bar = *dialog.SaveList().verticalScrollBar();
  bar.setValue(bar.maximum());
  RunPendingEvents();
  EXPECT_GE(dialog.Saves().rowCount(), 200);
}

TEST_F(HistoryDialogTest, TellsOfAPageThatCannotBeReadOnceAndAsksNoMore) {
  Serve(Saves(250));
  int told = 0;
  dialog.onError = [&](const protocol::Error& error) {
    EXPECT_EQ(error.message, "the disk is full");
    ++told;
  };
  dialog.Reload();
  server.answer = [](auto&...) { return protocol::ErrorReply("the disk is full"); };
  dialog.Saves().fetchMore();
  dialog.Saves().fetchMore();
  EXPECT_EQ(told, 1);
  EXPECT_EQ(dialog.Saves().rowCount(), 100);
}

TEST_F(HistoryDialogTest, EachControlIsReachedByTheTabKey) {
  Serve(OneSave({{"standardPart", "0", "1"}}));
  dialog.show();
  dialog.Reload();
  dialog.SaveList().setFocus();
  QApplication::setActiveWindow(&dialog);
  std::vector<const QWidget*> visited;
  for (int i = 0; i < 5; ++i) {
    visited.push_back(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(visited[0], &dialog.SaveList());
  EXPECT_EQ(visited[1], &dialog.FieldList());
  EXPECT_EQ(visited[2], &dialog.BeforeButton());
  EXPECT_EQ(visited[3], &dialog.AfterButton());
}

// ---- on the embedded server ----

class HistoryTest : public EditingTest {
 protected:
  void SaveMass(const std::string& mass) {
    EditMass(mass);
    Save();
  }
  std::string PaneMass() { return window.Selection().ActiveText("Selection.Mass").toStdString(); }
  HistoryDialog& OpenHistory() {
    window.Command("History")->trigger();
    RunPendingEvents();
    return *window.History();
  }
};

TEST_F(HistoryTest, ShowsTheSavesOfTheSelectedPart) {
  SaveMass("43000");
  SaveMass("44000");
  HistoryDialog& dialog = OpenHistory();
  EXPECT_EQ(dialog.Saves().rowCount(), 2);
  EXPECT_EQ(Cell(dialog.Saves(), 0, HistoryModel::User), "eva");
  EXPECT_EQ(FieldRow(dialog, 0), "Mass, Calculated | 43000 kg | 44000 kg");
}

TEST_F(HistoryTest, TakesInASaveWhileItIsOpenAndKeepsTheChosenOne) {
  SaveMass("43000");
  HistoryDialog& dialog = OpenHistory();
  SaveMass("44000");
  EXPECT_EQ(dialog.Saves().rowCount(), 2);
  EXPECT_EQ(FieldRow(dialog, 0), "Mass, Calculated | 42274.27441 kg | 43000 kg");
}

TEST_F(HistoryTest, TheStateBeforeASaveIsSavedAgainAfterAQuestionAndThePanelShowsIt) {
  SaveMass("43000");
  HistoryDialog& dialog = OpenHistory();
  boxes.answers = {0};
  dialog.BeforeButton().click();
  RunPendingEvents();
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_NE(boxes.Questions()[0].text.Utf8().find("as it was before save 1"), std::string::npos);
  EXPECT_EQ(PaneMass(), "42274.27441 kg");
  EXPECT_EQ(TextOf(kMass), "42274.27441 kg");
  EXPECT_EQ(dialog.Saves().rowCount(), 2);
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(HistoryTest, ASaveThroughThePanelIsTakenAfterAnEarlierStateWasSavedAgain) {
  SaveMass("43000");
  boxes.answers = {0};
  window.SaveAgain("bedplate", 1, protocol::HistoryMoment::Before);
  RunPendingEvents();
  SaveMass("44000");
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_EQ(PaneMass(), "44000 kg");
}

TEST_F(HistoryTest, TheStateAfterASaveIsSavedAgain) {
  SaveMass("43000");
  SaveMass("44000");
  HistoryDialog& dialog = OpenHistory();
  dialog.SaveList().setCurrentIndex(dialog.Saves().index(1, 0));
  boxes.answers = {0};
  dialog.AfterButton().click();
  RunPendingEvents();
  EXPECT_EQ(PaneMass(), "43000 kg");
}

TEST_F(HistoryTest, ShowsWhichRevisionWasChosenAndWhichPropertiesChanged) {
  Edit();
  ChooseRevision("B");
  EditProperty("Last weighing", "2024-02-29");
  EditProperty("Overall length", "9350.5");
  Save();
  HistoryDialog& dialog = OpenHistory();
  std::vector<std::string> rows;
  for (int row = 0; row < dialog.FieldList().rowCount(); ++row) rows.push_back(FieldRow(dialog, row));
  EXPECT_THAT(rows, testing::IsSupersetOf({"Revision of the active document | automatic | B",
                                           "Revision chosen by hand | no | yes",
                                           "Property Last weighing | 2020-06-18 | 2024-02-29",
                                           "Property Overall length | 9200 mm | 9350.5 mm"}));
  for (const std::string& row : rows) EXPECT_EQ(row.find('['), row.npos) << row << " is not for people";
}

TEST_F(HistoryTest, NothingIsSavedAgainWhenTheUserLeavesIt) {
  SaveMass("43000");
  boxes.answers = {1};
  window.SaveAgain("bedplate", 1, protocol::HistoryMoment::Before);
  RunPendingEvents();
  EXPECT_EQ(PaneMass(), "43000 kg");
}

TEST_F(HistoryTest, AsksAgainWhenThePanelIsInEditModeAndSavesNothingWhenTheUserGoesOn) {
  SaveMass("43000");
  EditMass("44000");
  boxes.answers = {0, kKeep};
  window.SaveAgain("bedplate", 1, protocol::HistoryMoment::Before);
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 2u);
  EXPECT_EQ(TextOf(kMass), "44000");
  EXPECT_TRUE(IsEditing());
  EXPECT_EQ(PaneMass(), "43000 kg");
}

TEST_F(HistoryTest, ARefusalIsToldAndChangesNothing) {
  SaveMass("43000");
  KorPdmTransport* real = KorPdmClient::GetTransport();
  ScriptedTransport server;
  server.answer = [real](const std::string& command, const std::string& request) {
    return command == "WBSaveNymValues" ? protocol::ErrorReply("was changed by somebody")
                                        : real->Run(command, request);
  };
  boxes.answers = {0};
  window.SaveAgain("bedplate", 1, protocol::HistoryMoment::Before);
  RunPendingEvents();
  EXPECT_EQ(OnlyMessage(), "was changed by somebody");
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
  EXPECT_EQ(TextOf(kMass), "43000 kg");
}

TEST_F(HistoryTest, ClosesWithTheProductAndFollowsTheLanguage) {
  QPointer<HistoryDialog> dialog = &OpenHistory();
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(dialog->windowTitle(), "Verlauf des Teils bedplate");
  ASSERT_TRUE(window.OpenProduct(File()));
  RunPendingEvents();
  EXPECT_TRUE(dialog.isNull());
}

}  // namespace
}  // namespace desktop::test
