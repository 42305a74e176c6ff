#include "lumira/import/MassTable.h"

#include <optional>
#include <unordered_map>

#include "lumira/import/MassColumns.h"
#include "lumira/import/MassTypeCells.h"
#include "lumira/import/PartCells.h"
#include "lumira/import/TableColumns.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using namespace mass_columns;
using protocol::Quoted;

class MassReading {
 public:
  MassReading(const CsvTable& table, ImportLog& log) : _columns(table, kColumns, log), _log(log) {}

  MassRows Run(const Progress& progress) {
    CheckSignColumn();
    _result.partColumn = _columns.ColumnPlace(PartId);
    if (_columns.HasRequired())
      _columns.EachRow("Reading mass data", progress, [this](std::size_t row) { ReadRow(row); });
    for (const auto& [part, row] : _shapes) CheckShapeWithDensity(_columns, row, _result.parts[part].part);
    _columns.AddFound(_result.usedColumns);
    return std::move(_result);
  }

 private:
  // Products of inertia mean nothing without their sign convention.
  void CheckSignColumn() {
    const bool hasProducts = _columns.Has(Ixx + 3) || _columns.Has(Ixx + 4) || _columns.Has(Ixx + 5);
    if (hasProducts && !_columns.Has(Products))
      _log.Error(
          {_columns.Table().Name(), _columns.Table().HeaderLine(), 0, {}},
          "there are products of inertia but no column \"products\" that says their sign: \"-\" for tensor "
          "elements, \"+\" for integrals",
          protocol::ErrorKind::BadText);
  }

  void ReadRow(std::size_t row) {
    const auto id = _columns.Identifier(row, PartId);
    if (!id) return;
    const auto [known, isNew] = _indices.emplace(*id, _result.parts.size());
    if (isNew) _result.parts.push_back({NewPart(*id), _columns.Table().Line(row)});
    Part& part = _result.parts[known->second].part;
    ReadPartCells(_columns, row, part, _log);
    if (!_columns.Text(row, Volume).empty()) _shapes.push_back({known->second, row});
    if (auto type = ReadMassType(_columns, row, part.id, _log))
      AddMassType(row, part, std::move(*type));
    else if (_columns.Flag(row, Active))
      _columns.LeftOut(row, Active, "the row has no mass data that could be active");
  }

  static Part NewPart(const std::string& id) {
    Part part;
    part.id = id;
    return part;
  }

  void AddMassType(std::size_t row, Part& part, MassTypeData type) {
    if (FindMassType(part, type.name))
      return _columns.Error(row, _columns.Has(MassType) ? MassType : PartId,
                            "part " + Quoted(part.id) + " has the mass type " + Quoted(type.name) + " twice");
    if (_columns.Flag(row, Active)) MarkActive(row, part, type.name);
    ++_result.massTypes;
    part.massTypes.push_back(std::move(type));
  }

  void MarkActive(std::size_t row, Part& part, const std::string& type) {
    if (part.activeMassType != kComputedMassType)
      _columns.Error(
          row, Active,
          "part " + Quoted(part.id) + " has an active mass type already, " + Quoted(part.activeMassType));
    part.activeMassType = type;
  }

  // A row that gives a part its shape.
  struct ShapeRow {
    std::size_t part;
    std::size_t row;
  };

  TableColumns _columns;
  ImportLog& _log;
  MassRows _result;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of parts by identifier
  std::vector<ShapeRow> _shapes;
};

}  // namespace

MassRows ReadMassTable(const CsvTable& table, ImportLog& log, const Progress& progress) {
  return MassReading(table, log).Run(progress);
}

}  // namespace lumira
