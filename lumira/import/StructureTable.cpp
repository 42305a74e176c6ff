#include "lumira/import/StructureTable.h"

#include <array>
#include <cmath>
#include <unordered_map>

#include "lumira/import/AttributeColumns.h"
#include "lumira/import/TableColumns.h"
#include "lumira/import/Tilts.h"
#include "protocol/Numbers.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;

enum Column : std::size_t {
  Parent,
  Child,
  InstanceId,
  Quantity_,
  X,
  Y,
  Z,
  R11,
  TiltX = R11 + 9,
  TiltY,
  TiltZ,
  EffectiveFrom,
  EffectiveUntil
};

constexpr std::array kOwnTable = {
    ColumnRule{"parent", Quantity::Text, Presence::Required},
    ColumnRule{"child", Quantity::Text, Presence::Required},
    ColumnRule{"instance"},
    ColumnRule{"quantity", Quantity::Count},
    ColumnRule{"x", Quantity::Length},
    ColumnRule{"y", Quantity::Length},
    ColumnRule{"z", Quantity::Length},
    ColumnRule{"r11", Quantity::Number},
    ColumnRule{"r12", Quantity::Number},
    ColumnRule{"r13", Quantity::Number},
    ColumnRule{"r21", Quantity::Number},
    ColumnRule{"r22", Quantity::Number},
    ColumnRule{"r23", Quantity::Number},
    ColumnRule{"r31", Quantity::Number},
    ColumnRule{"r32", Quantity::Number},
    ColumnRule{"r33", Quantity::Number},
    ColumnRule{"tilt x", Quantity::Angle},
    ColumnRule{"tilt y", Quantity::Angle},
    ColumnRule{"tilt z", Quantity::Angle},
    ColumnRule{"effective from"},
    ColumnRule{"effective until"},
};

// The same columns, but the part of the row is the child and the parent may be absent. What is wrong with the
// part is for the reading of the mass data to say; the structure leaves such a row out.
constexpr auto kInMassTable = [] {
  auto rules = kOwnTable;
  rules[Parent].presence = Presence::Optional;
  rules[Child] = {"part", Quantity::Text, Presence::CheckedElsewhere};
  return rules;
}();

class StructureReading {
 public:
  StructureReading(const CsvTable& table, StructureForm form, ImportLog& log)
      : _columns(table, form == StructureForm::OwnTable ? kOwnTable : kInMassTable, log),
        _attributes(table, log),
        _form(form) {}

  StructureRows Run(const Progress& progress) {
    StructureRows result;
    _columns.AddFound(result.usedColumns);
    _attributes.AddFound(result.usedColumns);
    result.hasParentColumn = _columns.Has(Parent);
    result.parentColumn = _columns.ColumnPlace(Parent);
    result.childColumn = _columns.ColumnPlace(Child);
    if (_columns.Has(Parent) && _columns.Has(Child))
      _columns.EachRow("Reading the structure", progress, [this](std::size_t row) { ReadRow(row); });
    NameTheNameless();
    result.rows = std::move(_rows);
    return result;
  }

 private:
  void ReadRow(std::size_t row) {
    if (_form == StructureForm::InMassTable && _columns.Text(row, Parent).empty()) return;
    const auto parent = _columns.Identifier(row, Parent);
    const auto child = _columns.Identifier(row, Child);
    std::string id;
    if (!_columns.Text(row, InstanceId).empty()) {
      id = _columns.Identifier(row, InstanceId).value_or("");
      CheckIsNew(row, id);
    }
    const auto quantity = _columns.Count(row, Quantity_);
    const Placement placement{ReadRotation(row), ReadTranslation(row)};
    const Effectivity effectivity = ReadEffectivity(row);
    auto attributes = _attributes.Read(row);
    if (!parent || !child) return;
    _rows.push_back({{id, *parent, *child, quantity, placement, effectivity, std::move(attributes)},
                     _columns.Table().Line(row)});
  }

  void CheckIsNew(std::size_t row, const std::string& id) {
    const auto [known, isNew] = _ids.emplace(id, _columns.Table().Line(row));
    if (!isNew && !id.empty())
      _columns.Error(row, InstanceId,
                     Quoted(id) + " is the instance of line " + std::to_string(known->second) +
                         " already; instances are unique in a product");
  }

  Effectivity ReadEffectivity(std::size_t row) {
    const Effectivity read{_columns.Day(row, EffectiveFrom), _columns.Day(row, EffectiveUntil)};
    if (read.from && read.until && *read.until < *read.from)
      _columns.Error(row, EffectiveUntil,
                     FormatDate(*read.until) + " is before " + FormatDate(*read.from) + ", where it begins");
    return read;
  }

  Vec3 ReadTranslation(std::size_t row) {
    const auto at = [&](std::size_t column) { return _columns.Number(row, column).value_or(0); };
    return {at(X), at(Y), at(Z)};
  }

  Rotation ReadRotation(std::size_t row) {
    const bool hasTilts = !_columns.Text(row, TiltX).empty() || !_columns.Text(row, TiltY).empty() ||
                          !_columns.Text(row, TiltZ).empty();
    std::size_t coefficients = 0;
    for (std::size_t i = 0; i < 9; ++i) coefficients += !_columns.Text(row, R11 + i).empty();
    if (coefficients == 0) return RotationFromTilts(ReadTilts(_columns, row, TiltX));
    const std::size_t first = _columns.FirstGiven(row, R11, 9);
    if (hasTilts) return Refuse(row, first, "the rotation is given twice, by r11 to r33 and by tilts");
    if (coefficients < 9)
      return Refuse(
          row, first,
          "only " + std::to_string(coefficients) + " of the nine coefficients r11 to r33 are given");
    return ReadCoefficients(row);
  }

  Rotation ReadCoefficients(std::size_t row) {
    Rotation rotation;
    for (std::size_t i = 0; i < 9; ++i) {
      const auto coefficient = _columns.Number(row, R11 + i);
      if (!coefficient) return {};
      rotation.m[i] = *coefficient;
    }
    if (IsRotation(rotation)) return rotation;
    const double error = OrthonormalityError(rotation);
    if (!(error <= kRotationTolerance))
      return Refuse(row, R11,
                    "r11 to r33 are no rotation: the axes are off orthonormal by " +
                        protocol::FormatNumber(error) + ", the limit is " +
                        protocol::FormatNumber(kRotationTolerance));
    return Refuse(row, R11,
                  "r11 to r33 are no rotation but a mirror (determinant " +
                      protocol::FormatNumber(Determinant(rotation)) + ")");
  }

  Rotation Refuse(std::size_t row, std::size_t column, const std::string& reason) {
    _columns.Error(row, column, reason);
    return {};
  }

  void NameTheNameless() {
    std::unordered_map<std::string, int> used;
    for (InstanceRow& row : _rows) {
      while (row.instance.id.empty()) {
        std::string id = row.instance.child + "." + std::to_string(++used[row.instance.child]);
        if (_ids.emplace(id, row.line).second) row.instance.id = std::move(id);
      }
    }
  }

  TableColumns _columns;
  AttributeColumns _attributes;
  StructureForm _form;
  std::vector<InstanceRow> _rows;
  std::unordered_map<std::string, std::size_t> _ids;  ///< and the line of each
};

}  // namespace

StructureRows ReadStructure(const CsvTable& table, StructureForm form, ImportLog& log,
                            const Progress& progress) {
  return StructureReading(table, form, log).Run(progress);
}

}  // namespace lumira
