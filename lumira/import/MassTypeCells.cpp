#include "lumira/import/MassTypeCells.h"

#include <array>
#include <cmath>

#include "lumira/import/MassTypeColumns.h"
#include "lumira/import/PhysicalChecks.h"
#include "lumira/import/Tilts.h"
#include "lumira/import/VectorCells.h"

namespace lumira {
namespace {

using namespace mass_type_columns;

constexpr std::string_view kDefaultMassType = "Estimated";
constexpr std::string_view kProductSigns[] = {"", "-", "+", "tensor", "integral"};
constexpr std::string_view kInertiaPoints[] = {"cg", "origin"};

class MassTypeReading {
 public:
  MassTypeReading(const TableColumns& columns, std::size_t row)
      : _columns(columns),
        _row(row),
        _isAboutOrigin(columns.Choice(row, InertiaAbout, kInertiaPoints) == 1) {}

  MassTypeData Run() {
    MassTypeData type{.name = ReadName(), .properties = {}, .deviations = {}, .bounds = ReadBounds()};
    type.properties.mass = _columns.Number(_row, Mass);
    type.properties.cg = ReadVector(_columns, _row, CgX);
    type.deviations = ReadDeviations();
    type.properties.inertia = ReadInertia(type);
    return type;
  }

  // How much the inertia may be off because figures are rounded.
  InertiaTensor InertiaRounding(const MassProperties& properties) const {
    const InertiaTensor rounding = TensorRounding(_columns, _row, Ixx);
    if (!_isAboutOrigin || !properties.mass || !properties.cg) return rounding;
    return rounding + ShiftRounding(*properties.mass, *properties.cg);
  }

 private:
  std::string ReadName() {
    if (_columns.Text(_row, MassType).empty()) return std::string(kDefaultMassType);
    std::string name = _columns.Identifier(_row, MassType).value_or("");
    if (name == kComputedMassType)
      _columns.Error(_row, MassType, "\"Computed\" is filled by the server and cannot be imported");
    return name;
  }

  std::optional<MassBounds> ReadBounds() {
    const auto lower = _columns.Number(_row, Lower), upper = _columns.Number(_row, Upper);
    if (!lower && !upper) return std::nullopt;
    if (lower.value_or(0) < 0) _columns.Error(_row, Lower, "a deviation may not be negative");
    if (upper.value_or(0) < 0) _columns.Error(_row, Upper, "a deviation may not be negative");
    return MassBounds{lower.value_or(0), upper.value_or(0)};
  }

  Deviations ReadDeviations() {
    std::array<double, 10> sd{};
    for (std::size_t i = 0; i < sd.size(); ++i) {
      sd[i] = _columns.Number(_row, SdMass + i).value_or(0);
      if (sd[i] < 0) _columns.Error(_row, SdMass + i, "a standard deviation may not be negative");
    }
    return {sd[0], {sd[1], sd[2], sd[3]}, {sd[4], sd[5], sd[6], sd[7], sd[8], sd[9]}};
  }

  // What is said about an inertia is read even where none is given.
  std::optional<InertiaTensor> ReadInertia(const MassTypeData& type) {
    auto inertia = ReadTensor(_columns, _row, Ixx);
    const bool turnsProducts = HasPositiveProducts();
    const Vec3 tilts = ReadTilts(_columns, _row, AxesTiltX);
    if (!inertia) {
      NameIdleTilts();
      return std::nullopt;
    }
    if (turnsProducts) inertia = WithProductsNegated(*inertia);
    if ((tilts != Vec3{} || _isAboutOrigin) && type.deviations.inertia != InertiaTensor{})
      _columns.Error(
          _row, _columns.FirstGiven(_row, SdIxx, 6),
          "standard deviations of inertia can only be given with inertia about the cg in part axes");
    inertia = Rotated(*inertia, RotationFromTilts(tilts));
    if (_isAboutOrigin) inertia = MovedToCg(*inertia, type.properties);
    if (!inertia || IsFinite(*inertia)) return inertia;
    _columns.Error(_row, Ixx, "the inertia about the cg in part axes is too large to be computed");
    return std::nullopt;
  }

