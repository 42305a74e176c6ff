#include "desktop/toolkit/LabelPairs.h"

#include <algorithm>
#include <array>

#include "desktop/toolkit/QtBackend.h"

namespace desktop {
namespace {

bool IsLabel(const KorDlgObject& widget) { return widget.Kind() == KorDlgKind::Label; }

bool IsInput(const KorDlgObject& widget) {
  constexpr std::array kInputs{KorDlgKind::Editor, KorDlgKind::Combo, KorDlgKind::Spinner,
                               KorDlgKind::MultiList};
  return std::find(kInputs.begin(), kInputs.end(), widget.Kind()) != kInputs.end();
}

/// The name without its kind, in lower case: some pairs differ in the case of a letter.
QString Stem(const KorDlgObject& widget) {
  const QString name = QString::fromStdString(widget.Name()).toLower();
  for (const char* kind : {"label", "editor", "combo", "spinner"})
    if (name.endsWith(kind))
      return name.chopped(static_cast<qsizetype>(std::char_traits<char>::length(kind)));
  return name;
}

bool NamesFit(const KorDlgObject& label, const KorDlgObject& input) {
  return Stem(label) == Stem(input) || Stem(label) == QString::fromStdString(input.Name()).toLower();
}

/// Calls `use` for each view of a sibling that could be the partner and has none; true ends the search.
template <class Use>
QtView* FirstFree(QtBackend& backend, const KorDlgObject& widget, Use use) {
  for (const auto& sibling : widget.Parent()->Children()) {
    QtView* view = backend.ViewOf(*sibling);
    const bool fits = IsLabel(widget) ? IsInput(*sibling) : IsLabel(*sibling);
    if (fits && view && !view->Partner() && use(*sibling)) return view;
  }
  return nullptr;
}

/// The sibling created right before an input, when it is a label without a partner.
QtView* LabelBefore(QtBackend& backend, const KorDlgObject& input) {
  const auto& siblings = input.Parent()->Children();
  const auto own =
      std::find_if(siblings.begin(), siblings.end(), [&](const auto& one) { return one.get() == &input; });
  if (own == siblings.begin() || own == siblings.end() || !IsLabel(**std::prev(own))) return nullptr;
  QtView* view = backend.ViewOf(**std::prev(own));
  return view && !view->Partner() ? view : nullptr;
}

QtView* FindPartner(QtBackend& backend, const KorDlgObject& widget) {
  QtView* named = FirstFree(backend, widget, [&](const KorDlgObject& other) {
    return IsLabel(widget) ? NamesFit(widget, other) : NamesFit(other, widget);
  });
  return named || IsLabel(widget) ? named : LabelBefore(backend, widget);
}

}  // namespace

void PairWithLabel(QtBackend& backend, QtView& view) {
  const KorDlgObject& widget = view.Model();
  if (!widget.Parent() || (!IsLabel(widget) && !IsInput(widget))) return;
  QtView* partner = FindPartner(backend, widget);
  if (!partner) return;
  view.SetPartner(*partner);
  partner->SetPartner(view);
  // Either may take its name from the other; the one that was there first has shown its own already.
  partner->Show(KorDlgProperty::Title);
}

}  // namespace desktop
