// Tracing: which components, where to, and the dialog that chooses.
#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>
#include <functional>
#include <sstream>

#include "desktop/app/Tracing.h"
#include "desktop/app/TracingDialog.h"
#include "framework/system/TqTrace.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

bool IsOn(const char* component) {
  int status = 0;
  std::ostringstream swallowed;
  TqTrace::SetOutput(&swallowed);
  const bool on = TqTrace(component, "f()", "", "", "C::f", status).TraceOn();
  TqTrace::SetOutput(nullptr);
  return on;
}

void Trace(const char* component) {
  int status = 0;
  const TqTrace trace(component, "f()", "Jan  1 2025", "00:00:00", "C::f", status);
}

QString TextOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return QString::fromUtf8(file.readAll());
}

class TracingTest : public WindowTest {
 protected:
  void TearDown() override {
    qunsetenv("KORVO_TRACE");
    qunsetenv("KORVO_TRACE_FILE");
    WindowTest::TearDown();
  }
  /// Opens the dialog by its command and works it; it is cancelled when that leaves it open.
  static void WorkTheDialog(MainWindow& of, const std::function<void(TracingDialog&)>& work) {
    QTimer::singleShot(0, &of, [&work] {
      auto* dialog = dynamic_cast<TracingDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      work(*dialog);
      if (dialog->isVisible()) dialog->reject();
    });
    of.Command("Tracing")->trigger();
  }
  QString Log() const { return folder.filePath("trace.log"); }
};

TEST_F(TracingTest, IsOffByDefault) {
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), TraceChoice());
  for (const KorString& component : TqTrace::GetComponents())
    EXPECT_FALSE(IsOn(component.c_str())) << component;
}

TEST_F(TracingTest, KnowsTheComponentsOfTheModule) {
  EXPECT_EQ(Tracing::Components(),
            (QStringList{"KorWBCompGroup", "KorWBCompPart", "KorWBNymNavReportPanel"}));
}

TEST_F(TracingTest, TracesTheChosenComponentsOnly) {
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, ""}).Ok());
  EXPECT_TRUE(IsOn("KorWBCompPart"));
  EXPECT_FALSE(IsOn("KorWBCompGroup"));
  ASSERT_TRUE(tracing.Apply({{"KorWBCompGroup"}, ""}).Ok());
  EXPECT_FALSE(IsOn("KorWBCompPart"));
  EXPECT_TRUE(IsOn("KorWBCompGroup"));
}

TEST_F(TracingTest, AllStandsForEachComponentThoseToComeIncluded) {
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{"all"}, ""}).Ok());
  EXPECT_TRUE(IsOn("KorWBCompPart"));
  EXPECT_TRUE(IsOn("OfALibraryThatIsYetToCome"));
}

TEST_F(TracingTest, IsOffAgainWhenItGoes) {
  { ASSERT_TRUE(Tracing().Apply({{"all"}, ""}).Ok()); }
  EXPECT_FALSE(IsOn("KorWBCompPart"));
}

TEST_F(TracingTest, WritesBehindWhatAFileHas) {
  for (int i = 0; i < 2; ++i) {
    Tracing tracing;
    ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, Log()}).Ok());
    Trace("KorWBCompPart");
    Trace("KorWBCompGroup");
  }
  EXPECT_EQ(TextOf(Log()).count("-> C::f [KorWBCompPart, f(), built Jan  1 2025 00:00:00]"), 2);
  EXPECT_FALSE(TextOf(Log()).contains("KorWBCompGroup"));
}

TEST_F(TracingTest, AFileThatCannotBeOpenedIsToldOfAndChangesNothing) {
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{"KorWBCompGroup"}, Log()}).Ok());
  const auto applied = tracing.Apply({{"KorWBCompPart"}, folder.filePath("none/trace.log")});
  ASSERT_FALSE(applied.Ok());
  EXPECT_NE(applied.Failure().message.find("none/trace.log"), std::string::npos);
  Trace("KorWBCompGroup");
  EXPECT_EQ(tracing.Choice(), (TraceChoice{{"KorWBCompGroup"}, Log()}));
  EXPECT_TRUE(tracing.Apply({}).Ok());  // closes the file
  EXPECT_TRUE(TextOf(Log()).contains("KorWBCompGroup"));
}

TEST_F(TracingTest, AFileIsNotMadeWhileNothingIsTraced) {
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{}, Log()}).Ok());
  EXPECT_FALSE(QFile::exists(Log()));
}

