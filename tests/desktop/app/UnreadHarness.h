#pragma once

#include <QAccessible>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <algorithm>
#include <optional>

#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {

inline constexpr const char* kUpper =
    "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor";
inline constexpr const char* kPrecision = "TabContainer001.TabPage005.Frame252.Frame092.TypeCombo";
inline constexpr const char* kValueType =
    "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";
inline constexpr const char* kDensity = "TabContainer001.TabPage004.MaterialAndDensityFrame.DensityEditor";
inline constexpr const char* kFirst = "TabContainer001.TabPage004.DensityPriorityFrame.FirstCombo";
inline constexpr const char* kIxy = "TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIxyEditor";

inline constexpr const char* kMassOfType = "TabContainer001.TabPage003.Frame107.Frame231.MTMassEditor";
inline constexpr const char* kCentreX = "TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGxEditor";

/// The part panel on the bedplate, with texts that it cannot read as they stand.
class UnreadTextsTest : public EditingTest {
 protected:
  enum SaveAnswer { kSaveAllTheSame = 0, kBack = 1 };

  void SetUp() override {
    EditingTest::SetUp();
    real = KorPdmClient::GetTransport();
    server.emplace();
    server->answer = [this](const std::string& command, const std::string& request) {
      return real->Run(command, request);
    };
  }
  void TearDown() override {
    server.reset();
    EditingTest::TearDown();
  }

  QLineEdit* Line(const char* editor) { return backend.ControlOf<QLineEdit>(Panel().Find(editor)); }
  QTabWidget* Tabs() { return backend.ControlOf<QTabWidget>(Panel().Find("TabContainer001")); }
  KorDlgTabContainer& Pages() { return Panel().Find<KorDlgTabContainer>("TabContainer001"); }
  /// Leaves the text pending in the editor, with the focus there.
  void TypeByKeys(const char* editor, const char* text) {
    Line(editor)->setFocus();
    Line(editor)->selectAll();
    QTest::keyClicks(Line(editor), text);
  }
  void SaveByKeys() {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    RunPendingEvents();
  }
  void DefineBounds(int valueType) {
    GoTo(kPrecisionPage);
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kPrecision).Pick(1));
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kValueType).Pick(valueType));
  }
  void TypeDensity(const std::string& text) {
    GoTo(kMaterialPage);
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kFirst).Pick("WB"));
    Type(kDensity, text);
  }
  /// What the only question so far says of the texts: its lines behind the first two.
  std::string Told() {
    EXPECT_EQ(boxes.Questions().size(), 1u);
    if (boxes.Questions().empty()) return {};
    return ToStd(QString::fromStdString(boxes.Questions()[0].text.Utf8()).section('\n', 2));
  }
  static std::string ToStd(const QString& text) { return text.toStdString(); }
  bool WasSent(const char* command) const {
    return std::ranges::find(server->commands, command) != server->commands.end();
  }
  std::string TabName(int page) {
    QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(Tabs()->tabBar());
    return bar->child(page)->text(QAccessible::Name).toStdString();
  }
  const LumWBAllDataBuffer& Buffer() { return *window.PartPanel().Buffer(); }

  KorPdmTransport* real = nullptr;
  std::optional<ScriptedTransport> server;
};

}  // namespace desktop::test
