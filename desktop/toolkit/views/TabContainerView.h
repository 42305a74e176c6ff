#pragma once

#include <QTabWidget>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgTabContainer.h"

namespace desktop {

class TabContainerView : public QtViewOf<KorDlgTabContainer, QTabWidget> {
 public:
  TabContainerView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  QWidget* Content() override { return Qt(); }
  /// Adds the page's tab when it is new.
  void Place(QtView& child) override;
  void Show(KorDlgProperty property) override;
  /// Shows title, help, sensitivity, visibility and mark of all pages on their tabs, and which page is in
  /// front. A marked page has a sign beside its title, so that the mark is seen whichever page is in front,
  /// and the reason in tooltip and accessible name.
  void ShowPages();

 private:
  void ShowTab(KorDlgTabPage& page);
  void ShowTexts(int tab, const KorDlgTabPage& page);
};

}  // namespace desktop
