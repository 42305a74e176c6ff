#pragma once

#include <ctime>

#include "framework/math/KorMath3x3Matrix.h"
#include "framework/system/KorListValKorUnicodeString.h"
#include "framework/system/KorStatus.h"
#include "services/KorServicesExport.h"

class KorDlgDialog;

/// What the weight-and-balance panels and commands share.
class KOR_SERVICES_API KorWBServices {
 public:
  /// Flags of DisplayMsg.
  static constexpr unsigned kErrorOrWarning = 0x10000000;
  static constexpr unsigned kInformation = 0x8000000;

  // ---- units and inertia ----

  /// Moves an inertia tensor (kg·m², products negated) of a body of `mass` kg between its centre of gravity
  /// and another point, both in metres: with d = toPoint − fromPoint, I ± m·(|d|²·E − d·dᵀ) (parallel axis
  /// theorem). `fromCentreOfGravity` true: `inertia` is about the centre of gravity `fromPoint` and comes to
  /// be about `toPoint` (+). False: it is about `toPoint` and comes to be about the centre of gravity
  /// `fromPoint` (−). The order of the points is the same both ways, so that the second call undoes the
  /// first.
  static void ConvertInertiaMatrix(KorMath3x3Matrix& inertia, double mass, const KorMathPoint& fromPoint,
                                   const KorMathPoint& toPoint, bool fromCentreOfGravity);

  /// A number shown in the current unit of a magnitude, as the buffer stores it (in the reference unit); the
  /// number itself when the magnitude is unknown.
  static double RestoreValue(double shown, const KorUnicodeString& magnitude);
  /// The same with a status: E_FAIL, with `stored` left alone, when the magnitude is unknown.
  static HRESULT RestoreValue(double shown, const KorUnicodeString& magnitude, double& stored);

  // ---- what a user types ----

  /// Replaces a simple arithmetic expression by its value: decimal numbers ("2.5", "1e-3"), + - * /,
  /// parentheses and signs, with the usual precedence. The text may end with the symbol of the unit in which
  /// it is typed, which stays behind the value: "2*4 kg" becomes "8 kg". A text that is a number already, as
  /// shown values are, stays as it is. E_FAIL, with the text as it was: what is no such expression, division
  /// by zero, a result that is not finite on the way, parentheses nested too deeply (64).
  static HRESULT EvaluateSimpleExpression(KorUnicodeString& text, const KorUnicodeString& unitSymbol = {});

  // ---- messages ----

  /// Shows a message box; a null parent means the main window.
  static void DisplayMsg(KorDlgDialog* parent, const char* title, const KorUnicodeString& message,
                         unsigned flags);

  /// What the server has to say about the last command: a line for each warning, opened by the mark of its
  /// severity (KorLumWBCSCommonDefinitions). Empty when there is nothing. Asking empties the server's list.
  /// When the server cannot say, E_FAIL, and `text` tells why; without a server E_FAIL, and `text` is left
  /// alone.
  static HRESULT GetWarningMsgFromLumira(KorUnicodeString& text);
  /// Takes the severity marks and empty lines out. `text` and `shown` may be the same object.
  static void CleanWarningForDisplay(const KorUnicodeString& text, KorUnicodeString& shown);

  // ---- texts ----

  /// Makes a stored path (elements joined by "|") readable. `display` holds what the path is relative to (the
  /// configuration handler) and receives that, one '/' and the elements joined by '/'; empty elements are
  /// left out.
  static void CleanPathForDisplay(const KorUnicodeString& path, KorUnicodeString& display);

  /// Which fields a date has.
  enum class DateFields { Date, DateAndTime };

  /// Reads a date in `format`, such as "YYYY-MM-DD" or "DD/MM/YYYY"; an empty format means year, month and
  /// day with `ymdDelimiter` between them. With DateAndTime the time of day follows: `delimiter`, then hours,
  /// minutes and seconds with `hmsDelimiter` between them. Each field has as many digits as the format has
  /// letters, and nothing may stand before or behind. `time` is in seconds since 1970, UTC. E_FAIL, with
  /// `time` left alone, for any other text, a date that does not exist, and a format without one of the
  /// fields.
  static HRESULT GetDateFromText(const KorUnicodeString& text, const KorUnicodeString& format,
                                 const KorUnicodeString& delimiter, const KorUnicodeString& ymdDelimiter,
                                 const KorUnicodeString& hmsDelimiter, DateFields fields, std::time_t& time);

  /// The fields between the separators; two adjacent separators, or one at either end, give an empty field.
  /// An empty text has no fields. An empty separator leaves the text whole.
  static KorListValKorUnicodeString StringTokenizer(const KorUnicodeString& text,
                                                    const KorUnicodeString& separator);
};