  std::optional<InertiaTensor> MovedToCg(const InertiaTensor& inertia, const MassProperties& properties) {
    if (properties.mass && properties.cg) return ShiftedToCg(inertia, *properties.mass, *properties.cg);
    const bool isGiven = !_columns.Text(_row, Mass).empty() && _columns.IsAnyGiven(_row, CgX, 3);
    if (!isGiven) _columns.Error(_row, InertiaAbout, "inertia about the origin needs mass and cg");
    return std::nullopt;
  }

  // The sign of products and the point say nothing of their own, and many tables have them on every row;
  // turned axes are figures of somebody.
  void NameIdleTilts() {
    if (_columns.IsAnyGiven(_row, AxesTiltX, 3))
      _columns.LeftOut(_row, _columns.FirstGiven(_row, AxesTiltX, 3),
                       "there is no inertia, the tilt of its axes is left out");
  }

  bool HasPositiveProducts() {
    const std::size_t sign = _columns.Choice(_row, Products, kProductSigns);
    const std::size_t firstProduct = Ixx + 3;
    const bool given = _columns.IsAnyGiven(_row, firstProduct, 3);
    if (given && _columns.Has(Products) && _columns.Text(_row, Products).empty())
      _columns.Error(_row, Products, "is empty; \"-\" (tensor elements) or \"+\" (integrals) expected");
    return sign == 2 || sign == 4;
  }

  // A shift from the origin takes a difference of large figures, whose rounding then shows. With the mass m ±
  // dm and each coordinate c ± dc, an element of the shift is off by no more than its amount at m + dm and c
  // + dc less its amount at m and c.
  InertiaTensor ShiftRounding(double mass, const Vec3& cg) const {
    const auto amount = [](double m, const Vec3& c) { return m * WithProductsNegated(PointInertia(c)); };
    const double m = std::abs(mass);
    const Vec3 c{std::abs(cg.x), std::abs(cg.y), std::abs(cg.z)};
    return amount(m + _columns.Rounding(_row, Mass), c + VectorRounding(_columns, _row, CgX)) - amount(m, c);
  }

  const TableColumns& _columns;
  std::size_t _row;
  bool _isAboutOrigin;
};

struct IdleDeviations {
  bool isIdle;
  std::size_t first, count;  ///< their columns
  const char* problem;
};

// Deviations of a value that is not known count nowhere. They are taken as they stand, as inertia is that
// does not count.
void WarnOfIdleDeviations(const TableColumns& columns, std::size_t row, const std::string& partId,
                          const MassTypeData& type, ImportLog& log) {
  const auto& [mass, cg, inertia] = type.properties;
  const auto& sd = type.deviations;
  const IdleDeviations all[] = {
      {!mass && sd.mass != 0, SdMass, 1, "there is no mass, so its standard deviation does not count"},
      {!cg && sd.cg != Vec3{}, SdCgX, 3,
       "there is no centre of gravity, so its standard deviations do not count"},
      {!inertia && sd.inertia != InertiaTensor{}, SdIxx, 6,
       "there is no inertia, so its standard deviations do not count"},
      {!mass && type.bounds.has_value(), Lower, 2, "there is no mass, so its limits do not count"}};
  for (const IdleDeviations& idle : all)
    if (idle.isIdle)
      WarnOf({idle.problem}, columns.PlaceOf(row, columns.FirstGiven(row, idle.first, idle.count)), partId,
             log);
}

bool IsEmpty(const MassTypeData& type) {
  return type.properties == MassProperties{} && !type.bounds && type.deviations == Deviations{};
}

}  // namespace

std::optional<MassTypeData> ReadMassType(const TableColumns& columns, std::size_t row,
                                         const std::string& partId, ImportLog& log) {
  MassTypeReading reading(columns, row);
  const MassTypeData type = reading.Run();
  // A row may be there for the part's material or shape alone.
  if (IsEmpty(type) && columns.Text(row, MassType).empty()) return std::nullopt;
  WarnOf(FindPhysicalProblems(type.properties, reading.InertiaRounding(type.properties)),
         columns.RowPlace(row), partId, log);
  WarnOfIdleDeviations(columns, row, partId, type, log);
  return type;
}

}  // namespace lumira
