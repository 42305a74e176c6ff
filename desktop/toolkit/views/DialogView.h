#pragma once

#include <QDialog>
#include <functional>

#include "desktop/toolkit/QtGrid.h"
#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgDialog.h"

class QDialogButtonBox;

namespace desktop {

/// The window of a dialog. It grows when more has to fit in, and takes its size back when that goes. Its
/// close button, Escape and the buttons of its style only tell the dialog: whether it closes is decided
/// there.
class DialogWindow : public QDialog {
 public:
  explicit DialogWindow(QWidget* parent) : QDialog(parent) {}
  std::function<void()> onClose;
  void reject() override;
  /// The window's `saveGeometry` with the size that the user wants, that of the screen aside: what came in
  /// and made it grow is not there when the window is restored.
  QByteArray SaveWantedGeometry() const;
  /// `restoreGeometry` before the window is shown. What is in it may need more room than that: the window
  /// takes the restored size when that goes.
  bool RestoreWantedGeometry(const QByteArray& geometry);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  bool event(QEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  /// Neither that of the screen nor an icon's.
  bool HasSizeOfItsOwn() const;
  void StateChanged();
  void TakeSizeBack();

  /// What the user wants; the window is larger while what is in it needs more. Negative: not known yet.
  QSize _wanted{-1, -1};
  bool _isGettingItBack = false;  ///< its own size, after that of the screen or an icon's
};

class DialogView : public QtViewOf<KorDlgDialog, DialogWindow> {
 public:
  DialogView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  ~DialogView() override;
  QWidget* Content() override { return _content; }
  void Place(QtView& child) override { _grid.Place(child); }
  void ShareHeight() override { _grid.ShareHeight(Model()); }
  void Show(KorDlgProperty property) override;

 protected:
  void ShowTitle() override;
  void ShowVisibility() override;

 private:
  void AddButtons();

  QWidget* _content;
  QtGrid _grid;
};

/// The same of the window of a dialog that a backend has made.
QByteArray SaveWantedGeometry(const QWidget& dialogWindow);
bool RestoreWantedGeometry(QWidget& dialogWindow, const QByteArray& geometry);

}  // namespace desktop
