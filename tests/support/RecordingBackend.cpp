#include "tests/support/RecordingBackend.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "framework/dialog/KorDlgObject.h"
#include "tests/support/ShownText.h"

void RecordingBackend::Created(KorDlgObject& widget) {
  _log.push_back("created " + widget.Name());
  const bool isWindow = widget.Kind() == KorDlgKind::Dialog;
  if (!isWindow && !Knows(*widget.Parent()))
    ADD_FAILURE() << FullName(widget) << " was created before its parent.";
  const Window window{isWindow ? nullptr : widget.Parent(), widget.Kind(), widget.Name(), {}};
  if (!_windows.emplace(&widget, window).second) ADD_FAILURE() << FullName(widget) << " was created twice.";
}

void RecordingBackend::Changed(KorDlgObject& widget, KorDlgProperty property) {
  _log.push_back(widget.Name() + ": " + PropertyName(property));
  const auto window = _windows.find(&widget);
  if (window == _windows.end()) {
    ADD_FAILURE() << FullName(widget) << " changed its " << PropertyName(property)
                  << " before it was created.";
    return;
  }
  const auto properties = widget.Properties();
  if (std::find(properties.begin(), properties.end(), property) == properties.end())
    ADD_FAILURE() << FullName(widget) << " has no " << PropertyName(property) << " and announced it.";
  window->second.shown[property] = ShownText(widget, property);
}

void RecordingBackend::Destroyed(KorDlgObject& widget) {
  _log.push_back("destroyed " + widget.Name());
  for (const auto& [other, window] : _windows)
    if (window.parent == &widget)
      ADD_FAILURE() << window.name << " outlives its parent " << widget.Name() << ".";
  if (_windows.erase(&widget) == 0) ADD_FAILURE() << widget.Name() << " was destroyed and never created.";
}

std::string RecordingBackend::Shown(const KorDlgObject& widget, KorDlgProperty property) const {
  const auto window = _windows.find(&widget);
  if (window == _windows.end()) return "unknown";
  const auto shown = window->second.shown.find(property);
  return shown == window->second.shown.end() ? "unknown" : shown->second;
}

bool RecordingBackend::AllAbove(const KorDlgObject& widget, KorDlgProperty property,
                                const std::string& value) const {
  const auto window = _windows.find(&widget);
  if (window == _windows.end() || Shown(widget, property) != value) return false;
  return !window->second.parent || AllAbove(*window->second.parent, property, value);
}

bool RecordingBackend::IsInFront(const KorDlgObject& page) const {
  const KorDlgObject* parent = page.Parent();
  if (!parent || page.Kind() == KorDlgKind::Dialog) return true;
  if (parent->Kind() != KorDlgKind::TabContainer) return IsInFront(*parent);
  const auto& pages = parent->Children();
  const auto place =
      std::find_if(pages.begin(), pages.end(), [&](const auto& one) { return one.get() == &page; });
  return Shown(*parent, KorDlgProperty::Selection) == std::to_string(place - pages.begin()) &&
         IsInFront(*parent);
}

bool RecordingBackend::SeemsVisible(const KorDlgObject& widget) const {
  return AllAbove(widget, KorDlgProperty::Visibility, "shown") && IsInFront(widget);
}

bool RecordingBackend::SeemsEnabled(const KorDlgObject& widget) const {
  return AllAbove(widget, KorDlgProperty::Sensitivity, "enabled");
}

void RecordingBackend::ExpectMirrorsDialog(const KorDlgObject& dialog) const {
  for (const KorDlgProperty property : dialog.Properties())
    EXPECT_EQ(Shown(dialog, property), ShownText(dialog, property))
        << "the window of " << FullName(dialog) << " shows another " << PropertyName(property);
  for (const auto& child : dialog.Children()) ExpectMirrorsDialog(*child);
}
