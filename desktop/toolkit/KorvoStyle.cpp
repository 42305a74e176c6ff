#include "desktop/toolkit/KorvoStyle.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QPolygonF>
#include <QStyleOption>
#include <QTableView>
#include <algorithm>

namespace desktop {
namespace {

/// Whether the element is the panel of an editor of its own (not one inside a combo or spin box) that is read
/// only.
bool IsReadOnlyPanel(QStyle::PrimitiveElement element, const QStyleOption& option, const QWidget* widget) {
  if (element != QStyle::PE_PanelLineEdit || !(option.state & QStyle::State_ReadOnly)) return false;
  const QWidget* parent = widget ? widget->parentWidget() : nullptr;
  return !qobject_cast<const QComboBox*>(parent) && !qobject_cast<const QAbstractSpinBox*>(parent);
}

QColor Mixed(const QColor& a, const QColor& b, double shareOfB) {
  const auto mix = [shareOfB](int from, int to) { return from + static_cast<int>((to - from) * shareOfB); };
  return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

/// The window's colour with a share of the text's.
QColor Tint(const QPalette& palette, double share) {
  return Mixed(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share);
}

void DrawBox(const QStyleOption& option, QPainter& painter, const QColor& border, const QBrush& ground) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(border);
  painter.setBrush(ground);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
  painter.restore();
}

void DrawReadOnlyPanel(const QStyleOption& option, QPainter& painter) {
  const bool focused = option.state & QStyle::State_HasFocus;
  const QColor border = focused ? option.palette.color(QPalette::Highlight) : Tint(option.palette, 0.14);
  DrawBox(option, painter, border, Tint(option.palette, 0.04));
}

/// Whether the element is the border of a plain frame, not that of a list or editor.
bool IsPlainFrame(QStyle::PrimitiveElement element, const QWidget* widget) {
  return element == QStyle::PE_Frame && widget && widget->metaObject() == &QFrame::staticMetaObject;
}

/// Elements whose outline Fusion takes from the window's colour, darkened: on a dark window nobody would see
/// it.
bool HasOutline(QStyle::PrimitiveElement element) {
  return element == QStyle::PE_IndicatorRadioButton || element == QStyle::PE_IndicatorCheckBox ||
         element == QStyle::PE_PanelLineEdit || element == QStyle::PE_FrameLineEdit;
}

/// The palette with a window colour that gives a visible outline; as it is on a light window.
QPalette WithVisibleOutline(QPalette palette) {
  constexpr int kDark = 128;
  if (palette.color(QPalette::Window).lightness() < kDark)
    palette.setColor(QPalette::Window, Tint(palette, 0.55));
  return palette;
}

/// Fusion draws the arrows of a tree in the colour of its texts, also on the ground of a selected line.
bool IsArrowOfSelectedLine(QStyle::PrimitiveElement element, const QStyleOption& option) {
  return element == QStyle::PE_IndicatorBranch && (option.state & QStyle::State_Selected) &&
         (option.state & QStyle::State_Children);
}

void DrawSelectedArrow(const QStyleOption& option, QPainter& painter) {
  constexpr double kHalf = 3.5;  ///< device-independent pixels from the middle of the arrow to its corners
  const QPolygonF open({{-kHalf, -kHalf / 2}, {kHalf, -kHalf / 2}, {0, kHalf / 2 + 1}});
  const QPolygonF closed({{-kHalf / 2, -kHalf}, {-kHalf / 2, kHalf}, {kHalf / 2 + 1, 0}});
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(option.palette.color(QPalette::HighlightedText));
  painter.translate(QRectF(option.rect).center());
  painter.drawPolygon(option.state & QStyle::State_Open ? open : closed);
  painter.restore();
}

constexpr int kButtonPadding = 12;  ///< device-independent pixels on each side of a button's text
constexpr int kHeaderPadding = 6;   ///< the same for the titles of columns
/// Beside the texts of a table. Qt puts one pixel more there: they stand below the titles of their columns.
constexpr int kCellMargin = kHeaderPadding - 1;

}  // namespace

void KorvoStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (IsReadOnlyPanel(element, *option, widget)) return DrawReadOnlyPanel(*option, *painter);
  if (IsArrowOfSelectedLine(element, *option)) return DrawSelectedArrow(*option, *painter);
  if (IsPlainFrame(element, widget))
    return DrawBox(*option, *painter, Tint(option->palette, 0.16), Qt::NoBrush);
  if (!HasOutline(element)) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option)) {
    QStyleOptionFrame outlined(*frame);
    outlined.palette = WithVisibleOutline(option->palette);
    return QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
  }
  if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
    QStyleOptionButton outlined(*button);
    outlined.palette = WithVisibleOutline(option->palette);
    return QProxyStyle::drawPrimitive(element, &outlined, painter, widget);
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

QSize KorvoStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                                   const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type == CT_PushButton) size.setWidth(std::max(size.width(), contents.width() + 2 * kButtonPadding));
  return size;
}

int KorvoStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_HeaderMargin) return kHeaderPadding;
  if (metric == PM_FocusFrameHMargin && qobject_cast<const QTableView*>(widget)) return kCellMargin;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

int KorvoStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace desktop
