#include "lumira/import/ImportProduct.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "lumira/import/ContentRows.h"
#include "lumira/import/CsvTable.h"
#include "lumira/import/DocumentTable.h"
#include "lumira/import/FilterTable.h"
#include "lumira/import/Guarded.h"
#include "lumira/import/ImportLog.h"
#include "lumira/import/MassTable.h"
#include "lumira/import/PropertyTable.h"
#include "lumira/import/StructureChecks.h"
#include "lumira/import/StructureTable.h"
#include "lumira/model/Counted.h"
#include "lumira/model/Identifier.h"
#include "lumira/store/ContentRules.h"
#include "lumira/store/ProductRules.h"
#include "lumira/store/SizeRules.h"
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

// Puts the tables together into one product.
class Assembly {
 public:
  Assembly(const ImportTables& tables, const ImportOptions& options) : _tables(tables), _options(options) {}

  // Reads and checks everything that the tables alone can tell.
  Result<void> Run() {
    if (const auto problem = ProblemOfTheName())
      return Error{ErrorKind::BadValue, "name of the product: " + *problem};
    ReadTables();
    Report(_options.progress, "Checking the structure", 0, 0);
    if (_structureIsSound) CheckCycles(_structure, _log);
    if (NamesAllParts()) CollectParts();
    // A cell that is wrong could show as a second top or as a cycle.
    if (_structureIsSound) {
      NameProduct();
      CheckDepth();
      WarnOfLeavesWithoutData();
      if (_filtersAreSound) CheckFilterRows(_filters, _product, _log);
    }
    if (_log.HasErrors()) return _log.Failure();
    return {};
  }

  // Why the store would not take the product, each part that is in the way with its place.
  Result<void> CheckRoom(Store& store) {
    if (auto good = CheckProduct(_product); !good) return good;
    if (auto good = CheckFilters(_product, Filters()); !good) return good;
    if (auto good = CheckContent(_product, _content); !good) return good;
    const auto products = store.Products();
    if (!products) return products.Failure();
    for (const ProductInfo& info : products.Value())
      if (info.id == _product.id && _options.existing == Existing::Refuse)
        return Error{ErrorKind::Conflict, "product " + Quoted(_product.id) + " exists already"};
    const auto owners = store.OtherOwners(_product);
    if (!owners) return owners.Failure();
    NameTaken(owners.Value());
    if (auto told = NameTakenDocuments(store); !told) return told;
    if (_log.HasErrors()) return _log.Failure();
    return {};
  }

  const Product& Imported() const { return _product; }
  const ProductFilters& Filters() const { return _filters.filters; }
  const ProductContent& Content() const { return _content; }

  ImportReport MakeReport() const {
    ImportReport report{.product = _product.id,
                        .parts = _product.parts.size(),
                        .instances = _product.instances.size(),
                        .massTypes = 0,
                        .filters = _filters.filters.filters.size(),
                        .revisions = 0,
                        .properties = _content.properties.size(),
                        .leftOut = _log.LeftOut(),
                        .warnings = _log.Warnings()};
    for (const Part& part : _product.parts) report.massTypes += part.massTypes.size();
    for (const PartContent& part : _content.parts) report.revisions += part.revisions.size();
    return report;
  }

 private:
  CsvTable ReadTable(const TableSource& source, std::string_view what) {
    return CsvTable::Read(source, _options.limits, _log, {what, _options.progress});
  }

  void ReadTables() {
    const bool massTableIsSound =
        HasNoErrors([&] { _massTable = ReadTable(_tables.mass, "Reading the mass table"); });
    _mass = ReadMassTable(_massTable, _log, _options.progress);
    if (_tables.structure)
      _structureIsSound = HasNoErrors([&] { ReadOwnStructure(); });
    else
      _structureIsSound =
          HasNoErrors([&] { ReadStructureInMassTable(); }) && massTableIsSound && !_structure.hasUnreadParts;
    // A row that is too short for its parent to be there leaves open what its part is.
    if (!_tables.structure && !massTableIsSound) _structure.hasUnreadParts = true;
    NameLeftOut(_massTable, _mass.usedColumns);
    if (_tables.filters) _filtersAreSound = HasNoErrors([&] { ReadFilters(); });
    ReadContent();
  }

  void ReadOwnStructure() {
    _structureTable = ReadTable(*_tables.structure, "Reading the structure table");
    _structure = ReadStructure(_structureTable, StructureForm::OwnTable, _log, _options.progress);
    NameLeftOut(_structureTable, _structure.usedColumns);
  }

