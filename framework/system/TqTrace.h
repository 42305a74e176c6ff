#pragma once

#include <functional>
#include <iosfwd>
#include <vector>

#include "framework/system/KorExport.h"
#include "framework/system/KorUnicodeString.h"

/// The trace facility: off by default, switched per component, written to one stream.
///
/// A component trace object names a source file's component; a function trace object marks the time
/// between the entry into a function and its end, and writes both when its component is on.
class KOR_FRAMEWORK_API TqTrace {
 public:
  explicit TqTrace(const char* component);
  /// `date` and `time` are those of the build, as the compiler writes them; `status` is read at the end.
  TqTrace(const char* component, const char* function, const char* date, const char* time,
          const char* qualifiedName, int& status);
  ~TqTrace();
  TqTrace(const TqTrace&) = delete;
  TqTrace& operator=(const TqTrace&) = delete;

  /// Whether tracing is on for this object's component.
  bool TraceOn() const;
  /// The narrow stream that trace lines go to; swallows everything while tracing is off for the component.
  std::ostream& GetCout() const;
  static void TqTraceFlush();

  /// Components whose trace objects there are, in the order in which they came into being.
  static std::vector<KorString> GetComponents();
  /// Told when the component trace object of a library comes and goes. Null: nobody.
  using ComponentObserver = std::function<void(const KorString& component, bool alive)>;
  static void SetComponentObserver(ComponentObserver observer);

  /// Switches a component on or off; an empty name means all components.
  static void SwitchComponent(const KorString& component, bool on);
  /// Where traces go from now on; null: standard output. The stream must outlive its use here.
  static void SetOutput(std::ostream* out);
  /// How often the trace was flushed since the start.
  static int FlushCount();

 private:
  void RemoveComponent();

  KorString _component;
  KorString _function;
  KorString _qualifiedName;
  int* _status = nullptr;  ///< null in a component trace object
  bool _entryWritten = false;
};
