// Every way by which typed values could be lost asks first, once, and what is kept is kept.
#include <QAction>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <algorithm>
#include <optional>

#include "desktop/app/HistoryDialog.h"
#include "desktop/app/SearchBox.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "protocol/Codec.h"
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

const std::vector<std::string> kGenerator{"nacelle.1", "Above_yaw.1", "generator.1"};

class ValuesAtRiskTest : public EditingTest {
 public:
  void SearchFor(const char* text) {
    window.Search().Edit()->setText(text);
    QTest::keyClick(window.Search().Edit(), Qt::Key_Return);
  }
  void ClickOn(const std::vector<std::string>& instancePath) {
    const QModelIndex line = window.Tree().IndexOf("IEA15", instancePath);
    QTest::mouseClick(window.TreeView().viewport(), Qt::LeftButton, {},
                      window.TreeView().visualRect(line).center());
  }
  void PressInTree(Qt::Key key) { QTest::keyClick(&window.TreeView(), key); }
  void PressInPanel(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window.PartPanel().Window(), key, modifiers);
  }
  /// Both before control is back in the event loop.
  void SelectGeneratorAndTrigger(const char* command) {
    Select(kGenerator);
    window.Command(command)->trigger();
  }
  void OpenRecentProduct() {
    for (QAction* action : window.findChildren<QAction*>())
      if (action->text() == File()) return action->trigger();
    FAIL() << "no recent product";
  }
  MainWindow& Window() { return window; }

 protected:
  void SetUp() override {
    qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
    qputenv("KORVO_SAMPLES", KORVO_SOURCE_DIR "/samples");
    EditingTest::SetUp();
  }
  void TearDown() override {
    EditingTest::TearDown();
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("KORVO_SAMPLES");
    KorApplyUnitSystem("Mixed");
  }
  void ExpectKept() {
    EXPECT_EQ(boxes.Questions().size(), 1u);
    ASSERT_TRUE(IsEditing());
    EXPECT_EQ(TextOf(kMass), "43000");
    EXPECT_EQ(CurrentInstance(), "bedplate.1");
  }
  void FailToSave() {
    ScriptedTransport server;
    Save();
  }
};

struct WayToLose {
  const char* name;
  void (*go)(ValuesAtRiskTest& test);
};
void PrintTo(const WayToLose& way, std::ostream* out) { *out << way.name; }

using Test = ValuesAtRiskTest;
const WayToLose kWays[] = {
    {"Search", [](Test& test) { test.SearchFor("generator"); }},
    {"Mouse", [](Test& test) { test.ClickOn(kGenerator); }},
    {"ArrowKey", [](Test& test) { test.PressInTree(Qt::Key_Down); }},
    {"PanelCommandOnAnotherLine", [](Test& test) { test.SelectGeneratorAndTrigger("PartPanel"); }},
    {"EnterOnAnotherLine",
     [](Test& test) {
       test.PressInTree(Qt::Key_Down);
       test.PressInTree(Qt::Key_Return);
     }},
    {"CtrlW", [](Test& test) { test.PressInPanel(Qt::Key_W, Qt::ControlModifier); }},
    {"Escape", [](Test& test) { test.PressInPanel(Qt::Key_Escape); }},
    {"WindowOfThePanel", [](Test& test) { test.Window().PartPanel().Window()->close(); }},
    {"MainWindow", [](Test& test) { test.Window().close(); }},
    {"Quit", [](Test& test) { test.Window().Command("Quit")->trigger(); }},
    {"Sample", [](Test& test) { test.Window().Command("OpenSample")->trigger(); }},
    {"RecentProduct", [](Test& test) { test.OpenRecentProduct(); }},
};

class WaysToLoseTest : public ValuesAtRiskTest, public testing::WithParamInterface<WayToLose> {};

TEST_P(WaysToLoseTest, AskOnceAndLoseNothingWhenTheUserKeepsTheValues) {
  EditMass("43000");
  boxes.answers = {kKeep};
  GetParam().go(*this);
  RunPendingEvents();
  ExpectKept();
}

TEST_P(WaysToLoseTest, LoseNothingWhenTheQuestionIsClosed) {
  EditMass("43000");
  boxes.answers = {std::nullopt};
  GetParam().go(*this);
  RunPendingEvents();
  ExpectKept();
}

TEST_P(WaysToLoseTest, GoOnWhenTheUserGivesTheValuesUp) {
  EditMass("43000");
  boxes.answers = {kGiveUp};
  GetParam().go(*this);
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_FALSE(IsEditing());
  EXPECT_FALSE(window.PartPanel().HasUnsavedValues());
}

TEST_P(WaysToLoseTest, AskNothingWithoutTypedValues) {
  GetParam().go(*this);
  RunPendingEvents();
  EXPECT_TRUE(boxes.Questions().empty());
}

