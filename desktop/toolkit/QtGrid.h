#pragma once

#include <QGridLayout>

#include "framework/dialog/KorDlgConstants.h"

namespace desktop {

class QtView;

/// The grid of a widget's children in Qt. What a row of fixed height does not need gathers below the last row.
class QtGrid {
 public:
  enum class Margins { None, Frame };
  QtGrid(QWidget* content, Margins margins);

  /// Puts the child where its widget says, or takes it out when the widget is not attached.
  void Place(const QtView& child);

 private:
  void Put(QWidget* child, const KorDlgGrid& place);
  bool StandsAt(QWidget* child, const KorDlgGrid& place) const;
  void GatherSpareHeight();

  QGridLayout* _layout;
};

/// The alignment in a cell of a widget that is attached to these sides; to opposite sides means to fill.
Qt::Alignment AlignmentOf(int attachment);

}  // namespace desktop
