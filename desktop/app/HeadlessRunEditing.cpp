// Editing in the run without a display: a part's pages in edit mode, a save, and what it changes above the
// part.
#include <QApplication>

#include "desktop/app/HeadlessRun.h"
#include "desktop/app/HistoryDialog.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"

namespace desktop {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

constexpr const char* kEdited = "bedplate";
constexpr const char* kMassType = "Calculated";
constexpr const char* kNewMass = "43000";  ///< kg
constexpr const char* kComputed = "Above_yaw";
constexpr const char* kMassTypesFrame = "TabContainer001.TabPage003.Frame107.Frame231.";
constexpr const char* kMassTypesPage = "TabPage003";
constexpr const char* kDocumentsPage = "TabPageDocuments";
constexpr const char* kChoice = "TabContainer001.TabPageDocuments.UpperMainFrameActiveDoc.FrameActiveDoc.";
constexpr const char* kRevisions = "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.";

/// What pages show that show one entry at a time.
struct ShownEntry {
  const char* page;
  std::string combo;
  const char* line;
};

const ShownEntry kShownEntries[] = {
    {kDocumentsPage, kRevisions + std::string("FrameComboDocs.DocumentsCombo"), "DOC-BEDPLATE C"},
    {"TabPageAdditional", "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.PropertyNameCombo",
     "Last weighing"},
};

Error Fail(const std::string& what) { return {ErrorKind::Internal, what}; }

}  // namespace

Result<void> HeadlessRun::EditAndSave() {
  if (auto done = ShowInPanel(kEdited); !done) return done;
  if (auto done = ShowContent(); !done) return done;
  if (auto done = SavePages("part-panel-", Pages::All); !done) return done;
  if (auto done = PressInPanel("Frame238.EditButton"); !done) return done;
  if (auto done = TypeMass(kMassType, kNewMass); !done) return done;
  if (auto done = SavePages("part-panel-edit-", Pages::All); !done) return done;
  if (auto done = SaveChoiceOfRevision(); !done) return done;
  if (auto done = PressInPanel("Frame238.SaveButton"); !done) return done;
  QApplication::processEvents();
  if (_window.PartPanel().HasUnsavedValues()) return Fail(std::string("\"") + kEdited + "\" was not saved");
  const auto values = Compute(kComputed);
  if (!values) return values.Failure();
  _values += FormatPartValues("saved", values.Value(), kComputed);
  return SaveHistory(kEdited);
}

Result<void> HeadlessRun::ShowContent() {
  for (const ShownEntry& entry : kShownEntries) {
    if (auto done = PickPage(entry.page); !done) return done;
    if (!_window.PartPanel().Panel()->Find<KorDlgCombo>(entry.combo).Pick(entry.line))
      return Fail(std::string("\"") + entry.line + "\" cannot be picked");
  }
  return {};
}

/// A revision is about to be chosen by hand; what is saved afterwards is the automatic one, as before.
Result<void> HeadlessRun::SaveChoiceOfRevision() {
  const std::string mode = kRevisions + std::string("FrameActiveDocType.");
  if (auto done = PickPage(kDocumentsPage); !done) return done;
  if (auto done = CheckInPanel(mode + "ActiveDocUsrSelButton"); !done) return done;
  if (auto done = PressInPanel(kChoice + std::string("ChangeActiveDocButton")); !done) return done;
  if (auto done = Save(_window.PartPanel().Window(), "part-panel-edit-revision.png"); !done) return done;
  if (auto done = PressInPanel(kChoice + std::string("CancelActiveDocButton")); !done) return done;
  return CheckInPanel(mode + "ActiveDocLatestButton");
}

Result<void> HeadlessRun::TypeMass(const std::string& massType, const std::string& mass) {
  if (auto done = PickPage(kMassTypesPage); !done) return done;
  KorDlgDialog& panel = *_window.PartPanel().Panel();
  if (!panel.Find<KorDlgCombo>(std::string(kMassTypesFrame) + "MassTypeCombo").Pick(massType))
    return Fail("the mass type \"" + massType + "\" cannot be picked");
  if (!panel.Find<KorDlgEditor>(std::string(kMassTypesFrame) + "MTMassEditor").Type(mass))
    return Fail("the mass cannot be typed");
  return {};
}

Result<void> HeadlessRun::PressInPanel(const std::string& button) {
  if (_window.PartPanel().Panel()->Find<KorDlgPushButton>(button).Press()) return {};
  return Fail("\"" + button + "\" cannot be pressed");
}

Result<void> HeadlessRun::SaveHistory(const std::string& part) {
  if (auto done = ShowInPanel(part); !done) return done;
  _window.ShowHistory();
  if (!_window.History()) return Fail("the history did not open");
  auto done = Save(_window.History(), "history.png");
  _window.History()->close();
  return done;
}

}  // namespace desktop
