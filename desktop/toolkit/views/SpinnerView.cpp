#include "desktop/toolkit/views/SpinnerView.h"

#include "desktop/toolkit/QtText.h"

namespace desktop {

SpinnerView::SpinnerView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new TextSpinBox(parent)) {
  Qt()->onUp = [this] { Act([this] { Model().TurnUp(); }, KorDlgProperty::Text); };
  Qt()->onDown = [this] { Act([this] { Model().TurnDown(); }, KorDlgProperty::Text); };
}

SpinnerView::~SpinnerView() {
  // The spin box may outlive the view by one turn of the event loop.
  if (Qt()) Qt()->onUp = Qt()->onDown = nullptr;
}

void SpinnerView::Show(KorDlgProperty property) {
  if (property == KorDlgProperty::Arrows) return ShowArrows();
  if (property != KorDlgProperty::Text) return QtView::Show(property);
  const QString text = ToQt(Model().GetText());
  if (Qt()->Text() != text) Qt()->SetText(text);
}

void SpinnerView::ShowArrows() {
  QAbstractSpinBox::StepEnabled arrows = QAbstractSpinBox::StepNone;
  if (Model().GetUpSensitivity() == KorSensitivity::Enabled) arrows |= QAbstractSpinBox::StepUpEnabled;
  if (Model().GetDownSensitivity() == KorSensitivity::Enabled) arrows |= QAbstractSpinBox::StepDownEnabled;
  if (Qt()->Arrows() != arrows) Qt()->SetArrows(arrows);
}

}  // namespace desktop
