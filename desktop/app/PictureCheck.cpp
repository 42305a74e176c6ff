#include "desktop/app/PictureCheck.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTableView>
#include <QTreeView>
#include <vector>

namespace desktop {
namespace {

/// A text and the area that holds it and its ground, without frame and indicator, in the widget's
/// coordinates.
struct Piece {
  QString text;
  QRect area;
};
using Pieces = std::vector<Piece>;

constexpr int kFrame = 4;       ///< the most that the style draws round a text, device-independent pixels
constexpr int kLeastWidth = 8;  ///< of an area that has room for a letter

/// Gradients of the style run from top to bottom: where nothing is written each line is of one colour.
bool IsPlain(const QImage& picture, const QRect& area) {
  for (int y = area.top(); y <= area.bottom(); ++y)
    for (int x = area.left() + 1; x <= area.right(); ++x)
      if (picture.pixel(x, y) != picture.pixel(x - 1, y)) return false;
  return true;
}

/// In pixels of the picture; empty when it is not in the picture whole.
QRect PlaceOf(const QRect& area, const QWidget& widget, const QWidget& window, const QImage& picture) {
  if (area.width() < kLeastWidth || !widget.visibleRegion().boundingRect().contains(area)) return {};
  const qreal scale = picture.devicePixelRatio();
  const QRect place(widget.mapTo(&window, area.topLeft()) * scale, area.size() * scale);
  return picture.rect().contains(place) ? place : QRect();
}

QRect Inside(const QRect& frame) { return frame.adjusted(kFrame, kFrame, -kFrame, -kFrame); }

QRect TextAreaOf(const QAbstractButton& button) {
  QStyleOptionButton option;
  option.initFrom(&button);
  option.text = button.text();
  const auto area = [&](QStyle::SubElement element) {
    return button.style()->subElementRect(element, &option, &button);
  };
  if (button.inherits("QCheckBox")) return area(QStyle::SE_CheckBoxContents);
  if (button.inherits("QRadioButton")) return area(QStyle::SE_RadioButtonContents);
  return Inside(button.rect());
}

QRect TextAreaOf(const QComboBox& combo) {
  QStyleOptionComboBox option;
  option.initFrom(&combo);
  return combo.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo);
}

QRect TextAreaOf(const QLineEdit& edit) { return edit.hasFrame() ? Inside(edit.rect()) : edit.rect(); }

Pieces TabsOf(const QTabBar& bar) {
  Pieces pieces;
  for (int i = 0; i < bar.count(); ++i) pieces.push_back({bar.tabText(i), Inside(bar.tabRect(i))});
  return pieces;
}

Pieces TitlesOf(const QHeaderView& header) {
  Pieces pieces;
  for (int i = 0; i < header.count() && header.orientation() == Qt::Horizontal; ++i) {
    const QRect area(header.sectionViewportPosition(i), 0, header.sectionSize(i),
                     header.viewport()->height());
    pieces.push_back({header.model()->headerData(i, Qt::Horizontal).toString(), Inside(area)});
  }
  return pieces;
}

/// The cells in sight, line by line from the top.
Pieces CellsOf(const QAbstractItemView& view) {
  Pieces pieces;
  const auto* tree = qobject_cast<const QTreeView*>(&view);
  const auto below = [&](const QModelIndex& line) {
    return tree ? tree->indexBelow(line) : line.siblingAtRow(line.row() + 1);
  };
  const int bottom = view.viewport()->height();
  for (QModelIndex line = view.indexAt({1, 1}); line.isValid(); line = below(line)) {
    if (view.visualRect(line).top() > bottom) break;
    for (int column = 0; column < view.model()->columnCount(line.parent()); ++column) {
      const QModelIndex cell = line.siblingAtColumn(column);
      pieces.push_back({cell.data().toString(), view.visualRect(cell).adjusted(1, 1, -1, -1)});
    }
  }
  return pieces;
}

Pieces PiecesOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget))
    return {{label->text(), label->contentsRect()}};
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
    return {{button->text(), TextAreaOf(*button)}};
  if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) return {{edit->text(), TextAreaOf(*edit)}};
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget))
    return {{combo->isEditable() ? QString() : combo->currentText(), TextAreaOf(*combo)}};
  if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) return TabsOf(*bar);
  if (const auto* header = qobject_cast<const QHeaderView*>(&widget)) return TitlesOf(*header);
  const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
  return view && view->model() ? CellsOf(*view) : Pieces();
}

/// The widget whose coordinates the pieces have.
const QWidget& GroundOf(const QWidget& widget) {
  const auto* scrolled = qobject_cast<const QAbstractScrollArea*>(&widget);
  return scrolled ? *scrolled->viewport() : widget;
}

}  // namespace

QStringList TextsNotDrawn(const QWidget& window, const QImage& picture) {
  QStringList texts;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() != &window || !widget->isVisible()) continue;
    for (const auto& [text, area] : PiecesOf(*widget)) {
      const QRect place = PlaceOf(area, GroundOf(*widget), window, picture);
      if (!text.trimmed().isEmpty() && !place.isEmpty() && IsPlain(picture, place)) texts << text;
    }
  }
  return texts;
}

}  // namespace desktop
