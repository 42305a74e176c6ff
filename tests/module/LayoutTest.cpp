#include <algorithm>
#include <functional>
#include <sstream>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "tests/module/PanelTest.h"
#include "tests/support/ShownText.h"

using testing::ElementsAre;

namespace {

// Name, kind and style (hexadecimal) of each widget in the order of creation, children indented below their
// parent.
// "<spacer>" stands for a label with a blank title in "Frame231", whose name is free.
constexpr const char* kHeader = R"(
Frame012 Frame 40001
  SelectionLabel Label 0
  SelectionEditor Editor 4000000
  FrameStatus Frame 40001
    CalculationStatus Label 0
    FlagRedLabel Label 0
    FlagGreenLabel Label 0
    PersistencyStatus Label 0
    FlagRedLabel Label 0
    FlagGreenLabel Label 0
TabContainer001 TabContainer 0
)";

constexpr const char* kFourPages = R"(
  TabPage002 TabPage 1
    MassFrame Frame 40001
      MassLabel Label 0
      MassEditor Editor 4000000
      LowerDeviationLabel Label 0
      LowerDeviationEditor Editor 4000000
      UpperDeviationLabel Label 0
      UpperDeviationEditor Editor 4000000
    CenterOfGravityFrame Frame 1
      CGxLabel Label 0
      CGxEditor Editor 4000000
      CGyLabel Label 0
      CGyEditor Editor 4000000
      CGzLabel Label 0
      CGzEditor Editor 4000000
    MomentOfInertiaFrame Frame 1
      IxxLabel Label 0
      IxxEditor Editor 4000000
      IyyLabel Label 0
      IyyEditor Editor 4000000
      IzzLabel Label 0
      IzzEditor Editor 4000000
    ProductOfInertiaFrame Frame 1
      IxyLabel Label 0
      IxyEditor Editor 4000000
      IxzLabel Label 0
      IxzEditor Editor 4000000
      IyzLabel Label 0
      IyzEditor Editor 4000000
  TabPage003 TabPage 1
    Frame230 Frame 80001
      ActiveMassLabel Label 0
      ActiveMassCombo Combo 40000
    Frame107 Frame 40001
      Frame231 Frame 80001
        MassTypeLabel Label 0
        MassTypeCombo Combo 40000
        <spacer> Label 0
        <spacer> Label 0
        MTPasteValuesLabel Label 0
        MTPasteValuesCombo Combo 40000
        MTMassLabel Label 0
        MTMassEditor Editor 0
        UpdatePropertiesButton PushButton 0
        DeleteButton PushButton 0
    Frame113 Frame 80001
      MTCGFrame Frame 1
        MTCGxLabel Label 0
        MTCGxEditor Editor 0
        MTCGyLabel Label 0
        MTCGyEditor Editor 0
        MTCGzLabel Label 0
        MTCGzEditor Editor 0
      MTMomentOfInertia Frame 1
        MTIxxLabel Label 0
        MTIxxEditor Editor 0
        MTIyyLabel Label 0
        MTIyyEditor Editor 0
        MTIzzLabel Label 0
        MTIzzEditor Editor 0
      MTProductOfInertia Frame 1
        MTIxyLabel Label 0
        MTIxyEditor Editor 0
        MTIxzLabel Label 0
        MTIxzEditor Editor 0
        MTIyzLabel Label 0
        MTIyzEditor Editor 0
  TabPage004 TabPage 1
    MaterialAndDensityFrame Frame 1
      WBMaterialLabel Label 0
      WBMaterialEditor Editor 0
      DensityLabel Label 0
      DensityEditor Editor 0
      Material defined for the:  Label 0
      ApplyOnButtonsFrame Frame 80001
        ApplyOnReference RadioButton 0
        ApplyOnInstance RadioButton 0
      MatStatNameLabel Label 0
      MatStatNameSpinner Spinner 80000
      MatStatDensityLabel Label 0
      MatStatDensityEditor Editor 0
    DensityPriorityFrame Frame 1
      FirstLabel Label 0
      FirstCombo Combo 40000
      SecondLabel Label 0
      SecondCombo Combo 40000
  TabPage005 TabPage 1
    Frame252 Frame 80001
      Frame092 Frame 80001
        TypeLabel Label 0
        TypeCombo Combo 40000
      PrecisionValueFrame Frame 1
        UpperValueLabel Label 0
        UpperValueEditor Editor 0
        LowerValueLabel Label 0
        LowerValueEditor Editor 0
        ValueTypeLabel Label 0
        ValueTypeCombo Combo 40000
      Frame253 Frame 80001
        ActiveMassTypeSelected Label 0
        ActiveMassTypeSelectedEditor Editor 4000000
)";

