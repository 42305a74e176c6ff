#pragma once

#include "framework/dialog/KorDlgObject.h"

/// Shows one text of a series, with an arrow to each side. The series is the panel's.
class KOR_FRAMEWORK_API KorDlgSpinner : public KorDlgObject {
 public:
  KorDlgSpinner(KorDlgObject* parent, const char* name, unsigned style) : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::Spinner; }
  std::span<const KorDlgProperty> Properties() const override;

  const KorUnicodeString& GetText() const { return _text; }
  void SetText(const KorUnicodeString& text, KorNotify notify = KorNotify::Silent);

  KorSensitivity GetUpSensitivity() const { return _up; }
  void SetUpSensitivity(KorSensitivity sensitivity);
  KorSensitivity GetDownSensitivity() const { return _down; }
  void SetDownSensitivity(KorSensitivity sensitivity);

  /// Verbs. Send SpinnerUp and SpinnerDown; an arrow that is disabled cannot be reached.
  bool TurnUp();
  bool TurnDown();

 private:
  KorUnicodeString _text;
  KorSensitivity _up = KorSensitivity::Enabled;
  KorSensitivity _down = KorSensitivity::Enabled;
};
