#include "desktop/app/ReadableTexts.h"

#include <algorithm>
#include <cmath>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBServices.h"

namespace desktop {
namespace {

using Definitions = KorLumWBCSCommonDefinitions;

constexpr int kMostShown = 60;

/// Types of properties; others are not checked.
enum PropertyType { kIntegerOrDate = 1, kReal = 2 };

QString SymbolOf(const char* magnitude) {
  const KorCkeParmDictionary* dictionary = KorCkeGlobalFunctions::GetParmDictionary();
  const KorCkeMagnitude_var found = dictionary ? dictionary->FindMagnitude(magnitude) : KorCkeMagnitude_var();
  return found && found->CurrentUnit() ? ToQt(found->CurrentUnit()->Symbol()) : QString();
}

/// The text without `suffix` at its end and blanks before that.
QString WithoutSuffix(const QString& text, const QString& suffix) {
  const QString stripped = text.trimmed();
  if (suffix.isEmpty() || !stripped.endsWith(suffix)) return text;
  qsizetype end = text.lastIndexOf(suffix);
  while (end > 0 && text[end - 1].isSpace()) --end;
  return text.left(end);
}

/// Whether the panel's own reader takes this number from the text. It knows fewer blanks and minus signs than
/// Qt: those of typeset texts are none to it, nor to the server.
template <class Number>
bool IsReadAs(Number number, const QString& text) {
  Number read{};
  const bool isAscii = std::ranges::all_of(text, [](QChar one) { return one.unicode() < 0x80; });
  return isAscii && FromQt(text).ConvertToNum(&read, "") != 0 && read == number;
}

/// Nothing for any other text, and for what is no finite number.
std::optional<double> ReadWhole(const QString& text) {
  bool whole = false;
  const double number = text.toDouble(&whole);
  return whole && std::isfinite(number) && IsReadAs(number, text) ? std::optional(number) : std::nullopt;
}

QString ProblemOfNumber(const QString& text, const QString& suffix) {
  if (ReadWhole(WithoutSuffix(text, suffix))) return {};
  if (text.trimmed().isEmpty()) return Text("Mark.Empty");
  return suffix.isEmpty() ? Text("Mark.Number", {Shortened(text)})
                          : Text("Mark.Quantity", {Shortened(text), suffix});
}

bool IsInteger(const QString& text) {
  bool whole = false;
  const int number = text.toInt(&whole);
  return whole && IsReadAs(number, text);
}

bool IsDate(const KorUnicodeString& text, const KorUnicodeString& format) {
  std::time_t time = 0;
  return Succeeded(KorWBServices::GetDateFromText(
      text, format, Definitions::dateFieldDelimiter1, Definitions::dateYMDFieldDelimiter1,
      Definitions::dateHMSFieldDelimiter1, KorWBServices::DateFields::Date, time));
}

/// A number that has no place in the storage unit is not stored either.
QString ProblemOfSize(const KorUnicodeString& text, const char* magnitude) {
  const auto number = ReadWhole(WithoutSuffix(ToQt(text), SymbolOf(magnitude)));
  if (!number || std::isfinite(KorWBServices::RestoreValue(*number, magnitude))) return {};
  return Text("Mark.TooLarge", {Shortened(ToQt(text))});
}

QString ProblemOfReal(const LumWBAllDataBuffer& buffer, int index, const KorUnicodeString& text) {
  if (!buffer.GetIsMagnitude(index)) return ProblemOfNumber(ToQt(text), {});
  return FindQuantityProblem(text, buffer.GetPropMagnitudeType(index).ConvertToChar());
}

}  // namespace

QString Shortened(const QString& text) {
  return text.size() > kMostShown ? text.left(kMostShown) + QString::fromUtf8("\u2026") : text;
}

QString FindQuantityProblem(const KorUnicodeString& text, const char* magnitude) {
  const QString problem = ProblemOfSize(text, magnitude);
  return problem.isEmpty() ? ProblemOfNumber(ToQt(text), SymbolOf(magnitude)) : problem;
}

QString FindExpressionProblem(const KorUnicodeString& text, const char* magnitude) {
  KorUnicodeString value = text;
  if (Succeeded(KorWBServices::EvaluateSimpleExpression(value, SymbolOf(magnitude).toStdString())))
    return FindQuantityProblem(value, magnitude);
  const QString problem = FindQuantityProblem(text, magnitude);
  if (problem.isEmpty() || text.Strip().IsEmpty()) return problem;
  return Text("Mark.Expression", {Shortened(ToQt(text)), SymbolOf(magnitude)});
}

QString FindPercentProblem(const KorUnicodeString& text) { return ProblemOfNumber(ToQt(text), "%"); }

QString FindPropertyProblem(const LumWBAllDataBuffer& buffer, int index, const KorUnicodeString& text) {
  const KorUnicodeString stripped = text.Strip();
  if (stripped.IsEmpty()) return {};
  const KorUnicodeString magnitude = buffer.GetPropMagnitudeType(index);
  if (buffer.GetIsMagnitude(index))
    if (const QString problem = ProblemOfSize(stripped, magnitude.ConvertToChar()); !problem.isEmpty())
      return problem;
  const int type = buffer.GetPropertyType(index);
  if (type == kReal) return ProblemOfReal(buffer, index, stripped);
  if (type != kIntegerOrDate) return {};
  const KorUnicodeString format = buffer.GetDateFormatForExtraProperties();
  if (!buffer.GetIsDate(index))
    return IsInteger(ToQt(stripped)) ? QString() : Text("Mark.Integer", {Shortened(ToQt(stripped))});
  return IsDate(stripped, format) ? QString() : Text("Mark.Date", {Shortened(ToQt(stripped)), ToQt(format)});
}

}  // namespace desktop
