#include <set>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "tests/module/PanelTest.h"
#include "tests/module/ProbeBuffer.h"
#include "tests/module/ProbePanel.h"
#include "tests/support/TemporaryCatalogues.h"
#include "tests/support/TraceCapture.h"

using testing::HasSubstr;
using testing::Not;

namespace {

class Refresh : public PanelTest {
 protected:
  /// The trace of one refresh.
  std::string TraceOfRefresh() {
    TraceCapture trace("KorWBCompPart");
    EXPECT_EQ(Panel().RefreshPanelWithInfo(), S_OK);
    return trace.Text();
  }
  std::string DocumentModeText(const KorUnicodeString& parameter) {
    EXPECT_TRUE(KorMsgCatalog::Has("KorWBNymMainPanel", "WB_ComputePart100"));
    return KorMsgCatalog::BuildMessage("KorWBNymMainPanel", "WB_ComputePart100", &parameter, 1).Utf8();
  }
};

// ---- selection ----

TEST_F(Refresh, ShowsWhatIsSelectedReadably) {
  Open(SamplePart());
  EXPECT_EQ(Text("SelectionEditor"), "ROOT/P-100/R.1/P-100.1");
  EXPECT_EQ(Widget("SelectionEditor").GetShortHelp(), "ROOT/P-100/R.1/P-100.1");
  EXPECT_THAT(TraceOfRefresh(), HasSubstr("The current selection is: P-100|R.1|P-100.1|\n"));
}

TEST_F(Refresh, WithAnEmptyInstancePathTheSelectionIsThePartAlone) {
  protocol::PartData part = SamplePart();
  part.instancePath = "";
  Open(part);
  EXPECT_THAT(TraceOfRefresh(), HasSubstr("The current selection is: P-100|\n"));
  EXPECT_EQ(Text("SelectionEditor"), "ROOT/P-100");
}

TEST_F(Refresh, SelectsWhatFollowsTheHandlerInTheSelection) {
  Open(SamplePart());
  auto& editor = As<KorDlgEditor>("SelectionEditor");
  EXPECT_EQ(editor.GetSelectionFirst(), 5);  // behind "ROOT" and a character
  EXPECT_EQ(editor.GetSelectionLast(), 22);
}

TEST_F(Refresh, ScrollsALongSelectionSoThatItsEndIsInSight) {
  protocol::PartData part = SamplePart();
  part.instancePath = std::string(100, 'x');
  Open(part);
  auto& editor = As<KorDlgEditor>("SelectionEditor");
  EXPECT_EQ(editor.GetText().GetLengthInChar(), 111);  // "ROOT/P-100/" and the path
  editor.SetVisibleTextWidth(60);
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(editor.GetFirstColumn(), 50);
}

// ---- lamps ----

struct LampCase {
  bool computed;
  bool persisted;
};
class Lamps : public Refresh, public testing::WithParamInterface<LampCase> {};

TEST_P(Lamps, ShowOneOfEachPairAfterTheBuffersFlags) {
  protocol::PartData part = SamplePart();
  part.computed = GetParam().computed;
  part.persisted = GetParam().persisted;
  Open(part);
  EXPECT_EQ(IsShown("FlagRedLabel[1]"), !GetParam().computed);
  EXPECT_EQ(IsShown("FlagGreenLabel[1]"), GetParam().computed);
  EXPECT_EQ(IsShown("FlagRedLabel[2]"), !GetParam().persisted);
  EXPECT_EQ(IsShown("FlagGreenLabel[2]"), GetParam().persisted);
}
INSTANTIATE_TEST_SUITE_P(All, Lamps,
                         testing::Values(LampCase{false, false}, LampCase{false, true}, LampCase{true, false},
                                         LampCase{true, true}));

TEST_F(Refresh, TheLampsFollowTheBuffer) {
  Open(SamplePart());
  Buffer().SetCalculationUpToDate(false);
  Panel().RefreshPanelWithInfo();
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
  EXPECT_FALSE(IsShown("FlagGreenLabel[1]"));
}

// ---- documents ----

TEST_F(Refresh, WithoutOldDocumentsNothingIsSaidOfThem) {
  Open(SamplePart());
  EXPECT_EQ(Text("Act"), "");
  const std::string trace = TraceOfRefresh();
  EXPECT_THAT(trace, HasSubstr("The old doc revs are not used."));
  EXPECT_THAT(trace, Not(HasSubstr("zero revs")));
}

TEST_F(Refresh, TracesTheActiveDocument) {
  Open(SamplePartWithDocuments());
  const std::string trace = TraceOfRefresh();
  EXPECT_THAT(trace, HasSubstr("The active document retrieved from the buffer: \n\t<D-7 B>\n"));
}

TEST_F(Refresh, DocumentsWithARevisionEnableTheirPage) {
  Open(SamplePartWithDocuments());
  EXPECT_TRUE(IsEnabled("TabPageDocuments"));
}

TEST_F(Refresh, AutomaticModeZeroNamesTheMostRecentRevision) {
  Open(SamplePartWithDocuments());
  EXPECT_EQ(Text("Act"), DocumentModeText("latest"));
  EXPECT_TRUE(IsChecked("ActiveDocLatestButton"));
  EXPECT_FALSE(IsChecked("ActiveDocUsrSelButton"));
  const std::string trace = TraceOfRefresh();
  EXPECT_THAT(trace, HasSubstr("Default document mode: " + DocumentModeText("latest")));
  EXPECT_THAT(trace, HasSubstr("Setting act to " + DocumentModeText("latest")));
}

TEST_F(Refresh, AutomaticModeOneNamesTheAttachedRevision) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.autoMode = 1;
  Open(part);
  EXPECT_EQ(Text("Act"), DocumentModeText("attached"));
}

