#include <gtest/gtest.h>

#include "desktop/app/ElidedLabel.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

TEST(ElidedLabelTest, AShortTextIsDrawnWhole) {
  ElidedLabel label(40);
  label.setText("Filter: Structure only");
  label.resize(label.sizeHint());
  EXPECT_EQ(label.DrawnText(), "Filter: Structure only");
}

TEST(ElidedLabelTest, AShortTextInBoldIsDrawnWholeToo) {
  ElidedLabel label(40);
  QFont font = label.font();
  font.setBold(true);
  label.setFont(font);
  label.setContentsMargins(8, 2, 8, 2);
  for (const char* text : {"Filter: User Filter", "Filter: No Filter", "Filter: Without generator"}) {
    label.setText(text);
    label.resize(label.sizeHint());
    EXPECT_EQ(label.DrawnText(), text);
  }
}

TEST(ElidedLabelTest, ALongTextAsksForItsShareIsCutOffWithAnEllipsisAndStaysWholeToBeRead) {
  ElidedLabel label(40);
  const QString text = "Filter: " + QString(195, 'x');
  label.setText(text);
  EXPECT_EQ(label.sizeHint().width(), 40 * label.fontMetrics().averageCharWidth());
  label.resize(label.sizeHint());
  EXPECT_TRUE(label.DrawnText().endsWith(QChar(0x2026))) << label.DrawnText().toStdString();
  EXPECT_LE(label.fontMetrics().horizontalAdvance(label.DrawnText()), label.width());
  EXPECT_EQ(label.text(), text);
}

}  // namespace
}  // namespace desktop::test
