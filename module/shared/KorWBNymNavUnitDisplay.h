#pragma once

#include <optional>
#include <span>
#include <utility>

#include "framework/knowledge/KorCkeMagnitude.h"
#include "framework/math/KorMathPoint.h"

class KorDlgEditor;

/// How stored values of one magnitude are shown in the user's current unit.
class KorWBNymNavUnitDisplay {
 public:
  static constexpr const char* kMass = "MASS";
  static constexpr const char* kLength = "LENGTH";
  static constexpr const char* kInertia = "INERTIAMOMENT";
  static constexpr const char* kDensity = "DENSITY";
  static constexpr const char* kSurfacicMass = "SURFACICMASS";
  /// Stands in an editor that has no value.
  static constexpr const char* kNoValue = "...";

  /// Nothing when the host has no dictionary, no such magnitude, or the magnitude lacks a unit.
  static std::optional<KorWBNymNavUnitDisplay> Of(const char* magnitude);

  /// The text of a value as the buffer stores it (reference unit), in the current unit with its symbol.
  KorUnicodeString Show(double stored) const;
  /// The same without asking the reference unit.
  KorUnicodeString ShowUnconverted(double value) const;
  /// The text of a value that is in the current unit already, as one that was typed.
  KorUnicodeString ShowTyped(double value) const;
  /// What stands behind the number in a shown text.
  const KorUnicodeString& Symbol() const { return _current->Symbol(); }

  const KorString& CurrentUnitName() const { return _current->Name(); }
  const KorString& ReferenceUnitName() const { return _reference->Name(); }

  /// Puts the texts of the values into the editors, without notification. E_FAIL, with the editors as they
  /// were, when the magnitude cannot be shown. Both have the same length; without values the editors show
  /// kNoValue.
  static HRESULT ShowIn(const char* magnitude, std::span<KorDlgEditor* const> editors,
                        std::optional<std::span<const double>> values);
  static HRESULT ShowIn(const char* magnitude, KorDlgEditor* editor, double value);
  /// The coordinates of a point, mm, as lengths in editors for x, y and z.
  static HRESULT ShowPointIn(std::span<KorDlgEditor* const, 3> editors, const KorMathPoint& point);
  /// Puts kNoValue into the editors.
  static void ShowNoValueIn(std::span<KorDlgEditor* const> editors);

 private:
  KorWBNymNavUnitDisplay(KorCkeUnit_var reference, KorCkeUnit_var current)
      : _reference(std::move(reference)), _current(std::move(current)) {}

  KorCkeUnit_var _reference;
  KorCkeUnit_var _current;
};
