// What the part panel changes outside edit mode counts as unsaved; looking and computing do not.
#include <QAction>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/EditingHarness.h"

namespace desktop::test {
namespace {

class UnsavedChangesTest : public EditingTest {
 protected:
  static constexpr const char* kStandardPart = "Frame250.StdPartFrame.StdPartCheckButton";
  static constexpr const char* kDelete = "TabContainer001.TabPage003.Frame107.Frame231.DeleteButton";
  static constexpr const char* kMassType = "TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo";

  void TearDown() override {
    EditingTest::TearDown();
    KorApplyUnitSystem("Mixed");
  }
  void ToggleStandardPart() {
    ASSERT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).Toggle());
    ASSERT_FALSE(IsEditing());
  }
  bool IsStandardPart() { return window.PartPanel().Buffer()->IsStandatadPart(); }
  /// Deletes the values of a mass type after a save, which leaves the button as edit mode had it.
  void DeleteAfterSave() {
    Edit();
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kMassType).Pick("Estimated"));
    Save();
    ASSERT_FALSE(window.PartPanel().HasUnsavedValues());
    ASSERT_TRUE(Panel().Find<KorDlgPushButton>(kDelete).Press());
    ASSERT_FALSE(IsEditing());
  }
  void SelectGenerator() {
    Select({"nacelle.1", "Above_yaw.1", "generator.1"});
    RunPendingEvents();
  }
  void ExpectNothingUnsaved() {
    EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
    SelectGenerator();
    EXPECT_TRUE(boxes.Questions().empty());
  }
};

TEST_F(UnsavedChangesTest, AStandardPartFlagChangedInDisplayModeIsAskedAboutBeforeAnotherSelection) {
  ToggleStandardPart();
  ASSERT_TRUE(IsStandardPart());
  boxes.answers = {kKeep};
  SelectGenerator();
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].text,
            "What was changed for part bedplate has not been saved and would be lost.");
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  EXPECT_TRUE(IsStandardPart());
}

TEST_F(UnsavedChangesTest, AStandardPartFlagChangedInDisplayModeIsAskedAboutBeforeThePanelCloses) {
  ToggleStandardPart();
  boxes.answers = {kKeep};
  Press("CloseButton");
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_TRUE(window.PartPanel().IsOpen());
}

TEST_F(UnsavedChangesTest, AStandardPartFlagChangedInDisplayModeIsAskedAboutBeforeTheProgramEnds) {
  ToggleStandardPart();
  boxes.answers = {kKeep};
  EXPECT_FALSE(window.close());
}

