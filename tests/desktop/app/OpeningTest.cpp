// What the user is told of products that cannot be opened, and what becomes of the recent ones and the
// sample.
#include <sqlite3.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStatusBar>

#include "desktop/app/SampleProduct.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

/// Writes what no product file holds.
void Damage(const QString& path) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(QByteArray("SQLite format 3\0", 16) + QByteArray(5000, '\xff'));
}

/// A connection of another program to a product file.
class OtherProgram {
 public:
  explicit OtherProgram(const QString& file) { sqlite3_open(file.toStdString().c_str(), &_database); }
  ~OtherProgram() { sqlite3_close(_database); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;
  bool Run(const char* sql) { return sqlite3_exec(_database, sql, nullptr, nullptr, nullptr) == SQLITE_OK; }

 private:
  sqlite3* _database = nullptr;
};

/// Permissions mean nothing to the superuser; the tests give that up for a moment.
class OrdinaryUser {
 public:
  OrdinaryUser() : _was(geteuid()) {
    if (_was == 0) _dropped = seteuid(65534) == 0;
  }
  ~OrdinaryUser() {
    if (_dropped) _dropped = seteuid(_was) != 0;
  }
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

 private:
  uid_t _was;
  bool _dropped = false;
};

class OpeningTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    other = folder.filePath("other.lumira");
    ASSERT_TRUE(QFile::copy(File(), other));
    settings.AddRecentProduct(other);
  }
  void ExpectRefused(const char* reason) {
    EXPECT_FALSE(window.OpenProduct(other));
    EXPECT_NE(OnlyMessage().find("other.lumira"), std::string::npos) << OnlyMessage();
    EXPECT_NE(OnlyMessage().find(reason), std::string::npos) << OnlyMessage();
    EXPECT_EQ(window.ServerText(), "Server: embedded, iea15.lumira");
    EXPECT_TRUE(settings.RecentProducts().contains(other));
  }
  QString other;  ///< a product that is not open, the first of the recent ones
};

TEST_F(OpeningTest, ANewerProductIsRefusedAndStaysAmongTheRecentOnes) {
  ASSERT_TRUE(OtherProgram(other).Run("PRAGMA user_version = 4711"));
  ExpectRefused("newer version");
}

TEST_F(OpeningTest, ALockedProductIsRefusedAndStaysAmongTheRecentOnes) {
  OtherProgram program(other);
  ASSERT_TRUE(program.Run("PRAGMA locking_mode = EXCLUSIVE"));
  ASSERT_TRUE(program.Run("BEGIN EXCLUSIVE"));
  ExpectRefused("locked");
}

TEST_F(OpeningTest, AReadOnlyProductIsRefusedAndStaysAmongTheRecentOnes) {
  ASSERT_TRUE(QFile::setPermissions(other, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
  ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                       QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther |
                                                       QFile::ExeOther));
  const OrdinaryUser user;
  ASSERT_NE(geteuid(), 0u);
  ExpectRefused("read-only");
}

TEST_F(OpeningTest, ADamagedProductIsRefusedAndStaysAmongTheRecentOnes) {
  Damage(other);
  ExpectRefused("damaged");
}

TEST_F(OpeningTest, AMissingProductLeavesTheRecentOnesHoweverItIsNamed) {
  ASSERT_TRUE(QFile::remove(other));
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(folder.path()));
  EXPECT_FALSE(window.OpenProduct("other.lumira"));
  EXPECT_TRUE(QDir::setCurrent(before));
  EXPECT_EQ(settings.RecentProducts(), QStringList{File()});
}

