#pragma once

#include <QApplication>
#include <QTest>
#include <QTreeView>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "protocol/Codec.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {

/// The part panel on the bedplate of the sample, whose mass type "Calculated" can be typed.
class EditingTest : public WindowTest {
 protected:
  static constexpr const char* kMassTypes = "TabContainer001.TabPage003.";
  static constexpr const char* kMass = "TabContainer001.TabPage003.Frame107.Frame231.MTMassEditor";
  static constexpr const char* kCGx = "TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGxEditor";
  static constexpr const char* kChoice =
      "TabContainer001.TabPageDocuments.UpperMainFrameActiveDoc.FrameActiveDoc.";
  static constexpr const char* kByHand =
      "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameActiveDocType.ActiveDocUsrSelButton";
  static constexpr const char* kPropertyName =
      "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.PropertyNameCombo";
  static constexpr const char* kPropertyValue =
      "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.PropertyValueEditor";
  enum Page { kResultsPage, kMassTypesPage, kMaterialPage, kPrecisionPage, kDocumentsPage, kPropertiesPage };
  enum Answer { kGiveUp = 0, kKeep = 1 };

  void SetUp() override {
    qputenv("USER", "eva");
    WindowTest::SetUp();
    OpenPanelOnBedplate();
  }
  void TearDown() override {
    WindowTest::TearDown();
    qunsetenv("USER");
  }

  void OpenPanelOnBedplate() {
    Select({"nacelle.1", "Above_yaw.1", "bedplate.1"});
    window.ShowPartPanel();
    ASSERT_TRUE(window.PartPanel().IsOpen());
    RunPendingEvents();
    QApplication::setActiveWindow(window.PartPanel().Window());
  }
  void GoTo(Page page) { ASSERT_TRUE(Panel().Find<KorDlgTabContainer>("TabContainer001").Pick(page)); }
  bool Press(const char* button) {
    return Panel().Find<KorDlgPushButton>(std::string("Frame238.") + button).Press();
  }
  /// Presses Edit with the mass type "Calculated" shown on its page.
  void Edit() {
    GoTo(kMassTypesPage);
    ASSERT_TRUE(Panel()
                    .Find<KorDlgCombo>("TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo")
                    .Pick("Calculated"));
    ASSERT_TRUE(Press("EditButton"));
  }
  void Type(const char* editor, const std::string& text) {
    ASSERT_TRUE(Panel().Find<KorDlgEditor>(editor).Type(text)) << editor;
  }
  void EditMass(const std::string& text) {
    Edit();
    Type(kMass, text);
  }
  bool PressChoice(const char* button) {
    return Panel().Find<KorDlgPushButton>(std::string(kChoice) + button).Press();
  }
  /// A revision of the bedplate's document chosen by hand, in edit mode.
  void ChooseRevision(const std::string& revision) {
    GoTo(kDocumentsPage);
    ASSERT_TRUE(Panel().Find<KorDlgRadioButton>(kByHand).Check());
    ASSERT_TRUE(PressChoice("ChangeActiveDocButton"));
    ASSERT_TRUE(Panel()
                    .Find<KorDlgCombo>(std::string(kChoice) + "ActiveDocsCombo")
                    .Pick(KorUnicodeString("DOC-BEDPLATE " + revision)));
    ASSERT_TRUE(PressChoice("ApplyActiveDocButton"));
  }
  void ShowProperty(const char* name) {
    GoTo(kPropertiesPage);
    ASSERT_TRUE(Panel().Find<KorDlgCombo>(kPropertyName).Pick(name)) << name;
  }
  void EditProperty(const char* name, const std::string& text) {
    ShowProperty(name);
    Type(kPropertyValue, text);
  }
  void Save() {
    ASSERT_TRUE(Press("SaveButton"));
    RunPendingEvents();
  }
  std::string TextOf(const char* editor) { return Panel().Find<KorDlgEditor>(editor).GetText().Utf8(); }
  std::string MarkOf(const char* editor) { return Panel().Find<KorDlgEditor>(editor).GetMarking().Utf8(); }
  bool IsEditing() { return window.PartPanel().IsOpen() && IsInEditMode(Panel()); }
  /// How the computed values of an occurrence stand, as the tree shows it.
  std::string StatusAt(const std::vector<std::string>& instancePath) {
    const QModelIndex line = window.Tree().IndexOf("IEA15", instancePath);
    return line.siblingAtColumn(ProductTreeModel::Status).data().toString().toStdString();
  }
  void ComputeAt(const std::vector<std::string>& instancePath) {
    Select(instancePath);
    RunPendingEvents();
    window.Compute();
    RunPendingEvents();
  }
  /// A part as the server would send it now.
  std::string StoredPart(const std::string& part = "bedplate") {
    protocol::PartDataRequest request;
    request.partId = part;
    return window.Session().Transport().Run("WBGetPartData", protocol::WritePartDataRequest(request));
  }
  std::string CurrentInstance() {
    return window.TreeView()
        .currentIndex()
        .siblingAtColumn(ProductTreeModel::Instance)
        .data()
        .toString()
        .toStdString();
  }
};

}  // namespace desktop::test
