#include "lumira/import/MassTable.h"

#include <array>
#include <cmath>
#include <optional>
#include <unordered_map>

#include "lumira/import/PhysicalChecks.h"
#include "lumira/import/TableColumns.h"
#include "lumira/import/Tilts.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;

enum Column : std::size_t {
  PartId,
  Name,
  Revision,
  MassType,
  Active,
  Mass,
  CgX,
  Ixx = CgX + 3,
  Products = Ixx + 6,
  InertiaAbout,
  AxesTiltX,
  SdMass = AxesTiltX + 3,
  SdCgX,
  SdIxx = SdCgX + 3,
  Lower = SdIxx + 6,
  Upper,
  MaterialName,
  Density,
  CadMaterial,
  CadDensity,
  Priority,
  Standard,
  Volume,
  CentroidX,
  ShapeIxx = CentroidX + 3,
  ColumnCount = ShapeIxx + 6
};

constexpr std::array<ColumnRule, ColumnCount> kColumns = {{
    {"part", Quantity::Text, Presence::Required},
    {"name"},
    {"revision"},
    {"mass type"},
    {"active", Quantity::Flag},
    {"mass", Quantity::Mass},
    {"cg x", Quantity::Length},
    {"cg y", Quantity::Length},
    {"cg z", Quantity::Length},
    {"ixx", Quantity::Inertia},
    {"iyy", Quantity::Inertia},
    {"izz", Quantity::Inertia},
    {"ixy", Quantity::Inertia},
    {"ixz", Quantity::Inertia},
    {"iyz", Quantity::Inertia},
    {"products"},
    {"inertia about"},
    {"inertia tilt x", Quantity::Angle},
    {"inertia tilt y", Quantity::Angle},
    {"inertia tilt z", Quantity::Angle},
    {"sd mass", Quantity::Mass},
    {"sd cg x", Quantity::Length},
    {"sd cg y", Quantity::Length},
    {"sd cg z", Quantity::Length},
    {"sd ixx", Quantity::Inertia},
    {"sd iyy", Quantity::Inertia},
    {"sd izz", Quantity::Inertia},
    {"sd ixy", Quantity::Inertia},
    {"sd ixz", Quantity::Inertia},
    {"sd iyz", Quantity::Inertia},
    {"lower deviation", Quantity::Mass},
    {"upper deviation", Quantity::Mass},
    {"material"},
    {"density", Quantity::Density},
    {"cad material"},
    {"cad density", Quantity::Density},
    {"density priority"},
    {"standard part", Quantity::Flag},
    {"volume", Quantity::Volume},
    {"centroid x", Quantity::Length},
    {"centroid y", Quantity::Length},
    {"centroid z", Quantity::Length},
    {"shape ixx", Quantity::ShapeInertia},
    {"shape iyy", Quantity::ShapeInertia},
    {"shape izz", Quantity::ShapeInertia},
    {"shape ixy", Quantity::ShapeInertia},
    {"shape ixz", Quantity::ShapeInertia},
    {"shape iyz", Quantity::ShapeInertia},
}};

constexpr std::string_view kDefaultMassType = "Estimated";
constexpr std::string_view kProductSigns[] = {"", "-", "+", "tensor", "integral"};
constexpr std::string_view kInertiaPoints[] = {"cg", "origin"};
constexpr std::string_view kPriorities[] = {"cad", "wb"};

class MassReading {
 public:
  MassReading(const CsvTable& table, ImportLog& log) : _columns(table, kColumns, log), _log(log) {}

  MassRows Run(const Progress& progress) {
    CheckSignColumn();
    if (_columns.HasRequired())
      _columns.EachRow("Reading mass data", progress, [this](std::size_t row) { ReadRow(row); });
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
    ReadPartCells(row, part);
    ReadMassType(row, part);
  }

  static Part NewPart(const std::string& id) {
    Part part;
    part.id = id;
    return part;
  }

  void ReadPartCells(std::size_t row, Part& part) {
    SetText(row, Name, part.name);
    SetText(row, Revision, part.revision);
    SetText(row, MaterialName, part.material);
    SetText(row, CadMaterial, part.cadMaterial);
    SetDensity(row, Density, part.density);
    SetDensity(row, CadDensity, part.cadDensity);
    if (!_columns.Text(row, Priority).empty())
      part.densityPriority = _columns.Choice(row, Priority, kPriorities) == 0 ? DensityPriority::CadFirst
                                                                              : DensityPriority::WbFirst;
    part.standardPart |= _columns.Flag(row, Standard);
    if (const auto geometry = ReadGeometry(row)) {
      Set(row, Volume, part.geometry, *geometry);
      Warn(row, part.id, FindShapeProblems(*geometry, TensorRounding(row, ShapeIxx)));
    }
  }

  template <class T>
  void Set(std::size_t row, Column column, std::optional<T>& member, const T& value) {
    if (member && *member != value)
      _columns.Error(row, column, "differs from what another row of the same part says");
    member = value;
  }

