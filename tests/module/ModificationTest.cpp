// Is what is shown what is stored? A save asks, and sends whether the result is up to date.

#include "framework/dialog/KorDlgEditor.h"
#include "tests/module/EditTest.h"

namespace {

class Modification : public EditTest {
 protected:
  /// What a save of the part with the computed mass type shown says: the result still holds.
  bool HoldsAfterSaving(const protocol::PartData& part) {
    Edit(part, "Computed");
    const bool computed = Save().computed;
    EXPECT_EQ(IsShown("FlagRedLabel[1]"), !computed);
    EXPECT_EQ(IsShown("FlagGreenLabel[1]"), computed);
    return computed;
  }
};

TEST_F(Modification, IsNotReportedOfWhatNobodyEdited) {
  EXPECT_TRUE(HoldsAfterSaving(PartWithoutProducts()));
}

TEST_F(Modification, IsReportedOfAMassOfZeroEvenIfTheBufferHoldsZero) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].mass = 0;
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedWheneverTheYzProductIsNotZero) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, 0, 0, -3};
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, OfTheXyProductIsComparedAsItIsStored) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, -1, 0, 0};
  EXPECT_TRUE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedOfAnXzProductSinceItIsComparedWithTheStoredYzProduct) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, 0, -2, 0};
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsNotReportedWhereTheXzEditorHoldsTheStoredYzProduct) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].inertia = {10, 20, 30, 0, -2, 0};
  Edit(part, "Computed");
  As<KorDlgEditor>("MTIxzEditor").SetText("0");  // no user types computed values
  EXPECT_TRUE(Save().computed);
}

TEST_F(Modification, IsReportedInAnotherUnitThanTheStorageUnit) {
  SetUnit("MASS", "GRAM");
  EXPECT_FALSE(HoldsAfterSaving(PartWithoutProducts()));
}

TEST_F(Modification, IsReportedOfDigitsThatAreNotShown) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].mass = 1.23456789012345;
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedWithoutACentreOfGravityOrInertia) {
  protocol::PartData part = PartWithoutProducts();
  part.massTypes[0].cg.reset();
  EXPECT_FALSE(HoldsAfterSaving(part));
  Close();
  part = PartWithoutProducts();
  part.massTypes[0].inertia.reset();
  EXPECT_FALSE(HoldsAfterSaving(part));
}

TEST_F(Modification, IsReportedOfEachValueThatDiffersFromTheStoredOne) {
  for (const char* editor :
       {"MTMassEditor", "MTCGxEditor", "MTCGyEditor", "MTCGzEditor", "MTIxxEditor", "MTIyyEditor",
        "MTIzzEditor", "MTIxyEditor", "MTIxzEditor", "MTIyzEditor", "DensityEditor"}) {
    Edit(PartWithoutProducts(), "Computed");
    As<KorDlgEditor>(editor).SetText("7");  // no user types computed values
    EXPECT_FALSE(Save().computed) << editor;
    Close();
  }
}

TEST_F(Modification, OfTheDensityTypedIsReported) {
  Edit(PartWithoutProducts(), "Computed");
  PickPage("TabPage004");
  Type("DensityEditor", "7851");
  EXPECT_FALSE(Save().computed);
}

TEST_F(Modification, OfThePriorityOfDensitiesIsReported) {
  Edit(PartWithoutProducts(), "Computed");
  PickPage("TabPage004");
  Pick("FirstCombo", "KORVO");
  EXPECT_FALSE(Save().computed);
}

TEST_F(Modification, OfAUserMassTypeIsNotAskedFor) {
  Edit(SamplePart());
  Type("MTMassEditor", "9");
  EXPECT_TRUE(Save().computed);
  EXPECT_TRUE(IsShown("FlagGreenLabel[1]"));
}

class DocumentModification : public Modification {
 protected:
  DocumentModification() { _part.documents.usedSpecificRevisionBefore = true; }
  protocol::PartData _part = SamplePartWithDocuments();
};

TEST_F(DocumentModification, IsReportedOfAnotherRevisionEvenWhenOnlyDocumentsAreLookedAt) {
  Edit(_part);
  PickPage("TabPageDocuments");
  Press("ChangeActiveDocButton");
  Pick("ActiveDocsCombo", "D-7 A");
  Press("CancelActiveDocButton");
  EXPECT_FALSE(Save().computed);
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
}

TEST_F(DocumentModification, IsNotReportedOfTheActiveRevision) {
  Edit(_part);
  EXPECT_TRUE(Save().computed);
}

TEST_F(DocumentModification, IsReportedOfTheAutomaticRevisionWhoseLineIsEmpty) {
  _part.documents.usedSpecificRevisionBefore = false;
  Edit(_part);
  EXPECT_FALSE(Save().computed);
}

TEST_F(DocumentModification, StoresTheAnswerAsItComesAlsoWhereTheValuesWereNotUpToDate) {
  _part.computed = false;
  Edit(_part);
  EXPECT_TRUE(Save().computed);
}

}  // namespace
