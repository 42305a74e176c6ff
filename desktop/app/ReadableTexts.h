#pragma once

#include <QString>

#include "services/LumWBAllDataBuffer.h"

/// Whether texts that a user types stand for a value as a whole. Each answers what is the matter, for the
/// user; empty: nothing is.
namespace desktop {

/// A text as it is told to the user again: its first 60 characters.
QString Shortened(const QString& text);

/// A number, with or without the symbol of the current unit of a magnitude behind it.
QString FindQuantityProblem(const KorUnicodeString& text, const char* magnitude);
/// The same, or a sum such as "2 * (3 + 4.5) kg".
QString FindExpressionProblem(const KorUnicodeString& text, const char* magnitude);
/// A number, with or without "%" behind it.
QString FindPercentProblem(const KorUnicodeString& text);
/// As the type of property `index` (from 1) of a part says; blanks alone are never a problem.
QString FindPropertyProblem(const LumWBAllDataBuffer& buffer, int index, const KorUnicodeString& text);

}  // namespace desktop
