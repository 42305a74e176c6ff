// Editing in the run without a display: a part's pages in edit mode, a save, and what it changes above the
// part.
#include <QApplication>

#include "desktop/app/HeadlessRun.h"
#include "desktop/app/HistoryDialog.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgTabContainer.h"

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
constexpr int kMassTypesPage = 1;

Error Fail(const std::string& what) { return {ErrorKind::Internal, what}; }

}  // namespace

Result<void> HeadlessRun::EditAndSave() {
  if (auto done = ShowInPanel(kEdited); !done) return done;
  if (auto done = SavePages("part-panel-"); !done) return done;
  if (auto done = PressInPanel("EditButton"); !done) return done;
  if (auto done = TypeMass(kMassType, kNewMass); !done) return done;
  if (auto done = SavePages("part-panel-edit-"); !done) return done;
  if (auto done = PressInPanel("SaveButton"); !done) return done;
  QApplication::processEvents();
  if (_window.PartPanel().HasUnsavedValues()) return Fail(std::string("\"") + kEdited + "\" was not saved");
  const auto values = Compute(kComputed);
  if (!values) return values.Failure();
  _values += FormatPartValues("saved", values.Value(), kComputed);
  return SaveHistory(kEdited);
}

Result<void> HeadlessRun::TypeMass(const std::string& massType, const std::string& mass) {
  KorDlgDialog& panel = *_window.PartPanel().Panel();
  if (!panel.Find<KorDlgTabContainer>("TabContainer001").Pick(kMassTypesPage))
    return Fail("the page of mass types cannot be picked");
  if (!panel.Find<KorDlgCombo>(std::string(kMassTypesFrame) + "MassTypeCombo").Pick(massType))
    return Fail("the mass type \"" + massType + "\" cannot be picked");
  if (!panel.Find<KorDlgEditor>(std::string(kMassTypesFrame) + "MTMassEditor").Type(mass))
    return Fail("the mass cannot be typed");
  return {};
}

Result<void> HeadlessRun::PressInPanel(const std::string& button) {
  if (_window.PartPanel().Panel()->Find<KorDlgPushButton>("Frame238." + button).Press()) return {};
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
