#pragma once

#include <ostream>

#include "framework/system/TqTrace.h"

/// Opens the trace scope of a function until its end, under the names `trace` and `traceStatus`; component,
/// class and function are string literals. Date and time are those of the build of the source file.
#define KORWB_TRACE_SCOPE(component, className, function) \
  [[maybe_unused]] int traceStatus = 0;                   \
  const TqTrace trace(component, function "()", __DATE__, __TIME__, className "::" function, traceStatus)

/// Writes one line to the trace; nothing is written or flushed while tracing is off for its component.
template <class... Values>
void KorWBNymNavTraceLine(const TqTrace& trace, const Values&... values) {
  if (!trace.TraceOn()) return;
  (trace.GetCout() << ... << values) << '\n';
  TqTrace::TqTraceFlush();
}