TEST_F(Refresh, AutomaticModeTwoHasAnEmptyParameter) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.autoMode = 2;
  Open(part);
  EXPECT_EQ(Text("Act"), DocumentModeText(""));
}

TEST_F(Refresh, WithoutACatalogueTheDefaultTextsOfTheDocumentModesStandInAndModeTwoHasNone) {
  TemporaryCatalogues empty;
  protocol::PartData part = SamplePartWithDocuments();
  Open(part);
  EXPECT_EQ(Text("Act"), "***MOST RECENT REVISION***");
  part.documents.autoMode = 1;
  Panel().SetModel(BufferOf(part).Get());
  EXPECT_EQ(Text("Act"), "***ATTACHED REVISION***");
  part.documents.autoMode = 2;
  Panel().SetModel(BufferOf(part).Get());
  EXPECT_EQ(Text("Act"), "");
}

TEST_F(Refresh, ASpecificRevisionUsedBeforeIsTheOneShown) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.usedSpecificRevisionBefore = true;
  Open(part);
  EXPECT_TRUE(IsChecked("ActiveDocUsrSelButton"));
  EXPECT_FALSE(IsChecked("ActiveDocLatestButton"));
  EXPECT_EQ(Text("Act"), "D-7 B");
  const std::string trace = TraceOfRefresh();
  EXPECT_THAT(trace,
              HasSubstr("There's a value for the active doc id - default to the \"selected rev\" button"));
  EXPECT_THAT(trace, HasSubstr("Setting act to D-7 B"));
}

TEST_F(Refresh, WithoutAnyRevisionTheDocumentsPageIsDisabled) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.revisions.clear();
  part.documents.activeId = "0";
  Open(part);
  EXPECT_FALSE(IsEnabled("TabPageDocuments"));
  EXPECT_THAT(TraceOfRefresh(), HasSubstr("there are zero revs => page will be disabled"));
}

TEST_F(Refresh, WithoutAnyRevisionAnActiveDocumentBringsThePageBack) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.revisions.clear();
  Open(part);
  EXPECT_TRUE(IsEnabled("TabPageDocuments")) << "first disabled, then enabled again since the page is in use";
}

TEST_F(Refresh, DocumentsThatTheServerCouldNotFindAreSaidToBeMissing) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.revisions.clear();
  part.documents.activeId = "__EXCEPTION__";
  Boxes().ExpectMessage({"KorWBNymMainPanel", CatalogueText("DocumentsNotFound001.Title"),
                         CatalogueText("NoDocsFoundMessage"), kInformationFlags});
  Open(part);
  EXPECT_FALSE(IsEnabled("TabPageDocuments"));
  EXPECT_EQ(Text("Act"), "");
}

TEST_F(Refresh, WithoutACatalogueMissingDocumentsHaveADefaultText) {
  TemporaryCatalogues empty;
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.revisions.clear();
  part.documents.activeId = "__EXCEPTION__";
  Boxes().ExpectMessage({"KorWBNymMainPanel", "", "--Docs not found msg--", kInformationFlags});
  Open(part);
}

