#include "lumira/import/ImportLog.h"

#include "lumira/model/Counted.h"

namespace lumira {
namespace {

std::string Line(const Place& place, std::string_view text) {
  return ToText(place).append(": ").append(text);
}

}  // namespace

std::string ToText(const Place& place) {
  std::string text(place.file);
  if (place.line > 0) text += ", line " + std::to_string(place.line);
  if (place.column > 0) text += ", column " + std::to_string(place.column);
  if (!place.title.empty()) text.append(" (").append(place.title).append(")");
  return text;
}

void ImportLog::Error(const Place& place, std::string_view text, protocol::ErrorKind kind) {
  if (_errorCount++ == 0) _kind = kind;
  if (_errors.size() < kShownErrors) _errors.push_back(Line(place, text));
}

void ImportLog::Warning(const Place& place, std::string_view text) { _warnings.push_back(Line(place, text)); }

void ImportLog::LeftOut(const Place& place, std::string_view text) { _leftOut.push_back(Line(place, text)); }

protocol::Error ImportLog::Failure() const {
  std::string message;
  for (const std::string& error : _errors) message += (message.empty() ? "" : "\n") + error;
  if (_errorCount > _errors.size())
    message += "\nand " + Counted(_errorCount - _errors.size(), {"more error", "more errors"});
  return {_kind, message};
}

}  // namespace lumira
