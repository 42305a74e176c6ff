#pragma once

#include <sstream>
#include <string>

#include "framework/system/TqTrace.h"

/// While it lives, one component is traced, and the traces of all components go here.
class TraceCapture {
 public:
  explicit TraceCapture(KorString component) : _component(std::move(component)) {
    TqTrace::SetOutput(&_text);
    TqTrace::SwitchComponent(_component, true);
  }
  ~TraceCapture() {
    TqTrace::SwitchComponent(_component, false);
    TqTrace::SetOutput(nullptr);
  }
  TraceCapture(const TraceCapture&) = delete;
  TraceCapture& operator=(const TraceCapture&) = delete;

  std::string Text() const { return _text.str(); }
  void Clear() { _text.str({}); }

 private:
  KorString _component;
  std::ostringstream _text;
};
