#include "tests/lumira/engine/Products.h"

#include <array>
#include <bit>
#include <stdexcept>

namespace lumira::test {

Part Weighed(std::string id, MassProperties properties, Deviations deviations,
             std::optional<MassBounds> bounds) {
  Part part = Plain(std::move(id));
  part.activeMassType = "Weighed";
  part.massTypes.push_back({"Weighed", properties, deviations, bounds});
  return part;
}

Part Plain(std::string id) {
  Part part;
  part.id = std::move(id);
  return part;
}

Instance& Place(Product& product, const std::string& parent, const std::string& child, Placement placement,
                std::int64_t quantity) {
  const auto id = "i" + std::to_string(product.instances.size());
  return product.instances.emplace_back(Instance{id, parent, child, quantity, placement});
}

Rollup RollUp(const Product& product, const CompileOptions& options) {
  auto compiled = Compile(product, options);
  if (!compiled) throw std::runtime_error(compiled.Failure().message);
  return Rollup(std::move(compiled).Value());
}

MassResult ResultOf(const Product& product, const std::string& part, const CompileOptions& options) {
  return RollUp(product, options).ResultOf(part).Value();
}

Rotation Dice::Turn() {
  double w = Normal(), x = Normal(), y = Normal(), z = Normal();
  const double norm = std::sqrt(w * w + x * x + y * y + z * z);
  w /= norm, x /= norm, y /= norm, z /= norm;
  return {{1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y), 2 * (x * y + w * z),
           1 - 2 * (x * x + z * z), 2 * (y * z - w * x), 2 * (x * z - w * y), 2 * (y * z + w * x),
           1 - 2 * (x * x + y * y)}};
}

Part Dice::Item(std::string id) {
  const double mass = Between(0.5, 20.0);
  const Vec3 half = {Between(0.1, 2.0), Between(0.1, 2.0), Between(0.1, 2.0)};
  const auto box = (mass / 3.0) * PointInertia(half);  // of a box, but for the products
  const InertiaTensor own = Rotated({box.xx, box.yy, box.zz}, Turn());
  const auto small = [this](double size) { return size * Between(0.2, 1.0); };
  const Deviations deviations = {small(0.05 * mass),
                                 {small(0.1), small(0.1), small(0.1)},
                                 {small(0.1 * mass), small(0.1 * mass), small(0.1 * mass), small(0.05 * mass),
                                  small(0.05 * mass), small(0.05 * mass)}};
  return Weighed(std::move(id), {mass, Point(3.0), own}, deviations, MassBounds{small(mass), small(mass)});
}

Placement Inverse(const Placement& placement) {
  const auto back = Transposed(placement.rotation);
  return {back, -(back * placement.translation)};
}

Product RandomProduct(Dice& dice, int levels, int partsPerLevel, int childrenEach) {
  Product product;
  const auto name = [](int level, std::size_t i) {
    return "L" + std::to_string(level) + "-" + std::to_string(i);
  };
  for (int i = 0; i < partsPerLevel; ++i)
    product.parts.push_back(dice.Item(name(0, static_cast<std::size_t>(i))));
  const auto fill = [&](const std::string& parent, int below) {
    product.parts.push_back(Plain(parent));
    for (int i = 0; i < childrenEach; ++i) {
      const auto level = static_cast<int>(dice.Below(static_cast<std::size_t>(below) + 1));
      Place(product, parent, name(level, dice.Below(static_cast<std::size_t>(partsPerLevel))),
            dice.Pose(10.0), static_cast<std::int64_t>(1 + dice.Below(3)));
    }
  };
  for (int level = 1; level <= levels; ++level) {
    for (int i = 0; i < partsPerLevel; ++i) fill(name(level, static_cast<std::size_t>(i)), level - 1);
  }
  fill("root", levels);
  product.roots = {"root"};
  return product;
}

