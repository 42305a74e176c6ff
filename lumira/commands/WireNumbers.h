#pragma once

#include "lumira/model/InertiaTensor.h"
#include "lumira/model/Vec3.h"
#include "protocol/PartData.h"

/// Vectors and tensors as they go over the wire and come from it; units, frames and signs stay as they are.
namespace lumira {

inline protocol::Vector ToWire(const Vec3& v) { return {v.x, v.y, v.z}; }
inline protocol::Tensor ToWire(const InertiaTensor& i) { return {i.xx, i.yy, i.zz, i.xy, i.xz, i.yz}; }

inline Vec3 FromWire(const protocol::Vector& v) { return {v[0], v[1], v[2]}; }
inline InertiaTensor FromWire(const protocol::Tensor& t) { return {t[0], t[1], t[2], t[3], t[4], t[5]}; }

}  // namespace lumira
