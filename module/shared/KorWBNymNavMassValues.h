#pragma once

#include <optional>

#include "services/KorWBAllDataBuffer.h"

/// Mass, centre of gravity and inertia of one mass type; a part of them may be missing.
struct KorWBNymNavMassValues {
  double mass = 0;                 ///< kg
  std::optional<KorMathPoint> cg;  ///< mm
  std::optional<KorMath3x3Matrix>
      inertia;  ///< kg·m², products negated; about the centre of gravity when read

  /// All at once, by the buffer's one operation for that.
  static KorWBNymNavMassValues Read(const KorWBAllDataBuffer& buffer, const KorUnicodeString& massType);
  /// Each by its own operation.
  static KorWBNymNavMassValues ReadEach(const KorWBAllDataBuffer& buffer, const KorUnicodeString& massType);

  bool HasInertiaAndPoint() const { return inertia && cg; }
  bool CanMove() const { return HasInertiaAndPoint() && mass > 0.0; }
  /// Moves the inertia from the centre of gravity to a point (mm, in the axes of the values), whatever the
  /// mass. Needs inertia and point.
  void MoveInertiaTo(const KorMathPoint& point);
  /// Undoes MoveInertiaTo: inertia about that point comes to be about the centre of gravity.
  void MoveInertiaBackFrom(const KorMathPoint& point);

 private:
  void MoveInertia(const KorMathPoint& point, bool fromCentreOfGravity);
};
