// What the desktop computes under each filter of the sample, and under one of two instances, beside the plain
// sum over the leaves that remain.
#include <array>
#include <cmath>
#include <string>
#include <vector>

#include "tests/system/DesktopRun.h"

namespace {

using namespace system_tests;

using Row = std::map<std::string, std::string>;  ///< cells by title
using Rows = std::map<std::string, Row>;

std::vector<std::string> CellsOf(const std::string& line) {
  std::vector<std::string> cells(1);
  bool quoted = false;
  for (const char c : line) {
    if (c == '"')
      quoted = !quoted;
    else if (c == ',' && !quoted)
      cells.emplace_back();
    else
      cells.back() += c;
  }
  return cells;
}

/// A table of the sample by the value of one of its columns; of several rows with the same one the first,
/// which of mass types is the one that counts.
Rows Table(const char* file, const std::string& key) {
  std::ifstream in(std::string(KORVO_SOURCE_DIR "/samples/iea15/") + file);
  std::string line;
  std::getline(in, line);
  const std::vector<std::string> titles = CellsOf(line);
  Rows rows;
  while (std::getline(in, line)) {
    const std::vector<std::string> cells = CellsOf(line);
    Row row;
    for (std::size_t i = 0; i < titles.size(); ++i) row[titles[i]] = i < cells.size() ? cells[i] : "";
    rows.emplace(row[key], row);
  }
  return rows;
}

double Number(const Row& row, const std::string& title) {
  const std::string& text = row.at(title);
  return text.empty() ? 0 : std::stod(text);
}

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

Vector Numbers(const Row& row, const std::array<const char*, 3>& titles) {
  return {Number(row, titles[0]), Number(row, titles[1]), Number(row, titles[2])};
}

/// About y by an angle in degrees, right-handed.
Matrix Tilt(double degrees) {
  const double angle = degrees * std::acos(-1.0) / 180;
  return {{{std::cos(angle), 0, std::sin(angle)}, {0, 1, 0}, {-std::sin(angle), 0, std::cos(angle)}}};
}

Matrix InertiaIn(const Row& row) {
  const auto [xx, yy, zz] = Numbers(row, {"ixx [kg m^2]", "iyy [kg m^2]", "izz [kg m^2]"});
  const auto [xy, xz, yz] = Numbers(row, {"ixy [kg m^2]", "ixz [kg m^2]", "iyz [kg m^2]"});
  return {{{xx, xy, xz}, {xy, yy, yz}, {xz, yz, zz}}};
}

/// Mass (kg), its first moment (kg·m) and the inertia tensor (kg·m²) about the origin of "Above_yaw", which
/// is that of the product.
class Sum {
 public:
  void AddLeaf(const std::string& leaf) {
    const Row& row = _masses.at(leaf);
    // Both leaves of the generator share its frame.
    const Row& own = _structure.at(leaf);
    const Row& place = own.at("parent") == "generator" ? _structure.at("generator") : own;
    const Matrix tilt = Tilt(Number(place, "tilt y [deg]"));
    const Vector cg = Numbers(row, {"cg x [m]", "cg y [m]", "cg z [m]"});
    Vector at = Numbers(place, {"x [m]", "y [m]", "z [m]"});
    for (std::size_t i = 0; i < 3; ++i)
      for (std::size_t k = 0; k < 3; ++k) at[i] += tilt[i][k] * cg[k];
    Add(Number(row, "mass [kg]"), at, tilt, InertiaIn(row));
  }

  /// kg·m², by the parallel axis theorem.
  double InertiaAboutCentre(std::size_t i, std::size_t j) const {
    double square = 0;
    for (const double one : moment) square += one * one;
    return inertia[i][j] - ((i == j ? square : 0) - moment[i] * moment[j]) / mass;
  }

  double mass = 0;
  Vector moment{};
  Matrix inertia{};

