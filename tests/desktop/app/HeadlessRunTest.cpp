#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <set>

#include "desktop/app/HeadlessRun.h"
#include "framework/dialog/KorMsgCatalog.h"

namespace desktop::test {
namespace {

class HeadlessRunTest : public ::testing::Test {
 protected:
  void TearDown() override {
    qunsetenv("KORVO_SAMPLES");
    Settings(scratch.filePath("settings.ini")).ApplyUnits();
    Theme::Apply(ThemeChoice::Light);
  }
  QImage Picture(const char* file) const { return QImage(scratch.filePath("out/") + file); }
  /// 0 when there is no such picture.
  int ColourCount(const char* file) const {
    const QImage picture = Picture(file);
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) colours.insert(picture.pixel(x, y));
    return static_cast<int>(colours.size());
  }
  static bool IsRed(QRgb pixel) { return qRed(pixel) > 190 && qGreen(pixel) < 70 && qBlue(pixel) < 70; }
  static bool IsAmber(QRgb pixel) {
    return qRed(pixel) > 200 && qGreen(pixel) > 130 && qGreen(pixel) < 190 && qBlue(pixel) < 90;
  }
  int PixelCount(const char* file, bool (*is)(QRgb)) const {
    const QImage picture = Picture(file);
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) count += is(picture.pixel(x, y));
    return count;
  }
  /// On the average, 0 to 255.
  int Brightness(const char* file) const {
    return qGray(Picture(file).scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixel(0, 0));
  }
  QTemporaryDir scratch;
};

TEST_F(HeadlessRunTest, LeavesPicturesAndValues) {
  HeadlessRun run(scratch.filePath("out"));
  const auto done = run.Run();
  ASSERT_TRUE(done.Ok()) << done.Failure().message;
  for (const char* file : {"window.png",
                           "window-dark.png",
                           "part-panel-results.png",
                           "part-panel-dark.png",
                           "part-panel-custom.png",
                           "filter-panel.png",
                           "filter-panel-dark.png",
                           "filter-panel-de.png",
                           "part-panel-filter.png",
                           "window-filter.png",
                           "warning-dialog.png",
                           "warning-dialog-dark.png",
                           "warning-dialog-de.png",
                           "part-panel-edit-mass-types.png",
                           "part-panel-edit-results-de.png",
                           "part-panel-edit-marked.png",
                           "part-panel-edit-marked-dark.png",
                           "question-unread.png",
                           "window-saved.png",
                           "window-saved-de.png",
                           "history.png",
                           "history-dark.png",
                           "history-de.png"})
    EXPECT_GT(ColourCount(file), 20) << file;
  EXPECT_TRUE(QFile::exists(scratch.filePath("out/values.txt")));
  const std::pair<const char*, const char*> titles[] = {
      {"window.png", "IEA15 – Korvo Weight & Balance"},
      {"window-filter.png", "IEA15 – Korvo Weight & Balance"},
      {"part-panel-results.png", "Weight and balance"},
      {"part-panel-filter.png", "Weight and balance"},
      {"filter-panel.png", "Product filter"},
      {"warning-dialog.png", "Warnings"},
      {"warning-dialog-de.png", "Warnungen"},
      {"window-saved-de.png", "IEA15 – Korvo Weight & Balance"},
      {"part-panel-edit-results-de.png", "Masse und Schwerpunkt"},
      {"question-unread.png", "Not stored as it stands"},
      {"history.png", "History of part bedplate"},
      {"history-de.png", "Verlauf des Teils bedplate"}};
  for (const auto& [file, title] : titles)
    EXPECT_EQ(Picture(file).text("Title").toStdString(), title) << file;
  for (const char* file : {"filter-panel-dark.png", "part-panel-edit-marked-dark.png", "history-dark.png"})
    EXPECT_LT(Brightness(file), 100) << file;
  EXPECT_GT(Brightness("filter-panel.png"), 155);
  EXPECT_EQ(Picture("part-panel-filter.png").size(), Picture("part-panel-results.png").size())
      << "the custom frame has given its room back";
  EXPECT_EQ(PixelCount("part-panel-edit-mass-types.png", IsRed), 0);
  EXPECT_GT(PixelCount("part-panel-edit-marked.png", IsRed), 400)
      << "the frame of the field, the sign on its tab";
  EXPECT_EQ(PixelCount("window.png", IsAmber), 0);
  EXPECT_GT(PixelCount("window-saved.png", IsAmber), 3 * 50) << "the lamps of what is out of date";
}

TEST_F(HeadlessRunTest, FailsWhenTheFolderCannotBeMade) {
  QFile file(scratch.filePath("file"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  const auto done = HeadlessRun(scratch.filePath("file/out")).Run();
  ASSERT_FALSE(done.Ok());
  EXPECT_NE(done.Failure().message.find("file/out"), std::string::npos);
}

TEST_F(HeadlessRunTest, FailsWhenAPictureCannotBeWrittenAndSaysWhy) {
  ASSERT_TRUE(QDir(scratch.path()).mkpath("out/window.png"));
  const auto done = HeadlessRun(scratch.filePath("out")).Run();
  ASSERT_FALSE(done.Ok());
  EXPECT_NE(done.Failure().message.find("window.png\" cannot be written: Filename refers to a directory"),
            std::string::npos)
      << done.Failure().message;
}

TEST_F(HeadlessRunTest, FailsWhenTheValuesCannotBeWrittenAndSaysWhy) {
  ASSERT_TRUE(QDir(scratch.path()).mkpath("out/values.txt"));
  const auto done = HeadlessRun(scratch.filePath("out")).Run();
  ASSERT_FALSE(done.Ok());
  EXPECT_NE(done.Failure().message.find("values.txt\" cannot be written: Filename refers to a directory"),
            std::string::npos)
      << done.Failure().message;
}

TEST_F(HeadlessRunTest, FailsWithoutTheSampleAndNamesTheFolderThatWasLookedIn) {
  qputenv("KORVO_SAMPLES", scratch.path().toUtf8());
  const auto done = HeadlessRun(scratch.filePath("out")).Run();
  ASSERT_FALSE(done.Ok());
  EXPECT_NE(done.Failure().message.find(scratch.path().toStdString()), std::string::npos);
}

TEST_F(HeadlessRunTest, FailsWhenAMessageBoxComesUp) {
  const KorString before = KorMsgCatalog::GetFolder();
  KorMsgCatalog::SetFolder(scratch.path().toStdString());
  const auto done = HeadlessRun(scratch.filePath("out")).Run();
  KorMsgCatalog::SetFolder(before);
  ASSERT_FALSE(done.Ok());
  EXPECT_NE(done.Failure().message.find("KorvoDesktop.txt"), std::string::npos) << done.Failure().message;
}

}  // namespace
}  // namespace desktop::test
