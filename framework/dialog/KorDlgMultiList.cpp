#include "framework/dialog/KorDlgMultiList.h"

#include <algorithm>
#include <array>

#include "framework/dialog/KorDlgDialog.h"

std::span<const KorDlgProperty> KorDlgMultiList::Properties() const {
  static constexpr std::array kProperties{
      KorDlgProperty::Title,      KorDlgProperty::Help, KorDlgProperty::Sensitivity,
      KorDlgProperty::Visibility, KorDlgProperty::Grid, KorDlgProperty::Marking,
      KorDlgProperty::Columns,    KorDlgProperty::Rows, KorDlgProperty::Selection};
  return kProperties;
}

void KorDlgMultiList::SetColumnTitles(const std::vector<KorUnicodeString>& titles) {
  _titleKeys.clear();
  _columns.assign(titles.size(), Column());
  for (std::size_t i = 0; i < titles.size(); ++i) _columns[i].title = titles[i];
  _cells.assign(titles.size(), Cells());
  _lineCount = 0;
  _selection.clear();
  Changed(KorDlgProperty::Columns);
  RowsChanged();
  Changed(KorDlgProperty::Selection);
}

void KorDlgMultiList::SetColumnTitleKeys(std::vector<KorString> keys) {
  SetColumnTitles(std::vector<KorUnicodeString>(keys.size()));
  _titleKeys = std::move(keys);
  LoadTexts();
}

void KorDlgMultiList::LoadTexts() {
  KorDlgObject::LoadTexts();
  const KorDlgDialog* dialog = Dialog();
  if (!dialog) return;
  std::vector<Column> columns = _columns;
  for (std::size_t i = 0; i < _titleKeys.size(); ++i) columns[i].title = dialog->CatalogueText(_titleKeys[i]);
  Assign(_columns, columns, KorDlgProperty::Columns);
}

const KorDlgMultiList::Column& KorDlgMultiList::GetColumn(int column) const {
  static const Column kNone;
  return HasColumn(column) ? _columns[column] : kNone;
}

void KorDlgMultiList::SetColumnVisible(int column, bool visible) {
  if (HasColumn(column)) Assign(_columns[column].shown, visible, KorDlgProperty::Columns);
}

void KorDlgMultiList::SetColumnTextWidth(int column, int characters) {
  if (HasColumn(column)) Assign(_columns[column].textWidth, characters, KorDlgProperty::Columns);
}

void KorDlgMultiList::SetVisibleColumnCount(int count) {
  Assign(_visibleColumns, count, KorDlgProperty::Columns);
}

void KorDlgMultiList::SetColumnItem(int column, const KorUnicodeString& text, int row) {
  if (!HasColumn(column) || row < 0) return;
  Cells& cells = _cells[column];
  _lineCount = std::max(_lineCount, row + 1);
  if (cells.slices.size() <= static_cast<std::size_t>(row)) cells.slices.resize(row + 1);
  Slice& slice = cells.slices[row];
  cells.unused += slice.length;
  slice = {cells.text.size(), text.Utf8().size()};
  cells.text += text.Utf8();
  CompactIfWasteful(cells);
  RowsChanged();
}

std::string_view KorDlgMultiList::GetColumnItem(int column, int row) const {
  if (!HasColumn(column) || row < 0) return {};
  const Cells& cells = _cells[column];
  if (static_cast<std::size_t>(row) >= cells.slices.size()) return {};
  return std::string_view(cells.text).substr(cells.slices[row].offset, cells.slices[row].length);
}

void KorDlgMultiList::DeleteLines(const std::vector<int>& rows) {
  const std::vector<int> doomed = Normalised(rows);
  if (doomed.empty()) return;
  for (Cells& cells : _cells) {
    std::size_t kept = 0;
    auto next = doomed.begin();
    for (std::size_t row = 0; row < cells.slices.size(); ++row) {
      if (next != doomed.end() && static_cast<std::size_t>(*next) == row) {
        cells.unused += cells.slices[row].length;
        ++next;
      } else {
        cells.slices[kept++] = cells.slices[row];
      }
    }
    cells.slices.resize(kept);
    CompactIfWasteful(cells);
  }
  _lineCount -= static_cast<int>(doomed.size());
  _selection.clear();
  RowsChanged();
  Changed(KorDlgProperty::Selection);
}

void KorDlgMultiList::ClearLines() {
  _cells.assign(_columns.size(), Cells());
  _lineCount = 0;
  _selection.clear();
  RowsChanged();
  Changed(KorDlgProperty::Selection);
}

void KorDlgMultiList::ClearSelection() { Assign(_selection, {}, KorDlgProperty::Selection); }

void KorDlgMultiList::SetSelection(std::vector<int> rows) {
  Assign(_selection, Normalised(std::move(rows)), KorDlgProperty::Selection);
}

bool KorDlgMultiList::PickLines(std::vector<int> rows) {
  if (!CanAct("PickLines")) return false;
  if ((Style() & KorDlgStyle::kMultiSelection) == 0 && rows.size() > 1) rows = {rows.back()};
  SetSelection(std::move(rows));
  Notify(KorEvent::ListSelect);
  return true;
}

void KorDlgMultiList::RowsChanged() {
  ++_rowsRevision;
  Changed(KorDlgProperty::Rows);
}

void KorDlgMultiList::CompactIfWasteful(Cells& cells) {
  constexpr std::size_t kSlack = 4096;
  if (cells.unused < kSlack || cells.unused * 2 < cells.text.size()) return;
  std::string text;
  text.reserve(cells.text.size() - cells.unused);
  for (Slice& slice : cells.slices) {
    const std::size_t offset = text.size();
    text.append(cells.text, slice.offset, slice.length);
    slice.offset = offset;
  }
  cells.text = std::move(text);
  cells.unused = 0;
}

std::vector<int> KorDlgMultiList::Normalised(std::vector<int> rows) const {
  std::erase_if(rows, [this](int row) { return row < 0 || row >= _lineCount; });
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}
