// The part panel in edit mode, worked by keys alone.
#include <QTabWidget>
#include <algorithm>

#include "tests/desktop/app/EditingHarness.h"

namespace desktop::test {
namespace {

class EditingKeyboardTest : public EditingTest {
 protected:
  static constexpr int kMostSteps = 40;

  QTabWidget* Tabs() { return backend.ControlOf<QTabWidget>(Panel().Find("TabContainer001")); }

  /// Names of the controls of the page in front in the order in which Tab visits them, from the first on.
  QStringList VisitedOnPage() {
    QWidget* page = Tabs()->currentWidget();
    Tabs()->tabBar()->setFocus();
    QStringList names;
    for (int step = 0; step < kMostSteps; ++step) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      if (!page->isAncestorOf(QApplication::focusWidget())) break;
      names << QApplication::focusWidget()->objectName();
    }
    return names;
  }
  QWidget* Choice(const char* name) {
    return backend.ControlOf<QWidget>(Panel().Find(std::string(kChoice) + name));
  }
  /// Goes down from the first line of a combo of the choice to a line that it has.
  void PickByKeys(const char* combo, const char* line) {
    const auto& lines = Panel().Find<KorDlgCombo>(std::string(kChoice) + combo).GetLines();
    const auto found = std::find(lines.begin(), lines.end(), line);
    ASSERT_NE(found, lines.end()) << line;
    QTest::keyClick(Choice(combo), Qt::Key_Home);
    for (int step = 0; step < found - lines.begin(); ++step) QTest::keyClick(Choice(combo), Qt::Key_Down);
  }
  void EditByKey() {
    QTest::keyClick(window.PartPanel().Window(), Qt::Key_F2);
    ASSERT_TRUE(IsEditing());
  }
};

TEST_F(EditingKeyboardTest, TabVisitsTheMassTypesPageInTheOrderInWhichItIsRead) {
  GoTo(kMassTypesPage);
  EditByKey();
  EXPECT_EQ(VisitedOnPage().join(" ").toStdString(),
            "ActiveMassCombo MassTypeCombo MTPasteValuesCombo MTMassEditor UpdatePropertiesButton "
            "MTCGxEditor MTCGyEditor MTCGzEditor "
            "MTIxxEditor MTIyyEditor MTIzzEditor MTIxyEditor MTIxzEditor MTIyzEditor");
}

TEST_F(EditingKeyboardTest, TabVisitsTheMaterialPageWhenTheTypedDensityComesFirst) {
  GoTo(kMaterialPage);
  EditByKey();
  ASSERT_TRUE(
      Panel().Find<KorDlgCombo>("TabContainer001.TabPage004.DensityPriorityFrame.FirstCombo").Pick("WB"));
  const QStringList visited = VisitedOnPage();
  EXPECT_EQ(visited.mid(0, 2).join(" ").toStdString(), "WBMaterialEditor DensityEditor");
  EXPECT_TRUE(visited.contains("FirstCombo")) << visited.join(" ").toStdString();
  EXPECT_FALSE(visited.contains("SecondCombo")) << visited.join(" ").toStdString();
}

TEST_F(EditingKeyboardTest, TabVisitsBoundsThatTheUserDefines) {
  GoTo(kPrecisionPage);
  EditByKey();
  ASSERT_TRUE(Panel().Find<KorDlgCombo>("TabContainer001.TabPage005.Frame252.Frame092.TypeCombo").Pick(1));
  QStringList visited = VisitedOnPage();
  visited.removeAll("ActiveMassTypeSelectedEditor");
  EXPECT_EQ(visited.join(" ").toStdString(), "TypeCombo UpperValueEditor LowerValueEditor ValueTypeCombo");
}

TEST_F(EditingKeyboardTest, TabVisitsTheDocumentsPageWhenTheRevisionIsAutomatic) {
  GoTo(kDocumentsPage);
  EditByKey();
  EXPECT_EQ(VisitedOnPage().join(" ").toStdString(),
            "DocumentsCombo DocAttr1Editor DocAttr1Editor DocAttr1Editor DocAttr1Editor DocAttr1Editor "
            "ActiveDocLatestButton CurrentlyAttachedDocEditor");
}

TEST_F(EditingKeyboardTest, TabVisitsTheChoiceOfARevisionFirst) {
  GoTo(kDocumentsPage);
  EditByKey();
  ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(kByHand).Check());
  ASSERT_TRUE(PressChoice("ChangeActiveDocButton"));
  const QStringList visited = VisitedOnPage();
  EXPECT_EQ(visited.mid(0, 4).join(" ").toStdString(),
            "ActiveDocsCombo ApplyActiveDocButton CancelActiveDocButton DocumentsCombo");
}