 private:
  void Add(double m, const Vector& at, const Matrix& tilt, const Matrix& own) {
    const double square = at[0] * at[0] + at[1] * at[1] + at[2] * at[2];
    mass += m;
    for (std::size_t i = 0; i < 3; ++i) {
      moment[i] += m * at[i];
      for (std::size_t j = 0; j < 3; ++j) {
        inertia[i][j] += m * ((i == j ? square : 0) - at[i] * at[j]);
        for (std::size_t k = 0; k < 3; ++k)
          for (std::size_t l = 0; l < 3; ++l) inertia[i][j] += tilt[i][k] * own[k][l] * tilt[j][l];
      }
    }
  }

  const Rows _structure = Table("structure.csv", "child");
  const Rows _masses = Table("mass.csv", "part");
};

class FilteredFigures : public DesktopRun {
 protected:
  static void ExpectSumOf(const std::string& prefix, const std::vector<std::string>& leaves) {
    Sum sum;
    for (const std::string& leaf : leaves) sum.AddLeaf(leaf);
    const std::array<std::string, 3> axes{"x", "y", "z"};
    const double trace = sum.inertia[0][0] + sum.inertia[1][1] + sum.inertia[2][2];
    EXPECT_NEAR(Value(prefix + "mass_kg"), sum.mass, 1e-12 * sum.mass);
    for (std::size_t i = 0; i < 3; ++i)
      EXPECT_NEAR(Value(prefix + "cg_" + axes[i] + "_m"), sum.moment[i] / sum.mass, 1e-11);
    for (std::size_t i = 0; i < 3; ++i)
      for (std::size_t j = i; j < 3; ++j) {
        const std::string element = axes[i] + axes[j] + "_kgm2";
        EXPECT_NEAR(Value(prefix + "inertia_ref_" + element), sum.inertia[i][j], 1e-12 * trace);
        // The axes of "Above_yaw" are those of the product.
        EXPECT_NEAR(Value(prefix + "inertia_cg_" + element), sum.InertiaAboutCentre(i, j), 1e-12 * trace);
      }
  }
};

TEST_F(FilteredFigures, WithoutAFilterAreTheSumOfAllLeaves) {
  ExpectSumOf("above_yaw.",
              {"mb1", "mb2", "lss", "hss", "brake", "gearbox", "generator_rotor", "generator_stator", "hvac",
               "nose", "bedplate", "platform", "cover", "transformer", "converter"});
}

TEST_F(FilteredFigures, WithoutTheGeneratorAreTheSumOfTheOthers) {
  ExpectSumOf("above_yaw.without_generator.", {"mb1", "mb2", "lss", "hss", "brake", "gearbox", "hvac", "nose",
                                               "bedplate", "platform", "cover", "transformer", "converter"});
}

TEST_F(FilteredFigures, OfTheStructureAreTheSumOfWhatCarries) {
  ExpectSumOf("above_yaw.structure_only.", {"bedplate", "nose", "platform", "cover"});
}

// High-speed shaft and gearbox weigh nothing: it does not show whether they turn.
TEST_F(FilteredFigures, OfTheRotatingPartsAreTheSumOfShaftAndGeneratorRotor) {
  ExpectSumOf("above_yaw.rotating_parts.", {"lss", "generator_rotor"});
}

TEST_F(FilteredFigures, AsBuiltIn2020AreTheSumWithoutPlatformAndVentilation) {
  ExpectSumOf("above_yaw.as_built_2020.",
              {"mb1", "mb2", "lss", "hss", "brake", "gearbox", "generator_rotor", "generator_stator", "nose",
               "bedplate", "cover", "transformer", "converter"});
}

TEST_F(FilteredFigures, OfTwoChosenInstancesAreTheSumOfWhatIsBelowThem) {
  ExpectSumOf("above_yaw.user_filter.", {"bedplate", "generator_rotor", "generator_stator"});
}

}  // namespace
