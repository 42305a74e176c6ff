#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/dialog/KorApplicationFrame.h"
#include "module/report_panel/KorWBNymNavReportPanel.h"
#include "tests/module/BaseCatalogues.h"

namespace {

/// The panel with what it keeps within reach.
struct OpenReportPanel : KorWBNymNavReportPanel {
  using KorWBNymNavReportPanel::_distributivePreview;
  using KorWBNymNavReportPanel::_instanceToBeSelected;
  using KorWBNymNavReportPanel::_prcIds;
  using KorWBNymNavReportPanel::_preview;
  using KorWBNymNavReportPanel::_referenceInstance;
  using KorWBNymNavReportPanel::_rootIds;
  using KorWBNymNavReportPanel::_rootText;
  using KorWBNymNavReportPanel::_savedComputeOption;
  using KorWBNymNavReportPanel::_savedSpecifiedIndex;
  using KorWBNymNavReportPanel::_savedUpdateOption;
  using KorWBNymNavReportPanel::_unusedIds;
  using KorWBNymNavReportPanel::_unusedNames;
};

TEST(ReportPanel, IsNamedStyledAndOwnedAsTheHostExpects) {
  const KorWBNymNavReportPanel panel;
  EXPECT_EQ(panel.Name(), "KorWBNymNavReportPanel");
  EXPECT_EQ(panel.Style(), 0x4000u);
  EXPECT_EQ(panel.Parent(), KorApplicationFrame::GetMainWindow());
  EXPECT_FALSE(panel.IsShown());
  EXPECT_TRUE(panel.Children().empty());
}

TEST(ReportPanel, StartsWithNothingSelectedAndNothingSaved) {
  const OpenReportPanel panel;
  for (const auto* list : {&panel._rootIds, &panel._prcIds, &panel._unusedIds, &panel._unusedNames})
    EXPECT_EQ(list->Size(), 0);
  EXPECT_EQ(panel._rootText, "");
  EXPECT_EQ(panel._preview, nullptr);
  EXPECT_EQ(panel._distributivePreview, nullptr);
  EXPECT_FALSE(panel._instanceToBeSelected);
  EXPECT_EQ(panel._referenceInstance, "");
  EXPECT_EQ(panel._savedUpdateOption, 0);
  EXPECT_EQ(panel._savedComputeOption, 0);
  EXPECT_EQ(panel._savedSpecifiedIndex, 0);
}

TEST(ReportPanel, CopiesEveryMember) {
  OpenReportPanel panel;
  panel._prcIds.Append("TURBINE");
  panel._rootText = "Turbine";
  panel._instanceToBeSelected = true;
  panel._referenceInstance = "I1";
  panel._savedSpecifiedIndex = 3;
  const OpenReportPanel copy(panel);
  OpenReportPanel assigned;
  assigned = panel;
  for (const OpenReportPanel* one : {&copy, static_cast<const OpenReportPanel*>(&assigned)}) {
    EXPECT_EQ(one->_prcIds, KorListValKorUnicodeString{"TURBINE"});
    EXPECT_EQ(one->_rootText, "Turbine");
    EXPECT_TRUE(one->_instanceToBeSelected);
    EXPECT_EQ(one->_referenceInstance, "I1");
    EXPECT_EQ(one->_savedSpecifiedIndex, 3);
  }
}

TEST(ReportPanel, NamesItsCatalogueAndThenThatOfTheBaseClass) {
  const BaseCatalogues named;
  const KorWBNymNavReportPanel panel;
  EXPECT_EQ(panel.GetResourceFilename(0), "KorWBNymNavReportPanel");
  EXPECT_EQ(panel.GetResourceFilename(1), "Base 0");
  EXPECT_EQ(panel.GetResourceFilename(2), "Base 1");
}

}  // namespace
