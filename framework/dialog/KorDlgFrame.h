#pragma once

#include "framework/dialog/KorDlgObject.h"

/// A group of widgets in one grid cell of its parent.
class KOR_FRAMEWORK_API KorDlgFrame : public KorDlgObject {
 public:
  KorDlgFrame(KorDlgObject* parent, const char* name, unsigned style) : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::Frame; }
};
