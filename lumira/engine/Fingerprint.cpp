#include "lumira/engine/Fingerprint.h"

#include <bit>

#include "lumira/engine/ProductGraph.h"

namespace lumira {
namespace {

/// Two independent chains over the same 64-bit words. The mixing step is the finaliser of SplitMix64
/// (Steele, Lea, Flood: Fast Splittable Pseudorandom Number Generators, 2014), which permutes 64-bit words.
class Mixer {
 public:
  explicit Mixer(std::uint64_t domain) { Word(domain); }

  Mixer& Word(std::uint64_t word) {
    _state.high = Mixed(_state.high + 0x9e3779b97f4a7c15u + word);
    _state.low = Mixed((_state.low ^ std::rotl(word, 32)) * 0xd6e8feb86659fd93u + 0x2545f4914f6cdd1du);
    return *this;
  }

  Mixer& Number(double number) { return Word(std::bit_cast<std::uint64_t>(number + 0.0)); }
  Mixer& Vector(const Vec3& v) { return Number(v.x).Number(v.y).Number(v.z); }
  Mixer& Tensor(const InertiaTensor& t) {
    return Number(t.xx).Number(t.yy).Number(t.zz).Number(t.xy).Number(t.xz).Number(t.yz);
  }

  Fingerprint Finish() const { return _state; }

 private:
  static std::uint64_t Mixed(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
  }

  Fingerprint _state;
};

enum Domain : std::uint64_t { kItem = 1, kPlace = 2, kChild = 3 };

}  // namespace

std::string ToText(const Fingerprint& fingerprint) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const auto half : {fingerprint.high, fingerprint.low}) {
    for (int shift = 60; shift >= 0; shift -= 4) text += kDigits[(half >> shift) & 15];
  }
  return text;
}

Fingerprint FingerprintOf(const GraphPart& part) {
  const auto& item = part.item;
  const std::uint64_t known = (item.massKnown ? 1u : 0u) | (item.cgKnown ? 2u : 0u) |
                              (item.inertiaKnown ? 4u : 0u) | (item.boundsKnown ? 8u : 0u) |
                              (part.replacesChildren ? 16u : 0u) | (part.isHollow ? 32u : 0u);
  return Mixer(kItem)
      .Word(known)
      .Number(item.mass)
      .Vector(item.cg)
      .Tensor(item.inertia)
      .Number(item.deviations.mass)
      .Vector(item.deviations.cg)
      .Tensor(item.deviations.inertia)
      .Number(item.bounds.lower)
      .Number(item.bounds.upper)
      .Finish();
}

Fingerprint FingerprintOf(const Placement& placement, double quantity) {
  Mixer mixer(kPlace);
  for (const double element : placement.rotation.m) mixer.Number(element);
  return mixer.Vector(placement.translation).Number(quantity).Finish();
}

Fingerprint Combine(const Fingerprint& child, const Fingerprint& place) {
  return Mixer(kChild).Word(child.high).Word(child.low).Word(place.high).Word(place.low).Finish();
}

}  // namespace lumira
