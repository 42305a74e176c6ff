#include "framework/dialog/KorDlgTabContainer.h"

#include <array>

std::span<const KorDlgProperty> KorDlgTabContainer::Properties() const {
  static constexpr std::array kProperties{
      KorDlgProperty::Title, KorDlgProperty::Help,    KorDlgProperty::Sensitivity, KorDlgProperty::Visibility,
      KorDlgProperty::Grid,  KorDlgProperty::Marking, KorDlgProperty::Selection};
  return kProperties;
}

KorDlgTabPage* KorDlgTabContainer::GetPage(int index) const {
  if (index < 0 || index >= GetPageCount()) return nullptr;
  return dynamic_cast<KorDlgTabPage*>(Children()[index].get());
}

void KorDlgTabContainer::SetSelectedPage(int index, KorNotify notify) {
  if (GetPage(index)) Assign(_selected, index, KorDlgProperty::Selection);
  if (notify == KorNotify::Send) Notify(KorEvent::TabSelect);
}

bool KorDlgTabContainer::Pick(int index) {
  if (!CanAct("Pick")) return false;
  const KorDlgTabPage* page = GetPage(index);
  if (!page || !page->IsEnabled() || !page->IsShown()) {
    Report("Pick");
    return false;
  }
  if (index != _selected) SetSelectedPage(index, KorNotify::Send);
  return true;
}
