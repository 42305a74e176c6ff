#pragma once

#include "framework/math/KorMathTransformation.h"
#include "module/main_panel/KorWBNymMainPanel.h"

/// About which point and in which axes the results are to be expressed.
struct KorWBNymMainPanel::ResultsView {
  ReferenceMode mode = ReferenceMode::CurrentPart;
  bool atReference = false;         ///< inertia about the reference point, else about the centre of gravity
  KorMathTransformation placement;  ///< of the part in the root product, mm; modes other than CurrentPart
  KorMath3x3Matrix axes;            ///< rows: X, Y, Z axis as typed; mode Custom
  KorMath3x3Matrix inverseAxes;
  KorMathPoint reference;  ///< mm, in the axes shown
};
