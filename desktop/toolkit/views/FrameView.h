#pragma once

#include <QGroupBox>

#include "desktop/toolkit/QtGrid.h"
#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgFrame.h"

namespace desktop {

/// A frame by its style: a group with a title, a border, or nothing of its own.
class FrameView : public QtViewOf<KorDlgFrame, QWidget> {
 public:
  FrameView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  QWidget* Content() override { return Qt(); }
  void Place(QtView& child) override { _grid.Place(child); }
  void ShareHeight() override { _grid.ShareHeight(Model()); }

 protected:
  void ShowTitle() override;

 private:
  QtGrid _grid;
};

}  // namespace desktop
