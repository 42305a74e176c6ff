#include "desktop/toolkit/QtGrid.h"

#include <QWidget>
#include <algorithm>

#include "desktop/toolkit/QtView.h"

namespace desktop {
namespace {
constexpr int kMargin = 10;  ///< device-independent pixels
constexpr int kHorizontalSpacing = 8;
constexpr int kVerticalSpacing = 6;

bool Has(int attachment, int sides) { return (attachment & sides) == sides; }

/// Whether the widget, or one in it, shows more when it is higher.
bool UsesHeight(const KorDlgObject& widget) {
  if (widget.Kind() == KorDlgKind::MultiList || widget.Kind() == KorDlgKind::TabContainer) return true;
  return std::any_of(widget.Children().begin(), widget.Children().end(),
                     [](const auto& child) { return UsesHeight(*child); });
}
}  // namespace

Qt::Alignment AlignmentOf(int attachment) {
  Qt::Alignment alignment;
  if (!Has(attachment, KorDlgAttach::kLeft | KorDlgAttach::kRight))
    alignment |= Has(attachment, KorDlgAttach::kLeft)    ? Qt::AlignLeft
                 : Has(attachment, KorDlgAttach::kRight) ? Qt::AlignRight
                                                         : Qt::AlignHCenter;
  if (!Has(attachment, KorDlgAttach::kTop | KorDlgAttach::kBottom))
    alignment |= Has(attachment, KorDlgAttach::kTop)      ? Qt::AlignTop
                 : Has(attachment, KorDlgAttach::kBottom) ? Qt::AlignBottom
                                                          : Qt::AlignVCenter;
  return alignment;
}

QtGrid::QtGrid(QWidget* content, Margins margins) : _layout(new QGridLayout(content)) {
  const int margin = margins == Margins::Frame ? kMargin : 0;
  _layout->setContentsMargins(margin, margin, margin, margin);
  _layout->setHorizontalSpacing(kHorizontalSpacing);
  _layout->setVerticalSpacing(kVerticalSpacing);
}

void QtGrid::Place(const QtView& child) {
  if (child.Model().IsAttached())
    Put(child.Qt(), child.Model().GetGrid());
  else
    _layout->removeWidget(child.Qt());
}

void QtGrid::Put(QWidget* child, const KorDlgGrid& place) {
  if (StandsAt(child, place)) return;
  _layout->removeWidget(child);
  _layout->addWidget(child, place.row, place.column, place.rows, place.columns,
                     AlignmentOf(place.attachment));
}

bool QtGrid::StandsAt(QWidget* child, const KorDlgGrid& place) const {
  const int index = _layout->indexOf(child);
  if (index < 0) return false;
  KorDlgGrid now;
  _layout->getItemPosition(index, &now.row, &now.column, &now.rows, &now.columns);
  now.attachment = place.attachment;
  return now == place && _layout->itemAt(index)->alignment() == AlignmentOf(place.attachment);
}

void QtGrid::ShareHeight(const KorDlgObject& parent) {
  int rows = 0;
  std::vector<int> growing;
  for (const auto& child : parent.Children()) {
    if (!child->IsAttached()) continue;
    const KorDlgGrid& place = child->GetGrid();
    rows = std::max(rows, place.row + place.rows);
    if (UsesHeight(*child)) growing.push_back(place.row);
  }
  for (int row = 0; row < _layout->rowCount(); ++row) _layout->setRowStretch(row, 0);
  if (growing.empty()) growing.push_back(rows);
  for (const int row : growing) _layout->setRowStretch(row, 1);
}

}  // namespace desktop
