#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "tests/module/PanelTest.h"

using testing::ElementsAreArray;
using testing::UnorderedElementsAreArray;

namespace {

using Names = std::vector<std::string>;

/// In the order in which they are disabled: the products of inertia go from the last to the first.
const Names kDisabledAtFirst = {"ActiveMassCombo",  "MTMassEditor",      "MTCGxEditor",    "MTCGyEditor",
                                "MTCGzEditor",      "MTIxxEditor",       "MTIyyEditor",    "MTIzzEditor",
                                "MTIyzEditor",      "MTIxzEditor",       "MTIxyEditor",    "DensityEditor",
                                "WBMaterialEditor", "FirstCombo",        "SecondCombo",    "TypeCombo",
                                "UpperValueEditor", "LowerValueEditor",  "ValueTypeCombo", "SaveButton",
                                "DeleteButton",     "CustomRefModeFrame"};
/// Behind them, of a part whose document revisions may be used.
const Names kDisabledDocuments = {"ActiveDocLatestButton", "ActiveDocUsrSelButton", "ActiveDocsCombo",
                                  "ChangeActiveDocButton", "ApplyActiveDocButton",  "CancelActiveDocButton"};

Names Both(Names first, const Names& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

void CollectDisabled(const KorDlgObject& parent, Names& names) {
  for (const auto& child : parent.Children()) {
    if (!child->IsEnabled()) names.push_back(child->Name());
    CollectDisabled(*child, names);
  }
}

class InitialState : public PanelTest {
 protected:
  Names Disabled() {
    Names names;
    CollectDisabled(Panel(), names);
    return names;
  }
  /// Names of the widgets whose sensitivity changed since the last one, the button that closes the panel, was
  /// created and announced its own state; in the order of the changes.
  Names ChangesOfSensitivity() {
    const std::string change = ": Sensitivity";
    Names names;
    for (const std::string& line : Backend().Log()) {
      if (line.starts_with("created ")) names.clear();
      if (line.ends_with(change) && !line.starts_with("CloseButton"))
        names.push_back(line.substr(0, line.size() - change.size()));
    }
    return names;
  }
};

struct OpenedPart {
  const char* name;
  protocol::PartData (*part)();
  Names disabled;
};
class InitialStateOfAPart : public InitialState, public testing::WithParamInterface<OpenedPart> {};

TEST_P(InitialStateOfAPart, IsReadOnlyWithExactlyTheseWidgetsDisabled) {
  Open(GetParam().part());
  EXPECT_THAT(Disabled(), UnorderedElementsAreArray(GetParam().disabled));
}
INSTANTIATE_TEST_SUITE_P(Parts, InitialStateOfAPart,
                         testing::Values(OpenedPart{"Plain", &SamplePart, kDisabledAtFirst},
                                         OpenedPart{"WithDocuments", &SamplePartWithDocuments,
                                                    Both(kDisabledAtFirst, kDisabledDocuments)},
                                         OpenedPart{"WithProperties", &SamplePartWithProperties,
                                                    Both(kDisabledAtFirst, {"PropertyValueEditor"})}),
                         [](const auto& one) { return one.param.name; });

TEST_F(InitialState, IsReachedInThisOrder) {
  OpenWithoutBuffer();
  auto buffer = BufferOf(SamplePartWithDocuments());
  Panel().SetModel(buffer.Get());
  const Names expected = Both(kDisabledAtFirst, kDisabledDocuments);
  Names changes = ChangesOfSensitivity();
  ASSERT_GE(changes.size(), expected.size());
  changes.resize(expected.size());  // what follows is of the refresh
  EXPECT_THAT(changes, ElementsAreArray(expected));
}

TEST_F(InitialState, ShowsInertiaAtTheCentreOfGravityOfTheCurrentPart) {
  Open(SamplePart());
  EXPECT_TRUE(IsChecked("CGButton"));
  EXPECT_FALSE(IsChecked("ReferenceButton"));
  EXPECT_TRUE(IsChecked("CurrentPartButton"));
  EXPECT_FALSE(IsChecked("RootProductButton"));
  EXPECT_FALSE(IsChecked("CustomReferenceButton"));
}

TEST_F(InitialState, HidesTheCustomFrameSinceCheckingTheCurrentPartNotifies) {
  Open(SamplePart());
  EXPECT_FALSE(IsShown("CustomRefModeFrame"));
  EXPECT_FALSE(IsEnabled("CustomRefModeFrame"));
}

TEST_F(InitialState, OpensOnTheResultsPage) {
  Open(SamplePart());
  EXPECT_EQ(SelectedPage(), "TabPage002");
}

TEST_F(InitialState, ShowsTheCurrentlyAttachedRevision) {
  Open(SamplePartWithDocuments());
  EXPECT_EQ(Text("CurrentlyAttachedDocEditor"), "A");
}

TEST_F(InitialState, ShowsThatNoFilterIsInForceAndTellsTheBuffer) {
  protocol::PartData part = SamplePart();
  part.filter = "0|Left over";
  Open(part);
  EXPECT_EQ(Text("ConfigHandlerEditor"), "No Filter");
  KorUnicodeString filter;
  Buffer().GetFilter(filter);
  EXPECT_EQ(filter, "0|No Filter");
}

TEST_F(InitialState, ShowsTheFilterChosenForThePartsProductAndTellsTheBuffer) {
  KorWBNymNavFilterPanel::selectedPRCID = "ROOT";
  KorWBNymNavFilterPanel::selectedFilterOption = 1;
  KorWBNymNavFilterPanel::selectedPRCConfigHandler = "Winter kit";
  Open(SamplePart());
  EXPECT_EQ(Text("ConfigHandlerEditor"), "Winter kit");
  KorUnicodeString filter;
  Buffer().GetFilter(filter);
  EXPECT_EQ(filter, "0|Winter kit");
}

TEST_F(InitialState, AFilterChosenForAnotherProductIsNotInForce) {
  KorWBNymNavFilterPanel::selectedPRCID = "OTHER";
  KorWBNymNavFilterPanel::selectedFilterOption = 1;
  KorWBNymNavFilterPanel::selectedPRCConfigHandler = "Winter kit";
  Open(SamplePart());
  EXPECT_EQ(Text("ConfigHandlerEditor"), "No Filter");
}

TEST_F(InitialState, ShowsTheCurrentlyAttachedRevisionAlsoWhereNoRefreshOfThePageDoes) {
  protocol::PartData part = SamplePartWithDocuments();
  part.documents.activeId = "0";
  part.documents.revisions.clear();
  Open(part);
  EXPECT_EQ(Text("CurrentlyAttachedDocEditor"), "A");
}

}  // namespace
