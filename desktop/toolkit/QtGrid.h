#pragma once

#include <QGridLayout>

#include "framework/dialog/KorDlgObject.h"

namespace desktop {

class QtView;

/// The grid of a widget's children in Qt. Spare height goes to the rows with something that can use it
/// (lists, tab containers); without any it gathers below the last row.
class QtGrid {
 public:
  enum class Margins { None, Frame };
  QtGrid(QWidget* content, Margins margins);

  /// Puts the child where its widget says, or takes it out when the widget is not attached.
  void Place(const QtView& child);
  /// Decides anew which rows get spare height. `parent` is the widget whose children are in the grid.
  void ShareHeight(const KorDlgObject& parent);

 private:
  void Put(QWidget* child, const KorDlgGrid& place);
  bool StandsAt(QWidget* child, const KorDlgGrid& place) const;

  QGridLayout* _layout;
};

/// The alignment in a cell of a widget that is attached to these sides; to opposite sides means to fill.
Qt::Alignment AlignmentOf(int attachment);

}  // namespace desktop
