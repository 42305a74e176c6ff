#pragma once

#include "framework/system/KorBaseUnknown.h"
#include "framework/system/KorUnicodeString.h"

/// A unit of one magnitude. The magnitude's reference unit has factor 1 and offset 0:
/// value in reference unit = value in this unit × factor + offset.
class KOR_FRAMEWORK_API KorCkeUnit : public KorBaseUnknown {
 public:
  KorCkeUnit(KorString name, KorUnicodeString symbol, double factor, double offset = 0);

  /// Name in the parameter dictionary, such as "KILOGRAM".
  const KorString& Name() const { return _name; }
  /// Symbol behind shown values, such as "kg".
  const KorUnicodeString& Symbol() const { return _symbol; }

  double ConvertToReference(double value) const { return value * _factor + _offset; }
  double ConvertFromReference(double reference) const { return (reference - _offset) / _factor; }

  /// The text of a value given in the reference unit: converted to this unit, rounded to the shown digits,
  /// a blank and the symbol (option 0), or without the symbol (option 1). Negative zero is shown as zero.
  /// Reading the text with "%le" gives the shown number.
  KorUnicodeString ShowValue(double reference, int option = 0) const;

  /// The same for a value that is given in this unit.
  KorUnicodeString FormatValue(double value, int option = 0) const;

  /// Significant digits of shown values, 1 to 17; 10 at the start. One setting for all units.
  static void SetShownDigits(int digits);
  static int GetShownDigits();

 private:
  KorString _name;
  KorUnicodeString _symbol;
  double _factor;
  double _offset;
};

using KorCkeUnit_var = KorVar<KorCkeUnit>;
