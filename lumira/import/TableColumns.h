#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/import/Units.h"
#include "lumira/model/Date.h"
#include "lumira/model/Progress.h"

namespace lumira {

enum class Presence {
  Optional,
  Required,
  CheckedElsewhere,  ///< another reader of the same table says what is wrong with it
};

/// A column that a table may have.
struct ColumnRule {
  std::string_view name;  ///< small letters; in the title any case, and "_" for a blank
  Quantity quantity = Quantity::Text;
  Presence presence = Presence::Optional;
};

/// Finds the columns of one kind of table and reads their cells. Cells that cannot be read go to the log.
/// Columns are called by their index in the rules.
class TableColumns {
 public:
  TableColumns(const CsvTable& table, std::span<const ColumnRule> rules, ImportLog& log);

  std::string_view Name(std::size_t column) const { return _rules[column].name; }
  bool Has(std::size_t column) const { return _columns[column].has_value(); }

  /// Every column that must be there is. Without one, no row can be read; the log has said so once.
  bool HasRequired() const;

  /// Calls `read` with each row from 0 on, and tells the progress now and then.
  template <class Read>
  void EachRow(std::string_view what, const Progress& progress, Read&& read) const {
    constexpr std::size_t kBetweenReports = 16'384;
    for (std::size_t row = 0; row < _table.RowCount(); ++row) {
      if (row % kBetweenReports == 0) Report(progress, what, row, _table.RowCount());
      read(row);
    }
  }

  /// The cell as it stands; empty when the table has no such column.
  std::string_view Text(std::size_t row, std::size_t column) const;

  /// An identifier (lumira/model/Identifier.h). None after an error, or where it is checked elsewhere.
  std::optional<std::string> Identifier(std::size_t row, std::size_t column) const;

  /// The number in SI units; none for an empty cell and after an error. An angle is at most a full turn
  /// either way.
  std::optional<double> Number(std::size_t row, std::size_t column) const;

  /// A whole number of 1 or more; 1 for an empty cell.
  long long Count(std::size_t row, std::size_t column) const;

  /// A day as YYYY-MM-DD; none for an empty cell and after an error.
  std::optional<Date> Day(std::size_t row, std::size_t column) const;

  /// "yes" or "no"; no for an empty cell.
  bool Flag(std::size_t row, std::size_t column) const;

  /// One of the choices, by its index; 0 for an empty cell.
  std::size_t Choice(std::size_t row, std::size_t column, std::span<const std::string_view> choices) const;

  void Error(std::size_t row, std::size_t column, std::string_view text) const;
  void LeftOut(std::size_t row, std::size_t column, std::string_view text) const;
  Place RowPlace(std::size_t row) const { return {_table.Name(), _table.Line(row), 0, {}}; }

  /// Where the cell stands; the row as a whole when the table has no such column.
  Place PlaceOf(std::size_t row, std::size_t column) const;

  /// The first of `count` columns from `first` on whose cell has a text; `first` when none has.
  std::size_t FirstGiven(std::size_t row, std::size_t first, std::size_t count) const;

  /// The column in the header, for places of any row. Without a column when the table has none such.
  Place ColumnPlace(std::size_t column) const;

  /// How much the number of a cell may be off by rounding: half a unit of the last digit written, SI.
  /// A zero and an empty cell count as exact.
  double Rounding(std::size_t row, std::size_t column) const;

  const CsvTable& Table() const { return _table; }

  /// Adds the positions (from 0) of the columns that were found.
  void AddFound(std::set<std::size_t>& positions) const;

 private:
  struct Found {
    std::size_t position = 0;
    double si = 1;
  };

  void Find(std::size_t rule);
  std::optional<double> UnitOf(std::size_t rule, std::size_t position, std::string_view unit);

  const CsvTable& _table;
  std::span<const ColumnRule> _rules;
  ImportLog& _log;
  std::vector<std::optional<Found>> _columns;
};

}  // namespace lumira
