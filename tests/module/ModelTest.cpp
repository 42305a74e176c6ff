#include "framework/dialog/KorDlgCombo.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/module/PanelTest.h"
#include "tests/support/TraceCapture.h"

namespace {

protocol::PartData OtherPart() {
  protocol::PartData part = SamplePart();
  part.partId = "P-200";
  part.instancePath = "";
  part.configurationHandler = "ROOT2";
  part.computed = false;
  part.persisted = false;
  part.activeMassType = "Estimated";
  part.massTypes[0].mass = 8;
  part.massTypes[0].cg = {0, 0, 1};
  part.massTypes[0].inertia = {1, 1, 1, 0, 0, 0};
  return part;
}

class Model : public PanelTest {};

TEST_F(Model, BindingReturnsTheGenericFailureWhateverHappensOnPurpose) {
  Open(SamplePart());
  auto other = BufferOf(OtherPart());
  EXPECT_EQ(Panel().SetModel(other.Get()), static_cast<HRESULT>(0x80004005));
  EXPECT_EQ(Panel().SetModel(&Buffer()), static_cast<HRESULT>(0x80004005));
  EXPECT_EQ(Panel().SetModel(nullptr), static_cast<HRESULT>(0x80004005));
}

TEST_F(Model, BindingReleasesTheOldBufferAndHoldsTheNew) {
  Open(SamplePart());
  auto other = BufferOf(OtherPart());
  const KorBaseUnknown& oldCounted = Buffer();
  const KorBaseUnknown& newCounted = *other;
  EXPECT_EQ(oldCounted.ReferenceCount(), 2u);
  Panel().SetModel(other.Get());
  EXPECT_EQ(oldCounted.ReferenceCount(), 1u);
  EXPECT_EQ(newCounted.ReferenceCount(), 2u);
  Close();
  EXPECT_EQ(newCounted.ReferenceCount(), 1u);
}

TEST_F(Model, BindingTheSameBufferAgainKeepsOneReference) {
  Open(SamplePart());
  Panel().SetModel(&Buffer());
  EXPECT_EQ(static_cast<const KorBaseUnknown&>(Buffer()).ReferenceCount(), 2u);
  EXPECT_EQ(Text("MassEditor"), "2 kg");
}

TEST_F(Model, BindingShowsTheOtherPartOnEveryPage) {
  Open(SamplePart());
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());
  EXPECT_EQ(Text("SelectionEditor"), "ROOT2/P-200");
  EXPECT_EQ(Text("MassEditor"), "8 kg");
  EXPECT_EQ(CG(), "0 mm, 0 mm, 1000 mm");
  EXPECT_EQ(SelectedLine("MassTypeCombo"), "Estimated");
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
  EXPECT_TRUE(IsShown("FlagRedLabel[2]"));
}

TEST_F(Model, BindingShowsTheFilterOfTheOtherProductAndTellsTheBuffer) {
  KorWBNymNavFilterPanel::selectedPRCID = "ROOT2";
  KorWBNymNavFilterPanel::selectedFilterOption = 1;
  KorWBNymNavFilterPanel::selectedPRCConfigHandler = "Winter kit";
  Open(SamplePart());
  EXPECT_EQ(Text("ConfigHandlerEditor"), "No Filter");
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());
  EXPECT_EQ(Text("ConfigHandlerEditor"), "Winter kit");
  KorUnicodeString filter;
  other->GetFilter(filter);
  EXPECT_EQ(filter, "0|Winter kit");
}

TEST_F(Model, ReleasingTheBufferLeavesThePanelStandingAndDoingNothing) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  EXPECT_EQ(static_cast<const KorBaseUnknown&>(Buffer()).ReferenceCount(), 1u);
  EXPECT_EQ(Panel().RefreshPanelWithInfo(), S_OK);
  Press("ComputeButton");
  EXPECT_TRUE(Server().Requests().empty());
}

TEST_F(Model, BindingNoneOpensAndClosesTheRefreshAndNothingOfIt) {
  Open(SamplePart());
  TraceCapture trace("KorWBCompPart");
  Panel().SetModel(nullptr);
  EXPECT_THAT(trace.Text(), testing::HasSubstr("RefreshPanelWithInfo()"));
  for (const char* inside : {"The current selection is", "RefreshResultsTab()", "RefreshMassTypeTab()",
                             "RefreshMaterialTab()", "RefreshPrecisionTab()", "All pages"})
    EXPECT_THAT(trace.Text(), testing::Not(testing::HasSubstr(inside)));
}

