#include "desktop/app/Tracing.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/system/TqTrace.h"

namespace desktop {
namespace {

constexpr const char* kAll = "all";
constexpr const char* kComponentsVariable = "KORVO_TRACE";
constexpr const char* kFileVariable = "KORVO_TRACE_FILE";

protocol::Error FileError(const char* key, const QString& file, const std::string& why) {
  return {protocol::ErrorKind::Storage, FromQt(Text(key, {file, ToQt(why)})).Utf8()};
}

/// The names among what was written between commas: without blanks around them, and without those that are
/// none. To the trace facility no name at all means every component.
QStringList NamesAmong(const QStringList& written) {
  QStringList names;
  for (const QString& name : written) names << name.trimmed();
  names.removeAll(QString());
  return names;
}

}  // namespace

/// A file that traces are written to behind what it has; keeps in mind why that failed.
class Tracing::File : private std::filebuf, public std::ostream {
 public:
  explicit File(const QString& path) : std::ostream(static_cast<std::filebuf*>(this)) {
    Noted(open(path.toStdString(), std::ios::out | std::ios::app) != nullptr);
    if (!is_open()) setstate(failbit);
  }
  const std::string& Why() const { return _why; }

  bool lossTold = false;

 protected:
  int sync() override { return Noted(std::filebuf::sync() == 0) ? 0 : -1; }
  std::filebuf::int_type overflow(std::filebuf::int_type letter) override {
    const auto done = std::filebuf::overflow(letter);
    Noted(done != std::filebuf::traits_type::eof());
    return done;
  }
  std::streamsize xsputn(const char* text, std::streamsize size) override {
    const std::streamsize done = std::filebuf::xsputn(text, size);
    Noted(done == size);
    return done;
  }

 private:
  bool Noted(bool done) {
    if (!done && _why.empty()) _why = std::strerror(errno);
    return done;
  }

  std::string _why;
};

Tracing::Tracing() = default;

bool TraceChoice::Traces(const QString& component) const {
  return components.contains(component) || components.contains(kAll);
}

Tracing::~Tracing() {
  TqTrace::SwitchComponent("", false);
  TqTrace::SetOutput(nullptr);
  if (const auto written = CheckWritten(); !written)
    std::cerr << "korvo: " << written.Failure().message << "\n";
}

TraceChoice Tracing::ChoiceAtStart(const Settings& settings) {
  TraceChoice choice{NamesAmong(settings.TracedComponents()), settings.TraceFile()};
  if (qEnvironmentVariableIsSet(kComponentsVariable)) {
    choice.components = NamesAmong(qEnvironmentVariable(kComponentsVariable).split(','));
    choice.file.clear();
  }
  if (qEnvironmentVariableIsSet(kFileVariable)) choice.file = qEnvironmentVariable(kFileVariable);
  return choice;
}

QString Tracing::UnknownAtStart(const TraceChoice& choice) {
  QStringList unknown = choice.components;
  for (const QString& component : KnownOf(choice.components)) unknown.removeAll(component);
  if (unknown.isEmpty()) return {};
  const QString place =
      qEnvironmentVariableIsSet(kComponentsVariable) ? kComponentsVariable : Text("Tracing.Remembered");
  return Text("Tracing.Unknown", {place, unknown.join(", "), Components().join(", ")});
}

QStringList Tracing::KnownOf(const QStringList& components) {
  const QStringList known = Components();
  QStringList names = components;
  if (!known.isEmpty())
    names.removeIf([&](const QString& name) { return name != kAll && !known.contains(name); });
  return names;
}

protocol::Result<void> Tracing::Apply(const TraceChoice& choice) {
  std::unique_ptr<File> file;
  if (!choice.components.isEmpty() && !choice.file.isEmpty()) {
    file = std::make_unique<File>(choice.file);
    if (!*file) return FileError("Tracing.CannotOpen", choice.file, file->Why());
  }
  NoteLoss();
  TqTrace::SetOutput(file.get());
  _file = std::move(file);
  // All of them first: components of libraries that are yet to be loaded follow this one.
  TqTrace::SwitchComponent("", choice.components.contains(kAll));
  for (const QString& component : choice.components)
    if (component != kAll) TqTrace::SwitchComponent(component.toStdString(), true);
  _choice = _wanted = choice;
  return {};
}

protocol::Result<void> Tracing::Start(const TraceChoice& choice) {
  auto applied = Apply(choice);
  _wanted = choice;
  return applied;
}

void Tracing::NoteLoss() {
  if (!_file || _file->lossTold) return;
  _file->flush();
  if (!_file->fail()) return;
  _file->lossTold = true;
  _loss = FileError("Tracing.CannotWrite", _choice.file, _file->Why());
}

protocol::Result<void> Tracing::CheckWritten() {
  NoteLoss();
  if (!_loss) return {};
  const protocol::Error loss = *_loss;
  _loss.reset();
  return loss;
}

QStringList Tracing::Components() {
  QStringList components;
  for (const KorString& component : TqTrace::GetComponents()) components << QString::fromStdString(component);
  components.removeDuplicates();
  components.sort();
  return components;
}

}  // namespace desktop
