#include "lumira/import/ImportProduct.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "lumira/import/CsvTable.h"
#include "lumira/import/Guarded.h"
#include "lumira/import/ImportLog.h"
#include "lumira/import/MassTable.h"
#include "lumira/import/StructureChecks.h"
#include "lumira/import/StructureTable.h"
#include "lumira/model/Identifier.h"
#include "lumira/store/ProductRules.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

constexpr std::size_t kListed = 10;

std::string List(const std::vector<std::string>& names) {
  std::string list;
  for (std::size_t i = 0; i < std::min(names.size(), kListed); ++i)
    list += (i == 0 ? "" : ", ") + Quoted(names[i]);
  return list + (names.size() > kListed ? ", ..." : "");
}

// Puts the two tables together into one product.
class Assembly {
 public:
  Assembly(const ImportTables& tables, const ImportOptions& options) : _tables(tables), _options(options) {}

  Result<ImportedProduct> Run() {
    if (const auto problem = ProblemOfTheName())
      return Error{ErrorKind::BadValue, "name of the product: " + *problem};
    ReadTables();
    if (_log.HasErrors()) return _log.Failure();
    Report(_options.progress, "Checking the structure", 0, 0);
    CheckCycles(_structure.rows, StructureFile(), _log);
    CollectParts();
    NameProduct();
    WarnOfLeavesWithoutData();
    if (_log.HasErrors()) return _log.Failure();
    return Finish();
  }

 private:
  void ReadTables() {
    Report(_options.progress, "Reading the mass table", 0, 0);
    _massTable = CsvTable::Read(_tables.mass, _options.limits, _log);
    _mass = ReadMassTable(_massTable, _log, _options.progress);
    Report(_options.progress, "Reading the structure table", 0, 0);
    if (_tables.structure) {
      _structureTable = CsvTable::Read(*_tables.structure, _options.limits, _log);
      _structure = ReadStructure(_structureTable, StructureForm::OwnTable, _log, _options.progress);
      NameLeftOut(_structureTable, _structure.usedColumns);
    } else {
      _structure = ReadStructure(_massTable, StructureForm::InMassTable, _log, _options.progress);
      if (!_structure.hasParentColumn && !_log.HasErrors())
        _log.Error({_massTable.Name(), _massTable.HeaderLine(), 0, {}},
                   "there is no column \"parent\" and no structure table", ErrorKind::BadText);
      _mass.usedColumns.merge(_structure.usedColumns);
    }
    NameLeftOut(_massTable, _mass.usedColumns);
  }

  // An empty name stands for that of the top part.
  std::optional<std::string> ProblemOfTheName() const {
    return _options.product.empty() ? std::nullopt : FindIdentifierProblem(_options.product);
  }

  const std::string& StructureFile() const {
    return _tables.structure ? _tables.structure->name : _tables.mass.name;
  }

  void NameLeftOut(const CsvTable& table, const std::set<std::size_t>& used) {
    for (std::size_t column = 0; column < table.ColumnCount(); ++column)
      if (!used.contains(column))
        _log.LeftOut({table.Name(), table.HeaderLine(), column + 1, table.Title(column)},
                     "the column is not known");
    if (table.BlankRows() > 0)
      _log.LeftOut({table.Name(), 0, 0, {}}, std::to_string(table.BlankRows()) + " blank rows");
  }

  // Parts of the structure in the order of the rows, with the data of the mass table.
  void CollectParts() {
    for (const InstanceRow& row : _structure.rows) {
      AddPart(row.instance.parent);
      AddPart(row.instance.child);
      _parents.insert(row.instance.parent);
    }
    // A product of one part has no instances.
    const bool single = _structure.rows.empty() && _mass.parts.size() == 1;
    if (single) AddPart(_mass.parts[0].part.id);
    for (PartRow& row : _mass.parts) TakeData(row);
    for (Part& part : _product.parts) ChooseActive(part);
    for (InstanceRow& row : _structure.rows) _product.instances.push_back(row.instance);
    _product.roots = single ? std::vector{_mass.parts[0].part.id} : FindRoots(_structure.rows);
  }

  void AddPart(const std::string& id) {
    if (!_indices.emplace(id, _product.parts.size()).second) return;
    _product.parts.emplace_back().id = id;
  }

