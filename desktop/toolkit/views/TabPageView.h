#pragma once

#include "desktop/toolkit/QtGrid.h"
#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgTabPage.h"

namespace desktop {

/// The content of a page. What its tab shows, a mark included, belongs to the container's view.
class TabPageView : public QtViewOf<KorDlgTabPage, QWidget> {
 public:
  TabPageView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  QWidget* Content() override { return Qt(); }
  void Place(QtView& child) override { _grid.Place(child); }
  void ShareHeight() override { _grid.ShareHeight(Model()); }
  void Show(KorDlgProperty property) override;

 private:
  QtGrid _grid;
};

}  // namespace desktop
