// The mass-types page in edit mode: what can be typed and deleted.

#include "tests/module/EditingTest.h"

namespace {

using testing::ElementsAre;

using MassTypesEditing = MassTypesEditingTest;

// ---- showing another mass type ----

TEST_F(MassTypesEditing, AListOfThreeNamesFillsBothCombosAlikeAndTheActiveTypeIsSelectedInBoth) {
  EditPage(SamplePartWithActive("Estimated"));
  for (const char* combo : {"MassTypeCombo", "ActiveMassCombo"}) {
    EXPECT_THAT(As<KorDlgCombo>(combo).GetLines(), ElementsAre("Computed", "Estimated", "Weighed"));
    EXPECT_EQ(SelectedLine(combo), "Estimated");
  }
}

TEST_F(MassTypesEditing, AUserMassTypeCanBeTypedAndPasted) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
  EXPECT_EQ(EditableDistribution(), 9);
  EXPECT_TRUE(IsEnabled("MTPasteValuesCombo"));
  EXPECT_THAT(PasteLines(), ElementsAre("", "Computed", "Weighed"));
  EXPECT_EQ(SelectedLine("MTPasteValuesCombo"), "");
}

TEST_F(MassTypesEditing, TheMassAloneOfAStandardPartCanBeTyped) {
  EditPage(SampleStandardPart("Computed"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
  EXPECT_EQ(EditableDistribution(), 0);
  EXPECT_TRUE(IsEnabled("MTPasteValuesCombo"));
}

TEST_F(MassTypesEditing, NothingOfTheComputedTypeCanBeTypedOrPasted) {
  EditPage(SamplePartWithActive("Estimated"));
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3 kg");
  Pick("MassTypeCombo", "Computed");
  EXPECT_FALSE(IsEnabled("MTMassEditor"));
  EXPECT_EQ(EditableDistribution(), 0);
  EXPECT_FALSE(IsEnabled("MTPasteValuesCombo"));
  EXPECT_FALSE(IsEnabled("UpdatePropertiesButton"));
  EXPECT_THAT(PasteLines(), ElementsAre());
  EXPECT_EQ(MTValues(), kComputed);
}

TEST_F(MassTypesEditing, AnotherMassTypeOffersMaterialAndDensityWhateverThePriorityOnPurpose) {
  protocol::PartData part = SamplePart();
  part.material.densityPriority = 1;
  for (const char* massType : {"Estimated", "Computed"}) {
    EditPage(part);
    EXPECT_FALSE(IsEnabled("DensityEditor"));
    Pick("MassTypeCombo", massType);
    for (const char* widget : {"DensityEditor", "WBMaterialEditor", "FirstCombo", "TypeCombo", "SaveButton"})
      EXPECT_TRUE(IsEnabled(widget)) << massType << widget;
    Close();
  }
}

TEST_F(MassTypesEditing, AnotherMassTypeOffersTheBoundsOnlyWhenTheyAreTheUsers) {
  for (const int type : {0, 1}) {
    protocol::PartData part = SamplePart();
    part.massTypes[0].precisionType = type;
    EditPage(part);
    Pick("MassTypeCombo", "Estimated");
    for (const char* widget : {"UpperValueEditor", "LowerValueEditor", "ValueTypeCombo"})
      EXPECT_EQ(IsEnabled(widget), type == 1) << widget;
    Close();
  }
}

TEST_F(MassTypesEditing, OutsideEditModeAnotherMassTypeOffersNothing) {
  Open(SamplePart());
  PickPage("TabPage003");
  Pick("MassTypeCombo", "Estimated");
  for (const char* widget : {"MTMassEditor", "MTCGxEditor", "DensityEditor", "SaveButton", "DeleteButton"})
    EXPECT_FALSE(IsEnabled(widget)) << widget;
  EXPECT_THAT(PasteLines(), ElementsAre());
}

TEST_F(MassTypesEditing, ShowingAnUndefinedMassTypeFillsAllTenEditorsWithDots) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Weighed");
  EXPECT_EQ(MTValues(), kNothing);
  EXPECT_TRUE(IsEnabled("MTMassEditor"));
}

TEST_F(MassTypesEditing, ShowingAUserMassTypeOfAStandardPartShowsItsMassAndDots) {
  EditPage(SampleStandardPart("Computed"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(MTValues(), "4 kg; ..., ..., ...; ..., ..., ...; ..., ..., ...");
}

// The stored inertia is shown last in any case: only a window sees what stood there before it. A mass of 0
// moves nothing anyway; one below 0 tells that none is tried.
TEST_F(MassTypesEditing, WithAMassOfZeroOrBelowTheInertiaIsShownWithoutTheMove) {
  for (const auto& [mass, changes] : {std::pair(0.0, 1), std::pair(-4.0, 1), std::pair(4.0, 2)}) {
    protocol::PartData part = SamplePart();
    part.massTypes[1].mass = mass;
    EditPage(part);
    LookAtTheReferencePoint();
    Backend().ClearLog();
    Pick("MassTypeCombo", "Estimated");
    EXPECT_THAT(Backend().Log(), testing::Contains("MTIyyEditor: Text").Times(changes)) << mass;
    EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
    Close();
  }
}

TEST_F(MassTypesEditing, ThePageEndsWithTheStoredInertiaAlsoAtTheReferencePointOnPurpose) {
  EditPage(SamplePart());
  LookAtTheReferencePoint();
  Pick("MassTypeCombo", "Estimated");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

// ---- deleting ----

TEST_F(MassTypesEditing, AMassTypeThatIsNeitherComputedNorActiveCanBeDeleted) {
  EditPage(SamplePart());
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Computed");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, TheActiveMassTypeLeavesTheDeleteButtonAsItIsOnPurpose) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
  Pick("ActiveMassCombo", "Estimated");  // itself becomes the active one
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, AnUndefinedMassTypeLeavesTheDeleteButtonAsItIsOnPurpose) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  Pick("MassTypeCombo", "Weighed");
  EXPECT_TRUE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, ADeleteButtonThatIsOffStaysOffWhenAnotherTypeBecomesActiveOnPurpose) {
  EditPage(SamplePartWithActive("Estimated"));
  EXPECT_FALSE(IsEnabled("DeleteButton"));
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, AUserMassTypeOfAStandardPartLeavesTheDeleteButtonAsItIsOnPurpose) {
  EditPage(SampleStandardPart("Computed"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, AfterASaveTheDeleteButtonStaysUntilAMassTypeIsShownAgain) {
  EditPage(SamplePart());
  Pick("MassTypeCombo", "Estimated");
  Save();
  EXPECT_TRUE(IsEnabled("DeleteButton"));
  Pick("MassTypeCombo", "Estimated");
  EXPECT_FALSE(IsEnabled("DeleteButton"));
}

TEST_F(MassTypesEditing, WithoutABufferAnotherActiveTypeShowsNothing) {
  EditPage(SamplePart());
  Panel().SetModel(nullptr);
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "Computed");
}

}  // namespace
