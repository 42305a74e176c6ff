#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "tests/module/PanelTest.h"
#include "tests/support/TraceCapture.h"

namespace {

class MaterialPage : public PanelTest {
 protected:
  void OpenPage(const protocol::PartData& part) {
    Open(part);
    PickPage("TabPage004");
  }
  static protocol::PartData WithStatistics() {
    protocol::PartData part = SamplePart();
    part.material.statistics = {{"Steel", 7850, 1}, {"Skin", 12, 2}, {"Foam", 60, 1}};
    return part;
  }
  std::string Shown() { return Text("MatStatNameSpinner") + ": " + Text("MatStatDensityEditor"); }
  bool CanTurnUp() {
    return As<KorDlgSpinner>("MatStatNameSpinner").GetUpSensitivity() == KorSensitivity::Enabled;
  }
  bool CanTurnDown() {
    return As<KorDlgSpinner>("MatStatNameSpinner").GetDownSensitivity() == KorSensitivity::Enabled;
  }
  void TurnDown() { EXPECT_TRUE(As<KorDlgSpinner>("MatStatNameSpinner").TurnDown()); }
  void TurnUp() { EXPECT_TRUE(As<KorDlgSpinner>("MatStatNameSpinner").TurnUp()); }
};

TEST_F(MaterialPage, ShowsMaterialAndDensity) {
  OpenPage(SamplePart());
  EXPECT_EQ(Text("WBMaterialEditor"), "Steel");
  EXPECT_EQ(Text("DensityEditor"), "7850 kg/m³");
}

struct PriorityCase {
  int priority;
  const char* first;
  const char* second;
};
class MaterialPriority : public MaterialPage, public testing::WithParamInterface<PriorityCase> {};

TEST_P(MaterialPriority, NamesBothSourcesInTheirOrder) {
  protocol::PartData part = SamplePart();
  part.material.densityPriority = GetParam().priority;
  OpenPage(part);
  EXPECT_EQ(SelectedLine("FirstCombo"), GetParam().first);
  EXPECT_EQ(SelectedLine("SecondCombo"), GetParam().second);
  EXPECT_THAT(As<KorDlgCombo>("FirstCombo").GetLines(), testing::ElementsAre("KORVO", "WB"));
}
INSTANTIATE_TEST_SUITE_P(Stored, MaterialPriority,
                         testing::Values(PriorityCase{0, "WB", "KORVO"}, PriorityCase{1, "KORVO", "WB"}));

TEST_F(MaterialPage, OtherFirstSourceTakesTheSecondToTheOther) {
  OpenPage(SamplePart());
  Widget("FirstCombo").SetSensitivity(KorSensitivity::Enabled);
  for (const auto& [first, second] : {std::pair("KORVO", "WB"), std::pair("WB", "KORVO")}) {
    Pick("FirstCombo", first);
    EXPECT_EQ(SelectedLine("SecondCombo"), second);
  }
}

TEST_F(MaterialPage, WithoutStatisticsNothingCanBeBrowsed) {
  OpenPage(SamplePart());
  EXPECT_EQ(Shown(), "Not Available: 0 kg/m³");
  EXPECT_FALSE(CanTurnUp());
  EXPECT_FALSE(CanTurnDown());
}

TEST_F(MaterialPage, AStatisticsListOfOneEntryLeavesBothArrowsDisabled) {
  protocol::PartData part = SamplePart();
  part.material.statistics = {{"Steel", 7850, 1}};
  OpenPage(part);
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  EXPECT_FALSE(CanTurnUp());
  EXPECT_FALSE(CanTurnDown());
}

TEST_F(MaterialPage, BrowsesTheStatisticsToTheirEndAndBack) {
  OpenPage(WithStatistics());
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  TurnDown();
  EXPECT_EQ(Shown(), "Skin: 12 kg/m²");  // a mass per area
  TurnDown();
  EXPECT_EQ(Shown(), "Foam: 60 kg/m³");
  EXPECT_FALSE(CanTurnDown());
  TurnUp();
  EXPECT_EQ(Shown(), "Skin: 12 kg/m²");
  EXPECT_TRUE(CanTurnDown());
  TurnUp();
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  EXPECT_FALSE(CanTurnUp());
}

TEST_F(MaterialPage, AfterARefreshTheFirstEntryIsShownWhileTheIndexStaysOnPurpose) {
  OpenPage(WithStatistics());
  TurnDown();
  TurnDown();
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  As<KorDlgSpinner>("MatStatNameSpinner").SetUpSensitivity(KorSensitivity::Enabled);
  TurnUp();
  EXPECT_EQ(Shown(), "Skin: 12 kg/m²");  // from the third entry, not from the first
}

TEST_F(MaterialPage, SaysWhereTheMaterialOfAPartWithoutAnInstanceApplies) {
  protocol::PartData part = SamplePart();
  part.hasInstance = false;
  part.material.appliedOn = "Part Reference";
  OpenPage(part);
  EXPECT_EQ(Title("Material defined for the: "), "Material applied to: ");
  EXPECT_TRUE(IsShown("ApplyOnButtonsFrame"));
  EXPECT_TRUE(IsChecked("ApplyOnReference"));
  EXPECT_FALSE(IsChecked("ApplyOnInstance"));
  EXPECT_FALSE(IsEnabled("ApplyOnReference"));
  EXPECT_FALSE(IsEnabled("ApplyOnInstance"));
}

TEST_F(MaterialPage, HidesWhereAMaterialAppliesThatHasNoNameOrNoDensity) {
  for (const auto& [name, density] : {std::pair("  ", 7850.0), std::pair("Steel", 0.0)}) {
    protocol::PartData part = SamplePart();
    part.hasInstance = false;
    part.material.name = name;
    part.material.density = density;
    OpenPage(part);
    EXPECT_FALSE(IsShown("ApplyOnButtonsFrame")) << name << density;
    EXPECT_FALSE(IsShown("Material defined for the: ")) << name << density;
    Close();
  }
}

TEST_F(MaterialPage, BeyondTheEndNothingIsShownAndEachStepNeedsOneBackOnPurpose) {
  OpenPage(WithStatistics());
  TurnDown();
  TurnDown();
  Panel().RefreshPanelWithInfo();
  TurnDown();  // to a fourth entry that there is not
  TurnDown();
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  EXPECT_TRUE(CanTurnUp());
  EXPECT_TRUE(CanTurnDown());
  TurnUp();
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  TurnUp();
  EXPECT_EQ(Shown(), "Foam: 60 kg/m³");
}

TEST_F(MaterialPage, AShorterListOfAnotherPartIsBrowsedFromTheIndexOfTheOneBefore) {
  OpenPage(WithStatistics());
  TurnDown();
  TurnDown();
  protocol::PartData part = WithStatistics();
  part.material.statistics.pop_back();
  auto shorter = BufferOf(part);
  Panel().SetModel(shorter.Get());
  TurnDown();
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  TurnUp();
  TurnUp();
  EXPECT_EQ(Shown(), "Skin: 12 kg/m²");
}

TEST_F(MaterialPage, TellsOfTheNameThatIsBrowsedTo) {
  OpenPage(WithStatistics());
  int told = 0;
  Widget("MatStatNameSpinner").Subscribe(KorEvent::SpinnerModify, [&](auto...) { ++told; });
  TurnDown();
  EXPECT_EQ(told, 1);
  TurnUp();
  EXPECT_EQ(told, 2);
}

TEST_F(MaterialPage, TracesTheStatisticsOneValueToALine) {
  OpenPage(WithStatistics());
  TraceCapture trace("KorWBCompPart");
  Panel().RefreshMaterialTab();
  EXPECT_THAT(trace.Text(), testing::HasSubstr("Steel\n7850\n1\nSkin\n12\n2\nFoam\n60\n1\n"));
}

TEST_F(MaterialPage, WithoutABufferNothingIsBrowsed) {
  OpenPage(WithStatistics());
  Panel().SetModel(nullptr);
  TurnDown();
  EXPECT_EQ(Shown(), "Steel: 7850 kg/m³");
  EXPECT_FALSE(CanTurnUp());
}

}  // namespace
