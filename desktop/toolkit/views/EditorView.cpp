#include "desktop/toolkit/views/EditorView.h"

#include <QFocusEvent>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {
/// Characters for which an editor makes room at least: a value of ten digits with its unit.
constexpr int kLeastCharacters = 12;
constexpr int kFrame = 10;  ///< device-independent pixels that border and padding take

/// Editors that their panel fills and never reads, although their style lets one type: the density beside the
/// material that "MatStatNameSpinner" browses. The panel makes them so; a text typed there would go without a
/// word at the next arrow, so that Qt shows them like those that can only be read.
constexpr const char* kNeverRead[] = {"MatStatDensityEditor"};

bool IsOnlyShown(const KorDlgEditor& editor) {
  return editor.IsReadOnly() || std::ranges::find(kNeverRead, editor.Name()) != std::end(kNeverRead);
}

/// Whether a text is a number, with or without the symbol of a unit or "%" behind it.
bool IsQuantity(const QString& text) {
  static const QRegularExpression quantity(R"(^[-+]?\d[\d.,]*([eE][-+]?\d+)?( \S+|%)?$)");
  return quantity.match(text).hasMatch();
}
}  // namespace

EditorView::EditorView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QLineEdit(parent)) {
  Qt()->setReadOnly(IsOnlyShown(Model()));
  if (model.Style() & KorDlgStyle::kNumberEditor) Qt()->setInputMethodHints(Qt::ImhFormattedNumbersOnly);
  Align();
  QObject::connect(Qt(), &QLineEdit::editingFinished, this, [this] { CommitEdit(); });
  Qt()->installEventFilter(this);
}

void EditorView::Show(KorDlgProperty property) {
  switch (property) {
    case KorDlgProperty::Text:
      return ShowText();
    case KorDlgProperty::TextSelection:
      return ShowTextSelection();
    case KorDlgProperty::TextWidth:
      return ShowTextWidth();
    default:
      return QtView::Show(property);
  }
}

bool EditorView::HasPendingEdit() const { return Qt()->isModified(); }

void EditorView::CommitEdit() {
  if (!HasPendingEdit()) return;
  Qt()->setModified(false);
  const QPointer<QtView> self(this);
  if (Model().IsReachable()) Model().Type(FromQt(Qt()->text()));
  if (self) ShowText();
}

bool EditorView::eventFilter(QObject* watched, QEvent* event) {
  // Qt would take the selection back from an editor without the focus: what is selected is the widget's to
  // say.
  if (event->type() == QEvent::WindowActivate && !Qt()->hasFocus()) {
    Qt()->update();
    return true;
  }
  if (event->type() == QEvent::Resize) ShowHelp();
  if (event->type() == QEvent::FocusIn) {
    _clickedInto = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
    FocusCame();
  }
  if (event->type() == QEvent::MouseButtonRelease) ClickCameIn();
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    const QPointer<EditorView> self(this);
    CommitEdit();
    // The focus of the dialog stays here when a popup opens or another window comes to the front.
    if (self && reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) FocusWent();
    if (!self) return false;
  }
  return QtViewOf::eventFilter(watched, event);
}

void EditorView::FocusCame() {
  if (_focusTold || !Model().IsReachable()) return;
  _focusTold = true;
  Model().EnterFocus();
}

void EditorView::ClickCameIn() {
  // The press that follows the focus puts the cursor. What the widget has selected as the focus came holds,
  // unless the user has selected a part by dragging.
  const bool selected = Model().GetSelectionLast() > Model().GetSelectionFirst();
  if (std::exchange(_clickedInto, false) && selected && !Qt()->hasSelectedText()) ShowTextSelection();
}

void EditorView::FocusWent() {
  if (!_focusTold) return;
  _focusTold = false;
  // An editor that was disabled or hidden loses the focus too, but no user left it.
  if (Model().IsReachable()) Model().LeaveFocus();
}

void EditorView::ShowText() {
  const QString text = ToQt(Model().GetText());
  if (Qt()->text() == text) return;
  Qt()->setText(text);
  // A text that is too long shows its beginning.
  Qt()->setCursorPosition(0);
  Align();
  ShowHelp();
}

void EditorView::Align() {
  const bool number = (Model().Style() & KorDlgStyle::kNumberEditor) || IsQuantity(Qt()->text());
  Qt()->setAlignment((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

QString EditorView::TipHeading() const {
  const bool fits = Qt()->fontMetrics().horizontalAdvance(Qt()->text()) + kFrame <= Qt()->width();
  return fits ? QString() : Qt()->text();
}

void EditorView::ShowTextSelection() {
  const QString text = Qt()->text();
  const int first = Utf16Position(text, Model().GetSelectionFirst());
  const int last = Utf16Position(text, Model().GetSelectionLast());
  // Qt scrolls to the cursor, which stands at the end of a selection.
  if (last > first)
    Qt()->setSelection(first, last - first);
  else
    Qt()->setCursorPosition(Model().GetFirstColumn() > 0 ? static_cast<int>(text.size()) : 0);
}

void EditorView::ShowTextWidth() {
  const int characters = std::max(Model().GetVisibleTextWidth(), kLeastCharacters);
  Qt()->setMinimumWidth(characters * Qt()->fontMetrics().averageCharWidth() + kFrame);
}

}  // namespace desktop