TEST_F(TracingTest, TheEnvironmentCountsBeforeTheSettings) {
  settings.SetTracing({"KorWBCompGroup"}, "remembered.log");
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), (TraceChoice{{"KorWBCompGroup"}, "remembered.log"}));
  qputenv("KORVO_TRACE", "KorWBCompPart, KorWBNymNavReportPanel");
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), (TraceChoice{{"KorWBCompPart", "KorWBNymNavReportPanel"}, ""}));
  qputenv("KORVO_TRACE_FILE", "asked.log");
  EXPECT_EQ(Tracing::ChoiceAtStart(settings).file, "asked.log");
  qputenv("KORVO_TRACE", "");
  EXPECT_TRUE(Tracing::ChoiceAtStart(settings).components.isEmpty());
  EXPECT_EQ(settings.TracedComponents(), QStringList{"KorWBCompGroup"});
}

TEST_F(TracingTest, AWindowTracesFromItsStartAsTheSettingsSay) {
  settings.SetTracing({"KorWBCompPart"}, Log());
  {
    MainWindow traced(settings, backend);
    traced.show();
    ASSERT_TRUE(traced.OpenProduct(File()));
    traced.ShowPartPanel();
    ASSERT_TRUE(traced.PartPanel().Compute());
  }
  EXPECT_TRUE(
      TextOf(Log()).contains("-> KorWBNymMainPanel::OnComputeNotification [KorWBCompPart, "
                             "OnComputeNotification(), built "));
}

TEST_F(TracingTest, AFileThatCannotBeOpenedIsToldOfAtTheStart) {
  settings.SetTracing({"KorWBCompPart"}, folder.filePath("none/trace.log"));
  MainWindow traced(settings, backend);
  traced.TellStartProblems();
  EXPECT_NE(OnlyMessage().find("none/trace.log"), std::string::npos) << OnlyMessage();
}

TEST_F(TracingTest, AComponentThatThereIsNotIsToldOfWithItsPlaceAndThoseThatThereAre) {
  qputenv("KORVO_TRACE", "KorWBComPart,KorWBCompGroup");
  MainWindow traced(settings, backend);
  traced.TellStartProblems();
  EXPECT_EQ(OnlyMessage(),
            "KORVO_TRACE names what is no component that can be traced: KorWBComPart. There are: "
            "KorWBCompGroup, KorWBCompPart, KorWBNymNavReportPanel.");
  EXPECT_TRUE(IsOn("KorWBCompGroup")) << "the others are traced";
}

TEST_F(TracingTest, ARememberedComponentThatThereIsNotIsToldOf) {
  settings.SetTracing({"KorWBComPart"}, "");
  MainWindow traced(settings, backend);
  traced.TellStartProblems();
  EXPECT_TRUE(OnlyMessage().starts_with("The remembered choice of tracing names")) << OnlyMessage();
}

TEST_F(TracingTest, AllIsNoUnknownComponent) {
  EXPECT_EQ(Tracing::UnknownAtStart({{"all", "KorWBCompPart"}, ""}), "");
}

TEST_F(TracingTest, ATraceThatCannotBeWrittenIsToldOfOnceWithFileAndReason) {
  settings.SetTracing({"all"}, "/dev/full");
  MainWindow traced(settings, backend);
  traced.show();
  ASSERT_TRUE(traced.OpenProduct(File()));
  traced.ShowPartPanel();
  ASSERT_TRUE(traced.PartPanel().Compute());
  RunPendingEvents();
  ASSERT_TRUE(traced.PartPanel().Compute());
  RunPendingEvents();
  EXPECT_EQ(
      OnlyMessage(),
      "Something of the trace could not be written to \"/dev/full\" and is lost: No space left on device");
}

TEST_F(TracingTest, TheLossOfATraceIsToldOfWhenAnotherFileTakesItsPlace) {
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, "/dev/full"}).Ok());
  Trace("KorWBCompPart");
  ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, Log()}).Ok());
  EXPECT_FALSE(tracing.CheckWritten().Ok());
  EXPECT_TRUE(tracing.CheckWritten().Ok()) << "once";
}

TEST_F(TracingTest, TheLossOfTheLastLinesIsSaidOnStandardError) {
  ::testing::internal::CaptureStderr();
  {
    Tracing tracing;
    ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, "/dev/full"}).Ok());
    Trace("KorWBCompPart");
  }
  EXPECT_NE(::testing::internal::GetCapturedStderr().find("/dev/full"), std::string::npos);
}

