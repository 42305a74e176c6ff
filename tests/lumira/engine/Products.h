#pragma once

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "lumira/engine/Rollup.h"
#include "lumira/model/Product.h"

namespace lumira::test {

/// A part that counts with what is given, as its mass type "Weighed".
Part Weighed(std::string id, MassProperties properties, Deviations deviations = {},
             std::optional<MassBounds> bounds = {});
/// A part without any data of its own.
Part Plain(std::string id);

/// Appends an instance with a fresh id, "i0", "i1", …
Instance& Place(Product& product, const std::string& parent, const std::string& child,
                Placement placement = {}, std::int64_t quantity = 1);

/// Compiles and rolls up; on failure the message is thrown, and ends the test.
Rollup RollUp(const Product& product, const CompileOptions& options = {});
MassResult ResultOf(const Product& product, const std::string& part, const CompileOptions& options = {});

/// Random things, the same in every run.
class Dice {
 public:
  explicit Dice(unsigned seed) : _random(seed) {}
  double Between(double low, double high) { return std::uniform_real_distribution<>(low, high)(_random); }
  double Normal() { return std::normal_distribution<>()(_random); }
  std::size_t Below(std::size_t count) { return _random() % count; }
  Vec3 Point(double reach) {
    return {Between(-reach, reach), Between(-reach, reach), Between(-reach, reach)};
  }
  Rotation Turn();
  Placement Pose(double reach) { return {Turn(), Point(reach)}; }
  /// With mass, centre, a physically possible inertia and deviations of all of them.
  Part Item(std::string id);
  std::mt19937_64& Source() { return _random; }

 private:
  std::mt19937_64 _random;
};

Placement Inverse(const Placement& placement);

/// `levels` levels of random assemblies below "root", leaves shared among them, with quantities.
Product RandomProduct(Dice& dice, int levels, int partsPerLevel, int childrenEach);

/// All bits of both results are the same.
void ExpectSameBits(const MassResult& a, const MassResult& b);
/// Mass to `tolerance` of itself; centre to `tolerance` m; inertia to `tolerance` of the trace; deviations
/// relative.
void ExpectNear(const MassResult& a, const MassResult& b, double tolerance);
void ExpectNear(const Vec3& a, const Vec3& b, double tolerance);
void ExpectNear(const InertiaTensor& a, const InertiaTensor& b, double tolerance);
void ExpectRelative(const Deviations& a, const Deviations& b, double tolerance);

}  // namespace lumira::test