INSTANTIATE_TEST_SUITE_P(Ways, WaysToLoseTest, testing::ValuesIn(kWays),
                         [](const auto& way) { return way.param.name; });

// ---- ways of their own ----

TEST_F(ValuesAtRiskTest, AnImportThatMayGoOnClosesThePanel) {
  EditMass("43000");
  boxes.answers = {kGiveUp};
  EXPECT_EQ(WorkTheImportDialog({&ImportDialog::ImportButton}), QStringList{"Imported"});
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_FALSE(window.PartPanel().IsOpen());
}

TEST_F(ValuesAtRiskTest, AnEarlierStateThatIsBroughtBackReplacesValuesThatTheUserGivesUp) {
  EditMass("42000");
  Save();
  EditMass("43000");
  constexpr int kBringBack = 0;
  boxes.answers = {kBringBack, kGiveUp};
  window.ShowHistory();
  window.History()->BeforeButton().click();
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 2u);
  EXPECT_FALSE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "42274.27441 kg");
}

TEST_F(ValuesAtRiskTest, AnotherThemeAsksNothingAndLeavesWhatWasTyped) {
  EditMass("43000");
  for (const ThemeChoice theme : {ThemeChoice::Dark, ThemeChoice::Light}) window.ChooseTheme(theme);
  RunPendingEvents();
  EXPECT_TRUE(boxes.Questions().empty());
  ASSERT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
  window.ChooseTheme(ThemeChoice::System);
}

TEST_F(ValuesAtRiskTest, AnotherThemeLeavesATextThatIsStillBeingTyped) {
  Edit();
  auto* mass = backend.ControlOf<QLineEdit>(Panel().Find(kMass));
  mass->setFocus();
  mass->selectAll();
  QTest::keyClicks(mass, "43000");
  window.ChooseTheme(ThemeChoice::Dark);
  EXPECT_EQ(mass->text(), "43000");
  window.ChooseTheme(ThemeChoice::System);
}

TEST_F(ValuesAtRiskTest, AnotherLanguageAfterAFailedSaveLeavesTheValuesAndTheQuestion) {
  EditMass("43000");
  FailToSave();
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(TextOf(kMass), "43000 kg");
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
  boxes.answers = {kKeep};
  Press("CloseButton");
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_TRUE(window.PartPanel().IsOpen());
}

TEST_F(ValuesAtRiskTest, AnotherFilterAfterAFailedSaveLeavesTheValuesAndTheQuestion) {
  EditMass("43000");
  FailToSave();
  ChooseFilter("Structure only");
  EXPECT_EQ(TextOf(kMass), "43000 kg");
  EXPECT_TRUE(window.PartPanel().HasUnsavedValues());
  boxes.answers = {kKeep};
  Select(kGenerator);
  RunPendingEvents();
  EXPECT_EQ(boxes.Questions().size(), 1u);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  ChooseFilter("No Filter");
}

// ---- one question at a time, on the screen ----

/// Real boxes instead of recorded ones, while it lives.
class BoxesOnScreen {
 public:
  BoxesOnScreen(MainWindow& window, KorDlgBackend& recorded) : _recorded(recorded) {
    _screen.SetMainWindow(&window);
    KorApplicationFrame::SetBackend(&_screen);
    // Each question is answered from within its own event loop, a while after it came up.
    QObject::connect(&_answerer, &QTimer::timeout, &window, [this] { Answer(); });
    _answerer.start(kPause);
  }
  ~BoxesOnScreen() { KorApplicationFrame::SetBackend(&_recorded); }

  /// What is done with the question in front.
  std::function<void(QMessageBox& box)> answer = [](QMessageBox& box) { box.close(); };
  /// What happens while the first question is open.
  std::function<void()> meanwhile;
  int asked = 0;
  qsizetype mostAtOnce = 0;

 private:
  static constexpr int kPause = 20;  ///< milliseconds

  void Answer() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    const auto windows = QApplication::topLevelWidgets();
    mostAtOnce = std::max<qsizetype>(mostAtOnce, std::ranges::count_if(windows, [](QWidget* window) {
                                       return qobject_cast<QMessageBox*>(window) && window->isVisible();
                                     }));
    if (meanwhile) return std::exchange(meanwhile, nullptr)();
    ++asked;
    answer(*box);
  }

  KorDlgBackend& _recorded;
  QtBackend _screen;
  QTimer _answerer;
};

void Click(QMessageBox& box, const char* answer) {
  for (QAbstractButton* button : box.buttons())
    if (button->text() == answer) return button->click();
  ADD_FAILURE() << "no answer " << answer;
}

