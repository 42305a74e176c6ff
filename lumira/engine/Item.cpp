#include "lumira/engine/Item.h"

#include <array>
#include <cmath>
#include <sstream>
#include <string>

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

struct NamedNumber {
  const char* name;
  double value;
};

using Complaint = std::optional<Error>;

/// Where numbers come from; the text is made only when there is something to complain about.
struct Source {
  const Part& part;
  const MassTypeData* type;  ///< nullptr: volume times density
};

std::string TextOf(const Source& source) {
  const auto& [part, type] = source;
  return "part '" + part.id +
         (type != nullptr ? "', mass type '" + type->name + "'" : "', volume times density");
}

Error BadNumber(const Source& source, const NamedNumber& number, const char* expected) {
  std::ostringstream text;
  text << TextOf(source) << ": " << number.name << " is " << number.value << ", expected " << expected;
  return {ErrorKind::BadValue, text.str()};
}

template <std::size_t N>
Complaint CheckFinite(const Source& source, const std::array<NamedNumber, N>& numbers) {
  for (const auto& number : numbers) {
    if (!std::isfinite(number.value)) return BadNumber(source, number, "a finite number");
  }
  return std::nullopt;
}

template <std::size_t N>
Complaint CheckNotNegative(const Source& source, const std::array<NamedNumber, N>& numbers) {
  for (const auto& number : numbers) {
    if (!std::isfinite(number.value) || number.value < 0.0) {
      return BadNumber(source, number, "a finite number, 0 or above");
    }
  }
  return std::nullopt;
}

std::array<NamedNumber, 10> Numbers(const Item& item) {
  const auto& [x, y, z] = item.cg;
  const auto& i = item.inertia;
  return {{{"mass", item.mass},
           {"centre of gravity x", x},
           {"centre of gravity y", y},
           {"centre of gravity z", z},
           {"inertia xx", i.xx},
           {"inertia yy", i.yy},
           {"inertia zz", i.zz},
           {"inertia xy", i.xy},
           {"inertia xz", i.xz},
           {"inertia yz", i.yz}}};
}

std::array<NamedNumber, 10> Numbers(const Deviations& d) {
  return {{{"deviation of mass", d.mass},
           {"deviation of centre of gravity x", d.cg.x},
           {"deviation of centre of gravity y", d.cg.y},
           {"deviation of centre of gravity z", d.cg.z},
           {"deviation of inertia xx", d.inertia.xx},
           {"deviation of inertia yy", d.inertia.yy},
           {"deviation of inertia zz", d.inertia.zz},
           {"deviation of inertia xy", d.inertia.xy},
           {"deviation of inertia xz", d.inertia.xz},
           {"deviation of inertia yz", d.inertia.yz}}};
}

Complaint Check(const Source& source, const Item& item) {
  if (auto bad = CheckFinite(source, Numbers(item))) return bad;
  if (auto bad = CheckNotNegative(source, Numbers(item.deviations))) return bad;
  return CheckNotNegative(source, std::array<NamedNumber, 2>{{{"lower mass bound", item.bounds.lower},
                                                              {"upper mass bound", item.bounds.upper}}});
}

/// Drops what has nothing to stand on: an inertia without a centre, a deviation of an unknown value.
void ZeroUnknown(Item& item) {
  if (!item.cgKnown) item.cg = item.deviations.cg = {};
  if (!item.inertiaKnown) item.inertia = item.deviations.inertia = {};
}

Item FromMassType(const MassTypeData& type) {
  const auto& [mass, cg, inertia] = type.properties;
  Item item;
  item.mass = mass.value_or(0.0);
  item.cg = cg.value_or(Vec3{});
  item.inertia = inertia.value_or(InertiaTensor{});
  item.deviations = type.deviations;
  item.bounds = type.bounds.value_or(MassBounds{});
  item.massKnown = mass.has_value();
  item.cgKnown = item.massKnown && cg.has_value();
  item.inertiaKnown = item.cgKnown && inertia.has_value();
  item.boundsKnown = item.massKnown && type.bounds.has_value();
  return item;
}

Item FromShape(const Geometry& shape, double density) {
  Item item;
  item.mass = density * shape.volume;
  item.cg = shape.centroid.value_or(Vec3{});
  item.inertia = density * shape.unitInertia.value_or(InertiaTensor{});
  item.massKnown = true;
  item.cgKnown = shape.centroid.has_value();
  item.inertiaKnown = item.cgKnown && shape.unitInertia.has_value();
  return item;
}

}  // namespace

Result<OwnData> ResolveOwnData(const Part& part, const MassTypeChoice& choice) {
  const bool active = choice.name == kComputedMassType;
  const auto& typeName = active ? part.activeMassType : choice.name;
  if (const auto* type = FindMassType(part, typeName); type != nullptr && type->properties.mass) {
    Item item = FromMassType(*type);
    if (auto bad = Check({part, type}, item)) return *bad;
    ZeroUnknown(item);
    return OwnData{item, true};
  }
  const auto density = EffectiveDensity(part);
  if (!active || !part.geometry || !density) return OwnData{};
  Item item = FromShape(*part.geometry, *density);
  if (auto bad = Check({part, nullptr}, item)) return *bad;
  ZeroUnknown(item);
  return OwnData{item, false};
}

}  // namespace lumira