TEST_F(Refresh, AnExceptionAmongRevisionsShowsNoMessageAndUsesNoPage) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.activeId = "__EXCEPTION__";
  Open(part);
  EXPECT_EQ(Text("Act"), "");
  EXPECT_THAT(TraceOfRefresh(), HasSubstr("The old doc revs are not used."));
}

TEST_F(Refresh, APartWithoutADocumentShowsNoneAndTheResults) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.activeId = "0";
  Open(part);
  EXPECT_EQ(Text("Act"), "NONE");
  EXPECT_FALSE(IsEnabled("TabPageDocuments"));
  const std::string trace = TraceOfRefresh();
  EXPECT_THAT(trace, HasSubstr("The old doc revs can be used but there's no document attached to this part"));
  EXPECT_THAT(trace, HasSubstr("Setting act to NONE"));
}

TEST_F(Refresh, APartWithoutADocumentBringsTheFirstPageToTheFront) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.activeId = "0";
  Open(part);
  PickPage("TabPage003");
  EXPECT_FALSE(IsEnabled("InertiaModeFrame"));
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(SelectedPage(), "TabPage002");
  EXPECT_TRUE(IsEnabled("InertiaModeFrame")) << "the change of page is told of";
  EXPECT_TRUE(IsEnabled("ReferenceModeFrame"));
}

TEST_F(Refresh, APartWithDocumentsLeavesThePageInFront) {
  Open(SamplePartWithDocuments());
  PickPage("TabPage003");
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(SelectedPage(), "TabPage003");
}

TEST_F(Refresh, APanelLaidOutWithoutDocumentsTracesThatTheirComboIsMissing) {
  Open(SamplePart());
  TraceCapture trace("KorWBCompPart");
  auto documents = BufferOf(SamplePartWithDocuments());
  Panel().SetModel(documents.Get());
  EXPECT_THAT(trace.Text(), HasSubstr("_ActiveDocsCombo is NULL!!!"));
  EXPECT_EQ(Text("Act"), DocumentModeText("latest"));
  EXPECT_FALSE(Has("TabPageDocuments")) << "which pages there are was decided when the panel was laid out";
}

TEST_F(Refresh, APanelLaidOutWithoutDocumentsSurvivesAPartWithoutADocument) {
  Open(SamplePart());
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.activeId = "0";
  part.documents.revisions.clear();
  auto buffer = BufferOf(part);
  Panel().SetModel(buffer.Get());
  EXPECT_EQ(Text("Act"), "NONE");
}

// ---- the rest ----

TEST_F(Refresh, ChecksTheStandardPartButtonForAStandardPart) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  Open(part);
  EXPECT_TRUE(IsChecked("StdPartCheckButton"));
}

TEST_F(Refresh, UnchecksTheStandardPartButtonOfAPartThatIsNone) {
  protocol::PartData part = SamplePart();
  part.standardPart = true;
  Open(part);
  Buffer().SetStandardPart(false);
  Panel().RefreshPanelWithInfo();
  EXPECT_FALSE(IsChecked("StdPartCheckButton"));
}

TEST_F(Refresh, TellsWhenAllPagesAreDone) {
  Open(SamplePart());
  EXPECT_THAT(TraceOfRefresh(), HasSubstr("All pages have been refreshed"));
}

TEST_F(Refresh, FillsThePagesInTheirFixedOrder) {
  protocol::PartData part = SamplePartWithDocuments();
  part.propertiesRequested = true;
  Open(part);
  const std::string trace = TraceOfRefresh();
  std::size_t last = 0;
  for (const char* page : {"RefreshDocsTab()", "RefreshAdditionalInfoTab()", "RefreshResultsTab()",
                           "RefreshMassTypeTab()", "RefreshMaterialTab()", "RefreshPrecisionTab()"}) {
    const std::size_t place = trace.find(page);
    ASSERT_NE(place, std::string::npos) << page << " is not in " << trace;
    EXPECT_GT(place, last) << page;
    last = place;
  }
}

TEST_F(Refresh, PassesTheDocumentsOverWhenTheyAreNotUsedOrThereIsNone) {
  protocol::PartData unused = SamplePartWithDocuments();
  unused.documents.used = false;
  protocol::PartData none = SamplePartWithDocuments();
  none.documents.activeId = "0";
  protocol::PartData failed = SamplePartWithDocuments();
  failed.documents.activeId = "__EXCEPTION__";
  for (const protocol::PartData& part : {unused, none, failed}) {
    Open(part);
    EXPECT_THAT(TraceOfRefresh(), Not(HasSubstr("RefreshDocsTab()"))) << part.documents.activeId;
    Close();
  }
}

