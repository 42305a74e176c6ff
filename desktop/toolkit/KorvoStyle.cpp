#include "desktop/toolkit/KorvoStyle.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>

namespace desktop {
namespace {

/// Whether the element is the panel of an editor of its own (not one inside a combo or spin box) that is read only.
bool IsReadOnlyPanel(QStyle::PrimitiveElement element, const QStyleOption& option, const QWidget* widget) {
  if (element != QStyle::PE_PanelLineEdit || !(option.state & QStyle::State_ReadOnly)) return false;
  const QWidget* parent = widget ? widget->parentWidget() : nullptr;
  return !qobject_cast<const QComboBox*>(parent) && !qobject_cast<const QAbstractSpinBox*>(parent);
}

QColor Mixed(const QColor& a, const QColor& b, double shareOfB) {
  const auto mix = [shareOfB](int from, int to) { return from + static_cast<int>((to - from) * shareOfB); };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

void DrawReadOnlyPanel(const QStyleOption& option, QPainter& painter) {
  const QPalette& palette = option.palette;
  const bool focused = option.state & QStyle::State_HasFocus;
  const QColor window = palette.color(QPalette::Window);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Mixed(window, palette.color(QPalette::WindowText), 0.04));
  painter.setPen(focused ? palette.color(QPalette::Highlight)
                         : Mixed(window, palette.color(QPalette::WindowText), 0.14));
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
  painter.restore();
}

}  // namespace

void KorvoStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (IsReadOnlyPanel(element, *option, widget))
    DrawReadOnlyPanel(*option, *painter);
  else
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

int KorvoStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace desktop