TEST_F(TracingTest, OKWithoutAChangeRemembersNothingOfTheEnvironment) {
  settings.SetTracing({"KorWBCompGroup"}, "remembered.log");
  for (const char* asked : {"all", ""}) {
    qputenv("KORVO_TRACE", asked);
    MainWindow traced(settings, backend);
    QTimer::singleShot(0, &traced, [] {
      auto* dialog = dynamic_cast<TracingDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      dialog->accept();
    });
    traced.Command("Tracing")->trigger();
    EXPECT_EQ(settings.TracedComponents(), QStringList{"KorWBCompGroup"}) << asked;
    EXPECT_EQ(settings.TraceFile(), "remembered.log") << asked;
    EXPECT_EQ(IsOn("OfALibraryThatIsYetToCome"), std::string(asked) == "all");
  }
}

TEST_F(TracingTest, OnlyWhatTheUserChangesIsRememberedUnderAnEnvironment) {
  settings.SetTracing({"KorWBCompGroup"}, "remembered.log");
  qputenv("KORVO_TRACE_FILE", Log().toUtf8());
  MainWindow traced(settings, backend);
  QTimer::singleShot(0, &traced, [] {
    auto* dialog = dynamic_cast<TracingDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->ComponentBox("KorWBCompPart")->setChecked(true);
    dialog->accept();
  });
  traced.Command("Tracing")->trigger();
  EXPECT_EQ(settings.TracedComponents(), (QStringList{"KorWBCompGroup", "KorWBCompPart"}));
  EXPECT_EQ(settings.TraceFile(), "remembered.log");
}

TEST_F(TracingTest, AFileThatCouldNotBeOpenedAtTheStartIsShownWithItsComponentsAndToldOfAgain) {
  settings.SetTracing({"KorWBCompPart"}, folder.filePath("none/trace.log"));
  MainWindow traced(settings, backend);
  WorkTheDialog(traced, [&](TracingDialog& dialog) {
    EXPECT_TRUE(dialog.ComponentBox("KorWBCompPart")->isChecked());
    EXPECT_EQ(dialog.FileEdit()->text(), folder.filePath("none/trace.log"));
    dialog.accept();
    EXPECT_TRUE(dialog.ProblemText().contains("none/trace.log")) << dialog.ProblemText().toStdString();
    dialog.ConsoleButton()->setChecked(true);
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
  });
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), (TraceChoice{{"KorWBCompPart"}, ""})) << "no longer the file";
  EXPECT_TRUE(IsOn("KorWBCompPart"));
}

TEST_F(TracingTest, AnotherComponentIsNotRememberedWithAFileThatCannotBeOpened) {
  settings.SetTracing({"KorWBCompPart"}, folder.filePath("none/trace.log"));
  MainWindow traced(settings, backend);
  WorkTheDialog(traced, [](TracingDialog& dialog) {
    dialog.ComponentBox("KorWBCompGroup")->setChecked(true);
    dialog.accept();
    EXPECT_NE(dialog.result(), QDialog::Accepted);
    dialog.ConsoleButton()->setChecked(true);
    dialog.accept();
  });
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), (TraceChoice{{"KorWBCompGroup", "KorWBCompPart"}, ""}));
}

TEST_F(TracingTest, OKForgetsARememberedComponentThatThereIsNot) {
  settings.SetTracing({"KorWBComPart", "KorWBCompGroup"}, "");
  MainWindow traced(settings, backend);
  WorkTheDialog(traced, [](TracingDialog& dialog) { dialog.accept(); });
  EXPECT_EQ(settings.TracedComponents(), QStringList{"KorWBCompGroup"});
  EXPECT_EQ(Tracing::UnknownAtStart(Tracing::ChoiceAtStart(settings)), "");
}

TEST_F(TracingTest, OKWithoutAChangeOpensTheFileAgainAfterALoss) {
  // What the file's name leads to is full at first, and has room later.
  ASSERT_TRUE(QFile::link("/dev/full", Log()));
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, Log()}).Ok());
  Trace("KorWBCompPart");
  EXPECT_FALSE(tracing.CheckWritten().Ok());
  ASSERT_TRUE(QFile::remove(Log()));
  TracingDialog(tracing).accept();
  Trace("KorWBCompPart");
  EXPECT_TRUE(tracing.CheckWritten().Ok());
  EXPECT_TRUE(tracing.Apply({}).Ok());  // closes the file
  EXPECT_TRUE(TextOf(Log()).contains("-> C::f [KorWBCompPart")) << TextOf(Log()).toStdString();
}

TEST_F(TracingTest, EmptyNamesBetweenCommasAreNoComponents) {
  for (const char* asked : {"KorWBCompGroup, ", " ,KorWBCompGroup,,", "KorWBCompGroup , "}) {
    qputenv("KORVO_TRACE", asked);
    const TraceChoice choice = Tracing::ChoiceAtStart(settings);
    EXPECT_EQ(choice.components, QStringList{"KorWBCompGroup"}) << asked;
    EXPECT_EQ(Tracing::UnknownAtStart(choice), "") << asked;
  }
  qputenv("KORVO_TRACE", " ");
  MainWindow traced(settings, backend);
  traced.TellStartProblems();
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_FALSE(IsOn("KorWBCompPart"));
}