  void ReadFilters() {
    _filterTable = ReadTable(*_tables.filters, "Reading the filter table");
    _filters = ReadFilterTable(_filterTable, _log);
    NameLeftOut(_filterTable, _filters.usedColumns);
  }

  void ReadContent() {
    if (_tables.documents) {
      _documentTable = ReadTable(*_tables.documents, "Reading the document table");
      _documents = ReadDocumentTable(_documentTable, _log);
      NameLeftOut(_documentTable, _documents.usedColumns);
    }
    if (_tables.properties) {
      _propertyTable = ReadTable(*_tables.properties, "Reading the property table");
      _properties = ReadPropertyTable(_propertyTable, _log);
      NameLeftOut(_propertyTable, _properties.usedColumns);
    }
  }

  void ReadStructureInMassTable() {
    _structure = ReadStructure(_massTable, StructureForm::InMassTable, _log, _options.progress);
    if (!_structure.hasParentColumn && _massTable.ColumnCount() > 0)
      _log.Error({_massTable.Name(), _massTable.HeaderLine(), 0, {}},
                 "there is no column \"parent\" and no structure table", ErrorKind::BadText);
    _mass.usedColumns.merge(_structure.usedColumns);
  }

  template <class Work>
  bool HasNoErrors(Work&& work) {
    const std::size_t before = _log.ErrorCount();
    work();
    return _log.ErrorCount() == before;
  }

  // Otherwise parts of the mass table would be called unknown that a row means which cannot be read.
  bool NamesAllParts() const {
    return _structureIsSound || (!_structure.rows.empty() && !_structure.hasUnreadParts);
  }

  // An empty name stands for that of the top part.
  std::optional<std::string> ProblemOfTheName() const {
    return _options.product.empty() ? std::nullopt : FindIdentifierProblem(_options.product);
  }

  void NameLeftOut(const CsvTable& table, const std::set<std::size_t>& used) {
    for (std::size_t column = 0; column < table.ColumnCount(); ++column)
      if (!used.contains(column))
        _log.LeftOut({table.Name(), table.HeaderLine(), column + 1, table.Title(column)},
                     "the column is not known");
    if (table.BlankRows() > 0)
      _log.LeftOut({table.Name(), 0, 0, {}}, Counted(table.BlankRows(), {"blank row", "blank rows"}));
  }

  // Parts of the structure in the order of the rows, with the data of the mass table.
  void CollectParts() {
    for (const InstanceRow& row : _structure.rows) {
      AddPart(row.instance.parent);
      AddPart(row.instance.child);
      _parents.insert(row.instance.parent);
    }
    // A product of one part has no instances.
    const bool single = _structureIsSound && _structure.rows.empty() && _mass.parts.size() == 1;
    if (single) AddPart(_mass.parts[0].part.id);
    for (PartRow& row : _mass.parts) TakeData(row);
    CheckMaterials();
    CheckSizes(_mass, _documents, _properties, _log);
    AddToContent(_content, _documents, _properties,
                 [this](const std::string& part, const Place& place) { return IsKnown(part, place); });
    for (Part& part : _product.parts) ChooseActive(part);
    for (InstanceRow& row : _structure.rows) _product.instances.push_back(row.instance);
    _product.roots = single ? std::vector{_mass.parts[0].part.id} : Tops();
  }

  std::vector<std::string> Tops() const {
    std::vector<std::string> tops;
    for (const InstanceRow* row : FindRoots(_structure.rows)) tops.push_back(row->instance.parent);
    return tops;
  }

  void AddPart(const std::string& id) {
    if (!_indices.emplace(id, _product.parts.size()).second) return;
    _product.parts.emplace_back().id = id;
  }

  void TakeData(PartRow& row) {
    if (!IsKnown(row.part.id, _mass.PartOf(row))) return;
    _product.parts[_indices.at(row.part.id)] = row.part;
    if (HasContent(row.details)) _content.parts.push_back({row.part.id, row.details, {}});
  }

  // Said once, on the row of the part with which the limit is passed.
  void CheckMaterials() {
    MaterialBytes materials;
    for (const PartRow& row : _mass.parts)
      if (const auto problem = FindTooMany(materials.Add(row.part), kMaxMaterialBytes))
        return _log.Error(_mass.PartOf(row),
                          "part " + Quoted(row.part.id) + ": " + TooManyMaterials(row.part, *problem));
  }

