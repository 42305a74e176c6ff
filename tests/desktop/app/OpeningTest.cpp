// What the user is told of products that cannot be opened, and what becomes of the recent ones and the
// sample.
#include <sqlite3.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QStatusBar>

#include "desktop/app/SampleProduct.h"
#include "desktop/toolkit/QtText.h"
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

/// While it lives, a database that is closed keeps its log beside it: the disk has no room to take the log
/// over into the file.
class NearlyFullDisk {
 public:
  NearlyFullDisk() { sqlite3_auto_extension(reinterpret_cast<void (*)()>(KeepLog)); }
  ~NearlyFullDisk() { sqlite3_cancel_auto_extension(reinterpret_cast<void (*)()>(KeepLog)); }
  NearlyFullDisk(const NearlyFullDisk&) = delete;
  NearlyFullDisk& operator=(const NearlyFullDisk&) = delete;

 private:
  static int KeepLog(sqlite3* database, char**, const void*) {
    return sqlite3_db_config(database, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
  }
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

/// Lets everybody read a file in `folder` or below it, and nobody write it.
void MakeReadOnly(const QString& file, const QTemporaryDir& folder) {
  const auto read = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
  const auto enter = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
  ASSERT_TRUE(QFile::setPermissions(file, read));
  for (QString path = QFileInfo(file).path(); path.startsWith(folder.path()); path = QFileInfo(path).path())
    ASSERT_TRUE(QFile::setPermissions(path, read | enter | QFile::WriteOwner));
}

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
  MakeReadOnly(other, folder);
  const OrdinaryUser user;
  ASSERT_NE(geteuid(), 0u);
  ExpectRefused("read-only");
}

TEST_F(OpeningTest, ADamagedProductIsRefusedAndStaysAmongTheRecentOnes) {
  Damage(other);
  ExpectRefused("damaged");
}

TEST_F(OpeningTest, AMissingProductIsNoRecentOneAnyMoreHoweverItIsNamed) {
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

TEST_F(SampleTest, OfAnotherVersionIsMadeAnewWhenTheUserWantsIt) {
  for (const char* version : {"PRAGMA user_version = 4711", "PRAGMA user_version = 1"}) {
    ASSERT_TRUE(OtherProgram(sample).Run(version));
    boxes.answers = {0};
    EXPECT_TRUE(window.OpenSample()) << version;
  }
  EXPECT_EQ(boxes.Questions().size(), 2u);
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(SampleTest, DamagedInsideIsMadeAnewWhenTheUserWantsIt) {
  ASSERT_TRUE(OtherProgram(sample).Run("PRAGMA foreign_keys = OFF; DROP TABLE parts"));
  boxes.answers = {0};
  EXPECT_TRUE(window.OpenSample());
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(SampleTest, WithoutRowsThatItHadIsMadeAnewWhenTheUserWantsIt) {
  ASSERT_TRUE(OtherProgram(sample).Run("DELETE FROM mass_types"));
  boxes.answers = {0};
  EXPECT_TRUE(window.OpenSample());
  EXPECT_EQ(boxes.Questions().size(), 1u);
}

TEST_F(SampleTest, WhoseRootPartIsGoneIsMadeAnewWhenTheUserWantsIt) {
  for (const char* damage : {"DELETE FROM parts WHERE part = 'RNA'", "UPDATE roots SET part = 'RNB'",
                             "PRAGMA foreign_keys = OFF; UPDATE parts SET product = 99"}) {
    ASSERT_TRUE(OtherProgram(sample).Run(damage));
    boxes.answers = {0};
    EXPECT_TRUE(window.OpenSample()) << damage;
    ASSERT_FALSE(boxes.Questions().empty()) << damage;
    EXPECT_NE(boxes.Questions().back().text.Utf8().find(sample.toStdString()), std::string::npos)
        << boxes.Questions().back().text.Utf8();
  }
  EXPECT_EQ(boxes.Questions().size(), 3u);
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(SampleTest, HeldByAnotherProgramIsToldOfAndLeftInItsPlace) {
  OtherProgram program(sample);
  ASSERT_TRUE(program.Run("PRAGMA locking_mode = EXCLUSIVE"));
  ASSERT_TRUE(program.Run("BEGIN EXCLUSIVE"));
  boxes.answers = {0};
  EXPECT_FALSE(window.OpenSample());
  EXPECT_TRUE(boxes.Questions().empty());
  EXPECT_NE(OnlyMessage().find("locked"), std::string::npos) << OnlyMessage();
  EXPECT_TRUE(QFile::exists(sample));
  EXPECT_FALSE(QFile::exists(sample + ".old"));
}

TEST_F(SampleTest, ThatIsReadOnlyIsToldOfAndLeftInItsPlace) {
  MakeReadOnly(sample, folder);
  boxes.answers = {0};
  const OrdinaryUser user;
  ASSERT_NE(geteuid(), 0u);
  EXPECT_FALSE(window.OpenSample());
  EXPECT_TRUE(boxes.Questions().empty());
  EXPECT_NE(OnlyMessage().find("read-only"), std::string::npos) << OnlyMessage();
  EXPECT_FALSE(QFile::exists(sample + ".old"));
}

TEST_F(SampleTest, StaysInItsPlaceUntilTheNewOneIsWhole) {
  Damage(sample);
  ASSERT_TRUE(QDir().mkpath(folder.filePath("no-tables/iea15")));
  qputenv("KORVO_SAMPLES", folder.filePath("no-tables").toUtf8());
  boxes.answers = {0, 0};
  EXPECT_FALSE(window.OpenSample());
  EXPECT_NE(OnlyMessage().find("structure.csv"), std::string::npos) << OnlyMessage();
  EXPECT_EQ(QFile(sample).size(), 5016);
  EXPECT_FALSE(QFile::exists(sample + ".old"));

  qputenv("KORVO_SAMPLES", KORVO_SOURCE_DIR "/samples");
  EXPECT_TRUE(window.OpenSample());
  EXPECT_EQ(QFile(sample + ".old").size(), 5016);
}

TEST_F(SampleTest, ThatWasSetAsideOutlivesASecondTryWithoutAFileToSetAside) {
  const std::string file = folder.filePath("set-aside.lumira").toStdString();
  Damage(ToQt(file + ".old"));
  EXPECT_TRUE(SetAside(file).Ok());
  EXPECT_EQ(QFile(ToQt(file + ".old")).size(), 5016);
  EXPECT_FALSE(CreateSampleProduct(folder.path().toStdString(), file).Ok());
  EXPECT_TRUE(CreateSampleProduct(KORVO_SOURCE_DIR "/samples", file).Ok());
  EXPECT_EQ(QFile(ToQt(file + ".old")).size(), 5016);
}

TEST_F(SampleTest, FailingToBeMadeLeavesNothingBehind) {
  const std::string file = folder.filePath("made.lumira").toStdString();
  ASSERT_TRUE(QDir().mkpath(folder.filePath("half/iea15")));
  for (const char* table : {"structure.csv", "mass.csv"}) Damage(folder.filePath("half/iea15/") + table);
  EXPECT_FALSE(CreateSampleProduct(folder.filePath("half").toStdString(), file).Ok());
  EXPECT_EQ(QDir(folder.path()).entryList({"made*"}, QDir::Files), QStringList());
}

TEST_F(SampleTest, WhoseLogIsLeftBesideItIsNotTakenForWholeAndTheOldOneStays) {
  const QString file = folder.filePath("made.lumira");
  Damage(file);
  {
    const NearlyFullDisk disk;
    const auto made = CreateSampleProduct(KORVO_SOURCE_DIR "/samples", file.toStdString());
    ASSERT_FALSE(made.Ok());
    EXPECT_EQ(made.Failure().kind, protocol::ErrorKind::Storage);
    EXPECT_EQ(made.Failure().message,
              "\"" + file.toStdString() + ".new\" cannot be finished: the disk is full or nearly so");
  }
  EXPECT_EQ(QDir(folder.path()).entryList({"made*"}, QDir::Files), QStringList{"made.lumira"});
  EXPECT_EQ(QFile(file).size(), 5016);
}

TEST_F(SampleTest, IsNotReadWithTheLogOfAProductThatIsGone) {
  const QString file = folder.filePath("logs.lumira");
  for (const char* companion : {"-wal", "-journal", ".new", ".new-journal"}) Damage(file + companion);
  ASSERT_TRUE(CreateSampleProduct(KORVO_SOURCE_DIR "/samples", file.toStdString()).Ok());
  EXPECT_EQ(QDir(folder.path()).entryList({"logs*"}, QDir::Files), QStringList{"logs.lumira"});
  EXPECT_TRUE(window.OpenProduct(file));
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
