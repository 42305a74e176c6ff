#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "tests/module/FilterPanelTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using FilterPanelCopy = FilterPanelTest;

TEST_F(FilterPanelCopy, SharesTheWidgetsOfItsOriginal) {
  Open({}, "TURBINE");
  KorWBNymNavFilterPanel copy(Panel());
  copy.AddValuesInMultiList("I1", "P1", "A", "R", 1);
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, TURBINE/R, 1, R")) << "the copy has the original's product too";
  EXPECT_TRUE(Panel().IsDuplicate("I1", "P1", "A", "R"));
  EXPECT_TRUE(copy.Children().empty());
}

TEST_F(FilterPanelCopy, SeesWhatItsOriginalAddsAndRemoves) {
  Open();
  Add("I1", "P1", "A", "", 0);
  KorWBNymNavFilterPanel copy(Panel());
  EXPECT_TRUE(copy.IsDuplicate("I1", "P1", "A", ""));
  SelectRows({0});
  Press("RemoveCriterionButton");
  Add("I2", "P2", "B", "", 0);
  EXPECT_FALSE(copy.IsDuplicate("I1", "P1", "A", ""));
  EXPECT_TRUE(copy.IsDuplicate("I2", "P2", "B", ""));
}

TEST_F(FilterPanelCopy, LeavesTheWidgetsAloneWhenItGoes) {
  Open();
  { const KorWBNymNavFilterPanel copy(Panel()); }
  Add("I1", "P1", "A", "", 0);
  EXPECT_EQ(Rows().size(), 1u);
}

TEST_F(FilterPanelCopy, OfAPanelThatIsLaidOutIsNotLaidOutAgain) {
  Open();
  KorWBNymNavFilterPanel copy(Panel());
  copy.Build();
  EXPECT_TRUE(copy.Children().empty());
  EXPECT_EQ(Server().Requests().size(), 3u);
}

TEST_F(FilterPanelCopy, ByAssignmentSharesTheWidgetsToo) {
  Open();
  KorWBNymNavFilterPanel other;
  other.AddValuesInMultiList("I0", "P0", "A", "", 0);
  other = Panel();
  other.AddValuesInMultiList("I1", "P1", "A", "", 0);
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, , 0, "));
  other = KorWBNymNavFilterPanel();
  other.AddValuesInMultiList("I2", "P2", "A", "", 0);
  EXPECT_EQ(Rows().size(), 1u) << "assigned from a panel without widgets it has none";
}

TEST_F(FilterPanelCopy, KeepsTheProductThatWasOpened) {
  LeaveUserFilter("1|1|I1|P1|A|0");
  Open();
  Press("ClearAllCriteriaButton");
  KorWBNymNavFilterPanel copy(Panel());
  EXPECT_EQ(copy.SetCurrentFilters(), S_OK);
  EXPECT_THAT(Rows(), ElementsAre("I1, P1, A, , 0, "));
}

TEST_F(FilterPanelCopy, DoesNotTakeTheParentCommandOver) {
  KorCommand host, other;
  KorWBNymNavFilterPanel panel, assigned;
  panel.SetParentCommand(&host);
  assigned.SetParentCommand(&other);
  assigned = panel;
  EXPECT_EQ(KorWBNymNavFilterPanel(panel).GetParentCommand(), KorApplicationFrame::GetMainWindow());
  EXPECT_EQ(assigned.GetParentCommand(), &other);
}

TEST_F(FilterPanelCopy, APanelThatWasNeverLaidOutCanBeCopiedAssignedAndDestroyed) {
  KorWBNymNavFilterPanel panel;
  KorWBNymNavFilterPanel copy(panel);
  panel = copy;
  EXPECT_TRUE(copy.Children().empty());
  EXPECT_EQ(copy.Name(), "KorWBNymNavFilterPanel");
}

}  // namespace
