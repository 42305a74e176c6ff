// Rows of the filter panel that were not confirmed do not go without a question.
#include <QFile>

#include "desktop/app/ImportDialog.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

constexpr int kDiscard = 0;
constexpr int kGoBack = 1;

class FilterRowsAtRiskTest : public WindowTest {
 protected:
  using Rows = std::vector<std::string>;

  void SetUp() override {
    WindowTest::SetUp();
    AddSecondProduct();
    ASSERT_TRUE(window.Select("IEA15", {"Blades.1"}));
    window.AddToFilter();
  }
  void OpenOnTheOtherProduct() {
    ASSERT_TRUE(window.Select("Car", {}));
    window.ShowFilterPanel();
  }
  const Rows kBlades{"Blades.1, Blades, , IEA15, 0, "};
};

TEST_F(FilterRowsAtRiskTest, ThePanelStaysWhenTheUserGoesBackFromOpeningItOnAnotherProduct) {
  boxes.answers = {kGoBack};
  OpenOnTheOtherProduct();
  EXPECT_EQ(FilterRows(), kBlades);
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(boxes.Questions()[0].answers, (std::vector<KorUnicodeString>{"Discard", "Go back"}));
}

TEST_F(FilterRowsAtRiskTest, ClosingTheQuestionIsGoingBack) {
  boxes.answers = {std::nullopt};
  OpenOnTheOtherProduct();
  EXPECT_EQ(FilterRows(), kBlades);
}

TEST_F(FilterRowsAtRiskTest, ThePanelIsOpenedOnAnotherProductWhenTheUserDiscardsThem) {
  boxes.answers = {kDiscard};
  OpenOnTheOtherProduct();
  EXPECT_EQ(FilterRows(), Rows{});
}

TEST_F(FilterRowsAtRiskTest, AnImportThatOnlyChecksAsksNothing) {
  EXPECT_EQ(WorkTheImportDialog({&ImportDialog::CheckButton}), QStringList{"Product"});
  EXPECT_TRUE(boxes.Questions().empty());
  EXPECT_EQ(FilterRows(), kBlades);
}

TEST_F(FilterRowsAtRiskTest, AnImportAsksWhenItIsAboutToWrite) {
  boxes.answers = {kGoBack};
  EXPECT_EQ(WorkTheImportDialog({&ImportDialog::ImportButton}), QStringList{""});
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(FilterRows(), kBlades);
  EXPECT_EQ(window.Tree().rowCount(), 2) << "nothing was imported";
}

TEST_F(FilterRowsAtRiskTest, LeaveToDiscardThemCountsForAllImportsOfADialog) {
  boxes.answers = {kGoBack, kDiscard};
  const auto import = &ImportDialog::ImportButton;
  EXPECT_EQ(WorkTheImportDialog({import, import, import}), (QStringList{"", "Imported", "Imported"}));
  EXPECT_EQ(boxes.Questions().size(), 2u);
  EXPECT_FALSE(window.FilterPanel().IsOpen());
  EXPECT_EQ(window.Tree().rowCount(), 3);
}

TEST_F(FilterRowsAtRiskTest, AnotherProductFileAsksFirst) {
  boxes.answers = {kGoBack, kGoBack};
  EXPECT_FALSE(window.OpenProduct(File()));
  EXPECT_FALSE(window.CreateProduct(folder.filePath("new.lumira")));
  EXPECT_FALSE(QFile::exists(folder.filePath("new.lumira")));
  EXPECT_EQ(FilterRows(), kBlades);
  boxes.answers = {kDiscard};
  EXPECT_TRUE(window.OpenProduct(File()));
  EXPECT_FALSE(window.FilterPanel().IsOpen());
}

TEST_F(FilterRowsAtRiskTest, RowsThatAreAsTheyWereWhenThePanelOpenedAreNotAskedAbout) {
  EXPECT_TRUE(window.FilterPanel().Panel()->PressOK());
  RunPendingEvents();
  OpenFilterPanel();
  EXPECT_EQ(FilterRows(), kBlades);
  EXPECT_FALSE(window.FilterPanel().HasUnconfirmedRows());
  window.AddToFilter();  // is there already
  EXPECT_FALSE(window.FilterPanel().HasUnconfirmedRows());
  OpenOnTheOtherProduct();
  EXPECT_EQ(FilterRows(), Rows{});
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(FilterRowsAtRiskTest, OpeningThePanelOnItsOwnProductAsksNothing) {
  OpenFilterPanel();
  EXPECT_EQ(FilterRows(), kBlades);
  EXPECT_TRUE(boxes.Questions().empty());
}

}  // namespace
}  // namespace desktop::test
