#include "tests/support/ShownText.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "framework/dialog/KorDlgCheckable.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"

namespace {

/// Longer lists are compared by their number of rows only: they report every cell that is set, and copying
/// all rows each time would take quadratic time.
constexpr int kMostCopiedRows = 1000;

const char* OnOff(KorSensitivity sensitivity) {
  return sensitivity == KorSensitivity::Enabled ? "enabled" : "disabled";
}

std::string GridText(const KorDlgObject& widget) {
  if (!widget.IsAttached()) return "not attached";
  const KorDlgGrid& grid = widget.GetGrid();
  return "row " + std::to_string(grid.row) + ", column " + std::to_string(grid.column) + ", " +
         std::to_string(grid.rows) + "x" + std::to_string(grid.columns) + ", sides " +
         std::to_string(grid.attachment);
}

std::string Numbers(const std::vector<int>& numbers) {
  std::string text;
  for (int number : numbers) text += (text.empty() ? "" : ",") + std::to_string(number);
  return text;
}

std::string ListText(const KorDlgMultiList& list, KorDlgProperty property) {
  std::string text;
  if (property == KorDlgProperty::Columns) {
    for (int column = 0; column < list.GetColumnCount(); ++column) {
      const KorDlgMultiList::Column& one = list.GetColumn(column);
      text += one.title.Utf8() + (one.shown ? "" : " (hidden)") + " width " + std::to_string(one.textWidth) +
              "\n";
    }
    return text + "showing " + std::to_string(list.GetVisibleColumnCount());
  }
  if (property == KorDlgProperty::Selection) return Numbers(list.GetSelectedLines());
  text = std::to_string(list.GetLineCount()) + " rows";
  if (list.GetLineCount() > kMostCopiedRows) return text;
  for (int row = 0; row < list.GetLineCount(); ++row)
    for (int column = 0; column < list.GetColumnCount(); ++column)
      text += (column == 0 ? "\n" : "|") + std::string(list.GetColumnItem(column, row));
  return text;
}

std::string ComboText(const KorDlgCombo& combo, KorDlgProperty property) {
  if (property == KorDlgProperty::Selection) return std::to_string(combo.GetSelect());
  std::string text;
  for (const KorUnicodeString& line : combo.GetLines()) text += line.Utf8() + "\n";
  return text;
}

std::string EditorText(const KorDlgEditor& editor, KorDlgProperty property) {
  if (property == KorDlgProperty::Text) return editor.GetText().Utf8();
  if (property == KorDlgProperty::TextWidth) return std::to_string(editor.GetVisibleTextWidth());
  return "from " + std::to_string(editor.GetFirstColumn()) + ", selected " +
         std::to_string(editor.GetSelectionFirst()) + " to " + std::to_string(editor.GetSelectionLast());
}

std::string SpinnerText(const KorDlgSpinner& spinner, KorDlgProperty property) {
  if (property == KorDlgProperty::Text) return spinner.GetText().Utf8();
  return std::string("up ") + OnOff(spinner.GetUpSensitivity()) + ", down " +
         OnOff(spinner.GetDownSensitivity());
}

std::string TextOfKind(const KorDlgObject& widget, KorDlgProperty property) {
  if (auto* checkable = dynamic_cast<const KorDlgCheckable*>(&widget))
    return checkable->IsChecked() ? "checked" : "unchecked";
  if (auto* combo = dynamic_cast<const KorDlgCombo*>(&widget)) return ComboText(*combo, property);
  if (auto* editor = dynamic_cast<const KorDlgEditor*>(&widget)) return EditorText(*editor, property);
  if (auto* list = dynamic_cast<const KorDlgMultiList*>(&widget)) return ListText(*list, property);
  if (auto* spinner = dynamic_cast<const KorDlgSpinner*>(&widget)) return SpinnerText(*spinner, property);
  if (auto* tabs = dynamic_cast<const KorDlgTabContainer*>(&widget))
    return std::to_string(tabs->GetSelectedPage());
  return "?";
}

std::string IndexedName(const KorDlgObject& widget) {
  const auto& siblings = widget.Parent()->Children();
  int same = 0;
  int occurrence = 0;
  for (const auto& sibling : siblings) {
    if (sibling->Name() != widget.Name()) continue;
    ++same;
    if (sibling.get() == &widget) occurrence = same;
  }
  return same > 1 ? widget.Name() + "[" + std::to_string(occurrence) + "]" : widget.Name();
}

std::string IndexedPath(const KorDlgObject& widget) {
  if (!widget.Parent() || widget.Kind() == KorDlgKind::Dialog) return widget.Name() + ": ";
  const std::string above = IndexedPath(*widget.Parent());
  return above + (above.ends_with(": ") ? "" : ".") + IndexedName(widget);
}

}  // namespace

std::string ShownText(const KorDlgObject& widget, KorDlgProperty property) {
  switch (property) {
    case KorDlgProperty::Title:
      return widget.GetTitle().Utf8();
    case KorDlgProperty::Help:
      return widget.GetShortHelp().Utf8();
    case KorDlgProperty::Sensitivity:
      return OnOff(widget.GetSensitivity());
    case KorDlgProperty::Visibility:
      return widget.IsShown() ? "shown" : "hidden";
    case KorDlgProperty::Grid:
      return GridText(widget);
    case KorDlgProperty::Marking:
      return widget.GetMarking().Utf8();
    default:
      return TextOfKind(widget, property);
  }
}

const char* PropertyName(KorDlgProperty property) {
  static constexpr std::array kNames{"Title",     "Help",    "Sensitivity",   "Visibility", "Grid",
                                     "Marking",   "Text",    "TextSelection", "TextWidth",  "Lines",
                                     "Selection", "Checked", "Arrows",        "Columns",    "Rows"};
  return kNames.at(static_cast<std::size_t>(property));
}

const char* KindName(KorDlgKind kind) {
  static constexpr std::array kNames{"Dialog",      "TabContainer", "TabPage",    "Frame",
                                     "Label",       "Editor",       "Combo",      "MultiList",
                                     "RadioButton", "CheckButton",  "PushButton", "Spinner"};
  return kNames.at(static_cast<std::size_t>(kind));
}

std::string FullName(const KorDlgObject& widget) { return IndexedPath(widget); }
