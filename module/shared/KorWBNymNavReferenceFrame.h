#pragma once

#include <span>

#include "framework/math/KorMath3x3Matrix.h"
#include "framework/system/KorUnicodeString.h"

class KorDlgDialog;
class KorDlgEditor;

/// The widgets in which a user gives a point and axes of his own, and what they hold.
///
/// The axes are the rows of a matrix (X, Y, Z axis), unitless and taken as typed: nothing is converted,
/// normalised or tested for being orthogonal. The point is typed in the current length unit and read as the
/// buffer keeps lengths.
struct KorWBNymNavReferenceFrame {
  std::span<KorDlgEditor* const, 3> point;
  std::span<KorDlgEditor* const, 9> axes;  ///< X axis x, y, z, then Y axis, then Z axis

  /// Whether axes can be used, and why not.
  enum class Verdict { Usable, Singular, NotInvertible };

  KorMathPoint ReadPoint() const;
  KorMath3x3Matrix ReadAxes() const;
  /// Writes each number back into its own editor, so that what was typed is shown as it was understood;
  /// subscribers are told.
  void WriteBackPoint() const;
  void WriteBackAxes() const;

  /// Form of the part panel: fills the caller's objects, the editors stay as they are.
  void GetCustomRefModeValues(KorMathPoint& point, KorMath3x3Matrix& axes) const;
  /// Form of the group and report panels: each number is written back into its editor; a null pointer
  /// receives a new object that the caller owns, another one is overwritten.
  void GetCustomRefModeValues(KorMathPoint*& point, KorMath3x3Matrix*& axes) const;

  /// Singular when the determinant is 0.0 exactly; any axes that can be inverted are usable.
  static Verdict Check(const KorMath3x3Matrix& axes);
  /// Form of the group and report panels: shows why axes cannot be used and returns false. The texts are in
  /// `catalogue`; the two panels differ by intention in the title of axes that cannot be inverted.
  static bool CheckAndReport(const KorMath3x3Matrix& axes, KorDlgDialog* panel, const KorString& catalogue,
                             const KorString& titleWhenNotInvertible);
};
