// Editing in the run without a display: a part's pages in edit mode, a save, and what it changes above the
// part.
#include <QApplication>
#include <QTimer>
#include <algorithm>

#include "desktop/app/HeadlessRun.h"
#include "desktop/app/HistoryDialog.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/toolkit/QtBoxes.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "protocol/ValueLines.h"

namespace desktop {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

constexpr const char* kEdited = "bedplate";
constexpr const char* kMassType = "Calculated";
constexpr const char* kNewMass = "43000";  ///< kg
constexpr const char* kChangedField = "massTypes[Calculated].mass";
constexpr const char* kComputed = "Above_yaw";
/// Above that, so that the tree has results of each that the save makes out of date.
constexpr const char* kAbove[] = {"RNA", "nacelle", kComputed};
constexpr const char* kSave = "Frame238.SaveButton";
constexpr const char* kCGx = "TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGxEditor";
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
  for (const char* part : kAbove)
    if (const auto values = Compute(part); !values) return values.Failure();
  if (auto done = ComputeInPanel(kEdited); !done) return done;
  if (auto done = ShowContent(); !done) return done;
  if (auto done = SavePages("part-panel-", Pages::All, Looks::AsItIs); !done) return done;
  if (auto done = PressInPanel("Frame238.EditButton"); !done) return done;
  if (auto done = TypeMass(kMassType, kNewMass); !done) return done;
  if (auto done = SavePages("part-panel-edit-", Pages::All, Looks::All); !done) return done;
  if (auto done = SaveChoiceOfRevision(); !done) return done;
  if (auto done = SaveMark(); !done) return done;
  if (auto done = PressInPanel(kSave); !done) return done;
  QApplication::processEvents();
  if (_window.PartPanel().HasUnsavedValues()) return Fail(std::string("\"") + kEdited + "\" was not saved");
  if (auto done = SaveLooks(&_window, "window-saved"); !done) return done;
  return SaveConsequences();
}

/// What the save has changed: of the part, and of the assembly above it.
Result<void> HeadlessRun::SaveConsequences() {
  if (auto done = TellChange(); !done) return done;
  for (const char* part : {kEdited, kComputed}) {
    const auto values = Compute(part);
    if (!values) return values.Failure();
    _values += FormatPartValues("saved", values.Value(), part);
  }
  return SaveHistory(kEdited);
}

Result<void> HeadlessRun::TellChange() {
  const auto history = GetHistory({.partId = kEdited, .limit = 1});
  if (!history) return history.Failure();
  if (history.Value().entries.empty()) return Fail(std::string("no save of \"") + kEdited + "\" is told");
  const protocol::HistoryEntry& save = history.Value().entries.front();
  const auto mass = std::ranges::find(save.changes, kChangedField, &protocol::FieldChange::field);
  if (mass == save.changes.end() || !mass->before || !mass->after)
    return Fail(std::string("the save does not tell of \"") + kChangedField + "\"");
  protocol::ValueLines lines("saved", kEdited);
  lines.Value("changed_fields", save.changeCount);
  lines.Value("calculated_mass_before_kg", std::stod(*mass->before));
  lines.Value("calculated_mass_after_kg", std::stod(*mass->after));
  _values += lines.Text();
  return {};
}

/// A text that cannot be read, and the question that a save asks while it stands; the value from before is
/// typed again.
Result<void> HeadlessRun::SaveMark() {
  if (auto done = PickPage(kMassTypesPage); !done) return done;
  auto& editor = _window.PartPanel().Panel()->Find<KorDlgEditor>(kCGx);
  const KorUnicodeString before = editor.GetText();
  if (!editor.Type("about -1300")) return Fail("the centre of gravity cannot be typed");
  if (auto done = SaveLooks(_window.PartPanel().Window(), "part-panel-edit-marked"); !done) return done;
  constexpr int kBack = 1;
  _boxes.answers = {kBack};
  // The press asks, and comes to nothing.
  _window.PartPanel().Panel()->Find<KorDlgPushButton>(kSave).Press();
  if (_boxes.Questions().empty()) return Fail("the save did not ask about the text that cannot be read");
  if (auto done = SaveQuestion(_boxes.Questions().back(), "question-unread.png"); !done) return done;
  return editor.Type(before) ? Result<void>() : Fail("the centre of gravity cannot be typed again");
}

/// The question as it stands on a screen, which closes it.
Result<void> HeadlessRun::SaveQuestion(const KorDlgQuestion& question, const QString& file) {
  Result<void> done = Fail("the question is not on the screen");
  QTimer::singleShot(0, &_window, [&] {
    QWidget* box = QApplication::activeModalWidget();
    if (!box) return;
    done = Save(box, file);
    box->close();
  });
  QtBoxes([this](KorDlgDialog*) { return _window.PartPanel().Window(); }).Ask(question);
  return done;
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
  auto done = SaveLooks(_window.History(), "history");
  _window.History()->close();
  return done;
}

}  // namespace desktop
