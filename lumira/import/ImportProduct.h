#pragma once

#include <optional>
#include <string>

#include "lumira/import/ImportReport.h"
#include "lumira/import/TableSource.h"
#include "lumira/model/Product.h"
#include "lumira/model/ProductFilters.h"
#include "lumira/model/Progress.h"
#include "lumira/store/Store.h"
#include "protocol/Result.h"

namespace lumira {

/// What to do with rows of the mass, document and property tables whose part the structure does not have.
enum class UnknownParts { Refuse, LeaveOut };

enum class ImportMode { Write, DryRun };

struct ImportOptions {
  std::string product =
      {};  ///< identifier of the product (lumira/model/Identifier.h); empty: that of the root part
  Existing existing = Existing::Refuse;
  UnknownParts unknownParts = UnknownParts::Refuse;
  ImportMode mode = ImportMode::Write;
  TableLimits limits = {};
  Progress progress = {};
};

/// The tables of one product. Without a structure table the mass table must have a "parent" column; without a
/// filter table the product has no configuration filters, and likewise no documents and no extra properties.
struct ImportTables {
  std::optional<TableSource> structure;
  TableSource mass;
  std::optional<TableSource> filters = {};
  std::optional<TableSource> documents = {};
  std::optional<TableSource> properties = {};
};

struct ImportedProduct {
  Product product;
  ImportReport report;
  ProductFilters filters = {};
  ProductContent content = {};
};

/// Reads the tables into a product. On failure the message has one line for each error, with file, line,
/// column and what was expected; the kind is BadText when a table cannot be read, BadValue otherwise,
/// Internal when there is not enough memory. The name of the product must be an identifier.
protocol::Result<ImportedProduct> ReadProductTables(const ImportTables& tables, const ImportOptions& options);

/// Reads the tables and adds the product to the store, all of it or nothing. A dry run does everything but
/// write, and fails where writing would. Also fails as `Store::AddProduct` does.
protocol::Result<ImportReport> ImportProduct(Store& store, const ImportTables& tables,
                                             const ImportOptions& options);

}  // namespace lumira
