#pragma once

#include "framework/dialog/KorDlgObject.h"

/// A page of a tab container. Its tab shows the title; a disabled page cannot be picked.
class KOR_FRAMEWORK_API KorDlgTabPage : public KorDlgObject {
 public:
  KorDlgTabPage(KorDlgObject* parent, const char* name, unsigned style) : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::TabPage; }
};