namespace {

std::vector<double> Numbers(const MassResult& r) {
  std::vector<double> all;
  const auto add = [&all](std::initializer_list<double> numbers) { all.insert(all.end(), numbers); };
  const auto tensor = [&add](const InertiaTensor& t) { add({t.xx, t.yy, t.zz, t.xy, t.xz, t.yz}); };
  const auto vector = [&add](const Vec3& v) { add({v.x, v.y, v.z}); };
  add({r.mass.value_or(-1.0), r.coverage.items, r.coverage.massWithInertia, r.coverage.lower,
       r.coverage.upper});
  vector(r.cg.value_or(Vec3{}));
  vector(r.firstMoment);
  tensor(r.inertiaAtCg.value_or(InertiaTensor{}));
  tensor(r.inertiaAtOrigin);
  const auto d = r.deviations.value_or(Deviations{});
  add({d.mass});
  vector(d.cg);
  tensor(d.inertia);
  return all;
}

}  // namespace

void ExpectSameBits(const MassResult& a, const MassResult& b) {
  const auto x = Numbers(a), y = Numbers(b);
  for (std::size_t i = 0; i < x.size(); ++i) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(x[i]), std::bit_cast<std::uint64_t>(y[i]))
        << "number " << i << ": " << x[i] << " and " << y[i];
  }
  EXPECT_EQ(a.mass.has_value(), b.mass.has_value());
  EXPECT_EQ(a.cg.has_value(), b.cg.has_value());
  EXPECT_EQ(a.deviations.has_value(), b.deviations.has_value());
}

void ExpectNear(const Vec3& a, const Vec3& b, double tolerance) {
  EXPECT_NEAR(a.x, b.x, tolerance);
  EXPECT_NEAR(a.y, b.y, tolerance);
  EXPECT_NEAR(a.z, b.z, tolerance);
}

void ExpectNear(const InertiaTensor& a, const InertiaTensor& b, double tolerance) {
  EXPECT_NEAR(a.xx, b.xx, tolerance);
  EXPECT_NEAR(a.yy, b.yy, tolerance);
  EXPECT_NEAR(a.zz, b.zz, tolerance);
  EXPECT_NEAR(a.xy, b.xy, tolerance);
  EXPECT_NEAR(a.xz, b.xz, tolerance);
  EXPECT_NEAR(a.yz, b.yz, tolerance);
}

void ExpectRelative(const Deviations& a, const Deviations& b, double tolerance) {
  const auto near = [&](double x, double y) { EXPECT_NEAR(x, y, tolerance * std::abs(y)); };
  near(a.mass, b.mass);
  near(a.cg.x, b.cg.x);
  near(a.cg.y, b.cg.y);
  near(a.cg.z, b.cg.z);
  near(a.inertia.xx, b.inertia.xx);
  near(a.inertia.yy, b.inertia.yy);
  near(a.inertia.zz, b.inertia.zz);
  near(a.inertia.xy, b.inertia.xy);
  near(a.inertia.xz, b.inertia.xz);
  near(a.inertia.yz, b.inertia.yz);
}

void ExpectNear(const MassResult& a, const MassResult& b, double tolerance) {
  ASSERT_TRUE(a.mass && b.mass && a.cg && b.cg && a.inertiaAtCg && b.inertiaAtCg);
  EXPECT_NEAR(*a.mass, *b.mass, tolerance * std::abs(*b.mass));
  ExpectNear(*a.cg, *b.cg, tolerance * (1.0 + Norm(*b.cg)));
  ExpectNear(*a.inertiaAtCg, *b.inertiaAtCg, tolerance * Trace(*b.inertiaAtCg));
  ExpectNear(a.inertiaAtOrigin, b.inertiaAtOrigin, tolerance * Trace(b.inertiaAtOrigin));
  ASSERT_EQ(a.deviations.has_value(), b.deviations.has_value());
  if (a.deviations) ExpectRelative(*a.deviations, *b.deviations, tolerance);
}

}  // namespace lumira::test
