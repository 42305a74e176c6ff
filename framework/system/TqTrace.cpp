#include "framework/system/TqTrace.h"

#include <iostream>
#include <map>
#include <streambuf>

namespace {

/// Takes every character and keeps none.
class SwallowingBuffer : public std::streambuf {
 protected:
  int_type overflow(int_type c) override { return traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

struct Settings {
  bool onByDefault = false;
  std::map<KorString, bool> components;
  std::ostream* out = nullptr;
  int flushes = 0;

  bool IsOn(const KorString& component) const {
    const auto found = components.find(component);
    return found == components.end() ? onByDefault : found->second;
  }
};

// Traces are made by static objects of other libraries, so the settings come into being at first use.
Settings& TheSettings() {
  static Settings settings;
  return settings;
}

std::ostream& SwallowingStream() {
  static SwallowingBuffer buffer;
  static std::ostream stream(&buffer);
  return stream;
}

std::ostream& OutputStream() { return TheSettings().out ? *TheSettings().out : std::cout; }

}  // namespace

TqTrace::TqTrace(const char* component) : _component(component ? component : "") { TheSettings(); }

TqTrace::TqTrace(const char* component, const char* function, const char* date, const char* time,
                 const char* qualifiedName, int& status)
    : _component(component), _function(function), _qualifiedName(qualifiedName), _status(&status) {
  if (!TraceOn()) return;
  GetCout() << "-> " << _qualifiedName << " [" << _component << ", " << _function << ", built " << date << ' '
            << time << "]\n";
  _entryWritten = true;
}

TqTrace::~TqTrace() {
  if (_entryWritten) GetCout() << "<- " << _qualifiedName << ", status " << *_status << '\n';
}

bool TqTrace::TraceOn() const { return TheSettings().IsOn(_component); }

std::ostream& TqTrace::GetCout() const { return TraceOn() ? OutputStream() : SwallowingStream(); }

void TqTrace::TqTraceFlush() {
  ++TheSettings().flushes;
  OutputStream().flush();
}

void TqTrace::SwitchComponent(const KorString& component, bool on) {
  Settings& settings = TheSettings();
  if (!component.empty()) {
    settings.components[component] = on;
    return;
  }
  settings.components.clear();
  settings.onByDefault = on;
}

void TqTrace::SetOutput(std::ostream* out) { TheSettings().out = out; }

int TqTrace::FlushCount() { return TheSettings().flushes; }
