#pragma once

#include "module/shared/KorWBNymNavTrace.h"

/// Opens the trace scope of a function of the part panel; the function is a string literal.
#define KORWB_PART_TRACE(function) KORWB_TRACE_SCOPE("KorWBCompPart", "KorWBNymMainPanel", function)

/// The part panel's component trace object, one of the module's static objects.
const TqTrace& KorWBPartTrace();

/// Writes one line to the part panel's trace.
template <class... Values>
void KorWBPartTraceLine(const Values&... values) {
  KorWBNymNavTraceLine(KorWBPartTrace(), values...);
}