  void SetText(std::size_t row, Column column, std::string& member) {
    const std::string text(_columns.Text(row, column));
    if (text.empty()) return;
    if (!member.empty() && member != text)
      _columns.Error(row, column,
                     Quoted(text) + " differs from " + Quoted(member) + " on another row of the same part");
    member = text;
  }

  void SetDensity(std::size_t row, Column column, std::optional<double>& member) {
    const auto density = _columns.Number(row, column);
    if (!density) return;
    if (*density < 0) _columns.Error(row, column, "a density may not be negative");
    Set(row, column, member, *density);
  }

  std::optional<Geometry> ReadGeometry(std::size_t row) {
    const auto volume = _columns.Number(row, Volume);
    const auto centroid = ReadVector(row, CentroidX);
    const auto inertia = ReadTensor(row, ShapeIxx);
    if (!volume) {
      if (centroid) _columns.LeftOut(row, CentroidX, "there is no volume, the centroid is left out");
      if (inertia)
        _columns.LeftOut(row, ShapeIxx, "there is no volume, the inertia of the shape is left out");
      return std::nullopt;
    }
    if (*volume < 0) _columns.Error(row, Volume, "a volume may not be negative");
    return Geometry{*volume, centroid, inertia};
  }

  // Three columns together: none when all are empty; one or two of them are an error.
  std::optional<Vec3> ReadVector(std::size_t row, std::size_t first) {
    const auto n = ReadNumbers<3>(row, first, "centre");
    if (!n) return std::nullopt;
    return Vec3{(*n)[0], (*n)[1], (*n)[2]};
  }

  // Moments must all be there when one is; products that are not given are zero.
  std::optional<InertiaTensor> ReadTensor(std::size_t row, std::size_t first) {
    const auto moments = ReadNumbers<3>(row, first, "moments of inertia");
    std::array<std::optional<double>, 3> products;
    for (std::size_t i = 0; i < 3; ++i) products[i] = _columns.Number(row, first + 3 + i);
    if (!moments) {
      if (products[0] || products[1] || products[2])
        _columns.RowError(row, "there are products of inertia without moments");
      return std::nullopt;
    }
    return InertiaTensor{(*moments)[0],           (*moments)[1],           (*moments)[2],
                         products[0].value_or(0), products[1].value_or(0), products[2].value_or(0)};
  }

  template <std::size_t N>
  std::optional<std::array<double, N>> ReadNumbers(std::size_t row, std::size_t first, const char* what) {
    std::array<double, N> numbers{};
    std::size_t given = 0, read = 0;
    for (std::size_t i = 0; i < N; ++i) {
      given += !_columns.Text(row, first + i).empty();
      const auto number = _columns.Number(row, first + i);
      read += number.has_value();
      numbers[i] = number.value_or(0);
    }
    if (given != 0 && given != N)
      _columns.RowError(row, "only " + std::to_string(given) + " of the " + std::to_string(N) +
                                 " numbers of the " + what + " (from " + std::string(kColumns[first].name) +
                                 " on) are given");
    return read == N ? std::optional(numbers) : std::nullopt;
  }

  void ReadMassType(std::size_t row, Part& part) {
    MassTypeData type{
        .name = MassTypeName(row), .properties = {}, .deviations = {}, .bounds = ReadBounds(row)};
    type.properties.mass = _columns.Number(row, Mass);
    type.properties.cg = ReadVector(row, CgX);
    type.deviations = ReadDeviations(row);
    type.properties.inertia = ReadInertia(row, type);
    const bool isEmpty =
        type.properties == MassProperties{} && !type.bounds && type.deviations == Deviations{};
    // A row may be there for the part's material or shape alone.
    if (isEmpty && _columns.Text(row, MassType).empty()) {
      if (_columns.Flag(row, Active))
        _columns.LeftOut(row, Active, "the row has no mass data that could be active");
      return;
    }
    if (FindMassType(part, type.name))
      return _columns.RowError(
          row, "part " + Quoted(part.id) + " has the mass type " + Quoted(type.name) + " twice");
    CheckPhysics(row, part.id, type.properties);
    if (_columns.Flag(row, Active)) MarkActive(row, part, type.name);
    ++_result.massTypes;
    part.massTypes.push_back(std::move(type));
  }

  std::string MassTypeName(std::size_t row) {
    if (_columns.Text(row, MassType).empty()) return std::string(kDefaultMassType);
    std::string name = _columns.Identifier(row, MassType).value_or("");
    if (name == kComputedMassType)
      _columns.Error(row, MassType, "\"Computed\" is filled by the server and cannot be imported");
    return name;
  }

  void MarkActive(std::size_t row, Part& part, const std::string& type) {
    if (part.activeMassType != kComputedMassType)
      _columns.Error(
          row, Active,
          "part " + Quoted(part.id) + " has an active mass type already, " + Quoted(part.activeMassType));
    part.activeMassType = type;
  }

