#include "desktop/toolkit/QtBackend.h"

#include <algorithm>

#include "desktop/toolkit/LabelPairs.h"
#include "desktop/toolkit/QtBoxes.h"
#include "desktop/toolkit/ViewMakers.h"
#include "framework/dialog/KorDlgDialog.h"

namespace desktop {

QtBackend::QtBackend(Boxes* boxes) : _boxes(boxes) {
  if (_boxes) return;
  _ownBoxes = std::make_unique<QtBoxes>([this](KorDlgDialog* dialog) { return WindowOf(dialog); });
  _boxes = _ownBoxes.get();
}

QtBackend::~QtBackend() = default;

QtView* QtBackend::ViewOf(const KorDlgObject& widget) const {
  const auto found = _views.find(&widget);
  return found == _views.end() ? nullptr : found->second.get();
}

QtView* QtBackend::ParentView(const KorDlgObject& widget) const {
  return widget.Parent() ? ViewOf(*widget.Parent()) : nullptr;
}

QWidget* QtBackend::WindowOf(const KorDlgDialog* dialog) const {
  QtView* view = dialog ? ViewOf(*dialog) : nullptr;
  return view ? view->Qt() : _mainWindow.data();
}

void QtBackend::CommitEdits() {
  // One at a time: the handler of an edit may take widgets away.
  while (QtView* view = PendingEdit()) view->CommitEdit();
}

QtView* QtBackend::PendingEdit() const {
  const auto found = std::find_if(_views.begin(), _views.end(),
                                  [](const auto& one) { return one.second->HasPendingEdit(); });
  return found == _views.end() ? nullptr : found->second.get();
}

void QtBackend::Settle() {
  for (const auto& [widget, view] : _views) view->Settle();
}

void QtBackend::ShowExclusionGroup(const KorDlgObject& radio) {
  if (!radio.Parent()) return;
  for (const auto& sibling : radio.Parent()->Children())
    if (sibling->Kind() == KorDlgKind::RadioButton) Changed(*sibling, KorDlgProperty::Checked);
}

void QtBackend::Created(KorDlgObject& widget) {
  QtView* parent = ParentView(widget);
  QWidget* above = parent ? parent->Content() : _mainWindow.data();
  QtView& view = *(_views[&widget] = MakeView(*this, widget, above));
  PairWithLabel(*this, view);
}

void QtBackend::Changed(KorDlgObject& widget, KorDlgProperty property) {
  if (QtView* view = ViewOf(widget)) view->Show(property);
}

void QtBackend::Destroyed(KorDlgObject& widget) { _views.erase(&widget); }

}  // namespace desktop
