#include "desktop/toolkit/views/CheckButtonView.h"

#include <QSignalBlocker>

#include "desktop/toolkit/QtText.h"

namespace desktop {

CheckButtonView::CheckButtonView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QCheckBox(parent)) {
  QObject::connect(Qt(), &QCheckBox::clicked, this,
                   [this] { Act([this] { Model().Toggle(); }, KorDlgProperty::Checked); });
}

void CheckButtonView::Show(KorDlgProperty property) {
  if (property != KorDlgProperty::Checked) return QtView::Show(property);
  const QSignalBlocker quiet(Qt());
  Qt()->setChecked(Model().IsChecked());
}

void CheckButtonView::ShowTitle() { Qt()->setText(Literal(Model().GetTitle())); }

}  // namespace desktop