TEST_F(UnsavedChangesTest, AStandardPartFlagThatWasChangedBackIsNoChange) {
  ToggleStandardPart();
  ToggleStandardPart();
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, AStandardPartFlagThatWasGivenUpIsGone) {
  ToggleStandardPart();
  boxes.answers = {kGiveUp};
  SelectGenerator();
  OpenPanelOnBedplate();
  EXPECT_FALSE(IsStandardPart());
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(UnsavedChangesTest, AStandardPartFlagThatWasSavedIsAskedAboutNoMore) {
  ToggleStandardPart();
  Edit();
  Save();
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_TRUE(IsStandardPart());
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, AStandardPartFlagStaysThroughAnotherLanguageAndOtherUnits) {
  ToggleStandardPart();
  ASSERT_TRUE(window.ChooseLanguage("de"));
  KorApplyUnitSystem("Imperial");
  window.UnitsChanged();
  EXPECT_TRUE(Panel().Find<KorDlgCheckButton>(kStandardPart).IsChecked());
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(UnsavedChangesTest, AStandardPartFlagStaysUnderTheFilterUntilItIsSaved) {
  ToggleStandardPart();
  ChooseFilter("Structure only");
  EXPECT_TRUE(IsStandardPart());
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
  ChooseFilter("No Filter");
}

TEST_F(UnsavedChangesTest, AComputeDoesNotSaveAStandardPartFlag) {
  ToggleStandardPart();
  window.Compute();
  RunPendingEvents();
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
}

TEST_F(UnsavedChangesTest, AMassTypeDeletedInDisplayModeIsAskedAboutBeforeAnotherSelection) {
  DeleteAfterSave();
  boxes.answers = {kKeep};
  SelectGenerator();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  EXPECT_FALSE(window.PartPanel().Buffer()->HasMass("Estimated"));
}

TEST_F(UnsavedChangesTest, AMassTypeDeletedInDisplayModeIsAskedAboutBeforeAnotherProductIsOpened) {
  DeleteAfterSave();
  boxes.answers = {kKeep};
  EXPECT_FALSE(window.OpenProduct(File()));
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(UnsavedChangesTest, AComputeDoesNotSaveThatAMassTypeWasDeleted) {
  DeleteAfterSave();
  window.Compute();
  RunPendingEvents();
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
}

TEST_F(UnsavedChangesTest, AnAppliedRevisionCountsBecauseTheNextSaveStoresItsValues) {
  Edit();
  ChooseRevision("B");
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
  Save();
  ExpectNothingUnsaved();
}

// ---- no false alarms ----

TEST_F(UnsavedChangesTest, OpeningThePanelChangesNothing) { ExpectNothingUnsaved(); }

TEST_F(UnsavedChangesTest, ASaveLeavesNothingUnsaved) {
  EditMass("43000");
  Save();
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, ComputingChangesNothing) {
  window.Compute();
  RunPendingEvents();
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, ComputingAboutTheReferencePointChangesNothing) {
  ASSERT_TRUE(
      Panel().Find<KorDlgRadioButton>("Frame250.AdditionalFrame2.InertiaModeFrame.ReferenceButton").Check());
  window.Compute();
  RunPendingEvents();
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, ComputingUnderAFilterChangesNothing) {
  ChooseFilter("Structure only");
  window.Compute();
  RunPendingEvents();
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
  ChooseFilter("No Filter");
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
}

TEST_F(UnsavedChangesTest, LookingAtEachPageRevisionPropertyAndMassTypeChangesNothing) {
  for (const char* massType : {"Estimated", "Calculated", "Weighed", "Computed"}) {
    GoTo(kMassTypesPage);
    auto& types = Panel().Find<KorDlgCombo>(kMassType);
    if (std::ranges::find(types.GetLines(), massType) != types.GetLines().end()) types.Pick(massType);
  }
  for (const Page page : {kResultsPage, kMaterialPage, kPrecisionPage, kDocumentsPage}) GoTo(page);
  ASSERT_TRUE(
      Panel()
          .Find<KorDlgCombo>(
              "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameComboDocs.DocumentsCombo")
          .Pick(1));
  for (const char* property : {"Crane lifts", "Last weighing", "Overall length"}) ShowProperty(property);
  ExpectNothingUnsaved();
}

/// The panel leaves these radio buttons on for a part with an instance, for which nothing reads them.
TEST_F(UnsavedChangesTest, ChoosingWhereAMaterialAppliesChangesNothingForAPartWithAnInstance) {
  GoTo(kMaterialPage);
  const std::string material = TextOf("TabContainer001.TabPage004.MaterialAndDensityFrame.WBMaterialEditor");
  for (const char* radio : {"ApplyOnInstance", "ApplyOnReference"})
    ASSERT_TRUE(
        Panel()
            .Find<KorDlgRadioButton>(
                std::string("TabContainer001.TabPage004.MaterialAndDensityFrame.ApplyOnButtonsFrame.") +
                radio)
            .Check());
  EXPECT_EQ(TextOf("TabContainer001.TabPage004.MaterialAndDensityFrame.WBMaterialEditor"), material);
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, OtherUnitsChangeNothing) {
  for (const char* system : {"SI", "CGS", "Imperial"}) {
    KorApplyUnitSystem(system);
    window.UnitsChanged();
    EXPECT_FALSE(window.PartPanel().HasUnsavedValues()) << system;
  }
  ExpectNothingUnsaved();
}

TEST_F(UnsavedChangesTest, AnotherLanguageChangesNothing) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  ExpectNothingUnsaved();
}

}  // namespace
}  // namespace desktop::test
