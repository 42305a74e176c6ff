#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

using protocol::ErrorKind;
using ::testing::HasSubstr;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

Product TwoParts() {
  Product product;
  product.parts = {Plain("frame"), Weighed("bolt", {2.0, Vec3{1, 0, 0}, InertiaTensor{1, 1, 1}})};
  Place(product, "frame", "bolt");
  product.roots = {"frame"};
  return product;
}

void ExpectRefused(const Product& product, ErrorKind kind, const std::vector<std::string>& pieces) {
  const auto compiled = Compile(product);
  ASSERT_FALSE(compiled.Ok());
  EXPECT_EQ(compiled.Failure().kind, kind);
  for (const auto& piece : pieces) EXPECT_THAT(compiled.Failure().message, HasSubstr(piece));
}

TEST(CompileErrors, ACycleIsNamedPartByPart) {
  auto product = TwoParts();
  product.parts.push_back(Plain("plate"));
  Place(product, "frame", "plate");
  Place(product, "plate", "frame");
  ExpectRefused(product, ErrorKind::Conflict, {"cycle of 2 parts: ", "'frame' > 'plate' > 'frame'"});
}

TEST(CompileErrors, APartInsideItselfIsACycle) {
  auto product = TwoParts();
  Place(product, "frame", "frame");
  ExpectRefused(product, ErrorKind::Conflict, {"'frame' > 'frame'"});
}

TEST(CompileErrors, ACycleThatNoRootReachesIsFoundToo) {
  auto product = TwoParts();
  product.parts.push_back(Plain("a"));
  product.parts.push_back(Plain("b"));
  Place(product, "a", "b");
  Place(product, "b", "a");
  ExpectRefused(product, ErrorKind::Conflict, {"'a' > 'b' > 'a'"});
}

TEST(CompileErrors, AVeryLongCycleIsShortenedInTheMessage) {
  Product product;
  for (int i = 0; i < 1000; ++i) product.parts.push_back(Plain("p" + std::to_string(i)));
  for (int i = 0; i < 1000; ++i)
    Place(product, "p" + std::to_string(i), "p" + std::to_string((i + 1) % 1000));
  ExpectRefused(product, ErrorKind::Conflict, {"cycle of 1000 parts: ", "'p11' > ... > 'p0'"});
}

TEST(CompileErrors, TheSamePartTwiceBelowOneParentIsNoCycle) {
  auto product = TwoParts();
  Place(product, "frame", "bolt");
  EXPECT_TRUE(Compile(product).Ok());
}

TEST(CompileErrors, APlacementThatIsNoRotationNamesTheInstanceAndTheError) {
  auto product = TwoParts();
  product.instances[0].placement.rotation.m[4] = 1.5;
  ExpectRefused(product, ErrorKind::BadValue, {"instance 'i0' of 'bolt' in 'frame'", "1.25", "1e-06"});
}

TEST(CompileErrors, AMirrorIsNoRotation) {
  auto product = TwoParts();
  product.instances[0].placement.rotation.m[4] = -1.0;
  ExpectRefused(product, ErrorKind::BadValue, {"instance 'i0'", "determinant -1"});
}

TEST(CompileErrors, NotANumberInAPlacementNamesTheInstance) {
  auto product = TwoParts();
  product.instances[0].placement.translation.y = kNan;
  ExpectRefused(product, ErrorKind::BadValue, {"instance 'i0'", "nan"});
  product = TwoParts();
  product.instances[0].placement.rotation.m[0] = kNan;
  ExpectRefused(product, ErrorKind::BadValue, {"instance 'i0'"});
}

TEST(CompileErrors, AnInfiniteMassNamesPartTypeAndQuantity) {
  auto product = TwoParts();
  product.parts[1].massTypes[0].properties.mass = kInfinity;
  ExpectRefused(product, ErrorKind::BadValue, {"part 'bolt', mass type 'Weighed'", "mass is inf"});
}

TEST(CompileErrors, NotANumberInAnInertiaIsNamed) {
  auto product = TwoParts();
  product.parts[1].massTypes[0].properties.inertia->xz = kNan;
  ExpectRefused(product, ErrorKind::BadValue, {"part 'bolt'", "inertia xz is nan"});
}

TEST(CompileErrors, ANegativeDeviationIsRefused) {
  auto product = TwoParts();
  product.parts[1].massTypes[0].deviations.cg.z = -0.5;
  ExpectRefused(product, ErrorKind::BadValue, {"deviation of centre of gravity z is -0.5", "0 or above"});
}

TEST(CompileErrors, ANegativeBoundIsRefused) {
  auto product = TwoParts();
  product.parts[1].massTypes[0].bounds = MassBounds{-1.0, 1.0};
  ExpectRefused(product, ErrorKind::BadValue, {"lower mass bound is -1"});
}

TEST(CompileErrors, AnOverflowingVolumeTimesDensityIsRefused) {
  auto product = TwoParts();
  product.parts[1] = Plain("bolt");
  product.parts[1].density = 1e300;
  product.parts[1].geometry = Geometry{1e300, {}, {}};
  ExpectRefused(product, ErrorKind::BadValue, {"part 'bolt', volume times density", "mass is inf"});
}

TEST(CompileErrors, AnUnknownChildOrParentNamesTheInstance) {
  auto product = TwoParts();
  product.instances[0].child = "nut";
  ExpectRefused(product, ErrorKind::NotFound, {"instance 'i0'", "no part 'nut'"});
  product = TwoParts();
  product.instances[0].parent = "house";
  ExpectRefused(product, ErrorKind::NotFound, {"instance 'i0'", "no part 'house'"});
}

TEST(CompileErrors, AnUnknownRootIsNamed) {
  auto product = TwoParts();
  product.roots = {"tower"};
  ExpectRefused(product, ErrorKind::NotFound, {"root", "'tower'"});
}

TEST(CompileErrors, IdsHaveToBeUnique) {
  auto product = TwoParts();
  product.parts.push_back(Plain("bolt"));
  ExpectRefused(product, ErrorKind::BadValue, {"part 'bolt' is there twice"});
  product = TwoParts();
  product.instances.push_back(product.instances[0]);
  ExpectRefused(product, ErrorKind::BadValue, {"instance 'i0' is there twice"});
}

TEST(CompileErrors, AQuantityBelowOneIsRefused) {
  for (const std::int64_t quantity : {0, -3}) {
    auto product = TwoParts();
    product.instances[0].quantity = quantity;
    ExpectRefused(product, ErrorKind::BadValue, {"instance 'i0'", std::to_string(quantity), "1 or more"});
  }
}

TEST(CompileErrors, AnUnknownExclusionIsRefused) {
  const auto compiled = Compile(TwoParts(), {.massType = {}, .excludedInstances = {"i7"}});
  ASSERT_FALSE(compiled.Ok());
  EXPECT_EQ(compiled.Failure().kind, ErrorKind::NotFound);
  EXPECT_THAT(compiled.Failure().message, HasSubstr("'i7'"));
}

TEST(CompileErrors, AnEmptyProductCompiles) { EXPECT_TRUE(Compile(Product{}).Ok()); }

TEST(CompileErrors, QuestionsAboutAnUnknownPartAreAnswered) {
  auto rollup = RollUp(TwoParts());
  EXPECT_EQ(rollup.ResultOf("nut").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(rollup.ContributionOf("nut").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(rollup.FingerprintOf("nut").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(rollup.WarningsOf("nut").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(rollup.ChangePart(Plain("nut")).Failure().kind, ErrorKind::NotFound);
}

}  // namespace
}  // namespace lumira::test
