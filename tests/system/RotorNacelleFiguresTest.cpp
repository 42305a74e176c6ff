// The whole sample under each of its filters. The figures come from a sum over the leaves with 60 decimal
// digits and a tilt of exactly pi/30, rounded to the nearest double.
#include <array>
#include <cmath>
#include <ostream>

#include "tests/system/SampleDatabase.h"

namespace {

using namespace system_tests;

struct Figures {
  const char* options;
  double mass;               ///< kg
  std::array<double, 3> cg;  ///< m, in the frame of the product
};

void PrintTo(const Figures& figures, std::ostream* out) { *out << "RNA " << figures.options; }

class RotorNacelleFigures : public testing::TestWithParam<Figures> {
 protected:
  static void SetUpTestSuite() { s_folder = OwnFolder(); }
  static void TearDownTestSuite() { fs::remove_all(s_folder); }
  void SetUp() override { fs::remove_all(s_folder / "same.lumira"); }

  static inline fs::path s_folder;
};

TEST_P(RotorNacelleFigures, AreThoseOfTheLeavesThatRemain) {
  const Values values = SampleDatabase(s_folder).Compute(std::string("RNA ") + GetParam().options);
  const auto value = [&](const char* name) { return std::stod(values.at(name)); };
  const auto& [x, y, z] = GetParam().cg;
  const double length = std::hypot(x, y, z);
  EXPECT_NEAR(value("rna.mass_kg"), GetParam().mass, 1e-12 * GetParam().mass);
  EXPECT_NEAR(value("rna.cg_x_m"), x, 1e-12 * length);
  EXPECT_NEAR(value("rna.cg_y_m"), y, 1e-12 * length);
  EXPECT_NEAR(value("rna.cg_z_m"), z, 1e-12 * length);
}

constexpr Figures kFigures[] = {
    {"", 945914.1458619487, {-6.7875920808656085, -0.09986073487295738, 4.541942475923938}},
    {"--filter 'Without generator'",
     577074.7387101381,
     {-6.96074901650742, -0.1636870848715952, 4.227193069359862}},
    {"--filter 'Structure only'", 122376.30312312265, {-1.0215932183425847, 0, 2.31716446052575}},
    {"--filter 'Rotating parts'", 418891.9845225824, {-9.728513953125988, 0, 5.371967433562836}},
    {"--filter 'As built 2020'",
     887860.8646359388,
     {-7.162546349171616, -0.10639018510094207, 4.785725761325595}},
};

INSTANTIATE_TEST_SUITE_P(UnderEachFilter, RotorNacelleFigures, testing::ValuesIn(kFigures));

}  // namespace
