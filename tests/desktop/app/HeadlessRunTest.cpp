#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

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
  QTemporaryDir scratch;
};

TEST_F(HeadlessRunTest, LeavesPicturesAndValues) {
  HeadlessRun run(scratch.filePath("out"));
  const auto done = run.Run();
  ASSERT_TRUE(done.Ok()) << done.Failure().message;
  for (const char* file :
       {"window.png", "part-panel-results.png", "part-panel-custom.png", "filter-panel.png",
        "part-panel-filter.png", "window-filter.png", "warning-dialog.png", "part-panel-edit-mass-types.png",
        "history.png", "values.txt"})
    EXPECT_TRUE(QFile::exists(scratch.filePath("out/") + file)) << file;
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
