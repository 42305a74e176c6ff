// Editors hand over whole texts, when the user has finished with them.
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "tests/desktop/support/DemoDialog.h"

namespace desktop::test {
namespace {

class EditingTest : public QtBackendTest {
 protected:
  void SetUp() override {
    QtBackendTest::SetUp();
    dialog.nameEditor->Subscribe(KorEvent::EditorModify,
                                 [this](auto...) { log.push_back(dialog.nameEditor->GetText().Utf8()); });
    dialog.compute->Subscribe(KorEvent::PushActivate, [this](auto...) { log.push_back("Compute"); });
    Open();
    In<QLineEdit>(dialog.nameEditor)->setFocus();
    In<QLineEdit>(dialog.nameEditor)->selectAll();
  }
  std::vector<std::string> log;
};

TEST_F(EditingTest, KeysAloneTellTheWidgetNothing) {
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(dialog.nameEditor->GetText(), "cover");
}

TEST_F(EditingTest, EnterHandsTheTextOverOnceAndPressesNoButton) {
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  QTest::keyClick(In<QLineEdit>(dialog.nameEditor), Qt::Key_Return);
  QTest::keyClick(In<QLineEdit>(dialog.nameEditor), Qt::Key_Return);
  EXPECT_EQ(log, std::vector<std::string>{"nose"});
}

TEST_F(EditingTest, LeavingTheEditorHandsTheTextOverBeforeItReportsTheLostFocus) {
  dialog.nameEditor->Subscribe(KorEvent::FocusOut, [this](auto...) { log.push_back("left"); });
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  In<QPushButton>(dialog.compute)->setFocus();
  EXPECT_EQ(log, (std::vector<std::string>{"nose", "left"}));
}

TEST_F(EditingTest, AShortcutHandsPendingTextsOverFirst) {
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  QTest::keyClick(Window(), Qt::Key_F5);
  EXPECT_EQ(log, (std::vector<std::string>{"nose", "Compute"}));
}

TEST_F(EditingTest, APressWithoutFocusHandsPendingTextsOverFirst) {
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  In<QPushButton>(dialog.compute)->click();
  EXPECT_EQ(log, (std::vector<std::string>{"nose", "Compute"}));
}

TEST_F(EditingTest, AnEditThatDisablesTheButtonKeepsItFromBeingPressed) {
  dialog.nameEditor->Subscribe(KorEvent::EditorModify,
                               [this](auto...) { dialog.compute->SetSensitivity(KorSensitivity::Disabled); });
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  In<QPushButton>(dialog.compute)->click();
  EXPECT_EQ(log, std::vector<std::string>{"nose"});
}

TEST_F(EditingTest, AHandlerThatSetsTheTextHasTheLastWord) {
  dialog.nameEditor->Subscribe(KorEvent::EditorModify,
                               [this](auto...) { dialog.nameEditor->SetText("cover"); });
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "nose");
  QTest::keyClick(In<QLineEdit>(dialog.nameEditor), Qt::Key_Return);
  EXPECT_EQ(In<QLineEdit>(dialog.nameEditor)->text(), "cover");
}

TEST_F(EditingTest, ATextTypedBackToWhatItWasNotifiesNobody) {
  QTest::keyClicks(In<QLineEdit>(dialog.nameEditor), "cover");
  QTest::keyClick(In<QLineEdit>(dialog.nameEditor), Qt::Key_Return);
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace desktop::test
