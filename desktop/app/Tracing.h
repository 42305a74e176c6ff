#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <optional>

#include "desktop/app/Settings.h"
#include "protocol/Result.h"

namespace desktop {

/// Which components are traced, and where to.
struct TraceChoice {
  QStringList components = {};  ///< traced ones; "all" among them stands for every one
  QString file = {};            ///< empty: standard output

  bool Traces(const QString& component) const;
  bool operator==(const TraceChoice&) const = default;
};

/// Switches the trace facility; off by default, and off again when this object goes.
class Tracing {
 public:
  Tracing();
  /// Says on standard error what nobody has been told of the loss of a trace.
  ~Tracing();
  Tracing(const Tracing&) = delete;
  Tracing& operator=(const Tracing&) = delete;

  /// What the environment asks for (KORVO_TRACE: components with commas between them, or "all";
  /// KORVO_TRACE_FILE), else what the settings remember. The environment is for one start: nothing of it is
  /// remembered.
  static TraceChoice ChoiceAtStart(const Settings& settings);
  /// Names the components of the choice at the start that there are not, where they stand and which there
  /// are; empty when nothing is the matter, and as long as no component is known.
  static QString UnknownAtStart(const TraceChoice& choice);

  /// Those of the components that there are, and "all"; as long as no component is known, each of them.
  static QStringList KnownOf(const QStringList& components);

  /// Traces these and no others. A file is written to behind what it has. Storage, with everything as it was,
  /// when the file cannot be opened.
  protocol::Result<void> Apply(const TraceChoice& choice);
  /// The same at the start: what cannot be traced stays the wanted choice, for the user to see and change.
  protocol::Result<void> Start(const TraceChoice& choice);
  const TraceChoice& Choice() const { return _choice; }
  /// What was asked for last: the choice, or one at the start whose file could not be opened.
  const TraceChoice& Wanted() const { return _wanted; }
  /// Storage when something of the trace could not be written to its file; once for each file.
  protocol::Result<void> CheckWritten();

  /// The components there are, each once, by name.
  static QStringList Components();

 private:
  class File;
  void NoteLoss();

  TraceChoice _choice;
  TraceChoice _wanted;
  std::unique_ptr<File> _file;
  std::optional<protocol::Error> _loss;  ///< that nobody has been told of
};

}  // namespace desktop
