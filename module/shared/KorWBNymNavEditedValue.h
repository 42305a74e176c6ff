#pragma once

#include <optional>

#include "framework/system/KorUnicodeString.h"

class KorDlgEditor;

/// Reads what a user has typed back into what the buffer stores.
///
/// An editor shows fewer digits than the buffer holds. A text that is still the one that shows the stored
/// value stands for that value with all its digits: what nobody edited is never rounded.
namespace KorWBNymNavEditedValue {

/// Whether the editor shows a stored value of a magnitude as nobody has edited it.
bool Shows(const KorDlgEditor& editor, const char* magnitude, double stored);

/// The value of a magnitude, typed in its current unit, in its storage unit. Nothing when no number opens the
/// text, or one that is too large to be stored. `stored` is what the buffer holds, if anything.
std::optional<double> Read(const KorDlgEditor& editor, const char* magnitude, std::optional<double> stored);

/// A percentage (a text that is no number counts as 0) as a fraction. `stored` is the fraction that the
/// buffer holds, if any.
double ReadPercent(const KorDlgEditor& editor, std::optional<double> stored);

/// The text of a percentage: "5%".
KorUnicodeString ShowPercent(double percent);

}  // namespace KorWBNymNavEditedValue
