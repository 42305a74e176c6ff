// Tracing: which components, where to, and the dialog that chooses.
#include <QCheckBox>
#include <QFile>
#include <QLineEdit>
#include <QRadioButton>
#include <QTimer>
#include <sstream>

#include "desktop/app/Tracing.h"
#include "desktop/app/TracingDialog.h"
#include "framework/system/TqTrace.h"
#include "tests/desktop/app/WindowHarness.h"

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
