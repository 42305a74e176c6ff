#include "desktop/app/Tracing.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "framework/system/TqTrace.h"

namespace desktop {
namespace {

constexpr const char* kAll = "all";
constexpr const char* kComponentsVariable = "KORVO_TRACE";
constexpr const char* kFileVariable = "KORVO_TRACE_FILE";

}  // namespace

bool TraceChoice::Traces(const QString& component) const {
  return components.contains(component) || components.contains(kAll);
}

Tracing::~Tracing() {
  TqTrace::SwitchComponent("", false);
  TqTrace::SetOutput(nullptr);
}

TraceChoice Tracing::ChoiceAtStart(const Settings& settings) {
  TraceChoice choice{settings.TracedComponents(), settings.TraceFile()};
  if (qEnvironmentVariableIsSet(kComponentsVariable)) {
    choice.components = qEnvironmentVariable(kComponentsVariable).split(',', Qt::SkipEmptyParts);
    for (QString& component : choice.components) component = component.trimmed();
    choice.file.clear();
  }
  if (qEnvironmentVariableIsSet(kFileVariable)) choice.file = qEnvironmentVariable(kFileVariable);
  return choice;
}

protocol::Result<void> Tracing::Apply(const TraceChoice& choice) {
  std::unique_ptr<std::ofstream> file;
  if (!choice.components.isEmpty() && !choice.file.isEmpty()) {
    file = std::make_unique<std::ofstream>(choice.file.toStdString(), std::ios::app);
    if (!*file)
      return protocol::Error{
          protocol::ErrorKind::Storage,
          "the trace file \"" + choice.file.toStdString() + "\" cannot be opened: " + std::strerror(errno)};
  }
  TqTrace::SetOutput(file.get());
  _file = std::move(file);
  // All of them first: components of libraries that are yet to be loaded follow this one.
  TqTrace::SwitchComponent("", choice.components.contains(kAll));
  for (const QString& component : choice.components)
    if (component != kAll) TqTrace::SwitchComponent(component.toStdString(), true);
  _choice = choice;
  return {};
}

QStringList Tracing::Components() {
  QStringList components;
  for (const KorString& component : TqTrace::GetComponents()) components << QString::fromStdString(component);
  components.removeDuplicates();
  components.sort();
  return components;
}

}  // namespace desktop
