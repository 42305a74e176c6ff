#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "desktop/app/SearchBox.h"
#include "lumira/import/ImportProduct.h"
#include "lumira/store/OpenSqliteStore.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

class SearchBoxTest : public WindowTest {
 protected:
  void Type(const char* text) {
    window.Search().Edit()->setText(text);
    window.Search().Search();
  }
  /// Makes a second product in the open file: car, with the part wheel.
  void AddCar() {
    lumira::ImportTables tables;
    tables.structure = lumira::TableSource{"structure.csv", "parent,child,instance\ncar,wheel,wheel.1\n"};
    tables.mass = {"mass.csv", "part,mass [kg]\nwheel,20\n"};
    const auto store = lumira::OpenSqliteStore(File().toStdString());
    ASSERT_TRUE(store.Ok());
    ASSERT_TRUE(lumira::ImportProduct(*store.Value(), tables, {}).Ok());
    ASSERT_TRUE(window.OpenProduct(File()));
  }
  std::string SelectedPart() {
    const QModelIndex index = window.TreeView().currentIndex();
    return index.isValid() ? window.Tree().PlaceAt(index).node.partId : std::string();
  }
};

TEST_F(SearchBoxTest, ListsTheOccurrencesFound) {
  Type("generator");
  EXPECT_EQ(window.Search().Hits()->topLevelItemCount(), 3);
  EXPECT_EQ(window.Search().Summary(), "3 found");
}

TEST_F(SearchBoxTest, SaysThatNothingWasFound) {
  Type("sail");
  EXPECT_EQ(window.Search().Summary(), "Nothing found");
  EXPECT_TRUE(window.Search().Hits()->isHidden());
}

TEST_F(SearchBoxTest, EnterSelectsTheFirstOccurrenceInTheTree) {
  window.Search().Edit()->setText("bedplate");
  QTest::keyClick(window.Search().Edit(), Qt::Key_Return);
  EXPECT_EQ(SelectedPart(), "bedplate");
}

TEST_F(SearchBoxTest, TheArrowKeyDownLeadsToTheListAndEnterThereSelects) {
  Type("generator");
  QApplication::setActiveWindow(&window);
  window.Search().Edit()->setFocus();
  QTest::keyClick(window.Search().Edit(), Qt::Key_Down);
  QTest::keyClick(window.Search().Hits(), Qt::Key_Down);
  QTest::keyClick(window.Search().Hits(), Qt::Key_Return);
  EXPECT_EQ(SelectedPart(), "generator_rotor");
}

TEST_F(SearchBoxTest, EnterSearchesOnceAndNotAgainAfterAPause) {
  auto* pause = window.Search().findChild<QTimer*>();
  ASSERT_NE(pause, nullptr);
  QTest::keyClicks(window.Search().Edit(), "bedplate");
  EXPECT_TRUE(pause->isActive());
  QTest::keyClick(window.Search().Edit(), Qt::Key_Return);
  EXPECT_FALSE(pause->isActive());
}

TEST_F(SearchBoxTest, AServersMessageIsShownAsPlainText) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return protocol::ErrorReply("there is no <b>product</b>"); };
  Type("nose");
  EXPECT_EQ(window.Search().Summary(), "there is no <b>product</b>");
  window.Search().RefreshTexts();
  EXPECT_EQ(window.Search().Summary(), "there is no <b>product</b>") << "a refusal is not \"nothing found\"";
  for (const QLabel* label : window.Search().findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText);
    EXPECT_TRUE(label->wordWrap());
  }
}

TEST_F(SearchBoxTest, AHitIsSelectedInTheProductThatWasSearchedWhicheverIsSelectedMeanwhile) {
  AddCar();
  ASSERT_TRUE(window.Select("IEA15", {}));
  Type("bedplate");
  ASSERT_EQ(window.Search().Hits()->topLevelItemCount(), 1);
  ASSERT_TRUE(window.Select("car", {"wheel.1"}));
  window.Search().Hits()->setCurrentItem(window.Search().Hits()->topLevelItem(0));
  QTest::keyClick(window.Search().Hits(), Qt::Key_Return);
  EXPECT_EQ(SelectedPart(), "bedplate");
}

TEST_F(SearchBoxTest, EscapeClosesTheList) {
  Type("generator");
  QTest::keyClick(window.Search().Edit(), Qt::Key_Escape);
  EXPECT_TRUE(window.Search().Hits()->isHidden());
  EXPECT_EQ(window.Search().Edit()->text(), "");
}

}  // namespace
}  // namespace desktop::test
