#include <gtest/gtest.h>

#include <numbers>
#include <set>

#include "tests/lumira/engine/CsvRows.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

// The nacelle of the IEA 15 MW reference turbine. Found by calculation: the inertias of the shaft-line parts
// come out for a tilt of exactly 6 degrees (π/30 rad, not the 0.10472 of the documentation, which is off by
// 1e-8 of the trace), as the right-handed rotation about +y that turns part axes into tower-top axes.
constexpr double kTilt = std::numbers::pi / 30.0;

// hss and gearbox belong to the shaft line too, but have no mass: turned or not makes no difference.
const std::set<std::string> kShaftLine = {"mb1", "mb2", "lss", "brake", "hvac", "nose", "generator"};

InertiaTensor TensorOf(const CsvRow& row, const std::string& prefix) {
  const auto of = [&](const char* element) { return row.Number(prefix + element); };
  return {of("xx"), of("yy"), of("zz"), of("xy"), of("xz"), of("yz")};
}

Vec3 CentreOf(const CsvRow& row) { return {row.Number("cx"), row.Number("cy"), row.Number("cz")}; }

/// Each part has its origin in its own centre of gravity; the generator's parts stand in the generator's
/// frame.
Product Nacelle() {
  Product product;
  product.parts = {Plain("Above_yaw"), Plain("generator")};
  const auto rows = ReadCsv("iea15_nacelle.csv");
  const auto generatorCentre = CentreOf(RowWith(rows, "component", "generator"));
  for (const auto& row : rows) {
    const auto id = row.Text("component"), parent = row.Text("parent");
    if (parent != "Above_yaw" && parent != "generator") continue;
    if (id != "generator") {
      product.parts.push_back(Weighed(id, {row.Number("mass"), Vec3{}, TensorOf(row, "Icm_")}));
    }
    if (parent == "Above_yaw") {
      Place(product, parent, id,
            {kShaftLine.contains(id) ? RotationAboutY(kTilt) : Rotation{}, CentreOf(row)});
    } else {
      Place(product, parent, id, {{}, Transposed(RotationAboutY(kTilt)) * (CentreOf(row) - generatorCentre)});
    }
  }
  return product;
}

void ExpectPublished(const MassResult& result, const CsvRow& row, const Vec3& centre) {
  const auto inertia = TensorOf(row, "Icm_");
  EXPECT_NEAR(*result.mass, row.Number("mass"), 1e-12 * row.Number("mass"));
  ExpectNear(*result.cg, centre, 1e-12 * Norm(CentreOf(row)));
  ExpectNear(*result.inertiaAtCg, inertia, 1e-12 * Trace(inertia));
}

TEST(Turbine, TheGeneratorAddsUpToItsPublishedRowInItsOwnTiltedFrame) {
  const auto rows = ReadCsv("iea15_nacelle.csv");
  ExpectPublished(ResultOf(Nacelle(), "generator"), RowWith(rows, "component", "generator"), {});
}

TEST(Turbine, AboveYawAddsUpToItsPublishedRow) {
  const auto rows = ReadCsv("iea15_nacelle.csv");
  const auto& row = RowWith(rows, "component", "Above_yaw");
  const auto result = ResultOf(Nacelle(), "Above_yaw");
  ExpectPublished(result, row, CentreOf(row));
  const auto atTowerTop = TensorOf(row, "Itt_");
  ExpectNear(result.inertiaAtOrigin, atTowerTop, 1e-12 * Trace(atTowerTop));
}

TEST(Turbine, EveryShaftLinePartComesToItsPublishedTowerTopInertiaByItself) {
  const auto rows = ReadCsv("iea15_nacelle.csv");
  for (const auto& id : kShaftLine) {
    Product product;
    const auto& row = RowWith(rows, "component", id);
    product.parts = {Plain("top"), Weighed(id, {row.Number("mass"), Vec3{}, TensorOf(row, "Icm_")})};
    Place(product, "top", id, {RotationAboutY(kTilt), CentreOf(row)});
    const auto published = TensorOf(row, "Itt_");
    ExpectNear(ResultOf(product, "top").inertiaAtOrigin, published, 1e-12 * Trace(published));
  }
}

TEST(Turbine, PartsWithoutMassStandInTheStructureAndAddNothing) {
  const auto result = ResultOf(Nacelle(), "Above_yaw");
  EXPECT_EQ(result.coverage.items,
            15.0);  // 14 rows right below, one of them the generator with its two parts
  EXPECT_EQ(result.coverage.withoutMass, 0.0);
  EXPECT_DOUBLE_EQ(result.coverage.massWithInertia, *result.mass);
}

}  // namespace
}  // namespace lumira::test
