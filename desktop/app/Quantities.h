#pragma once

#include <QString>

namespace desktop {

/// A value given in the reference unit of a magnitude, in the user's current unit with its symbol; without a
/// unit when the magnitude is unknown.
QString ShowQuantity(const char* magnitude, double reference);

/// Lengths on the wire are metres; the reference unit of lengths is the millimetre.
inline QString ShowLength(double metres) { return ShowQuantity("LENGTH", metres * 1000); }
inline QString ShowMass(double kilograms) { return ShowQuantity("MASS", kilograms); }
inline QString ShowInertia(double kilogramSquareMetres) {
  return ShowQuantity("INERTIAMOMENT", kilogramSquareMetres);
}

}  // namespace desktop
