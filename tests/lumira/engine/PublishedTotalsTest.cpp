#include <gtest/gtest.h>

#include "tests/lumira/engine/CsvRows.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

InertiaTensor TensorOf(const CsvRow& row, const std::string& prefix) {
  const auto of = [&](const char* element) { return row.Number(prefix + "I" + element); };
  const InertiaTensor read = {of("xx"), of("yy"), of("zz"), of("xy"), of("xz"), of("yz")};
  const bool integralConvention = row.Text("POIconv") == "+" && prefix.empty();
  return integralConvention ? WithProductsNegated(read) : read;
}

Deviations DeviationsOf(const CsvRow& row, const std::string& prefix) {
  return {row.Number(prefix + "mass"),
          {row.Number(prefix + "Cx"), row.Number(prefix + "Cy"), row.Number(prefix + "Cz")},
          TensorOf(row, prefix)};
}

MassProperties PropertiesOf(const CsvRow& row) {
  return {row.Number("mass"), Vec3{row.Number("Cx"), row.Number("Cy"), row.Number("Cz")}, TensorOf(row, "")};
}

/// Every row stands in the frame of the root, so all placements are the identity.
Product Assemble(std::vector<Part> parts, const std::string& edgesFile) {
  Product product;
  product.parts = std::move(parts);
  for (const auto& edge : ReadCsv(edgesFile)) Place(product, edge.Text("parent"), edge.Text("child"));
  return product;
}

Product ToyTree(Deviations (*deviations)(const MassProperties&) = [](const MassProperties&) {
  return Deviations{};
}) {
  std::vector<Part> parts;
  for (const auto& row : ReadCsv("test_in.csv")) {
    const auto id = row.Text("id");
    const bool isLeaf = row.Has("mass");
    parts.push_back(isLeaf ? Weighed(id, PropertiesOf(row), deviations(PropertiesOf(row))) : Plain(id));
  }
  return Assemble(std::move(parts), "test_edges.csv");
}

Deviations TenthOfEach(const MassProperties& properties) {
  const auto tenth = [](double value) { return 0.1 * std::abs(value); };
  const auto& [x, y, z] = *properties.cg;
  const auto& i = *properties.inertia;
  return {tenth(*properties.mass),
          {tenth(x), tenth(y), tenth(z)},
          {tenth(i.xx), tenth(i.yy), tenth(i.zz), tenth(i.xy), tenth(i.xz), tenth(i.yz)}};
}

Product PaperExample() {
  std::vector<Part> parts{Plain("Combined")};
  const auto rows = ReadCsv("sawe_published.csv");
  for (const auto* id : {"Widget", "2nd Part"}) {
    const auto& row = RowWith(rows, "id", id);
    parts.push_back(Weighed(id, PropertiesOf(row), DeviationsOf(row, "sigma_")));
  }
  return Assemble(std::move(parts), "sawe_edges.csv");
}

TEST(PublishedTotals, TheToyTreeAddsUpToTheExactIntegers) {
  const auto rollup = RollUp(ToyTree());
  for (const auto& row : ReadCsv("test_exact.csv")) {
    const auto result = rollup.ResultOf(row.Text("id")).Value();
    EXPECT_EQ(*result.mass, row.Number("mass"));
    EXPECT_EQ(*result.cg, (Vec3{row.Number("Cx"), row.Number("Cy"), row.Number("Cz")}));
    const auto& inertia = *result.inertiaAtCg;
    EXPECT_EQ(inertia.xx, row.Number("Ixx"));
    EXPECT_EQ(inertia.yy, row.Number("Iyy"));
    EXPECT_EQ(inertia.zz, row.Number("Izz"));
    // The products of the leaves are tenths, which have no exact double.
    EXPECT_NEAR(inertia.xy, row.Number("Ixy"), 1e-14);
    EXPECT_NEAR(inertia.xz, row.Number("Ixz"), 1e-14);
    EXPECT_NEAR(inertia.yz, row.Number("Iyz"), 1e-14);
  }
}

TEST(PublishedTotals, TheToyTreeGivesThePublishedDeviationsWhenEachInputDeviatesByATenth) {
  const auto rollup = RollUp(ToyTree(TenthOfEach));
  for (const auto& row : ReadCsv("test_exact.csv")) {
    const auto result = rollup.ResultOf(row.Text("id")).Value();
    ExpectRelative(*result.deviations, DeviationsOf(row, "flat_sigma_"), 1e-9);
  }
}

TEST(PublishedTotals, ThePaperExampleAddsUpToTheExactTotal) {
  const auto result = ResultOf(PaperExample(), "Combined");
  const auto exact = ReadCsv("sawe_exact.csv").at(0);
  const auto expected = PropertiesOf(exact);
  EXPECT_NEAR(*result.mass, *expected.mass, 1e-12 * *expected.mass);
  ExpectNear(*result.cg, *expected.cg, 1e-12 * Norm(*expected.cg));
  ExpectNear(*result.inertiaAtCg, *expected.inertia, 1e-12 * Trace(*expected.inertia));
}

TEST(PublishedTotals, ThePaperExampleGivesTheOneLevelRootSumSquareDeviations) {
  const auto result = ResultOf(PaperExample(), "Combined");
  const auto exact = ReadCsv("sawe_exact.csv").at(0);
  ExpectRelative(*result.deviations, DeviationsOf(exact, "flat_sigma_"), 1e-9);
}

TEST(PublishedTotals, ThePaperExampleAgreesWithThePrintedTotalAsFarAsItsRoundedInputsGo) {
  const auto result = ResultOf(PaperExample(), "Combined");
  const auto rows = ReadCsv("sawe_published.csv");
  const auto& printed = RowWith(rows, "id", "Combined");
  ExpectNear(*result.inertiaAtCg, *PropertiesOf(printed).inertia,
             2e-3 * Trace(*PropertiesOf(printed).inertia));
  ExpectRelative(*result.deviations, DeviationsOf(printed, "sigma_"), 2e-3);
}

}  // namespace
}  // namespace lumira::test