constexpr const char* kDocumentsPage = R"(
  TabPageDocuments TabPage 1
    UpperMainFrameActiveDoc Frame 80001
      FrameActiveDoc Frame 40001
        ActiveDocsComboLabel Label 0
        ActiveDocsCombo Combo 40000
        ChangeActiveDocButton PushButton 0
        ActiveDocsPad1 Label 0
        ApplyActiveDocButton PushButton 0
        CancelActiveDocButton PushButton 0
    LowerMainFrameActiveDoc Frame 40001
      FrameComboDocs Frame 80001
        DocumentsComboLabel Label 0
        DocumentsCombo Combo 40000
      FrameDocAttr Frame 1
        DocAttr1EditorLabel Label 4000000
        DocAttr1Editor Editor 4000000
        DocAttr2EditorLabel Label 4000000
        DocAttr1Editor Editor 4000000
        DocAttr3EditorLabel Label 4000000
        DocAttr1Editor Editor 4000000
        DocAttr4EditorLabel Label 4000000
        DocAttr1Editor Editor 4000000
        DocAttr5EditorLabel Label 4000000
        DocAttr1Editor Editor 4000000
      FrameActiveDocType Frame 1
        ActiveDocLatestButton RadioButton 0
        ActiveDocUsrSelButton RadioButton 0
      FrameCurrentlyAttachedDoc Frame 40001
        CurrentlyAttachedDocLabel Label 4000000
        CurrentlyAttachedDocEditor Editor 4000000
)";

constexpr const char* kAdditionalPage = R"(
  TabPageAdditional TabPage 1
    ExtraPropertiesFrame Frame 1
      PropertyNameLabel Label 0
      PropertyValueLabel Label 0
      PropertyNameCombo Combo 40000
      PropertyValueEditor Editor 0
)";

constexpr const char* kDateHint = R"(
      Hint for "Date" type of properties: YYYY-MM-DD Label 0
)";

constexpr const char* kBelowThePages = R"(
Frame250 Frame 80001
  StdPartFrame Frame 80001
    StdPartCheckButton CheckButton 0
  AdditionalFrame1 Frame 80001
    ConfigHandler Frame 1
      ConfigHandlerEditor Editor 4000000
    ActiveDoc Frame 1
      Act Editor 4000000
  AdditionalFrame2 Frame 80001
    InertiaModeFrame Frame 1
      CGButton RadioButton 0
      ReferenceButton RadioButton 0
    ReferenceModeFrame Frame 1
      CurrentPartButton RadioButton 0
      RootProductButton RadioButton 0
      CustomReferenceButton RadioButton 0
CustomRefModeFrame Frame 1
  Frame033 Frame 80001
    CPxLabel Label 0
    CPxEditor Editor 20000
    CPyLabel Label 0
    CPyEditor Editor 20000
    CPzLabel Label 0
    CPzEditor Editor 20000
  DirectionsFrame Frame 1
    XAxisXLabel Label 0
    XAxisxEditor Editor 20000
    XAxisZLabel Label 0
    XAxisYLabel Label 0
    XAxisYEditor Editor 20000
    XAxisZEditor Editor 20000
    YAxisXLabel Label 0
    YAxisXEditor Editor 20000
    YAxisZLabel Label 0
    YAxisYLabel Label 0
    YAxisYEditor Editor 20000
    YAxisZEditor Editor 20000
    ZAxisXLabel Label 0
    ZAxisXEditor Editor 20000
    ZAxisYLabel Label 0
    ZAxisYEditor Editor 20000
    ZAxisZEditor Editor 20000
    ZAxisZLabel Label 0
Frame238 Frame 80001
  Label252 Label 0
  ComputeButton PushButton 0
  Label251 Label 0
  EditButton PushButton 0
  SaveButton PushButton 0
  Label247 Label 0
  CloseButton PushButton 0
)";

void AppendLines(const char* text, std::vector<std::string>& lines) {
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);)
    if (!line.empty()) lines.push_back(line);
}

std::string ShownName(const KorDlgObject& widget) {
  const bool blank = widget.Kind() == KorDlgKind::Label && widget.GetTitle().Strip().IsEmpty();
  return blank && widget.Parent()->Name() == "Frame231" ? "<spacer>" : widget.Name();
}

void Describe(const KorDlgObject& parent, const std::string& indent, std::vector<std::string>& lines) {
  for (const auto& child : parent.Children()) {
    std::ostringstream line;
    line << indent << ShownName(*child) << ' ' << KindName(child->Kind()) << ' ' << std::hex
         << child->Style();
    lines.push_back(line.str());
    Describe(*child, indent + "  ", lines);
  }
}

bool Overlap(const KorDlgGrid& a, const KorDlgGrid& b) {
  return a.row < b.row + b.rows && b.row < a.row + a.rows && a.column < b.column + b.columns &&
         b.column < a.column + a.columns;
}

/// The lamps may share their place: one of each pair is shown.
bool IsLaidOut(const KorDlgObject& widget) { return widget.IsShown() && widget.IsAttached(); }