TEST_F(EditingKeyboardTest, TabVisitsNameAndValueOfAProperty) {
  GoTo(kPropertiesPage);
  EditByKey();
  EXPECT_EQ(VisitedOnPage().join(" ").toStdString(), "PropertyNameCombo PropertyValueEditor");
}

TEST_F(EditingKeyboardTest, TabVisitsNoValueOfAPropertyOutsideEditMode) {
  GoTo(kPropertiesPage);
  EXPECT_EQ(VisitedOnPage().join(" ").toStdString(), "PropertyNameCombo");
}

TEST_F(EditingKeyboardTest, ARevisionIsChosenByKeysAlone) {
  GoTo(kDocumentsPage);
  EditByKey();
  QWidget* latest = backend.ControlOf<QWidget>(Panel().Find(
      "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameActiveDocType.ActiveDocLatestButton"));
  latest->setFocus();
  QTest::keyClick(latest, Qt::Key_Right);
  ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(kByHand).IsChecked());
  QTest::keyClick(Choice("ChangeActiveDocButton"), Qt::Key_Space);
  PickByKeys("ActiveDocsCombo", "DOC-BEDPLATE B");
  QTest::keyClick(Choice("ApplyActiveDocButton"), Qt::Key_Space);
  QTest::keyClick(window.PartPanel().Window(), Qt::Key_S, Qt::ControlModifier);
  RunPendingEvents();
  EXPECT_FALSE(IsEditing());
  EXPECT_TRUE(boxes.Messages().empty());
  KorUnicodeString revision;
  window.PartPanel().Buffer()->GetActiveDocVersion(revision);
  EXPECT_EQ(revision.Utf8(), "B");
}

TEST_F(EditingKeyboardTest, APropertyIsEditedByKeysAlone) {
  GoTo(kPropertiesPage);
  EditByKey();
  auto* name = backend.ControlOf<QWidget>(Panel().Find(kPropertyName));
  name->setFocus();
  for (int line = 0; line < 2; ++line) QTest::keyClick(name, Qt::Key_Down);
  QTest::keyClick(name, Qt::Key_Tab);
  auto* value = backend.ControlOf<QLineEdit>(Panel().Find(kPropertyValue));
  ASSERT_EQ(value->text(), "2020-06-18");
  value->selectAll();
  QTest::keyClicks(value, "2024-02-29");
  QTest::keyClick(value, Qt::Key_S, Qt::ControlModifier);
  RunPendingEvents();
  EXPECT_FALSE(IsEditing());
  EXPECT_TRUE(boxes.Messages().empty());
  ShowProperty("Last weighing");
  EXPECT_EQ(TextOf(kPropertyValue), "2024-02-29");
}

TEST_F(EditingKeyboardTest, AMassIsEditedTypedAndSavedByKeysAlone) {
  GoTo(kMassTypesPage);
  EditByKey();
  auto* mass = backend.ControlOf<QLineEdit>(Panel().Find(kMass));
  mass->setFocus();
  mass->selectAll();
  QTest::keyClicks(mass, "43000");
  QTest::keyClick(mass, Qt::Key_S, Qt::ControlModifier);
  RunPendingEvents();
  EXPECT_FALSE(IsEditing());
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_EQ(TextOf(kMass), "43000 kg");
}

TEST_F(EditingKeyboardTest, EscapeInEditModeAsksBeforeThePanelCloses) {
  GoTo(kMassTypesPage);
  EditByKey();
  boxes.answers = {kKeep};
  QTest::keyClick(window.PartPanel().Window(), Qt::Key_Escape);
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_TRUE(IsEditing());
}

}  // namespace
}  // namespace desktop::test
