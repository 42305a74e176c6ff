#include "framework/dialog/KorDlgCombo.h"
#include "tests/module/PanelTest.h"

namespace {

/// A buffer that nobody filled: no part, no mass types, no placement.
class EmptyBuffer : public PanelTest {
 protected:
  static LumWBAllDataBuffer_var Empty() { return LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer); }
};

TEST_F(EmptyBuffer, OpensAPanelWithNothingInIt) {
  Open(Empty());
  EXPECT_EQ(As<KorDlgCombo>("MassTypeCombo").GetLineCount(), 0);
  EXPECT_EQ(As<KorDlgCombo>("ActiveMassCombo").GetLineCount(), 0);
  EXPECT_TRUE(IsShown("FlagRedLabel[1]"));
  EXPECT_TRUE(IsShown("FlagRedLabel[2]"));
  EXPECT_FALSE(IsChecked("StdPartCheckButton"));
  EXPECT_EQ(Panel().RefreshPanelWithInfo(), S_OK);
}

TEST_F(EmptyBuffer, ShowsThatNothingIsComputed) {
  Open(Empty());
  EXPECT_EQ(Panel().RefreshResultsTab(), S_OK);
  EXPECT_EQ(Masses(), "..., ..., ...");
}

TEST_F(EmptyBuffer, TakesTheResultsOfThePartBeforeAway) {
  Open(SamplePart());
  auto empty = Empty();
  Panel().SetModel(empty.Get());
  EXPECT_EQ(Masses(), "..., ..., ...");
  EXPECT_EQ(CG(), "..., ..., ...");
  EXPECT_EQ(Moments(), "..., ..., ...");
  EXPECT_EQ(Products(), "..., ..., ...");
  EXPECT_EQ(MTMoments(), "..., ..., ...");
  EXPECT_EQ(Text("MTMassEditor"), "...");
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "");
}

TEST_F(EmptyBuffer, SurvivesEveryModeAndPage) {
  Open(Empty());
  for (const char* mode :
       {"ReferenceButton", "RootProductButton", "CustomReferenceButton", "CGButton", "CurrentPartButton"})
    Check(mode);
  for (const char* page : {"TabPage003", "TabPage004", "TabPage005", "TabPage002"}) PickPage(page);
}

TEST_F(EmptyBuffer, ReplacesTheSelectionAndTheMassTypesOfAnOpenPanel) {
  Open(SamplePart());
  Check("ReferenceButton");
  auto empty = Empty();
  EXPECT_EQ(Panel().SetModel(empty.Get()), E_FAIL);
  EXPECT_EQ(Text("SelectionEditor"), "");
  EXPECT_EQ(As<KorDlgCombo>("MassTypeCombo").GetLineCount(), 0);
}

TEST_F(EmptyBuffer, AnActiveMassTypeThatIsNotListedSelectsTheFirst) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Guessed";
  Open(part);
  EXPECT_EQ(SelectedLine("MassTypeCombo"), "Computed");
  EXPECT_EQ(SelectedLine("ActiveMassCombo"), "Computed");
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "Computed");
}

}  // namespace
