// The part panel in edit mode, worked by keys alone.
#include <QTabWidget>

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
