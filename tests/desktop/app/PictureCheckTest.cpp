#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/app/PictureCheck.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

class PictureCheckTest : public ::testing::Test {
 protected:
  PictureCheckTest() {
    auto* layout = new QVBoxLayout(&window);
    for (QWidget* widget : {static_cast<QWidget*>(label), static_cast<QWidget*>(button),
                            static_cast<QWidget*>(edit), static_cast<QWidget*>(hidden)})
      layout->addWidget(widget);
    hidden->hide();
    window.show();
    RunPendingEvents();
  }
  QWidget window;
  QLabel* label = new QLabel("Mass");
  QPushButton* button = new QPushButton("Compute");
  QLineEdit* edit = new QLineEdit("12.5 kg");
  QLabel* hidden = new QLabel("Nobody sees this");
};

TEST_F(PictureCheckTest, APictureOfTheWindowShowsItsTexts) {
  EXPECT_EQ(TextsNotDrawn(window, window.grab().toImage()), QStringList());
}

TEST_F(PictureCheckTest, ABlankPictureShowsNoneOfThem) {
  QImage blank(window.size(), QImage::Format_RGB32);
  blank.fill(Qt::white);
  EXPECT_EQ(TextsNotDrawn(window, blank), (QStringList{"Mass", "Compute", "12.5 kg"}));
}

TEST_F(PictureCheckTest, ATextInTheColourOfItsGroundIsNamed) {
  label->setStyleSheet("color: #ffffff; background: #ffffff");
  RunPendingEvents();
  EXPECT_EQ(TextsNotDrawn(window, window.grab().toImage()), QStringList{"Mass"});
}

}  // namespace
}  // namespace desktop::test
