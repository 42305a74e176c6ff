#pragma once

#include "framework/dialog/KorDlgObject.h"

/// A text that the user only reads: its title.
class KOR_FRAMEWORK_API KorDlgLabel : public KorDlgObject {
 public:
  KorDlgLabel(KorDlgObject* parent, const char* name, unsigned style) : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::Label; }
};