TEST_F(ValuesAtRiskTest, TwoChangesOfTheSelectionThatWaitAskOnceAndKeepKeeps) {
  EditMass("43000");
  BoxesOnScreen screen(window, backend);
  screen.answer = [](QMessageBox& box) { Click(box, "Keep editing"); };
  Select(kGenerator);
  Select({"nacelle.1", "yaw.1"});
  RunPendingEvents();
  EXPECT_EQ(screen.asked, 1);
  EXPECT_EQ(screen.mostAtOnce, 1);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  ASSERT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(ValuesAtRiskTest, AChangeOfTheSelectionWhileTheQuestionIsOpenAsksNoSecondOne) {
  EditMass("43000");
  BoxesOnScreen screen(window, backend);
  screen.meanwhile = [this] { Select({"nacelle.1", "yaw.1"}); };
  screen.answer = [](QMessageBox& box) { Click(box, "Keep editing"); };
  Select(kGenerator);
  RunPendingEvents();
  EXPECT_EQ(screen.asked, 1);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  EXPECT_EQ(TextOf(kMass), "43000");
}

TEST_F(ValuesAtRiskTest, ThePanelDoesNotCloseBehindAnOpenQuestion) {
  EditMass("43000");
  BoxesOnScreen screen(window, backend);
  screen.meanwhile = [this] { Press("CloseButton"); };
  screen.answer = [](QMessageBox& box) { Click(box, "Keep editing"); };
  Select(kGenerator);
  RunPendingEvents();
  EXPECT_EQ(screen.asked, 1);
  EXPECT_EQ(screen.mostAtOnce, 1);
  ASSERT_TRUE(IsEditing());
}

TEST_F(ValuesAtRiskTest, AChangeOfTheSelectionThatWaitsAsksNothingOnTopOfTheQuestionOfASave) {
  EditMass("about 3");
  BoxesOnScreen screen(window, backend);
  Select(kGenerator);
  Press("SaveButton");
  RunPendingEvents();
  EXPECT_EQ(screen.asked, 1);
  EXPECT_EQ(screen.mostAtOnce, 1);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
  ASSERT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "about 3");
}

TEST_F(ValuesAtRiskTest, TwoChangesOfTheSelectionThatMayGoShowTheLastOne) {
  EditMass("43000");
  BoxesOnScreen screen(window, backend);
  screen.answer = [](QMessageBox& box) { Click(box, "Give it up"); };
  Select({"nacelle.1", "yaw.1"});
  Select(kGenerator);
  RunPendingEvents();
  EXPECT_EQ(screen.asked, 1);
  EXPECT_FALSE(IsEditing());
  EXPECT_NE(TextOf("Frame012.SelectionEditor").find("generator.1"), std::string::npos);
}

TEST_F(ValuesAtRiskTest, TheNextChangeOfTheSelectionAsksAgain) {
  EditMass("43000");
  boxes.answers = {kKeep, kKeep};
  for (int round = 0; round < 2; ++round) {
    Select(kGenerator);
    RunPendingEvents();
  }
  EXPECT_EQ(boxes.Questions().size(), 2u);
  EXPECT_EQ(CurrentInstance(), "bedplate.1");
}

TEST_F(ValuesAtRiskTest, TheCloseButtonOfTheQuestionKeepsTheValues) {
  EditMass("43000");
  BoxesOnScreen screen(window, backend);
  Press("CloseButton");
  RunPendingEvents();
  EXPECT_EQ(screen.asked, 1);
  ASSERT_TRUE(IsEditing());
  EXPECT_EQ(TextOf(kMass), "43000");
}

// ---- a panel that cannot be bound ----

TEST_F(ValuesAtRiskTest, APanelThatCouldNotBeBoundUnderAFilterIsBoundUnderItAfterTheNextCompute) {
  const auto shownFilter = [this] {
    return TextOf("Frame250.AdditionalFrame1.ConfigHandler.ConfigHandlerEditor");
  };
  {
    KorPdmTransport* real = KorPdmClient::GetTransport();
    ScriptedTransport server;
    server.answer = [real](const std::string& command, const std::string& request) {
      std::string reply = real->Run(command, request);
      if (command != "WBGetPartData") return reply;
      auto data = protocol::ReadPartData(reply).Value();
      data.massTypes.push_back(data.massTypes.front());  // a buffer takes no mass type twice
      return protocol::WritePartData(data);
    };
    ChooseFilter("Structure only");
    ASSERT_FALSE(boxes.Messages().empty());
    ASSERT_EQ(shownFilter().find("Structure only"), std::string::npos);
  }
  window.Compute();
  RunPendingEvents();
  EXPECT_NE(shownFilter().find("Structure only"), std::string::npos) << shownFilter();
  ChooseFilter("No Filter");
}

}  // namespace
}  // namespace desktop::test