TEST_F(TracingTest, ARememberedEmptyNameTracesNothing) {
  settings.SetTracing({""}, "");
  MainWindow traced(settings, backend);
  EXPECT_FALSE(IsOn("KorWBCompPart"));
}

TEST_F(TracingTest, ItsMessagesAreInTheCurrentLanguage) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  Tracing tracing;
  const auto applied = tracing.Apply({{"KorWBCompPart"}, "/none/trace.log"});
  ASSERT_FALSE(applied.Ok());
  EXPECT_TRUE(QString::fromStdString(applied.Failure().message)
                  .startsWith(QString::fromUtf8("Die Protokolldatei „/none/trace.log“")))
      << applied.Failure().message;
}

TEST_F(TracingTest, TheDialogHasACheckForEachComponentAndShowsWhatIsOn) {
  Tracing tracing;
  ASSERT_TRUE(tracing.Apply({{"KorWBCompPart"}, Log()}).Ok());
  const TracingDialog dialog(tracing);
  for (const QString& component : Tracing::Components()) {
    ASSERT_NE(dialog.ComponentBox(component), nullptr) << component.toStdString();
    EXPECT_EQ(dialog.ComponentBox(component)->isChecked(), component == "KorWBCompPart");
  }
  EXPECT_TRUE(dialog.FileButton()->isChecked());
  EXPECT_EQ(dialog.FileEdit()->text(), Log());
}

TEST_F(TracingTest, TheFileCanBeNamedOnlyWhenAFileIsChosen) {
  Tracing tracing;
  const TracingDialog dialog(tracing);
  EXPECT_TRUE(dialog.ConsoleButton()->isChecked());
  EXPECT_FALSE(dialog.FileEdit()->isEnabled());
  dialog.FileButton()->setChecked(true);
  EXPECT_TRUE(dialog.FileEdit()->isEnabled());
}

TEST_F(TracingTest, EnterOnTheButtonThatChoosesAFileDoesNotPressOK) {
  Tracing tracing;
  TracingDialog dialog(tracing);
  dialog.FileButton()->setChecked(true);
  dialog.show();
  QApplication::setActiveWindow(&dialog);
  dialog.FileEdit()->setFocus();
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  auto* choose = qobject_cast<QPushButton*>(QApplication::focusWidget());
  ASSERT_NE(choose, nullptr);
  int chosen = 0;
  QObject::connect(choose, &QPushButton::clicked, [&] { ++chosen; });
  QTest::keyClick(choose, Qt::Key_Return);
  EXPECT_EQ(chosen, 1);
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(dialog.ProblemText(), "") << "OK has not been pressed";
}

TEST_F(TracingTest, TheDialogStaysOpenAndSaysWhyWithoutAFileThatCanBeWritten) {
  Tracing tracing;
  TracingDialog dialog(tracing);
  dialog.ComponentBox("KorWBCompPart")->setChecked(true);
  dialog.FileButton()->setChecked(true);
  dialog.accept();
  EXPECT_EQ(dialog.ProblemText(), "Name the file first.");
  dialog.FileEdit()->setText(folder.filePath("none/trace.log"));
  dialog.accept();
  EXPECT_TRUE(dialog.ProblemText().contains("none/trace.log")) << dialog.ProblemText().toStdString();
  EXPECT_NE(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(tracing.Choice(), TraceChoice());
}

TEST_F(TracingTest, WhatTheDialogChoosesIsRemembered) {
  QTimer::singleShot(0, &window, [this] {
    auto* dialog = dynamic_cast<TracingDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->ComponentBox("KorWBCompPart")->setChecked(true);
    dialog->FileButton()->setChecked(true);
    dialog->FileEdit()->setText(Log());
    dialog->accept();
  });
  window.Command("Tracing")->trigger();
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), (TraceChoice{{"KorWBCompPart"}, Log()}));
  EXPECT_TRUE(IsOn("KorWBCompPart"));
}

TEST_F(TracingTest, ADialogThatIsCancelledChangesNothing) {
  QTimer::singleShot(0, &window, [] {
    auto* dialog = dynamic_cast<TracingDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    dialog->ComponentBox("KorWBCompPart")->setChecked(true);
    dialog->reject();
  });
  window.Command("Tracing")->trigger();
  EXPECT_EQ(Tracing::ChoiceAtStart(settings), TraceChoice());
  EXPECT_FALSE(IsOn("KorWBCompPart"));
}

}  // namespace
}  // namespace desktop::test
