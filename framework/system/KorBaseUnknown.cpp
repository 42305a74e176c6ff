#include "framework/system/KorBaseUnknown.h"

#include <cassert>

KorBaseUnknown::~KorBaseUnknown() = default;

unsigned KorBaseUnknown::Release() {
  assert(_references > 0);
  const unsigned left = --_references;
  if (left == 0) delete this;
  return left;
}
