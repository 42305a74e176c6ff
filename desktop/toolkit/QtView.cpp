#include "desktop/toolkit/QtView.h"

#include "desktop/toolkit/MarkOverlay.h"
#include "desktop/toolkit/QtBackend.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {

QtView::QtView(QtBackend& backend, KorDlgObject& model, QWidget* qt)
    : _backend(backend), _model(model), _qt(qt) {
  _qt->setObjectName(QString::fromStdString(model.Name()));
}

QtView::~QtView() {
  if (!_qt) return;
  // Not hidden here: that would move the focus to a widget whose view is still there, and tell a dialog that
  // is being destroyed of it.
  _qt->disconnect(this);
  _qt->deleteLater();
}

void QtView::Place(QtView&) {}

void QtView::Show(KorDlgProperty property) {
  switch (property) {
    case KorDlgProperty::Title:
      return ShowTitle();
    case KorDlgProperty::Help:
      return ShowHelp();
    case KorDlgProperty::Marking:
      return ShowMarking();
    case KorDlgProperty::Sensitivity:
      return ShowSensitivity();
    case KorDlgProperty::Visibility:
      return ShowVisibility();
    case KorDlgProperty::Grid:
      return ShowGrid();
    default:
      return;
  }
}

void QtView::ShowGrid() {
  if (QtView* parent = _backend.ParentView(_model)) parent->Place(*this);
  for (QtView* above = _backend.ParentView(_model); above; above = _backend.ParentView(above->Model()))
    above->ShareHeight();
  ShowVisibility();
}

void QtView::ShowTitle() { _qt->setAccessibleName(AccessibleName()); }

/// The own title, else that of the label beside it, else that of the frame in which it stands alone.
QString QtView::AccessibleName() const {
  if (!_model.GetTitle().IsEmpty()) return ToQt(_model.GetTitle());
  if (_partner) return ToQt(_partner->Model().GetTitle());
  const KorDlgObject* above = _model.Parent();
  const bool framed = above && above->Kind() == KorDlgKind::Frame && above->Children().size() == 1;
  return framed ? ToQt(above->GetTitle()) : QString();
}

void QtView::ShowHelp() {
  const QString help = ToQt(_model.GetShortHelp());
  const QString marking = ToQt(_model.GetMarking());
  _qt->setAccessibleDescription(marking.isEmpty() ? help : marking);
  QStringList lines{TipHeading(), marking, help.isEmpty() ? help : help + HelpSuffix()};
  lines.removeAll(QString());
  _qt->setToolTip(AsWrappedTip(lines));
}

void QtView::ShowMarking() {
  MarkOverlay::Show(*_qt, !_model.GetMarking().IsEmpty() ? MarkOverlay::State::On : MarkOverlay::State::Off);
  ShowHelp();
}

void QtView::ShowSensitivity() { _qt->setEnabled(_model.IsEnabled()); }

void QtView::ShowVisibility() {
  // A new Qt widget is hidden, but comes to be shown with its parent unless it was told otherwise.
  const bool shown = _model.IsShown() && _model.IsAttached();
  if (_qt->isHidden() == shown || !_qt->testAttribute(Qt::WA_WState_ExplicitShowHide)) _qt->setVisible(shown);
}

void QtView::CommitAllEdits() { _backend.CommitEdits(); }

}  // namespace desktop