TEST_F(Refresh, PassesTheAdditionalPropertiesOverWhenNobodyAskedForThem) {
  Open(SamplePart());
  EXPECT_THAT(TraceOfRefresh(), Not(HasSubstr("RefreshAdditionalInfoTab()")));
}

TEST_F(Refresh, AFailureOfOnePageDoesNotKeepTheOthersFromBeingFilled) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  buffer->failures["GetLowerDeviation"] = E_FAIL;
  Open(buffer);
  EXPECT_EQ(Panel().RefreshPanelWithInfo(), S_OK);
  EXPECT_EQ(SelectedLine("MassTypeCombo"), "Computed");
}

TEST_F(Refresh, FillsBothMassTypeCombosAlikeAndSelectsTheActiveTypeInBoth) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  for (const char* combo : {"MassTypeCombo", "ActiveMassCombo"}) {
    EXPECT_THAT(As<KorDlgCombo>(combo).GetLines(), testing::ElementsAre("Computed", "Estimated", "Weighed"));
    EXPECT_EQ(SelectedLine(combo), "Estimated");
  }
}

TEST_F(Refresh, AgainAndAgainShowsTheSame) {
  Open(SamplePartWithDocuments());
  const std::string first = Masses() + CG() + Moments() + Products() + Text("SelectionEditor") + Text("Act");
  for (int i = 0; i < 3; ++i) Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Masses() + CG() + Moments() + Products() + Text("SelectionEditor") + Text("Act"), first);
  EXPECT_EQ(As<KorDlgCombo>("MassTypeCombo").GetLineCount(), 3);
  for (const char* combo : {"FirstCombo", "SecondCombo", "TypeCombo", "ValueTypeCombo"})
    EXPECT_EQ(As<KorDlgCombo>(combo).GetLineCount(), 2) << combo;
}

// ---- silence ----

class SilentRefresh : public Refresh {
 protected:
  /// Refreshes everything in other units.
  void ShowAllAgain() {
    Buffer().SetMass("Computed", 5);
    for (const auto& [magnitude, unit] :
         {std::pair("MASS", "GRAM"), std::pair("LENGTH", "METER"), std::pair("INERTIAMOMENT", "KG_CM2"),
          std::pair("DENSITY", "G__CM3")})
      SetUnit(magnitude, unit);
    Panel().RefreshPanelWithInfo();
    Panel().RefreshDensityUnits();
    Panel().RefreshLengthUnits();
    Panel().RefreshMassUnits();
    Panel().RefreshMomentOfInertiaUnits();
  }
};

TEST_F(SilentRefresh, ValuesAreShownWithoutTheNotificationsOfTyping) {
  Open(SamplePartWithDocuments());
  std::vector<std::string> told;
  for (const char* editor :
       {"MassEditor", "LowerDeviationEditor", "UpperDeviationEditor", "CGxEditor", "CGyEditor", "CGzEditor",
        "IxxEditor", "IyyEditor", "IzzEditor", "IxyEditor", "IxzEditor", "IyzEditor", "MTMassEditor",
        "MTCGxEditor", "MTIxxEditor", "MTIxyEditor", "WBMaterialEditor", "DensityEditor"})
    Widget(editor).Subscribe(
        KorEvent::EditorModify,
        [&told, editor](KorCommand*, KorNotification*, KorCommandClientData) { told.push_back(editor); });
  ShowAllAgain();
  EXPECT_EQ(Text("MassEditor"), "5000 g");
  EXPECT_THAT(told, testing::IsEmpty());
}

TEST_F(SilentRefresh, CallsNoHandlerOfTypedMassMaterialOrDensity) {
  UseMaker([](KorWBAllDataBuffer* buffer) { return std::make_unique<ProbePanel>(buffer); });
  Open(SamplePart());
  auto& probe = dynamic_cast<ProbePanel&>(Panel());
  probe.calls.clear();
  ShowAllAgain();
  std::set<std::string> called;
  for (const ProbePanel::Call& call : probe.calls) called.insert(call.handler);
  EXPECT_TRUE(called.contains("OnMassTypeChangeNotification")) << "selections are told of";
  for (const char* handler : {"OnMTMassEditorModifyNotification", "OnMaterialNameModifyNotification",
                              "OnDensityModifyNotification"})
    EXPECT_FALSE(called.contains(handler)) << handler;
}

}  // namespace
