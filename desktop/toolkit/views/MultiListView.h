#pragma once

#include <QTableView>

#include "desktop/toolkit/MultiListModel.h"
#include "desktop/toolkit/QtView.h"

namespace desktop {

/// A multi-column list. A list is filled cell by cell: changes of rows and selection are taken in together,
/// when control is back in the event loop.
class MultiListView : public QtViewOf<KorDlgMultiList, QTableView> {
 public:
  MultiListView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  ~MultiListView() override;
  void Show(KorDlgProperty property) override;
  void Settle() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowColumns();
  void ShowSelection();
  void FitColumns();
  int WidthOf(int column) const;
  int WidthAtOnce() const;
  std::vector<int> RowsSelectedInQt() const;

  MultiListModel* _items;
  bool _columnsFitted = false;
  bool _settleQueued = false;
};

}  // namespace desktop