TEST_F(OpeningTest, TheWindowIsBusyFromStartToEnd) {
  QStringList said;
  bool waits = true;
  QObject::connect(window.statusBar(), &QStatusBar::messageChanged, &window, [&](const QString& text) {
    if (text.isEmpty()) return;
    said << text;
    waits = waits && QApplication::overrideCursor() != nullptr;
  });
  ASSERT_TRUE(window.OpenProduct(other));
  ASSERT_FALSE(said.isEmpty());
  EXPECT_EQ(said.front(), QString::fromUtf8("Opening the product\u2026"));
  EXPECT_TRUE(waits);
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(OpeningTest, AFailureLeavesTheStatusBarEmptyAndThePointerAsItWas) {
  Damage(other);
  const QSignalSpy said(window.statusBar(), &QStatusBar::messageChanged);
  EXPECT_FALSE(window.OpenProduct(other));
  EXPECT_GE(said.count(), 2);
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

/// The sample in a folder of user data of the test's own.
class SampleTest : public WindowTest {
 protected:
  void SetUp() override {
    qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
    qputenv("KORVO_SAMPLES", KORVO_SOURCE_DIR "/samples");
    WindowTest::SetUp();
    ASSERT_TRUE(window.OpenSample());
    sample = settings.RecentProducts().front();
    ASSERT_TRUE(sample.startsWith(folder.path())) << sample.toStdString();
    ASSERT_TRUE(window.OpenProduct(File()));
  }
  void TearDown() override {
    WindowTest::TearDown();
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("KORVO_SAMPLES");
  }
  QString sample;
};

TEST_F(SampleTest, IsOpenedAtTheFirstStart) {
  settings.RemoveRecentProduct(File());
  settings.RemoveRecentProduct(sample);
  window.OpenAtStart({});
  EXPECT_EQ(settings.RecentProducts(), QStringList{sample});
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(SampleTest, IsNotOpenedAtTheStartWhenTheLastProductIs) {
  window.OpenAtStart({});
  EXPECT_EQ(settings.RecentProducts().front(), File());
}

TEST_F(SampleTest, IsNotOpenedInPlaceOfANamedProductThatCannotBe) {
  window.OpenAtStart(folder.filePath("none.lumira"));
  EXPECT_NE(OnlyMessage().find("none.lumira"), std::string::npos);
  EXPECT_EQ(settings.RecentProducts().front(), File());
}

TEST_F(SampleTest, StandsInForALastProductThatIsGone) {
  settings.AddRecentProduct(folder.filePath("gone.lumira"));
  window.OpenAtStart({});
  EXPECT_NE(OnlyMessage().find("gone.lumira"), std::string::npos);
  EXPECT_EQ(settings.RecentProducts().front(), sample);
}

TEST_F(SampleTest, DamagedIsAskedAboutOnceAtTheStartAndLeftAloneWithoutLeave) {
  settings.AddRecentProduct(sample);
  Damage(sample);
  boxes.answers = {1};
  window.OpenAtStart({});
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_FALSE(QFile::exists(sample + ".old"));
}

TEST_F(SampleTest, DamagedIsMadeAnewWhenTheUserWantsIt) {
  Damage(sample);
  boxes.answers = {0};
  ASSERT_TRUE(window.OpenSample());
  ASSERT_EQ(boxes.Questions().size(), 1u);
  EXPECT_NE(boxes.Questions()[0].text.Utf8().find("damaged"), std::string::npos);
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_EQ(window.Tree().rowCount(), 1);
  EXPECT_EQ(QFile(sample + ".old").size(), 5016);
}

TEST_F(SampleTest, IsSetAsideWithWhatTheDatabaseKeepsBesideIt) {
  const QString file = folder.filePath("set-aside.lumira");
  for (const char* companion : {"", "-wal", "-journal", ".old"}) Damage(file + companion);
  ASSERT_TRUE(SetAside(file.toStdString()).Ok());
  const QStringList left = QDir(folder.path()).entryList({"set-aside*"}, QDir::Files, QDir::Name);
  EXPECT_EQ(left.join(' ').toStdString(),
            "set-aside.lumira.old set-aside.lumira.old-journal set-aside.lumira.old-wal");
}

TEST_F(SampleTest, WithoutItsTablesTellsTheFolderThatWasLookedIn) {
  qputenv("KORVO_SAMPLES", folder.filePath("nowhere").toUtf8());
  ASSERT_TRUE(QFile::remove(sample));
  EXPECT_FALSE(window.OpenSample());
  EXPECT_NE(OnlyMessage().find(folder.filePath("nowhere").toStdString()), std::string::npos) << OnlyMessage();
  EXPECT_NE(OnlyMessage().find("KORVO_SAMPLES"), std::string::npos) << OnlyMessage();
}

}  // namespace
}  // namespace desktop::test
