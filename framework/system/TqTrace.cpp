#include "framework/system/TqTrace.h"

#include <algorithm>
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
  std::vector<const TqTrace*> componentObjects;
  std::vector<KorString> componentNames;  ///< of the objects, one by one
  TqTrace::ComponentObserver observer;

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

TqTrace::TqTrace(const char* component) : _component(component ? component : "") {
  Settings& settings = TheSettings();
  settings.componentObjects.push_back(this);
  settings.componentNames.push_back(_component);
  if (settings.observer) settings.observer(_component, true);
}

TqTrace::TqTrace(const char* component, const char* function, const char* date, const char* time,
                 const char* qualifiedName, int& status)
    : _component(component), _function(function), _qualifiedName(qualifiedName), _status(&status) {
  if (!TraceOn()) return;
  GetCout() << "-> " << _qualifiedName << " [" << _component << ", " << _function << ", built " << date << ' '
            << time << "]\n";
  _entryWritten = true;
}

TqTrace::~TqTrace() {
  if (!_status) RemoveComponent();
  if (_entryWritten) GetCout() << "<- " << _qualifiedName << ", status " << *_status << '\n';
}

void TqTrace::RemoveComponent() {
  Settings& settings = TheSettings();
  const auto found = std::find(settings.componentObjects.begin(), settings.componentObjects.end(), this);
  settings.componentNames.erase(settings.componentNames.begin() +
                                (found - settings.componentObjects.begin()));
  settings.componentObjects.erase(found);
  if (settings.observer) settings.observer(_component, false);
}

std::vector<KorString> TqTrace::GetComponents() { return TheSettings().componentNames; }

void TqTrace::SetComponentObserver(ComponentObserver observer) {
  TheSettings().observer = std::move(observer);
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