TEST_F(Model, APanelMadeWithoutABufferIsCompleteOnceItIsBound) {
  OpenWithoutBuffer();
  auto buffer = BufferOf(SamplePart());
  EXPECT_EQ(Panel().SetModel(buffer.Get()), E_FAIL);
  EXPECT_EQ(static_cast<const KorBaseUnknown&>(*buffer).ReferenceCount(), 2u);
  EXPECT_EQ(Text("MassEditor"), "2 kg");
  EXPECT_EQ(Title("TabPage002"), "Results");
  EXPECT_EQ(Text("ConfigHandlerEditor"), "No Filter");
  EXPECT_FALSE(IsEnabled("SaveButton"));
  EXPECT_EQ(Widget("ComputeButton").SubscriptionCount(KorEvent::PushActivate), 1);
  Server().Expect("WBComputeNymValues",
                  "ComputeReply/1|P-100|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end");
  Press("ComputeButton");
  EXPECT_EQ(Text("MassEditor"), "3 kg");
}

TEST_F(Model, APanelThatWasBoundToNoneIsNotLaidOutAgainAtTheNextBinding) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  Panel().SetModel(&Buffer());
  EXPECT_EQ(Widget("ComputeButton").SubscriptionCount(KorEvent::PushActivate), 1);
}

TEST_F(Model, WhereTheMaterialAppliesIsReadAgainAtEachBinding) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  part.material.appliedOn = "Part Reference";
  Open(part);
  EXPECT_TRUE(IsChecked("ApplyOnReference"));
  part.material.appliedOn = "Part Instance";
  auto other = BufferOf(part);
  Panel().SetModel(other.Get());
  EXPECT_TRUE(IsChecked("ApplyOnInstance"));
  EXPECT_FALSE(IsChecked("ApplyOnReference"));
}

TEST_F(Model, SingularAxesKeepTheOldResultsWhenAnotherPartIsBound) {
  Open(SamplePart());
  Check("CustomReferenceButton");  // its axes are all zero
  const std::string before = Masses() + CG() + Moments() + Products();
  protocol::PartData part = OtherPart();
  part.massTypes[0].status = protocol::MassTypeStatus::Undefined;
  auto other = BufferOf(part);
  Panel().SetModel(other.Get());
  EXPECT_EQ(Text("SelectionEditor"), "ROOT2/P-200");
  EXPECT_EQ(Masses() + CG() + Moments() + Products(), before);
}

TEST_F(Model, AtTheCentreOfGravityBindingShowsWhatTheRefreshShows) {
  Open(SamplePart());
  auto other = BufferOf(OtherPart());  // its active mass type is Estimated
  Panel().SetModel(other.Get());
  EXPECT_EQ(Moments(), "1 kg·m², 1 kg·m², 1 kg·m²");
}

TEST_F(Model, AtTheReferenceBindingShowsTheActiveMassTypeAmongTheResultsOnPurpose) {
  Open(SamplePart());
  Check("ReferenceButton");
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());
  // Estimated: 4 kg at (1, 0, 0) m with 5, 6, 7 about its centre of gravity
  EXPECT_EQ(Moments(), "5 kg·m², 10 kg·m², 11 kg·m²");
  EXPECT_EQ(MTMoments(), "5 kg·m², 10 kg·m², 11 kg·m²");
}

TEST_F(Model, AtTheReferenceAMassTypeWithoutMassMatrixOrPointIsSkipped) {
  for (const int missing : {0, 1, 2, 3}) {
    protocol::PartData part = OtherPart();
    if (missing == 0) part.massTypes[1].mass = 0;
    if (missing == 1) part.massTypes[1].mass = -4;
    if (missing == 2) part.massTypes[1].inertia.reset();
    if (missing == 3) part.massTypes[1].cg.reset();
    Open(SamplePart());
    Check("ReferenceButton");
    auto other = BufferOf(part);
    Panel().SetModel(other.Get());
    // Left as the refresh shows it: Computed, 8 kg at (0, 0, 1) m with 1, 1, 1, at the reference.
    EXPECT_EQ(Moments(), "9 kg·m², 9 kg·m², 1 kg·m²") << missing;
    // Estimated as it is stored; without a tensor, what the results wrote there.
    EXPECT_EQ(MTMoments(), missing == 2 ? "9 kg·m², 9 kg·m², 1 kg·m²" : "5 kg·m², 6 kg·m², 7 kg·m²")
        << missing;
    Close();
  }
}