class Layout : public PanelTest {
 protected:
  void ExpectWidgets(std::initializer_list<const char*> blocks) {
    std::vector<std::string> expected;
    for (const char* block : blocks) AppendLines(block, expected);
    std::vector<std::string> lines;
    Describe(Panel(), "", lines);
    for (std::size_t i = 0; i < std::min(lines.size(), expected.size()); ++i)
      ASSERT_EQ(lines[i], expected[i]) << "behind \"" << (i > 0 ? lines[i - 1] : "") << '"';
    EXPECT_EQ(lines.size(), expected.size());
  }
  std::vector<std::string> Pages() {
    std::vector<std::string> names;
    for (const auto& page : Widget("TabContainer001").Children()) names.push_back(page->Name());
    return names;
  }
};

TEST_F(Layout, HasTheWidgetsOfAPlainPartInTheirOrder) {
  Open(SamplePart());
  ExpectWidgets({kHeader, kFourPages, kBelowThePages});
}

TEST_F(Layout, HasAPageForDocumentsAndOneForAdditionalPropertiesWhenThePartAsksForThem) {
  protocol::PartData part = SamplePartWithDocuments();
  part.propertiesRequested = true;
  Open(part);
  ExpectWidgets({kHeader, kFourPages, kDocumentsPage, kAdditionalPage, kBelowThePages});
}

TEST_F(Layout, HintsAtTheFormOfDatesWhenAPropertyIsADate) {
  Open(SamplePartWithADate());
  ExpectWidgets({kHeader, kFourPages, kAdditionalPage, kDateHint, kBelowThePages});
}

TEST_F(Layout, WithoutOldDocumentsHasFivePagesAndNoneForDocuments) {
  Open(SamplePartWithProperties());
  EXPECT_THAT(Pages(),
              ElementsAre("TabPage002", "TabPage003", "TabPage004", "TabPage005", "TabPageAdditional"));
  for (const char* widget : {"TabPageDocuments", "ActiveDocsCombo", "DocumentsCombo", "ActiveDocLatestButton",
                             "ChangeActiveDocButton"})
    EXPECT_FALSE(Has(widget)) << widget;
}

TEST_F(Layout, WithDocumentsAndNoAdditionalPropertiesHasFivePages) {
  Open(SamplePartWithDocuments());
  EXPECT_THAT(Pages(),
              ElementsAre("TabPage002", "TabPage003", "TabPage004", "TabPage005", "TabPageDocuments"));
}

TEST_F(Layout, WithoutEitherHasFourPages) {
  Open(SamplePart());
  EXPECT_THAT(Pages(), ElementsAre("TabPage002", "TabPage003", "TabPage004", "TabPage005"));
}

TEST_F(Layout, PlacesNoTwoWidgetsOfAParentInTheSameCell) {
  protocol::PartData part = SamplePartWithDocuments();
  part.propertiesRequested = true;
  part.properties = SamplePartWithADate().properties;
  Open(part);
  ASSERT_TRUE(Has("Hint for \"Date\" type of properties: YYYY-MM-DD"));
  Check("CustomReferenceButton");
  const std::function<void(const KorDlgObject&)> check = [&](const KorDlgObject& parent) {
    const auto& children = parent.Children();
    for (std::size_t i = 0; i < children.size(); ++i) {
      check(*children[i]);
      if (parent.Kind() == KorDlgKind::TabContainer) continue;
      for (std::size_t j = i + 1; j < children.size(); ++j)
        EXPECT_FALSE(IsLaidOut(*children[i]) && IsLaidOut(*children[j]) &&
                     Overlap(children[i]->GetGrid(), children[j]->GetGrid()))
            << FullName(*children[i]) << " and " << FullName(*children[j]);
    }
  };
  check(Panel());
}

TEST_F(Layout, RepeatsNamesOfLampsAndRevisionEditorsAndSpellsOneAxisInItsOwnWayOnPurpose) {
  Open(SamplePartWithDocuments());
  for (const auto& [path, name] : {std::pair("FlagRedLabel[2]", "FlagRedLabel"),
                                   {"FlagGreenLabel[2]", "FlagGreenLabel"},
                                   {"FrameDocAttr.DocAttr1Editor[5]", "DocAttr1Editor"},
                                   {"XAxisxEditor", "XAxisxEditor"}})
    EXPECT_EQ(Widget(path).Name(), name);
}

TEST_F(Layout, IsNamedStyledAndOwnedAsTheHostExpects) {
  Open(SamplePart());
  EXPECT_EQ(Panel().Name(), "KorWBNymMainPanel");
  EXPECT_EQ(Panel().Style(), 16384u);
  EXPECT_EQ(Panel().Parent(), KorApplicationFrame::GetMainWindow());
  EXPECT_EQ(Panel().GetParentCommand(), KorApplicationFrame::GetMainWindow());
}

TEST_F(Layout, BuildingASecondTimeAddsNothing) {
  Open(SamplePart());
  const std::size_t widgets = Backend().WidgetCount();
  Panel().Build();
  EXPECT_EQ(Backend().WidgetCount(), widgets);
}

TEST_F(Layout, WithoutABufferNothingIsCreatedAndStandardOutputSaysSo) {
  OpenWithoutBuffer();
  EXPECT_TRUE(Panel().Children().empty());
  EXPECT_THAT(Output(), testing::HasSubstr("the buffer pointer is null!!!"));
}

}  // namespace
