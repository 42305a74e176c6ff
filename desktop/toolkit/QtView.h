#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "framework/dialog/KorDlgObject.h"

namespace desktop {

class QtBackend;

/// What shows one widget of the framework in Qt.
///
/// It keeps no state of its own: Show reads the widget and passes over what Qt shows already, and what the
/// user does goes to the widget's verbs. Whatever comes of a verb, Qt then shows what the widget holds. Qt's
/// widget goes with the view, but not before control is back in the event loop: the view may be asked to go
/// from within an action of its own.
class QtView : public QObject {
 public:
  ~QtView() override;

  KorDlgObject& Model() const { return _model; }
  QWidget* Qt() const { return _qt; }
  /// The parent of the children's Qt widgets; null for kinds without children.
  virtual QWidget* Content() { return nullptr; }
  /// Takes the child in: into the grid at its place, out of it when it is not attached.
  virtual void Place(QtView& child);
  /// Decides anew which rows of the children's grid get spare height.
  virtual void ShareHeight() {}

  virtual void Show(KorDlgProperty property);

  /// Whether the user has changed a text that the widget has not been told of.
  virtual bool HasPendingEdit() const { return false; }
  virtual void CommitEdit() {}
  /// Does at once what a view puts off until control is back in the event loop.
  virtual void Settle() {}

  /// The label that names this one, or the one that this label names; null when there is none.
  QtView* Partner() const { return _partner; }
  void SetPartner(QtView& partner) { _partner = &partner; }

 protected:
  QtView(QtBackend& backend, KorDlgObject& model, QWidget* qt);

  QtBackend& Backend() const { return _backend; }

  virtual void ShowTitle();
  virtual void ShowHelp();
  virtual void ShowSensitivity();
  virtual void ShowVisibility();
  /// What stands behind the help text in the tooltip, such as the shortcut.
  virtual QString HelpSuffix() const { return {}; }
  /// What stands above the help text in the tooltip.
  virtual QString TipHeading() const { return {}; }

  /// Hands an action of the user to the widget: edits that are still pending first, then the verb.
  template <class Verb>
  void Act(Verb verb, KorDlgProperty shownAfterwards) {
    const QPointer<QtView> self(this);
    CommitAllEdits();
    if (self && _model.IsReachable()) verb();
    if (self) Show(shownAfterwards);
  }

 private:
  void CommitAllEdits();
  QString AccessibleName() const;
  void ShowMarking();
  void ShowGrid();

  QtBackend& _backend;
  KorDlgObject& _model;
  QPointer<QWidget> _qt;
  QPointer<QtView> _partner;
};

/// A view whose widget and Qt widget are of known types.
template <class Widget, class Control>
class QtViewOf : public QtView {
 public:
  Widget& Model() const { return static_cast<Widget&>(QtView::Model()); }
  Control* Qt() const { return static_cast<Control*>(QtView::Qt()); }

 protected:
  QtViewOf(QtBackend& backend, KorDlgObject& model, Control* control) : QtView(backend, model, control) {}
};

}  // namespace desktop
