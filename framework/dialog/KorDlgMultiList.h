#pragma once

#include <cstdint>

#include "framework/dialog/KorDlgObject.h"

/// A list of rows and columns of text, made for a million rows: each column keeps its texts end to end in one
/// block. Rows and columns count from 0. Of a row or column that there is not the list tells as of an empty
/// one, and setting something of a column that there is not does nothing.
class KOR_FRAMEWORK_API KorDlgMultiList : public KorDlgObject {
 public:
  KorDlgMultiList(KorDlgObject* parent, const char* name, unsigned style)
      : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::MultiList; }
  std::span<const KorDlgProperty> Properties() const override;

  struct Column {
    KorUnicodeString title;
    bool shown = true;
    int textWidth = 0;  ///< characters; 0: as the layout gives it
    friend bool operator==(const Column&, const Column&) = default;
  };

  /// Makes one column for each title; rows are cleared.
  void SetColumnTitles(const std::vector<KorUnicodeString>& titles);
  /// Makes one column for each key of the dialog's catalogues, whose text is its title, in whatever language
  /// is current; rows are cleared.
  void SetColumnTitleKeys(std::vector<KorString> keys);
  int GetColumnCount() const { return static_cast<int>(_columns.size()); }
  const Column& GetColumn(int column) const;
  void SetColumnVisible(int column, bool visible);
  void SetColumnTextWidth(int column, int characters);
  /// How many columns the list shows at once without scrolling; 0: all.
  void SetVisibleColumnCount(int count);
  int GetVisibleColumnCount() const { return _visibleColumns; }

  int GetLineCount() const { return _lineCount; }
  /// Another number after each change of rows, by which an index of them is seen to be out of date.
  std::uint64_t GetRowsRevision() const { return _rowsRevision; }
  /// Sets a cell; a row beyond the last adds empty rows up to it.
  void SetColumnItem(int column, const KorUnicodeString& text, int row);
  /// Valid until the list changes.
  std::string_view GetColumnItem(int column, int row) const;
  /// Deletes rows in one pass, whatever their order; rows that there are not are passed over.
  void DeleteLines(const std::vector<int>& rows);
  void ClearLines();

  /// Selected rows in ascending order.
  const std::vector<int>& GetSelectedLines() const { return _selection; }
  void ClearSelection();
  void SetSelection(std::vector<int> rows);

  /// Verb: the user selects these rows. Sends ListSelect. Without style kMultiSelection only the last counts.
  bool PickLines(std::vector<int> rows);

 protected:
  void LoadTexts() override;

 private:
  struct Slice {
    std::size_t offset = 0;
    std::size_t length = 0;
  };
  struct Cells {
    std::string text;
    std::vector<Slice> slices;
    std::size_t unused = 0;  ///< bytes of `text` that no slice shows any more
  };
  void RowsChanged();
  bool HasColumn(int column) const { return column >= 0 && column < GetColumnCount(); }
  void CompactIfWasteful(Cells& cells);
  std::vector<int> Normalised(std::vector<int> rows) const;

  std::vector<Column> _columns;
  std::vector<KorString> _titleKeys;  ///< of the columns; empty: their titles were set by code
  std::vector<Cells> _cells;
  int _lineCount = 0;
  std::uint64_t _rowsRevision = 0;
  int _visibleColumns = 0;
  std::vector<int> _selection;
};
