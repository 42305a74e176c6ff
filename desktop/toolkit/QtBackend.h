#pragma once

#include <memory>
#include <unordered_map>

#include "desktop/toolkit/Boxes.h"
#include "desktop/toolkit/QtView.h"

namespace desktop {

/// The Qt backend of the dialog framework: one view for each widget of the attached dialogs.
class QtBackend : public KorDlgBackend {
 public:
  /// `boxes` must outlive the backend; null: boxes on the screen.
  explicit QtBackend(Boxes* boxes = nullptr);
  ~QtBackend() override;

  /// The window above dialogs whose parent is not shown here, and of boxes without a parent.
  void SetMainWindow(QWidget* window) { _mainWindow = window; }
  QWidget* MainWindow() const { return _mainWindow; }

  /// Null when the widget is not shown here.
  QtView* ViewOf(const KorDlgObject& widget) const;
  QtView* ParentView(const KorDlgObject& widget) const;
  /// The Qt window of a dialog, else the main window.
  QWidget* WindowOf(const KorDlgDialog* dialog) const;
  template <class Control>
  Control* ControlOf(const KorDlgObject& widget) const {
    QtView* view = ViewOf(widget);
    return view ? qobject_cast<Control*>(view->Qt()) : nullptr;
  }

  /// Hands what the user has typed and not yet left to the widgets.
  void CommitEdits();
  /// Does at once what views put off until control is back in the event loop.
  void Settle();
  /// Shows one property of each radio button that excludes `radio`.
  void ShowExclusionGroup(const KorDlgObject& radio);

  void Created(KorDlgObject& widget) override;
  void Changed(KorDlgObject& widget, KorDlgProperty property) override;
  void Destroyed(KorDlgObject& widget) override;
  void ShowMessage(const KorDlgMessage& message) override { _boxes->ShowMessage(message); }
  std::optional<int> Ask(const KorDlgQuestion& question) override { return _boxes->Ask(question); }
  std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request) override {
    return _boxes->ChooseFile(request);
  }

 private:
  QtView* PendingEdit() const;

  QPointer<QWidget> _mainWindow;
  std::unique_ptr<Boxes> _ownBoxes;
  Boxes* _boxes;
  std::unordered_map<const KorDlgObject*, std::unique_ptr<QtView>> _views;
};

}  // namespace desktop
