#include "lumira/import/PropertyTable.h"

#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>

#include "lumira/import/PartCells.h"
#include "lumira/import/TableColumns.h"
#include "lumira/import/Units.h"
#include "lumira/model/PropertyRules.h"

namespace lumira {
namespace {

using protocol::Quoted;

enum Column : std::size_t { Property, Type, Magnitude, PartId, Value, Unit };

constexpr std::array kColumns = {
    ColumnRule{"property", Quantity::Text, Presence::Required},
    ColumnRule{"type"},
    ColumnRule{"magnitude"},
    ColumnRule{"part"},
    ColumnRule{"value"},
    ColumnRule{"unit"},
};

// In the order of PropertyType.
constexpr std::string_view kTypes[] = {"text", "integer", "date", "real", "magnitude"};

// Magnitudes whose values may be given in other units than the one they are stored in.
struct Convertible {
  std::string_view magnitude;
  Quantity quantity;
};
constexpr Convertible kConvertible[] = {
    {"LENGTH", Quantity::Length},   {"MASS", Quantity::Mass},
    {"DENSITY", Quantity::Density}, {"INERTIAMOMENT", Quantity::Inertia},
    {"VOLUME", Quantity::Volume},   {"SURFACICMASS", Quantity::SurfaceMass},
    {"ANGLE", Quantity::Angle},
};

std::optional<Quantity> QuantityOf(std::string_view magnitude) {
  for (const Convertible& convertible : kConvertible)
    if (convertible.magnitude == magnitude) return convertible.quantity;
  return std::nullopt;
}

class PropertyReading {
 public:
  PropertyReading(const CsvTable& table, ImportLog& log) : _columns(table, kColumns, log) {}

  // Types may stand below the values that they are the types of.
  PropertyRows Run() {
    _columns.AddFound(_result.usedColumns);
    if (!_columns.HasRequired()) return std::move(_result);
    _columns.EachRow({}, {}, [this](std::size_t row) { ReadDefinition(row); });
    for (std::size_t i = 0; i < _result.definitions.size(); ++i) CheckDefinition(i);
    _columns.EachRow({}, {}, [this](std::size_t row) { ReadValue(row); });
    return std::move(_result);
  }

 private:
  void ReadDefinition(std::size_t row) {
    const auto name = _columns.Identifier(row, Property);
    if (!name) return;
    const auto [known, isNew] = _indices.emplace(*name, _result.definitions.size());
    if (isNew) {
      _result.definitions.push_back({*name});
      _firstRows.push_back(row);
      _typeTexts.emplace_back();
    }
    PropertyDefinition& property = _result.definitions[known->second];
    SetText(_columns, row, Type, "property", _typeTexts[known->second]);
    if (!_columns.Text(row, Type).empty())
      property.type = static_cast<PropertyType>(_columns.Choice(row, Type, kTypes));
    SetText(_columns, row, Magnitude, "property", property.magnitude);
  }

  // The name was looked at with its cell; what is left is the magnitude.
  void CheckDefinition(std::size_t index) {
    const auto problem = FindDefinitionProblem(_result.definitions[index]);
    if (problem) _columns.Error(_firstRows[index], Magnitude, *problem);
    _isSound.push_back(!problem);
  }

  // A property that is none itself has no values that could be checked.
  void ReadValue(std::size_t row) {
    const auto known = _indices.find(std::string(_columns.Text(row, Property)));
    const bool isSound = known != _indices.end() && _isSound[known->second];
    if (_columns.Text(row, PartId).empty()) return RefuseWithoutPart(row);
    const auto part = _columns.Identifier(row, PartId);
    if (!part || !isSound) return;
    const PropertyDefinition& property = _result.definitions[known->second];
    if (!_given.emplace(*part, property.name).second)
      return _columns.Error(
          row, PartId, "part " + Quoted(*part) + " has a value of " + Quoted(property.name) + " already");
    const auto value = Stored(row, property);
    if (!value) return;
    protocol::ExtraProperty given;
    given.name = property.name;
    given.value = *value;
    _result.values.push_back(
        {*part, std::move(given), _columns.PlaceOf(row, PartId), _columns.PlaceOf(row, Value)});
  }

  void RefuseWithoutPart(std::size_t row) {
    for (const Column column : {Value, Unit})
      if (!_columns.Text(row, column).empty())
        _columns.Error(row, column, "there is no part that this could belong to");
  }

  // The value as it is stored; a number in the storage unit stays as it was typed.
  std::optional<std::string> Stored(std::size_t row, const PropertyDefinition& property) {
    const std::string text(_columns.Text(row, Value));
    if (const auto problem = FindValueProblem(property, text)) {
      _columns.Error(row, Value, *problem);
      return std::nullopt;
    }
    const std::string_view unit = _columns.Text(row, Unit);
    if (unit.empty()) return text;
    if (property.type != PropertyType::Magnitude) {
      _columns.Error(row, Unit, "only values of a magnitude have a unit, " + Quoted(unit) + " found");
      return std::nullopt;
    }
    return Converted(row, property, text);
  }

  std::optional<std::string> Converted(std::size_t row, const PropertyDefinition& property,
                                       const std::string& text) {
    const std::string_view unit = _columns.Text(row, Unit);
    const std::string_view storageUnit = FindMagnitude(property.magnitude)->storageUnit;
    if (unit == storageUnit || text.empty()) return text;
    const auto quantity = QuantityOf(property.magnitude);
    const auto si = quantity ? FindUnit(*quantity, unit) : std::nullopt;
    if (!si) {
      _columns.Error(row, Unit,
                     Quoted(unit) + " is no unit known here; " +
                         (quantity ? "one of " + UnitList(*quantity) : std::string(storageUnit)) +
                         " expected");
      return std::nullopt;
    }
    const double number =
        protocol::ParseNumber(BareNumber(text)).value() * *si / *FindUnit(*quantity, storageUnit);
    if (std::isfinite(number)) return protocol::FormatNumber(number);
    _columns.Error(row, Value, Quoted(text) + " is too large");
    return std::nullopt;
  }

  TableColumns _columns;
  PropertyRows _result;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of properties by name
  std::vector<std::size_t> _firstRows;                    ///< of each property
  std::vector<std::string> _typeTexts;                    ///< likewise
  std::vector<bool> _isSound;                             ///< likewise
  std::set<std::pair<std::string, std::string>> _given;   ///< part and property of each value
};

}  // namespace

PropertyRows ReadPropertyTable(const CsvTable& table, ImportLog& log) {
  return PropertyReading(table, log).Run();
}

}  // namespace lumira