  std::optional<MassBounds> ReadBounds(std::size_t row) {
    const auto lower = _columns.Number(row, Lower), upper = _columns.Number(row, Upper);
    if (!lower && !upper) return std::nullopt;
    if (lower.value_or(0) < 0) _columns.Error(row, Lower, "a deviation may not be negative");
    if (upper.value_or(0) < 0) _columns.Error(row, Upper, "a deviation may not be negative");
    return MassBounds{lower.value_or(0), upper.value_or(0)};
  }

  Deviations ReadDeviations(std::size_t row) {
    std::array<double, 10> sd{};
    for (std::size_t i = 0; i < sd.size(); ++i) {
      sd[i] = _columns.Number(row, SdMass + i).value_or(0);
      if (sd[i] < 0) _columns.Error(row, SdMass + i, "a standard deviation may not be negative");
    }
    return {sd[0], {sd[1], sd[2], sd[3]}, {sd[4], sd[5], sd[6], sd[7], sd[8], sd[9]}};
  }

  // About the own centre of gravity, in part axes, as the tensor; whatever the row says it is given as.
  std::optional<InertiaTensor> ReadInertia(std::size_t row, const MassTypeData& type) {
    auto inertia = ReadTensor(row, Ixx);
    if (!inertia) return std::nullopt;
    if (HasPositiveProducts(row)) inertia = WithProductsNegated(*inertia);
    const Vec3 tilts = ReadTilts(_columns, row, AxesTiltX);
    const bool aboutOrigin = _columns.Choice(row, InertiaAbout, kInertiaPoints) == 1;
    if ((tilts != Vec3{} || aboutOrigin) && type.deviations.inertia != InertiaTensor{})
      _columns.RowError(
          row, "standard deviations of inertia can only be given with inertia about the cg in part axes");
    inertia = Rotated(*inertia, RotationFromTilts(tilts));
    if (!aboutOrigin) return inertia;
    if (type.properties.mass && type.properties.cg)
      return ShiftedToCg(*inertia, *type.properties.mass, *type.properties.cg);
    _columns.RowError(row, "inertia about the origin needs mass and cg");
    return std::nullopt;
  }

  bool HasPositiveProducts(std::size_t row) {
    const std::size_t sign = _columns.Choice(row, Products, kProductSigns);
    const bool given = !_columns.Text(row, Ixx + 3).empty() || !_columns.Text(row, Ixx + 4).empty() ||
                       !_columns.Text(row, Ixx + 5).empty();
    if (given && _columns.Has(Products) && _columns.Text(row, Products).empty())
      _columns.Error(row, Products, "is empty; \"-\" (tensor elements) or \"+\" (integrals) expected");
    return sign == 2 || sign == 4;
  }

  void CheckPhysics(std::size_t row, const std::string& part, const MassProperties& properties) {
    InertiaTensor rounding = TensorRounding(row, Ixx);
    if (_columns.Choice(row, InertiaAbout, kInertiaPoints) == 1 && properties.mass && properties.cg)
      rounding = rounding + ShiftRounding(row, *properties.mass, *properties.cg);
    Warn(row, part, FindPhysicalProblems(properties, rounding));
  }

  void Warn(std::size_t row, const std::string& part, const std::vector<std::string>& problems) {
    for (const std::string& problem : problems)
      _log.Warning(_columns.RowPlace(row), "part " + Quoted(part) + ": " + problem);
  }

  InertiaTensor TensorRounding(std::size_t row, std::size_t first) const {
    const auto r = [&](std::size_t i) { return _columns.Rounding(row, first + i); };
    return {r(0), r(1), r(2), r(3), r(4), r(5)};
  }

  // A shift from the origin takes a difference of large figures, whose rounding then shows. With the mass m ±
  // dm and each coordinate c ± dc, an element of the shift is off by no more than its amount at m + dm and c
  // + dc less its amount at m and c.
  InertiaTensor ShiftRounding(std::size_t row, double mass, const Vec3& cg) const {
    const auto amount = [](double m, const Vec3& c) { return m * WithProductsNegated(PointInertia(c)); };
    const auto r = [&](std::size_t i) { return _columns.Rounding(row, CgX + i); };
    const double m = std::abs(mass);
    const Vec3 c{std::abs(cg.x), std::abs(cg.y), std::abs(cg.z)};
    return amount(m + _columns.Rounding(row, Mass), c + Vec3{r(0), r(1), r(2)}) - amount(m, c);
  }

  TableColumns _columns;
  ImportLog& _log;
  MassRows _result;
  std::unordered_map<std::string, std::size_t> _indices;  ///< of parts by identifier
};

}  // namespace

MassRows ReadMassTable(const CsvTable& table, ImportLog& log, const Progress& progress) {
  return MassReading(table, log).Run(progress);
}

}  // namespace lumira