  // Says so when the structure does not have the part.
  bool IsKnown(const std::string& part, const Place& place) {
    if (_indices.contains(part)) return true;
    const std::string text = "part " + Quoted(part) + " is not in the structure";
    if (_options.unknownParts == UnknownParts::LeaveOut)
      _log.LeftOut(place, text);
    else
      _log.Error(place, text, ErrorKind::NotFound);
    return false;
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
      _log.Error(_structure.ParentOf(*FindRoots(_structure.rows)[1]),
                 "a product has one top part, here are " + std::to_string(_product.roots.size()) + ": " +
                     List(_product.roots));
  }

  // The instances of the product are those of the rows, in the same order.
  void CheckDepth() {
    if (const auto deep = FindDepthProblem(_product))
      _log.Error(_structure.ChildOf(_structure.rows[deep->instance]), deep->text);
  }

  // Each part once, where the tables name it first.
  void NameTaken(const std::vector<PartOwner>& owners) {
    std::unordered_map<std::string_view, const PartOwner*> left;
    for (const PartOwner& owner : owners) left.emplace(owner.part, &owner);
    const auto name = [&](const std::string& part, const Place& place) {
      const auto taken = left.find(part);
      if (taken == left.end()) return;
      _log.Error(place, ToText(*taken->second), ErrorKind::Conflict);
      left.erase(taken);
    };
    for (const InstanceRow& row : _structure.rows) {
      name(row.instance.parent, _structure.ParentOf(row));
      name(row.instance.child, _structure.ChildOf(row));
    }
    for (const PartRow& row : _mass.parts) name(row.part.id, _mass.PartOf(row));
  }

  // Documents of other products of the store; those of the product itself are replaced with it.
  Result<void> NameTakenDocuments(Store& store) {
    for (const DocumentOfPart& document : _documents.documents) {
      const std::string& id = document.content.details.documentId;
      const auto owners = store.PartsOfDocument(id);
      if (!owners) return owners.Failure();
      for (const PartOwner& owner : owners.Value())
        if (owner.product != _product.id)
          _log.Error(document.document, DocumentTaken(id, owner), ErrorKind::Conflict);
    }
    return {};
  }

  // A shape is data together with a density only.
  void WarnOfLeavesWithoutData() {
    std::vector<std::string> empty;
    for (const Part& part : _product.parts)
      if (!_parents.contains(part.id) && part.massTypes.empty() && !(part.geometry && EffectiveDensity(part)))
        empty.push_back(part.id);
    if (!empty.empty())
      _log.Warning({_massTable.Name(), 0, 0, {}}, Counted(empty.size(), {"part has", "parts have"}) +
                                                      " neither children nor mass data: " + List(empty));
  }

  const ImportTables& _tables;
  const ImportOptions& _options;
  ImportLog _log;
  CsvTable _massTable;
  CsvTable _structureTable;
  CsvTable _filterTable;
  CsvTable _documentTable;
  CsvTable _propertyTable;  // places in all these tables point into them
  MassRows _mass;
  StructureRows _structure;
  bool _structureIsSound = false;  ///< every row and cell of it could be read
  FilterRows _filters;
  bool _filtersAreSound = true;  ///< likewise
  DocumentRows _documents;
  PropertyRows _properties;
  Product _product;
  ProductContent _content;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of parts by identifier
  std::unordered_set<std::string> _parents;
};

Result<ImportReport> Import(Store& store, const ImportTables& tables, const ImportOptions& options) {
  Assembly assembly(tables, options);
  if (auto read = assembly.Run(); !read) return read.Failure();
  if (options.mode == ImportMode::DryRun) {
    if (auto room = assembly.CheckRoom(store); !room) return room.Failure();
    return assembly.MakeReport();
  }
  const auto added = store.AddProduct(assembly.Imported(), options.existing, options.progress,
                                      assembly.Filters(), assembly.Content());
  if (added) return assembly.MakeReport();
  // The store names the first part that is in the way; the tables tell where all of them stand.
  if (added.Failure().kind == ErrorKind::Conflict)
    if (auto room = assembly.CheckRoom(store); !room) return room.Failure();
  return added.Failure();
}

Result<ImportedProduct> ReadTables(const ImportTables& tables, const ImportOptions& options) {
  Assembly assembly(tables, options);
  if (auto read = assembly.Run(); !read) return read.Failure();
  return ImportedProduct{assembly.Imported(), assembly.MakeReport(), assembly.Filters(), assembly.Content()};
}

}  // namespace

Result<ImportedProduct> ReadProductTables(const ImportTables& tables, const ImportOptions& options) {
  return Guarded([&] { return ReadTables(tables, options); });
}

Result<ImportReport> ImportProduct(Store& store, const ImportTables& tables, const ImportOptions& options) {
  return Guarded([&] { return Import(store, tables, options); });
}

}  // namespace lumira
