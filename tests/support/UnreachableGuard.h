#pragma once

#include <gtest/gtest.h>

#include "framework/dialog/KorDlgObject.h"
#include "tests/support/ShownText.h"

/// While it lives, a verb on a widget that no user could reach fails the test.
class UnreachableGuard {
 public:
  UnreachableGuard() {
    KorDlgObject::SetUnreachableObserver([](const KorDlgObject& widget, const char* verb) {
      ADD_FAILURE() << verb << " on " << FullName(widget) << ", which no user could reach.";
    });
  }
  ~UnreachableGuard() { KorDlgObject::SetUnreachableObserver(nullptr); }
  UnreachableGuard(const UnreachableGuard&) = delete;
  UnreachableGuard& operator=(const UnreachableGuard&) = delete;
};