TEST_F(Model, TheComputedFlagIsReadAgainAtEachBinding) {
  Open(SamplePart());  // computed
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());  // not computed, another mass type active: its reply is stored
  Server().Expect("WBComputeNymValues",
                  "ComputeReply/1|P-200|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end");
  Press("ComputeButton");
  EXPECT_EQ(other->GetMass("Computed"), 3.0);
}

TEST_F(Model, BindingIsTraced) {
  Open(SamplePart());
  TraceCapture trace("KorWBCompPart");
  Panel().SetModel(&Buffer());
  EXPECT_THAT(trace.Text(), testing::HasSubstr("SetModel()"));
}

TEST_F(Model, AtTheCentreOfGravityBindingLeavesTheInertiaOfTheMassTypesPageAsTheRefreshShowsIt) {
  Open(SamplePart());
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(Model, BindingReadsMaterialsAndDensitiesOfBothSidesAnew) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  Open(part);
  part.material.name = "Titanium";
  part.material.density = 4500;
  part.material.referenceName = "Zinc";
  part.material.referenceDensity = 7140;
  auto other = BufferOf(part);
  Panel().SetModel(other.Get());
  Press("EditButton");
  PickPage("TabPage004");
  Check("ApplyOnReference");
  EXPECT_EQ(Text("WBMaterialEditor") + " " + Text("DensityEditor"), "Zinc 7140 kg/m³");
  Check("ApplyOnInstance");
  EXPECT_EQ(Text("WBMaterialEditor") + " " + Text("DensityEditor"), "Titanium 4500 kg/m³");
}

TEST_F(Model, BindingSelectsTheRevisionOfTheNewBufferInEditMode) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.usedSpecificRevisionBefore = true;
  part.documents.activeVersion = "A";
  Open(part);
  Press("EditButton");
  Server().Expect("WBSaveNymValues", "SaveReply/1|P-100|8|end");
  Press("SaveButton");
  part.documents.activeVersion = "B";
  auto other = BufferOf(part);
  Panel().SetModel(other.Get());
  Press("EditButton");
  EXPECT_EQ(SelectedLine("ActiveDocsCombo"), "D-7 B");
}

TEST_F(Model, BindingAPartWhoseDocumentsAreNotFoundShowsNothingOfThoseBefore) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.usedSpecificRevisionBefore = true;
  Open(part);
  PickPage("TabPageDocuments");
  ASSERT_EQ(Text("Act"), "D-7 B");
  part.documents.activeId = "__EXCEPTION__";
  part.documents.revisions.clear();
  Boxes().ExpectMessage({"KorWBNymMainPanel", CatalogueText("DocumentsNotFound001.Title"),
                         CatalogueText("NoDocsFoundMessage"), kInformationFlags});
  auto other = BufferOf(part);
  Panel().SetModel(other.Get());
  EXPECT_EQ(Text("Act"), "");
  EXPECT_FALSE(IsEnabled("TabPageDocuments"));
  EXPECT_EQ(SelectedPage(), "TabPage002");
}

TEST_F(Model, BindingAPartThatUsesNoDocumentsShowsNothingOfThoseBefore) {
  Open(SamplePartWithDocuments());
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());
  EXPECT_EQ(Text("Act"), "");
  EXPECT_FALSE(IsEnabled("TabPageDocuments"));
}

TEST_F(Model, BindingForgetsTheValuesToPasteOfThePartBeforeAlsoAfterASave) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  Press("EditButton");
  PickPage("TabPage003");
  Pick("MTPasteValuesCombo", "Computed");
  Type("MTMassEditor", "3");
  Server().Expect("WBSaveNymValues", "SaveReply/1|P-100|8|end");
  Press("SaveButton");
  auto other = BufferOf(OtherPart());
  Panel().SetModel(other.Get());
  EXPECT_FALSE(IsEnabled("UpdatePropertiesButton"));
  EXPECT_FALSE(IsEnabled("MTPasteValuesCombo"));
  EXPECT_EQ(As<KorDlgCombo>("MTPasteValuesCombo").GetLineCount(), 0);
}

}  // namespace
