#pragma once

#include "lumira/model/Rotation.h"
#include "lumira/model/Vec3.h"

namespace lumira {

/// Where a part stands in its parent: p_parent = rotation · p_part + translation (m).
struct Placement {
  Rotation rotation;
  Vec3 translation;

  friend bool operator==(const Placement&, const Placement&) = default;
};

constexpr Vec3 operator*(const Placement& placement, const Vec3& point) {
  return placement.rotation * point + placement.translation;
}

/// First `inner` (part to its parent), then `outer` (that parent to its own parent).
constexpr Placement operator*(const Placement& outer, const Placement& inner) {
  return {outer.rotation * inner.rotation, outer * inner.translation};
}

}  // namespace lumira
