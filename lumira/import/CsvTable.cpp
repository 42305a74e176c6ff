#include "lumira/import/CsvTable.h"

#include <csv.h>

#include <algorithm>
#include <array>
#include <optional>

#include "lumira/model/Counted.h"
#include "protocol/Utf8.h"

namespace lumira {

using protocol::ErrorKind;

namespace {

// Whether a line ends with this byte: with a line feed, or with a carriage return that none follows.
bool EndsLine(std::string_view text, std::size_t at) {
  return text[at] == '\n' || (text[at] == '\r' && text.substr(at + 1, 1) != "\n");
}

}  // namespace

/// One run over a text. The parser is fed byte by byte, since it does not tell where a row begins.
class CsvReading {
 public:
  CsvReading(CsvTable& table, const TableLimits& limits, ImportLog& log, const TableProgress& progress)
      : _table(table), _limits(limits), _log(log), _progress(progress) {
    csv_init(&_parser, CSV_STRICT | CSV_STRICT_FINI);
  }
  ~CsvReading() { csv_free(&_parser); }
  CsvReading(const CsvReading&) = delete;
  CsvReading& operator=(const CsvReading&) = delete;

  bool Run(std::string_view text, char separator) {
    csv_set_delim(&_parser, static_cast<unsigned char>(separator));
    for (std::size_t i = 0; i < text.size() && !_failed; ++i) {
      if (i % kBytesBetweenReports == 0) Report(_progress.listener, _progress.what, i, text.size());
      if (_atRowStart && text[i] != '\n' && text[i] != '\r') StartRow();
      if (csv_parse(&_parser, &text[i], 1, OnCell, OnRowEnd, this) != 1)
        Fail(_line, _rowCells + 1,
             "a quote stands inside a cell that does not begin with one, or text follows a closing quote");
      if (EndsLine(text, i)) ++_line;
    }
    if (!_failed && csv_fini(&_parser, OnCell, OnRowEnd, this) != 0)
      Fail(_rowLine, _rowCells + 1,
           "a quoted cell that begins in this row is not closed before the file ends");
    return !_failed;
  }

 private:
  static void OnCell(void* text, std::size_t size, void* self) {
    static_cast<CsvReading*>(self)->TakeCell({static_cast<const char*>(text), size});
  }
  static void OnRowEnd(int, void* self) { static_cast<CsvReading*>(self)->EndRow(); }

  void StartRow() {
    _atRowStart = false;
    _rowLine = _line;
    _rowCells = 0;
    _rowHasContent = false;
    _rowText = _table._text.size();
  }

  void TakeCell(std::string_view cell) {
    ++_rowCells;
    _rowHasContent |= !cell.empty();
    if (cell.size() > _limits.cellBytes)
      return Fail(_rowLine, _rowCells,
                  "the cell has " + std::to_string(cell.size()) + " bytes, the limit is " +
                      std::to_string(_limits.cellBytes));
    if (_rowCells > _limits.columns)
      return Fail(_rowLine, _rowCells, "more than " + std::to_string(_limits.columns) + " columns");
    _table._text.append(cell);
    _table._ends.push_back(_table._text.size());
  }

  void EndRow() {
    if (_failed || _atRowStart) return;
    _atRowStart = true;
    if (!_rowHasContent) return DropRow();
    if (_table._lines.empty()) _table._columns = _rowCells;
    if (_rowCells != _table._columns)
      _log.Error(PlaceOf(_rowLine, std::min(_rowCells, _table._columns) + 1),
                 "the row has " + Counted(_rowCells, {"cell", "cells"}) + ", the header has " +
                     std::to_string(_table._columns),
                 ErrorKind::BadText);
    // A row of another length would shift all that follow, as would texts of cells that are not there.
    _table._ends.resize((_table._lines.size() + 1) * _table._columns, _table._text.size());
    _table._text.resize(_table._ends.back());
    _table._lines.push_back(_rowLine);
    if (_table._lines.size() > _limits.rows + 1)
      Fail(_rowLine, 0, "more than " + std::to_string(_limits.rows) + " rows");
  }

