// The texts of the desktop: each in each language, each in use, and none missing without a word.
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>

#include "desktop/app/Texts.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

constexpr const char* kCatalogues = KORVO_SOURCE_DIR "/catalogues";

/// Keys of the desktop's catalogue in one language; fails when a line cannot be read or a text is empty.
QStringList KeysOf(const char* language) {
  std::vector<KorUnicodeString> problems;
  const QString file = QString("%1/%2/KorvoDesktop.txt").arg(kCatalogues, language);
  const auto texts = KorMsgCatalog::ReadFile(file.toStdString(), problems);
  for (const KorUnicodeString& problem : problems) ADD_FAILURE() << problem;
  QStringList keys;
  for (const auto& [key, text] : texts) {
    EXPECT_FALSE(text.IsEmpty()) << language << " " << key;
    keys << QString::fromStdString(key);
  }
  return keys;
}

/// The sources below a folder, one behind the other.
QString SourcesBelow(const char* folder) {
  QString sources;
  const QDir place(QString(KORVO_SOURCE_DIR "/") + folder);
  for (const QString& name : place.entryList({"*.cpp", "*.h"}, QDir::Files)) {
    QFile file(place.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    sources += QString::fromUtf8(file.readAll());
  }
  return sources;
}

/// What long operations of the server say that they are at: "Loading ...", "Computing".
QStringList ProgressWords() {
  static const QRegularExpression doing(R"re("([A-Z][a-z]+ing\b[^"]*)")re");
  QStringList words;
  for (const char* folder : {"lumira/import", "lumira/commands", "lumira/store", "lumira/engine"}) {
    auto matches = doing.globalMatch(SourcesBelow(folder));
    while (matches.hasNext()) words << matches.next().captured(1);
  }
  return words;
}

/// Keys that are put together while the program runs.
QStringList KeysPutTogether() {
  QStringList keys;
  for (const QString& command : MainWindow::CommandNames())
    keys << "Command." + command + ".Title"
         << "Command." + command + ".ShortHelp";
  for (const KorUnitSystem& system : KorGetUnitSystems()) keys << QString("Units.") + system.name;
  for (const KorCkeMagnitude_var& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    keys << "Magnitude." + QString::fromStdString(magnitude->Name());
  for (const char* theme : {"0", "1", "2"}) keys << QString("Theme.") + theme;
  for (const KorString& language : KorMsgCatalog::Languages())
    keys << "Language." + QString::fromStdString(language);
  for (const QString& word : ProgressWords()) keys << "Progress." + word;
  return keys;
}

TEST(DesktopCatalogue, HasTheSameKeysInEachLanguage) {
  const QStringList english = KeysOf("en");
  ASSERT_FALSE(english.isEmpty());
  EXPECT_EQ(english.join('\n').toStdString(), KeysOf("de").join('\n').toStdString());
}

TEST(DesktopCatalogue, HasATextForEachKeyThatIsPutTogether) {
  const QStringList keys = KeysOf("en");
  const QStringList wanted = KeysPutTogether();
  ASSERT_GT(ProgressWords().size(), 5);
  for (const QString& key : wanted) EXPECT_TRUE(keys.contains(key)) << key.toStdString();
}

TEST(DesktopCatalogue, HasNoTextThatNobodyAsksFor) {
  const QStringList together = KeysPutTogether();
  const QString sources = SourcesBelow("desktop/app");
  const QString commands = SourcesBelow("protocol");
  for (const QString& key : KeysOf("en")) {
    const bool ofCommand = key.startsWith("Busy.") && commands.contains('"' + key.mid(5) + '"');
    EXPECT_TRUE(together.contains(key) || ofCommand || sources.contains('"' + key + '"'))
        << key.toStdString();
  }
}

/// A copy of the catalogues that a test may spoil.
class SpoiltCatalogueTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    for (const char* language : {"en", "de"}) Copy(language);
    KorMsgCatalog::SetFolder(folder.filePath("catalogues").toStdString());
  }
  void TearDown() override {
    WindowTest::TearDown();
    KorMsgCatalog::SetFolder(kCatalogues);
  }
  void Copy(const QString& language) const {
    const QString target = folder.filePath("catalogues/" + language);
    ASSERT_TRUE(QDir().mkpath(target));
    const QDir source(QString(kCatalogues) + "/" + language);
    for (const QString& name : source.entryList(QDir::Files))
      ASSERT_TRUE(QFile::copy(source.filePath(name), target + "/" + name));
  }
  void Remove(const char* file) const {
    ASSERT_TRUE(QFile::remove(folder.filePath("catalogues/") + file)) << file;
  }
};

TEST_F(SpoiltCatalogueTest, AWholeOneIsNotToldOf) {
  OpenPanelOnAboveYaw();
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(SpoiltCatalogueTest, AMissingFileIsToldOfOnceWhenThePanelThatNeedsItOpens) {
  Remove("en/KorWBNymMainPanel.txt");
  OpenPanelOnAboveYaw();
  EXPECT_NE(OnlyMessage().find("en/KorWBNymMainPanel.txt"), std::string::npos) << OnlyMessage();
  window.PartPanel().Close();
  window.ShowPartPanel();
  EXPECT_EQ(boxes.Messages().size(), 1u);
}

TEST_F(SpoiltCatalogueTest, AMissingFileOfAnotherLanguageIsToldOfWhenThatIsChosen) {
  Remove("de/KorWBNymMainPanel.txt");
  OpenPanelOnAboveYaw();
  EXPECT_TRUE(boxes.Messages().empty());
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_NE(OnlyMessage().find("de/KorWBNymMainPanel.txt"), std::string::npos) << OnlyMessage();
}

TEST_F(SpoiltCatalogueTest, AMissingFolderIsToldOfWithEachFileThatWasWanted) {
  ASSERT_TRUE(QDir(folder.filePath("catalogues")).removeRecursively());
  OpenPanelOnAboveYaw();
  EXPECT_NE(OnlyMessage().find("en/KorvoDesktop.txt"), std::string::npos) << OnlyMessage();
  EXPECT_NE(OnlyMessage().find("en/KorWBNymMainPanel.txt"), std::string::npos) << OnlyMessage();
  EXPECT_EQ(boxes.Messages()[0].title, "Some texts are missing");
}

std::string QtsWordForCancel() {
  return QDialogButtonBox(QDialogButtonBox::Cancel).button(QDialogButtonBox::Cancel)->text().toStdString();
}

TEST_F(WindowTest, ALanguageIsThatOfQtsOwnButtonsToo) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(QtsWordForCancel(), "Abbrechen");
  ASSERT_TRUE(window.ChooseLanguage("en"));
  EXPECT_EQ(QtsWordForCancel(), "Cancel");
}

TEST_F(WindowTest, TheRememberedLanguageIsThatOfAllTexts) {
  settings.SetLanguage("de");
  settings.ApplyLanguage();
  EXPECT_EQ(KorMsgCatalog::GetLanguage(), "de");
  EXPECT_EQ(QtsWordForCancel(), "Abbrechen");
  window.TellCatalogueProblems();
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(WindowTest, ARememberedLanguageThatIsGoneLeavesAllTextsInTheCurrentOne) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  settings.SetLanguage("xx");
  settings.ApplyLanguage();
  EXPECT_EQ(KorMsgCatalog::GetLanguage(), "de");
  EXPECT_EQ(QtsWordForCancel(), "Abbrechen");
}

TEST_F(WindowTest, ARememberedLanguageThatIsGoneIsToldOfOnceWithItsFolder) {
  settings.SetLanguage("xx");
  settings.ApplyLanguage();
  testing::internal::CaptureStderr();
  window.TellCatalogueProblems();
  window.TellCatalogueProblems();
  const std::string missing =
      QString("The folder \"%1/xx\" of the language \"xx\" is missing.").arg(kCatalogues).toStdString();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "korvo: " + missing + "\n");
  EXPECT_EQ(OnlyMessage(), missing);
}

TEST_F(WindowTest, ALanguageIsThatOfTheServersAddressAndOfProgressToo) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(window.ServerText(), "Server: eingebaut, iea15.lumira");
  EXPECT_EQ(ProgressText("Computing"), "Es wird gerechnet");
  EXPECT_EQ(ProgressText("Something new"), "Something new");
}

}  // namespace
}  // namespace desktop::test
