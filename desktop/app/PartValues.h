#pragma once

#include <optional>
#include <string>

#include "framework/math/KorMath3x3Matrix.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// The computed values of a part that stands in a product, in kg, m and kg·m². Inertia is the tensor.
struct PartValues {
  double mass = 0;
  KorMathPoint cg;              ///< in the frame of the root product
  KorMath3x3Matrix inertiaCg;   ///< about the centre of gravity, in the part's own axes
  KorMath3x3Matrix inertiaRef;  ///< about the origin of the root product, in its axes
};

/// Nothing when the buffer has no up-to-date computed values, or no place in a product.
std::optional<PartValues> ReadPartValues(const LumWBAllDataBuffer& buffer);

/// A line `part.quantity = value`, or `part.filter.quantity = value`, for each quantity, as
/// protocol::ValueLines writes them.
std::string FormatPartValues(const std::string& part, const PartValues& values,
                             const std::string& filter = {});

}  // namespace desktop
