#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lumira/import/ImportLog.h"
#include "lumira/import/TableSource.h"
#include "lumira/model/Progress.h"

namespace lumira {

/// Who hears how many bytes of a table are read, out of how many, and what that work is called.
struct TableProgress {
  std::string_view what = {};
  Progress listener = {};
};

/// A table of texts: a header row and rows of as many cells. Cells lie in one piece of memory.
class CsvTable {
 public:
  /// Reads comma, semicolon or tab separated text (the header row decides), with quotes, in UTF-8.
  /// What is wrong goes to the log; then the table is empty. Rows without any content are skipped and
  /// counted.
  static CsvTable Read(const TableSource& source, const TableLimits& limits, ImportLog& log,
                       const TableProgress& progress = {});

  const std::string& Name() const { return _name; }
  std::size_t ColumnCount() const { return _columns; }
  std::size_t RowCount() const { return _lines.empty() ? 0 : _lines.size() - 1; }
  std::size_t BlankRows() const { return _blankRows; }

  std::string_view Title(std::size_t column) const { return At(column); }
  std::size_t HeaderLine() const { return _lines.empty() ? 1 : _lines.front(); }

  /// The cell's text without blanks around it; empty when the cell is.
  std::string_view Cell(std::size_t row, std::size_t column) const {
    return At((row + 1) * _columns + column);
  }

  /// Line of the text in which the row starts, from 1.
  std::size_t Line(std::size_t row) const { return _lines[row + 1]; }

 private:
  friend class CsvReading;

  std::string_view At(std::size_t cell) const {
    const std::size_t from = cell == 0 ? 0 : _ends[cell - 1];
    return std::string_view(_text).substr(from, _ends[cell] - from);
  }

  std::string _name;
  std::string _text;                ///< the cells' texts, one after the other
  std::vector<std::size_t> _ends;   ///< where each cell ends, row by row, the header first
  std::vector<std::size_t> _lines;  ///< of the header and of each row
  std::size_t _columns = 0;
  std::size_t _blankRows = 0;
};

}  // namespace lumira
