#include "desktop/toolkit/views/RadioButtonView.h"

#include <QSignalBlocker>

#include "desktop/toolkit/QtBackend.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {

RadioButtonView::RadioButtonView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QRadioButton(parent)) {
  QObject::connect(Qt(), &QRadioButton::clicked, this, [this] {
    const QPointer<QtView> self(this);
    Act([this] { Model().Check(); }, KorDlgProperty::Checked);
    // Qt has unchecked the others by itself, whether or not the widget took the click.
    if (self) Backend().ShowExclusionGroup(Model());
  });
}

void RadioButtonView::Show(KorDlgProperty property) {
  if (property != KorDlgProperty::Checked) return QtView::Show(property);
  if (Qt()->isChecked() == Model().IsChecked()) return;
  // Exclusive, Qt keeps one button of a group checked; the widgets may all be unchecked.
  const QSignalBlocker quiet(Qt());
  Qt()->setAutoExclusive(false);
  Qt()->setChecked(Model().IsChecked());
  Qt()->setAutoExclusive(true);
}

void RadioButtonView::ShowTitle() { Qt()->setText(Literal(Model().GetTitle())); }

}  // namespace desktop
