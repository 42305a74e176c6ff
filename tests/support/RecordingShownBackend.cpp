#include "tests/support/RecordingShownBackend.h"

#include <sstream>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"

namespace {
std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream in(text);
  for (std::string part; std::getline(in, part, separator);) parts.push_back(part);
  return parts;
}
}  // namespace

std::vector<std::string> RecordingShownBackend::Lines(KorDlgCombo& combo) {
  return Split(_backend.Shown(combo, KorDlgProperty::Lines), '\n');
}

int RecordingShownBackend::Selected(KorDlgObject& comboOrTabs) {
  return std::stoi(_backend.Shown(comboOrTabs, KorDlgProperty::Selection));
}

std::vector<std::string> RecordingShownBackend::Rows(KorDlgMultiList& list) {
  std::vector<std::string> rows = Split(_backend.Shown(list, KorDlgProperty::Rows), '\n');
  rows.erase(rows.begin());  // the number of rows
  return rows;
}

std::vector<int> RecordingShownBackend::SelectedRows(KorDlgMultiList& list) {
  std::vector<int> rows;
  for (const std::string& row : Split(_backend.Shown(list, KorDlgProperty::Selection), ','))
    rows.push_back(std::stoi(row));
  return rows;
}

void RecordingShownBackend::Click(KorDlgObject& button) {
  if (!_backend.SeemsUsable(button)) return;
  if (auto* push = dynamic_cast<KorDlgPushButton*>(&button)) push->Press();
  if (auto* radio = dynamic_cast<KorDlgRadioButton*>(&button)) radio->Check();
  if (auto* check = dynamic_cast<KorDlgCheckButton*>(&button)) check->Toggle();
}

void RecordingShownBackend::Enter(KorDlgEditor& editor, const std::string& text) {
  if (!_backend.SeemsUsable(editor) || (editor.Style() & KorDlgStyle::kReadOnly)) return;
  editor.EnterFocus();
  editor.Type(text);
  // What was typed may have taken the editor out of use.
  if (_backend.SeemsUsable(editor)) editor.LeaveFocus();
}

void RecordingShownBackend::Choose(KorDlgCombo& combo, int line) {
  if (_backend.SeemsUsable(combo)) combo.Pick(line);
}

void RecordingShownBackend::ClickTab(KorDlgTabContainer& tabs, int page) {
  KorDlgObject& target = *tabs.Children()[page];
  if (!_backend.SeemsUsable(tabs) || _backend.Shown(target, KorDlgProperty::Sensitivity) != "enabled" ||
      _backend.Shown(target, KorDlgProperty::Visibility) != "shown")
    return;
  tabs.Pick(page);
}

void RecordingShownBackend::ClickUp(KorDlgSpinner& spinner) {
  if (_backend.SeemsUsable(spinner) &&
      _backend.Shown(spinner, KorDlgProperty::Arrows).starts_with("up enabled"))
    spinner.TurnUp();
}

void RecordingShownBackend::ClickDown(KorDlgSpinner& spinner) {
  if (_backend.SeemsUsable(spinner) &&
      _backend.Shown(spinner, KorDlgProperty::Arrows).ends_with("down enabled"))
    spinner.TurnDown();
}

void RecordingShownBackend::SelectRows(KorDlgMultiList& list, const std::vector<int>& rows) {
  if (_backend.SeemsUsable(list)) list.PickLines(rows);
}

void RecordingShownBackend::CloseWindow(KorDlgDialog& dialog) {
  if (_backend.SeemsUsable(dialog)) dialog.CloseWindow();
}