  void TakeData(PartRow& row) {
    const auto known = _indices.find(row.part.id);
    if (known != _indices.end()) {
      _product.parts[known->second] = row.part;
      return;
    }
    const std::string text = "part " + Quoted(row.part.id) + " is not in the structure";
    const Place place{_massTable.Name(), row.line, 0, {}};
    if (_options.unknownParts == UnknownParts::LeaveOut)
      _log.LeftOut(place, text);
    else
      _log.Error(place, text, ErrorKind::NotFound);
  }

  // Without a word about it, the first mass type of a leaf counts; an assembly is the sum of its children.
  void ChooseActive(Part& part) {
    const bool isSaid = part.activeMassType != kComputedMassType;
    if (!isSaid && !part.massTypes.empty() && !_parents.contains(part.id))
      part.activeMassType = part.massTypes.front().name;
  }

  // Where there is a cycle and no top, the cycle has been reported.
  void NameProduct() {
    if (_product.roots.size() == 1)
      _product.id = _options.product.empty() ? _product.roots[0] : _options.product;
    else if (!_product.roots.empty())
      _log.Error({StructureFile(), 0, 0, {}}, "a product has one top part, here are " +
                                                  std::to_string(_product.roots.size()) + ": " +
                                                  List(_product.roots));
  }

  // A shape is data together with a density only.
  void WarnOfLeavesWithoutData() {
    std::vector<std::string> empty;
    for (const Part& part : _product.parts)
      if (!_parents.contains(part.id) && part.massTypes.empty() && !(part.geometry && EffectiveDensity(part)))
        empty.push_back(part.id);
    if (!empty.empty())
      _log.Warning(
          {_massTable.Name(), 0, 0, {}},
          std::to_string(empty.size()) + " parts have neither children nor mass data: " + List(empty));
  }

  Result<ImportedProduct> Finish() {
    ImportReport report{_product.id, _product.parts.size(), _product.instances.size(),
                        0,           _log.LeftOut(),        _log.Warnings()};
    for (const Part& part : _product.parts) report.massTypes += part.massTypes.size();
    return ImportedProduct{std::move(_product), std::move(report)};
  }

  const ImportTables& _tables;
  const ImportOptions& _options;
  ImportLog _log;
  CsvTable _massTable;
  CsvTable _structureTable;
  MassRows _mass;
  StructureRows _structure;
  Product _product;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of parts by identifier
  std::unordered_set<std::string> _parents;
};

// What `AddProduct` would refuse.
Result<void> CheckRoom(Store& store, const Product& product, Existing existing) {
  if (auto good = CheckProduct(product); !good) return good;
  if (auto good = CheckProduct(product); !good) return good;
  const auto products = store.Products();
  if (!products) return products.Failure();
  for (const ProductInfo& info : products.Value())
    if (info.id == product.id && existing == Existing::Refuse)
      return Error{ErrorKind::Conflict, "product " + Quoted(product.id) + " exists already"};
  for (const Part& part : product.parts) {
    const auto owner = store.ProductOfPart(part.id);
    if (owner && owner.Value() != product.id)
      return Error{ErrorKind::Conflict,
                   "part " + Quoted(part.id) + " belongs to product " + Quoted(owner.Value()) + " already"};
    if (!owner && owner.Failure().kind != ErrorKind::NotFound) return owner.Failure();
  }
  return {};
}

Result<ImportReport> Import(Store& store, const ImportTables& tables, const ImportOptions& options) {
  auto imported = ReadProductTables(tables, options);
  if (!imported) return imported.Failure();
  const Product& product = imported.Value().product;
  Report(options.progress, "Writing the product", 0, 0);
  const auto done = options.mode == ImportMode::DryRun ? CheckRoom(store, product, options.existing)
                                                       : store.AddProduct(product, options.existing);
  if (!done) return done.Failure();
  return std::move(imported.Value().report);
}

}  // namespace

Result<ImportedProduct> ReadProductTables(const ImportTables& tables, const ImportOptions& options) {
  return Guarded([&] { return Assembly(tables, options).Run(); });
}

Result<ImportReport> ImportProduct(Store& store, const ImportTables& tables, const ImportOptions& options) {
  return Guarded([&] { return Import(store, tables, options); });
}

}  // namespace lumira