  void DropRow() {
    ++_table._blankRows;
    _table._text.resize(_rowText);
    _table._ends.resize(_table._ends.size() - _rowCells);
  }

  // With the title of the column, as far as the header has been read and has it.
  Place PlaceOf(std::size_t line, std::size_t column) const {
    const bool hasTitle = !_table._lines.empty() && column > 0 && column <= _table._columns;
    return {_table._name, line, column, hasTitle ? _table.Title(column - 1) : std::string_view{}};
  }

  void Fail(std::size_t line, std::size_t column, const std::string& reason) {
    if (!_failed) _log.Error(PlaceOf(line, column), reason, ErrorKind::BadText);
    _failed = true;
  }

  static constexpr std::size_t kBytesBetweenReports = std::size_t{1} << 20;

  CsvTable& _table;
  const TableLimits& _limits;
  ImportLog& _log;
  const TableProgress& _progress;
  csv_parser _parser{};
  bool _failed = false;
  bool _atRowStart = true;
  bool _rowHasContent = false;
  std::size_t _line = 1;
  std::size_t _rowLine = 1;
  std::size_t _rowCells = 0;
  std::size_t _rowText = 0;
};

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::size_t LineAt(std::string_view text, std::size_t byte) {
  std::size_t line = 1;
  for (std::size_t i = 0; i < byte; ++i) line += EndsLine(text, i);
  return line;
}

// Why the text cannot be a table at all.
std::optional<std::pair<std::size_t, std::string>> FindTextProblem(std::string_view text,
                                                                   const TableLimits& limits) {
  if (text.size() > limits.bytes)
    return {
        {0, "has " + std::to_string(text.size()) + " bytes, the limit is " + std::to_string(limits.bytes)}};
  if (text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF"))
    return {{0, "is encoded as UTF-16; save it as UTF-8"}};
  if (const auto bad = protocol::FindInvalidUtf8(text))
    return {{LineAt(text, *bad), "holds a byte that is not UTF-8; save the file as UTF-8"}};
  if (const auto zero = text.find('\0'); zero != text.npos)
    return {{LineAt(text, zero), "holds a zero byte"}};
  return std::nullopt;
}

// The one of the three that the first line has most of; a comma when it has none.
char SeparatorOf(std::string_view text) {
  const std::string_view header = text.substr(0, text.find_first_of("\r\n", text.find_first_not_of("\r\n")));
  constexpr std::array kSeparators = {',', ';', '\t'};
  return *std::max_element(kSeparators.begin(), kSeparators.end(), [&](char a, char b) {
    return std::count(header.begin(), header.end(), a) < std::count(header.begin(), header.end(), b);
  });
}

}  // namespace

CsvTable CsvTable::Read(const TableSource& source, const TableLimits& limits, ImportLog& log,
                        const TableProgress& progress) {
  CsvTable table;
  table._name = source.name;
  std::string_view text = source.text;
  if (text.starts_with(kUtf8Mark)) text.remove_prefix(kUtf8Mark.size());
  if (const auto problem = FindTextProblem(text, limits)) {
    log.Error({table._name, problem->first, 0, {}}, problem->second, ErrorKind::BadText);
    return table;
  }
  const bool read = CsvReading(table, limits, log, progress).Run(text, SeparatorOf(text));
  if (read && table._lines.empty())
    log.Error({table._name, 0, 0, {}}, "is empty; a header row and at least one row expected",
              ErrorKind::BadText);
  else if (read && table.RowCount() == 0)
    log.Error({table._name, table.HeaderLine(), 0, {}}, "no row follows the header", ErrorKind::BadText);
  if (!read) table = CsvTable{};
  return table;
}

}  // namespace lumira
