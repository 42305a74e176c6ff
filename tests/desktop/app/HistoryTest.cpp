// The history of a part on the embedded server: who saved it, when, what changed, and an earlier state saved
// again.
#include <gmock/gmock.h>

#include <QAction>
#include <QPointer>
#include <QStatusBar>
#include <QTreeView>

#include "desktop/app/SelectionPane.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/HistoryHarness.h"

namespace desktop::test {
namespace {

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
  /// Chooses a save in the history, opening that where it is closed, and presses the button.
  void BringBack(int save, QPushButton& (HistoryDialog::*button)() const) {
    HistoryDialog& dialog = window.History() ? *window.History() : OpenHistory();
    const int row = dialog.Saves().Entries().front().number - save;
    dialog.SaveList().setCurrentIndex(dialog.Saves().index(row, 0));
    (dialog.*button)().click();
    RunPendingEvents();
  }
  void BringBackBefore(int save) { BringBack(save, &HistoryDialog::BeforeButton); }
  void BringBackAfter(int save) { BringBack(save, &HistoryDialog::AfterButton); }
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
  EXPECT_EQ(window.statusBar()->currentMessage(), "An earlier state of part bedplate was brought back.");
}

TEST_F(HistoryTest, ASaveThroughThePanelIsTakenAfterAnEarlierStateWasSavedAgain) {
  SaveMass("43000");
  boxes.answers = {0};
  BringBackBefore(1);
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
  EXPECT_THAT(rows, testing::IsSupersetOf({"Revision of the active document | chosen automatically | B",
                                           "Revision selected by hand | no | yes",
                                           "Property Last weighing | 2020-06-18 | 2024-02-29",
                                           "Property Overall length | 9200 mm | 9350.5 mm"}));
  for (const std::string& row : rows) EXPECT_EQ(row.find('['), row.npos) << row << " is not for people";
}

TEST_F(HistoryTest, NothingIsSavedAgainWhenTheUserLeavesIt) {
  SaveMass("43000");
  boxes.answers = {1};
  BringBackBefore(1);
  EXPECT_EQ(PaneMass(), "43000 kg");
}

TEST_F(HistoryTest, AsksAgainWhenThePanelIsInEditModeAndSavesNothingWhenTheUserGoesOn) {
  SaveMass("43000");
  EditMass("44000");
  boxes.answers = {0, kKeep};
  BringBackBefore(1);
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
  BringBackBefore(1);
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

TEST_F(HistoryTest, AComputeAndASaveOfAnotherPartDoNotReadItAgain) {
  SaveMass("43000");
  OpenHistory();
  KorPdmTransport* real = KorPdmClient::GetTransport();
  ScriptedTransport server;
  server.answer = [real](const std::string& command, const std::string& request) {
    return real->Run(command, request);
  };
  window.Compute();
  RunPendingEvents();
  Select({"nacelle.1", "Above_yaw.1", "cover.1"});
  RunPendingEvents();
  ASSERT_TRUE(Press("EditButton"));
  Save();
  EXPECT_THAT(server.commands, testing::IsSupersetOf({"WBComputeNymValues", "WBSaveNymValues"}));
  EXPECT_THAT(server.commands, testing::Not(testing::Contains("LumGetHistory")));
}

/// The history calls things as the panel does that stands beside it.
class NamesTest : public HistoryTest, public testing::WithParamInterface<const char*> {
 protected:
  using Texts = std::vector<std::string>;
  static constexpr const char* kPrecision = "TabContainer001.TabPage005.";
  static constexpr const char* kMaterial = "TabContainer001.TabPage004.";
  static constexpr const char* kRevision =
      "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameActiveDocType.";

  std::string TitleOf(const std::string& path) { return Panel().Find(path).GetTitle().Utf8(); }
  Texts LinesOf(const std::string& path) {
    Texts lines;
    for (const KorUnicodeString& line : Panel().Find<KorDlgCombo>(path).GetLines())
      lines.push_back(line.Utf8());
    return lines;
  }
  static Texts Shown(const char* field, const char* before, const char* after) {
    const auto texts = HistoryTexts::Of({field, before, after}, {}, {});
    return {texts.before.toStdString(), texts.after.toStdString()};
  }
  static std::string NameOf(const char* field) {
    return HistoryTexts::Of({field, {}, {}}, {}, {}).field.toStdString();
  }
};

TEST_P(NamesTest, AreThoseOfThePanel) {
  ASSERT_TRUE(window.ChooseLanguage(GetParam()));
  EXPECT_EQ(Shown("massTypes[Weighed].precisionValueType", "0", "1"),
            LinesOf(std::string(kPrecision) + "Frame252.PrecisionValueFrame.ValueTypeCombo"));
  EXPECT_EQ(Shown("massTypes[Weighed].precisionType", "0", "1"),
            LinesOf(std::string(kPrecision) + "Frame252.Frame092.TypeCombo"));
  EXPECT_EQ(Shown("documents.activeVersion", "", "B"),
            (Texts{TitleOf(std::string(kRevision) + "ActiveDocLatestButton"), "B"}));
  EXPECT_EQ(
      Shown("material.appliedOn", "Part Instance", "Part Reference"),
      (Texts{
          TitleOf(std::string(kMaterial) + "MaterialAndDensityFrame.ApplyOnButtonsFrame.ApplyOnInstance"),
          TitleOf(std::string(kMaterial) + "MaterialAndDensityFrame.ApplyOnButtonsFrame.ApplyOnReference")}));
  EXPECT_EQ(NameOf("material.densityPriority"), TitleOf(std::string(kMaterial) + "DensityPriorityFrame"));
}

INSTANTIATE_TEST_SUITE_P(Languages, NamesTest, testing::Values("en", "de"));

// ---- an open part panel ----

class PanelOfAboveTest : public HistoryTest {
 protected:
  static constexpr const char* kDensity = "TabContainer001.TabPage004.MaterialAndDensityFrame.DensityEditor";
  static constexpr const char* kMaterial =
      "TabContainer001.TabPage004.MaterialAndDensityFrame.WBMaterialEditor";
  static constexpr const char* kMaterialsBelow =
      "TabContainer001.TabPage004.MaterialAndDensityFrame.MatStatNameSpinner";

  /// The history of the bedplate beside the panel of an assembly above it that has just been computed.
  void SetUp() override {
    HistoryTest::SetUp();
    EditMass("43000");
    TypeDensity();
    Type(kMaterial, "Bronze");
    Save();
    OpenHistory();
    Select({"nacelle.1", "Above_yaw.1"});
    RunPendingEvents();
    window.Compute();
    RunPendingEvents();
    ASSERT_TRUE(IsUpToDate());
    boxes.answers = {0};
  }
  /// The typed density and material count only when they come first.
  void TypeDensity() {
    GoTo(kMaterialPage);
    ASSERT_TRUE(
        Panel().Find<KorDlgCombo>("TabContainer001.TabPage004.DensityPriorityFrame.FirstCombo").Pick("WB"));
    Type(kDensity, "7000");
  }
  std::vector<std::string> MaterialsBelow() {
    GoTo(kMaterialPage);
    auto& spinner = Panel().Find<KorDlgSpinner>(kMaterialsBelow);
    while (spinner.TurnDown()) continue;
    std::vector<std::string> names;
    do names.push_back(spinner.GetText().Utf8());
    while (spinner.TurnUp());
    return names;
  }
  bool IsUpToDate() { return Panel().Find<KorDlgLabel>("Frame012.FrameStatus.FlagGreenLabel").IsShown(); }
};

TEST_F(PanelOfAboveTest, IsNotUpToDateAnyMoreAfterAPartBelowWasBroughtBack) {
  BringBackBefore(1);
  EXPECT_FALSE(IsUpToDate());
  EXPECT_EQ(window.statusBar()->currentMessage(), "An earlier state of part bedplate was brought back.");
}

TEST_F(PanelOfAboveTest, KeepsWhatIsTypedWithoutAQuestionAndFollowsAfterItsOwnSave) {
  ASSERT_THAT(MaterialsBelow(), testing::Contains("Bronze"));
  ASSERT_TRUE(Press("EditButton"));
  TypeDensity();
  BringBackBefore(1);
  EXPECT_EQ(boxes.Questions().size(), 1u) << "whether to bring it back";
  ASSERT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kDensity), "7000");
  Save();
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_EQ(TextOf(kDensity), "7000 kg/m\u00b3");
  EXPECT_THAT(MaterialsBelow(),
              testing::AllOf(testing::Contains("Cast iron"), testing::Not(testing::Contains("Bronze"))));
  EXPECT_FALSE(IsUpToDate());
}

}  // namespace
}  // namespace desktop::test
