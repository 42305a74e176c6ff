#pragma once

#include <QTableView>
#include <set>

#include "desktop/toolkit/MultiListModel.h"
#include "desktop/toolkit/QtView.h"

namespace desktop {

/// Height of a row of one line in the font of a table, device-independent pixels; all tables ask for it, and
/// their titles for no less than they need themselves.
int RowHeightIn(const QWidget& table);

/// A multi-column list. A list is filled cell by cell: changes of rows and selection are taken in together,
/// when control is back in the event loop.
class MultiListView : public QtViewOf<KorDlgMultiList, QTableView> {
 public:
  MultiListView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  ~MultiListView() override;
  void Show(KorDlgProperty property) override;
  void Settle() override;

  /// The widths of the columns that were resized, by the user or by RestoreWidths; empty when none was.
  QByteArray SaveWidths() const;
  /// Gives the columns the widths that SaveWidths told; what is no such text, and columns that there are not,
  /// change nothing.
  void RestoreWidths(const QByteArray& widths);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowColumns();
  void ShowSelection();
  void FitColumns();
  void FitColumn(int column);
  /// Whether a height has changed.
  bool FitRows();
  void ShowScrolled(int value);
  void ShowWrapping();
  int LastShown() const;
  int WidthOfRest(int column) const;
  /// A list that shows one column at a time is one of texts: they wrap.
  bool Wraps() const { return Model().GetVisibleColumnCount() == 1; }
  int WidthOf(int column) const;
  int WidthAtOnce() const;
  std::vector<int> RowsSelectedInQt() const;

  MultiListModel* _items;
  std::set<int> _resized;  ///< columns that have a width of their own from now on
  bool _fitting = false;   ///< a resize is this view's, not the user's
  bool _columnsFitted = false;
  bool _settleQueued = false;
};

}  // namespace desktop
