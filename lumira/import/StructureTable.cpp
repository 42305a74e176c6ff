#include "lumira/import/StructureTable.h"

#include <array>
#include <cmath>
#include <unordered_map>
#include <utility>

#include "lumira/import/AttributeColumns.h"
#include "lumira/import/TableColumns.h"
#include "lumira/import/Tilts.h"
#include "lumira/model/Identifier.h"
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
        _log(log),
        _form(form) {}

  StructureRows Run(const Progress& progress) {
    _columns.AddFound(_result.usedColumns);
    _attributes.AddFound(_result.usedColumns);
    _result.hasParentColumn = _columns.Has(Parent);
    _result.parentColumn = _columns.ColumnPlace(Parent);
    _result.childColumn = _columns.ColumnPlace(Child);
    if (_columns.Has(Parent) && _columns.Has(Child))
      _columns.EachRow("Reading the structure", progress, [this](std::size_t row) { ReadRow(row); });
    NameTheNameless();
    return std::move(_result);
  }

 private:
  void ReadRow(std::size_t row) {
    const bool isPlaced = _form == StructureForm::OwnTable || !_columns.Text(row, Parent).empty();
    const auto parent = isPlaced ? _columns.Identifier(row, Parent) : std::nullopt;
    const auto child = _columns.Identifier(row, Child);
    Instance instance{.id = ReadId(row),
                      .parent = parent.value_or(""),
                      .child = child.value_or(""),
                      .quantity = _columns.Count(row, Quantity_),
                      .placement = {ReadRotation(row), ReadTranslation(row)},
                      .effectivity = ReadEffectivity(row),
                      .attributes = _attributes.Read(row)};
    if (!isPlaced) return NameIdleCells(row);
    CheckIsNew(row, instance.id);
    if (parent && child)
      _result.rows.push_back({std::move(instance), _columns.Table().Line(row)});
    else
      _result.hasUnreadParts = true;
  }

  // Of a part that stands at the top, or has its place on another row.
  void NameIdleCells(std::size_t row) {
    constexpr std::size_t kCells = EffectiveUntil + 1 - InstanceId;
    if (_columns.IsAnyGiven(row, InstanceId, kCells))
      _columns.LeftOut(row, _columns.FirstGiven(row, InstanceId, kCells),
                       "there is no parent, so instance, quantity, placement and dates are left out");
  }

  std::string ReadId(std::size_t row) {
    if (_columns.Text(row, InstanceId).empty()) return {};
    return _columns.Identifier(row, InstanceId).value_or("");
  }

  void CheckIsNew(std::size_t row, const std::string& id) {
    if (id.empty()) return;
    const auto [known, isNew] = _ids.emplace(id, _columns.Table().Line(row));
    if (!isNew)
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
    const Vec3 tilts = ReadTilts(_columns, row, TiltX);
    Rotation rotation;
    std::size_t given = 0, read = 0;
    for (std::size_t i = 0; i < 9; ++i) {
      given += !_columns.Text(row, R11 + i).empty();
      const auto coefficient = _columns.Number(row, R11 + i);
      read += coefficient.has_value();
      rotation.m[i] = coefficient.value_or(0);
    }
    if (given == 0) return RotationFromTilts(tilts);
    const std::size_t first = _columns.FirstGiven(row, R11, 9);
    if (_columns.IsAnyGiven(row, TiltX, 3))
      return Refuse(row, first, "the rotation is given twice, by r11 to r33 and by tilts");
    if (given < 9)
      return Refuse(row, first,
                    "only " + std::to_string(given) + " of the nine coefficients r11 to r33 " +
                        (given == 1 ? "is" : "are") + " given");
    return read == 9 ? Checked(row, rotation) : Rotation{};
  }

  Rotation Checked(std::size_t row, const Rotation& rotation) {
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
    for (InstanceRow& row : _result.rows) {
      if (!row.instance.id.empty()) continue;
      while (row.instance.id.empty()) {
        std::string id = row.instance.child + "." + std::to_string(++used[row.instance.child]);
        if (_ids.emplace(id, row.line).second) row.instance.id = std::move(id);
      }
      CheckMadeName(row);
    }
  }

  void CheckMadeName(const InstanceRow& row) {
    if (const auto problem = FindIdentifierProblem(row.instance.id))
      _log.Error(
          At(_columns.ColumnPlace(_columns.Has(InstanceId) ? InstanceId : Child), row.line),
          "the instance is not named, and what is made of the child for a name cannot be one: " + *problem);
  }

  TableColumns _columns;
  AttributeColumns _attributes;
  ImportLog& _log;
  StructureForm _form;
  StructureRows _result;
  std::unordered_map<std::string, std::size_t> _ids;  ///< and the line of each
};

}  // namespace

StructureRows ReadStructure(const CsvTable& table, StructureForm form, ImportLog& log,
                            const Progress& progress) {
  return StructureReading(table, form, log).Run(progress);
}

}  // namespace lumira
