#include "lumira/import/MassTable.h"

#include <optional>
#include <unordered_map>

#include "lumira/import/MassColumns.h"
#include "lumira/import/MassTypeRow.h"
#include "lumira/import/PartCells.h"
#include "lumira/import/TableColumns.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using mass_columns::kColumns;
using mass_columns::Volume;
using mass_type_columns::PartId;
using protocol::Quoted;

class MassReading {
 public:
  MassReading(const CsvTable& table, ImportLog& log) : _columns(table, kColumns, log), _log(log) {}

  MassRows Run(const Progress& progress) {
    CheckSignColumn(_columns, _log);
    _result.partColumn = _columns.ColumnPlace(PartId);
    if (_columns.HasRequired())
      _columns.EachRow("Reading mass data", progress, [this](std::size_t row) { ReadRow(row); });
    for (const auto& [part, row] : _shapes) CheckShapeWithDensity(_columns, row, _result.parts[part].part);
    _columns.AddFound(_result.usedColumns);
    return std::move(_result);
  }

 private:
  void ReadRow(std::size_t row) {
    const auto id = _columns.Identifier(row, PartId);
    // The other cells of a row without a part are read all the same, for what is wrong with them.
    PartRow nobody;
    if (!id) return ReadCells(row, nobody);
    const auto [known, isNew] = _indices.emplace(*id, _result.parts.size());
    if (isNew) _result.parts.push_back({NewPart(*id), _columns.Table().Line(row)});
    if (!_columns.Text(row, Volume).empty()) _shapes.push_back({known->second, row});
    ReadCells(row, _result.parts[known->second]);
  }

  static Part NewPart(const std::string& id) {
    Part part;
    part.id = id;
    return part;
  }

  void ReadCells(std::size_t row, PartRow& part) {
    ReadPartCells(_columns, row, part.part, _log);
    ReadReferenceCells(_columns, row, part.details);
    ReadMassTypeRow(_columns, row,
                    {part.part.id, "part " + Quoted(part.part.id), part.part.massTypes,
                     part.part.activeMassType, part.details.precisions, part.massTypeBytes},
                    _log);
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
