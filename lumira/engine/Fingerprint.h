#pragma once

#include <cstdint>
#include <string>

#include "lumira/model/Placement.h"

namespace lumira {

struct GraphPart;

/// 128 bits that stand for all numbers that a result was computed from. Equal inputs give equal fingerprints
/// on every machine and in every version that keeps the format; different ones differ, but for odds of 2^-64.
/// It guards against stale results, not against forgery.
struct Fingerprint {
  std::uint64_t high = 0;
  std::uint64_t low = 0;

  friend bool operator==(const Fingerprint&, const Fingerprint&) = default;
  /// Sum and difference per half, modulo 2^64: a collection that has no order.
  friend Fingerprint operator+(const Fingerprint& a, const Fingerprint& b) {
    return {a.high + b.high, a.low + b.low};
  }
  friend Fingerprint operator-(const Fingerprint& a, const Fingerprint& b) {
    return {a.high - b.high, a.low - b.low};
  }
};

/// 32 hexadecimal digits.
std::string ToText(const Fingerprint& fingerprint);

/// Of a part's own numbers. Negative and positive zero count as the same.
Fingerprint FingerprintOf(const GraphPart& part);
/// Of where an instance stands and how often.
Fingerprint FingerprintOf(const Placement& placement, double quantity);
/// Of a child in its place.
Fingerprint Combine(const Fingerprint& child, const Fingerprint& place);

}  // namespace lumira
