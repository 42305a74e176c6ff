// The boxes on the screen, each worked while it is open.
#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "desktop/toolkit/QtBoxes.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class QtBoxesTest : public ::testing::Test {
 protected:
  /// Does something to the next box once it is open. A box that the action leaves open is closed, and fails
  /// the test.
  template <class Box, class Action>
  void WhenOpen(Action action) {
    QTimer::singleShot(0, qApp, [action] {
      auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      action(*box);
      EXPECT_TRUE(box->isHidden());
      if (!box->isHidden()) box->reject();
    });
  }
  static KorDlgMessage Message(const KorUnicodeString& text) {
    KorDlgMessage message;
    message.text = text;
    message.flags = KorDlgMessage::kError;
    return message;
  }
  static KorDlgQuestion Question() {
    KorDlgQuestion question;
    question.text = "Save R&D?";
    question.answers = {"Yes & no", "No"};
    return question;
  }
  static QPushButton* ButtonOf(const QMessageBox& box, const char* text) {
    for (QAbstractButton* button : box.buttons())
      if (button->text() == text) return qobject_cast<QPushButton*>(button);
    return nullptr;
  }
  static KorUnicodeString Lines(int count) {
    QStringList lines;
    for (int i = 1; i <= count; ++i) lines << QString("line %1").arg(i);
    return lines.join('\n').toStdString();
  }

  QTemporaryDir folder;
  QtBoxes boxes{[](KorDlgDialog*) { return static_cast<QWidget*>(nullptr); }};
};

TEST_F(QtBoxesTest, AQuestionIsAnsweredByTheIndexOfItsButton) {
  WhenOpen<QMessageBox>([](QMessageBox& box) {
    ASSERT_NE(ButtonOf(box, "Yes && no"), nullptr);
    QTest::mouseClick(ButtonOf(box, "No"), Qt::LeftButton);
  });
  EXPECT_EQ(boxes.Ask(Question()), 1);
}

TEST_F(QtBoxesTest, AQuestionThatIsClosedHasNoAnswerAndShowsNoButtonForIt) {
  WhenOpen<QMessageBox>([](QMessageBox& box) {
    int visible = 0;
    for (const QAbstractButton* button : box.buttons()) visible += button->isVisible();
    EXPECT_EQ(visible, 2);
    box.close();
  });
  EXPECT_EQ(boxes.Ask(Question()), std::nullopt);
}

TEST_F(QtBoxesTest, EnterGivesThePreferredAnswer) {
  for (const int preferred : {0, 1}) {
    KorDlgQuestion question = Question();
    question.preferred = preferred;
    WhenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); });
    EXPECT_EQ(boxes.Ask(question), preferred);
  }
}

TEST_F(QtBoxesTest, EscapeClosesAQuestion) {
  WhenOpen<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(boxes.Ask(Question()), std::nullopt);
}

TEST_F(QtBoxesTest, AMessageOfFifteenLinesIsShownWhole) {
  WhenOpen<QMessageBox>([](QMessageBox& box) {
    EXPECT_TRUE(box.text().endsWith("line 15"));
    EXPECT_EQ(box.detailedText(), "");
    box.accept();
  });
  boxes.ShowMessage(Message(Lines(15)));
}

TEST_F(QtBoxesTest, MoreThanFifteenLinesStandInTheDetails) {
  WhenOpen<QMessageBox>([](QMessageBox& box) {
    EXPECT_TRUE(box.text().endsWith("line 15"));
    EXPECT_TRUE(box.detailedText().endsWith("line 16"));
    box.accept();
  });
  boxes.ShowMessage(Message(Lines(16)));
}

TEST_F(QtBoxesTest, AMessageIsNoMarkup) {
  WhenOpen<QMessageBox>([](QMessageBox& box) {
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.icon(), QMessageBox::Warning);
    box.accept();
  });
  boxes.ShowMessage(Message("<b>"));
}

TEST_F(QtBoxesTest, AFileToWriteGetsTheSuffixOfThePatternAndMayExist) {
  QFile file(folder.filePath("own.lumira"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  KorDlgFileRequest request;
  request.pattern = "Products (*.lumira *.sqlite);;All files (*)";
  request.mode = KorDlgFileRequest::Mode::Save;
  WhenOpen<QFileDialog>([this](QFileDialog& chooser) {
    EXPECT_EQ(chooser.acceptMode(), QFileDialog::AcceptSave);
    chooser.selectFile(folder.filePath("own"));
    QTimer::singleShot(0, &chooser, [&chooser] {
      auto* asking = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      EXPECT_EQ(asking, nullptr) << "the chooser asks whether to replace the file";
      if (asking) asking->reject();
      if (asking) chooser.reject();
    });
    QMetaObject::invokeMethod(&chooser, "accept");
  });
  const auto chosen = boxes.ChooseFile(request);
  ASSERT_TRUE(chosen.has_value());
  EXPECT_EQ(*chosen, KorUnicodeString(folder.filePath("own.lumira").toStdString()));
}

TEST_F(QtBoxesTest, AFileChooserThatIsClosedGivesNone) {
  WhenOpen<QFileDialog>([](QFileDialog& chooser) { chooser.reject(); });
  EXPECT_EQ(boxes.ChooseFile({}), std::nullopt);
}

TEST_F(QtBoxesTest, TheNextChooserStartsWhereTheLastFileWasChosen) {
  QFile file(folder.filePath("mass.csv"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.close();
  WhenOpen<QFileDialog>([this](QFileDialog& chooser) {
    EXPECT_NE(chooser.directory().absolutePath(), folder.path());
    chooser.selectFile(folder.filePath("mass.csv"));
    QMetaObject::invokeMethod(&chooser, "accept");
  });
  EXPECT_EQ(boxes.ChooseFile({}), KorUnicodeString(folder.filePath("mass.csv").toStdString()));
  WhenOpen<QFileDialog>([this](QFileDialog& chooser) {
    EXPECT_EQ(chooser.directory().absolutePath(), folder.path());
    chooser.reject();
  });
  boxes.ChooseFile({});
}

}  // namespace
}  // namespace desktop::test
