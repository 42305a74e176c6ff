#pragma once

#include <optional>

#include "lumira/model/Deviations.h"
#include "lumira/model/InertiaTensor.h"
#include "lumira/model/MassBounds.h"
#include "lumira/model/Part.h"
#include "lumira/model/Vec3.h"
#include "protocol/Result.h"

namespace lumira {

/// The numbers that a part itself brings into a roll-up, in its own frame (kg, m, kg·m²). What is not
/// known is zero, so that it adds nothing; the flags tell zero from unknown.
struct Item {
  double mass = 0.0;
  Vec3 cg;
  InertiaTensor inertia;  ///< about `cg`
  Deviations deviations;  ///< zero for what is not known itself
  MassBounds bounds;
  bool massKnown = false;
  bool cgKnown = false;       ///< never without `massKnown`
  bool inertiaKnown = false;  ///< never without `cgKnown`
  bool boundsKnown = false;   ///< never without `massKnown`

  friend bool operator==(const Item&, const Item&) = default;
};

/// Which data of a part counts in a roll-up.
struct MassTypeChoice {
  /// `kComputedMassType`: the active mass type of each part. Any other name: that type, wherever a part has
  /// it.
  std::string name{kComputedMassType};
};

/// What a part brings by itself.
struct OwnData {
  Item item;
  /// The item is a user mass type with a mass: in an assembly it replaces what the children add up to.
  bool fromUserMassType = false;
};

/// Picks the data of the chosen mass type. A user type counts when it has a mass. Otherwise, when the choice
/// is the computed type, volume × density of the part's shape: mass, centroid as centre of gravity, density ×
/// unit inertia, as far as the shape has these. Otherwise nothing is known. Fails (BadValue) on a number that
/// is not finite, and on a deviation or bound below zero; the message names part, mass type, quantity and
/// value.
protocol::Result<OwnData> ResolveOwnData(const Part& part, const MassTypeChoice& choice);

}  // namespace lumira
