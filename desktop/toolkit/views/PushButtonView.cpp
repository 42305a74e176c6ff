#include "desktop/toolkit/views/PushButtonView.h"

#include <QShortcut>

#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/Shortcuts.h"

namespace desktop {

PushButtonView::PushButtonView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QPushButton(parent)) {
  // Enter in an editor ends the edit; it must not press a button that nobody looked at.
  Qt()->setAutoDefault(false);
  QObject::connect(Qt(), &QPushButton::clicked, this,
                   [this] { Act([this] { Model().Press(); }, KorDlgProperty::Sensitivity); });
  AddShortcut();
}

void PushButtonView::AddShortcut() {
  const QKeySequence keys = ShortcutOf(Model());
  if (keys.isEmpty()) return;
  // A shortcut of the button's own would press it for a tenth of a second before it clicks.
  auto* shortcut = new QShortcut(keys, Qt());
  QObject::connect(shortcut, &QShortcut::activated, this, [this] { Qt()->click(); });
}

void PushButtonView::ShowTitle() { Qt()->setText(Literal(Model().GetTitle())); }

QString PushButtonView::HelpSuffix() const {
  const QKeySequence keys = ShortcutOf(Model());
  return keys.isEmpty() ? QString() : " (" + keys.toString(QKeySequence::NativeText) + ")";
}

}  // namespace desktop
