#pragma once

#include <optional>
#include <set>
#include <vector>

#include "lumira/import/CsvTable.h"
#include "lumira/import/ImportLog.h"
#include "lumira/model/Product.h"
#include "lumira/model/ProductFilters.h"

namespace lumira {

/// The configuration filters of a table. One row is one condition of a filter; a row without a condition
/// makes a filter that lets everything pass. What belongs to the filter itself (description, whether it is
/// the one that is set on the product) may stand on any of its rows.
struct FilterRows {
  ProductFilters filters;
  std::set<std::size_t> usedColumns = {};  ///< positions in the table

  /// A condition and the cells that it comes from.
  struct Source {
    std::size_t filter;     ///< index in `filters`
    std::size_t condition;  ///< index in that filter
    Place name;
    Place values;
  };
  std::vector<Source> sources = {};
};

/// Reads the table; what is wrong with a row by itself goes to the log.
FilterRows ReadFilterTable(const CsvTable& table, ImportLog& log);

/// Looks the names of attributes, parts and instances up in the product; unknown ones go to the log. A value
/// that no instance has, and a revision that no part has, give a warning: the condition can be meant so.
void CheckFilterRows(const FilterRows& rows, const Product& product, ImportLog& log);

}  // namespace lumira
