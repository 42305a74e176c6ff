#include <gtest/gtest.h>

#include "ImportFixture.h"
#include "lumira/engine/Rollup.h"

namespace lumira::test {
namespace {

constexpr char kData[] = KORVO_SOURCE_DIR "/tests/lumira/data/import/";
constexpr char kSamples[] = KORVO_SOURCE_DIR "/samples/iea15/";

TableSource Table(const std::string& path) {
  auto table = ReadTableFile(path);
  EXPECT_TRUE(table.Ok()) << path;
  return std::move(table).Value();
}

MassResult Compute(const ImportTables& tables, const std::string& part) {
  auto imported = ReadProductTables(tables, {});
  EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
  auto compiled = Compile(imported.Value().product);
  EXPECT_TRUE(compiled.Ok()) << compiled.Failure().message;
  return Rollup(std::move(compiled).Value()).ResultOf(part).Value();
}

// Relative to the size of the whole, since elements that cancel cannot do better.
void ExpectTensor(const InertiaTensor& is, const InertiaTensor& should, double tolerance) {
  const double trace = Trace(should);
  const InertiaTensor off = is - should;
  for (double element : {off.xx, off.yy, off.zz, off.xy, off.xz, off.yz})
    EXPECT_LE(std::abs(element), tolerance * trace);
}

TEST(PublishedSets, ToyTreeGivesTheExactIntegers) {
  const ImportTables tables{std::nullopt, Table(std::string(kData) + "test.csv")};
  const MassResult top = Compute(tables, "A.1");
  EXPECT_EQ(top.mass, 21);
  EXPECT_EQ(top.cg, (Vec3{0, 0, 0}));
  EXPECT_EQ(top.inertiaAtCg->xx, 144);
  EXPECT_EQ(top.inertiaAtCg->yy, 144);
  EXPECT_EQ(top.inertiaAtCg->zz, 139);
  EXPECT_DOUBLE_EQ(top.inertiaAtCg->xy, -4.8);
  EXPECT_DOUBLE_EQ(top.inertiaAtCg->xz, -24.8);
  EXPECT_DOUBLE_EQ(top.inertiaAtCg->yz, -23.2);
  const MassResult branch = Compute(tables, "A.2");
  EXPECT_EQ(branch.mass, 8);
  EXPECT_EQ(branch.cg, (Vec3{1, 0, 0}));
  EXPECT_EQ(branch.inertiaAtCg->xx, 32);
  EXPECT_EQ(branch.inertiaAtCg->yy, 24);
}

// Totals by rational arithmetic and one-level root-sum-square deviations of the same figures.
TEST(PublishedSets, WidgetsGiveNominalValuesAndDeviations) {
  const MassResult total =
      Compute({Table(std::string(kData) + "sawe_structure.csv"), Table(std::string(kData) + "sawe_mass.csv")},
              "Combined");
  EXPECT_NEAR(*total.mass, 74.63, 74.63e-12);
  EXPECT_NEAR(total.cg->x, 109.87693956853812, 110e-12);
  EXPECT_NEAR(total.cg->y, -0.18285943990352405, 1e-12);
  EXPECT_NEAR(total.cg->z, -0.02043146187860109, 1e-12);
  // The exact figures are integrals, the tensor has the products negated.
  ExpectTensor(*total.inertiaAtCg,
               {7341.733255902452, 42673.74718710438, 44482.052094792976, -1558.714458903926,
                1401.5338025458932, 1060.9505360739647},
               1e-12);
  ASSERT_TRUE(total.deviations.has_value());
  EXPECT_NEAR(total.deviations->mass, 2.130079622924927, 3e-9);
  EXPECT_NEAR(total.deviations->cg.x, 0.95821003878182, 1e-9);
  EXPECT_NEAR(total.deviations->cg.y, 0.19998469735380803, 1e-9);
  EXPECT_NEAR(total.deviations->cg.z, 0.06178402300456157, 1e-9);
  ExpectTensor(total.deviations->inertia,
               {387.40174550562006, 2789.313275165242, 2815.32604387874, 1488.0947508132901,
                418.60480105475216, 125.31753303195684},
               1e-9);
}

TEST(PublishedSets, SampleGeneratorAgreesWithItsPublishedRow) {
  const MassResult generator =
      Compute({Table(std::string(kSamples) + "structure.csv"), Table(std::string(kSamples) + "mass.csv")},
              "generator");
  EXPECT_NEAR(*generator.mass, 368839.4071518108, 368839e-12);
  EXPECT_EQ(generator.cg, (Vec3{0, 0, 0}));
  ExpectTensor(*generator.inertiaAtCg, {5197408.244421278, 2752875.38606201, 2752875.38606201, 0, 0, 0},
               1e-12);
}

TEST(PublishedSets, SampleAboveYawAgreesWithItsPublishedRow) {
  const MassResult above =
      Compute({Table(std::string(kSamples) + "structure.csv"), Table(std::string(kSamples) + "mass.csv")},
              "Above_yaw");
  EXPECT_NEAR(*above.mass, 644856.548088461, 644857e-12);
  EXPECT_NEAR(above.cg->x, -5.124694874749737, 5e-12);
  EXPECT_NEAR(above.cg->y, -0.146481697382938, 1e-12);
  EXPECT_NEAR(above.cg->z, 4.314502124176699, 4e-12);
  ExpectTensor(*above.inertiaAtCg,
               {9474045.437011357, 10608608.72268249, 10536262.58048209, 484077.0468450342, 2197871.805292473,
                -236144.6819962184},
               1e-12);
  ExpectTensor(
      above.inertiaAtOrigin,
      {21491840.63823167, 39548110.82965133, 27485642.71525947, 0, 16455976.97605734, 171401.8154877078},
      1e-12);
}

ImportTables SampleTables() {
  const auto table = [](const char* name) { return Table(std::string(kSamples) + name); };
  return {table("structure.csv"), table("mass.csv"), table("filters.csv"), table("documents.csv"),
          table("properties.csv")};
}

TEST(PublishedSets, SampleImportsWithoutWarnings) {
  const auto imported = ReadProductTables(SampleTables(), {});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_EQ(imported.Value().report.parts, 22u);
  EXPECT_EQ(imported.Value().report.instances, 21u);
  EXPECT_EQ(imported.Value().report.revisions, 9u);
  EXPECT_EQ(imported.Value().report.properties, 7u);
  EXPECT_TRUE(imported.Value().report.warnings.empty());
  EXPECT_TRUE(imported.Value().report.leftOut.empty());
}

// The published figures are those of "Calculated"; the others were made up for illustration.
TEST(PublishedSets, SampleCountsWithItsPublishedFiguresOnly) {
  const auto imported = ReadProductTables(SampleTables(), {});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  std::size_t several = 0;
  for (const Part& part : imported.Value().product.parts) {
    const std::string expected = part.massTypes.empty() ? "Computed" : "Calculated";
    EXPECT_EQ(part.activeMassType, expected) << part.id;
    several += part.massTypes.size() > 1;
  }
  EXPECT_EQ(several, 6u) << "of several mass types";
}

}  // namespace
}  // namespace lumira::test
