#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<Warning> WarningsOf(const Product& product, const std::string& part = "root",
                                std::size_t examples = 5) {
  return RollUp(product).WarningsOf(part, examples).Value();
}

Product Under(std::vector<Part> parts) {
  Product product;
  product.parts.push_back(Plain("root"));
  for (auto& part : parts) {
    Place(product, "root", part.id);
    product.parts.push_back(std::move(part));
  }
  return product;
}

const InertiaTensor kUnit = {1, 1, 1, 0, 0, 0};

TEST(Warnings, CompleteDataGiveNone) {
  EXPECT_THAT(WarningsOf(Under({Weighed("a", {4.0, Vec3{1, 0, 0}, kUnit})})), IsEmpty());
}

TEST(Warnings, PartsWithoutDataAreCountedAndTheFirstOnesNamed) {
  auto product = Under({Plain("a"), Weighed("b", {4.0, Vec3{}, kUnit}), Plain("c"), Plain("d")});
  product.instances[2].quantity = 7;
  EXPECT_THAT(WarningsOf(product, "root", 2),
              ElementsAre(Warning{WarningKind::WithoutMass, 9.0, 0.0, {"a", "c"}}));
}

TEST(Warnings, ASharedPartIsNamedOnceAndCountedAsOftenAsItOccurs) {
  auto product = Under({Plain("a")});
  Place(product, "root", "a");
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::WithoutMass, 2.0, 0.0, {"a"}}));
}

TEST(Warnings, MassWithoutCentreOrInertiaIsTold) {
  const auto product = Under({Weighed("loose", {6.0, {}, {}}), Weighed("point", {3.0, Vec3{}, {}})});
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::WithoutCg, 1.0, 6.0, {"loose"}},
                                               Warning{WarningKind::WithoutInertia, 1.0, 3.0, {"point"}}));
}

TEST(Warnings, NegativeMassesAndATotalOfZeroAreTold) {
  const auto product = Under({Weighed("a", {6.0, Vec3{}, kUnit}), Weighed("hole", {-6.0, Vec3{}, kUnit})});
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::NegativeMass, 1.0, 0.0, {"hole"}},
                                               Warning{WarningKind::ZeroMass, 2.0, 0.0, {}}));
}

TEST(Warnings, MissingBoundsAreToldOnlyBesideOthersThatAreThere) {
  EXPECT_THAT(WarningsOf(Under({Weighed("a", {6.0, Vec3{}, kUnit})})), IsEmpty());
  const auto product =
      Under({Weighed("a", {6.0, Vec3{}, kUnit}), Weighed("b", {6.0, Vec3{}, kUnit}, {}, MassBounds{1, 1})});
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::WithoutBounds, 1.0, 0.0, {"a"}}));
}

TEST(Warnings, AnAssemblyThatCountsWithItsOwnDataHidesWhatIsBelowIt) {
  auto product = Under({Weighed("sub", {9.0, Vec3{}, kUnit})});
  product.parts.push_back(Plain("unknown"));
  Place(product, "sub", "unknown");
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::ReplacesChildren, 1.0, 0.0, {"sub"}}));
  EXPECT_THAT(WarningsOf(product, "sub"),
              ElementsAre(Warning{WarningKind::WithoutMass, 1.0, 0.0, {"unknown"}}));
}

TEST(Warnings, AShapeThatIsNotAddedToTheChildrenIsTold) {
  auto product = Under({Weighed("a", {4.0, Vec3{}, kUnit})});
  product.parts[0].geometry = Geometry{1.0, Vec3{}, InertiaTensor{}};
  product.parts[0].density = 1.0;
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::ShapeNotAdded, 1.0, 0.0, {"root"}}));
  EXPECT_THAT(WarningsOf(product, "a"), IsEmpty());
}

TEST(Warnings, SumsThatOverflowAreTold) {
  const auto product = Under({Weighed("a", {1e308, Vec3{}, kUnit}), Weighed("b", {1e308, Vec3{}, kUnit})});
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::NotFinite, 2.0, 0.0, {}}));
}

TEST(Warnings, LimitsOfTheMassThatOverflowAreTold) {
  const auto product = Under({Weighed("a", {1.0, Vec3{}, kUnit}, {}, MassBounds{0, 1e308}),
                              Weighed("b", {1.0, Vec3{}, kUnit}, {}, MassBounds{0, 1e308})});
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::NotFinite, 2.0, 0.0, {}}));
}

TEST(Warnings, DeviationsThatOverflowAreTold) {
  const auto product = Under({Weighed("a", {1.0, Vec3{}, kUnit}, {1e155, {}, {}}),
                              Weighed("b", {1.0, Vec3{}, kUnit}, {1e155, {}, {}})});
  EXPECT_THAT(WarningsOf(product), ElementsAre(Warning{WarningKind::NotFinite, 2.0, 0.0, {}}));
}

TEST(Warnings, APartByItselfIsWarnedAboutToo) {
  EXPECT_THAT(WarningsOf(Under({Plain("a")}), "a"),
              ElementsAre(Warning{WarningKind::WithoutMass, 1.0, 0.0, {"a"}}));
}

}  // namespace
}  // namespace lumira::test
