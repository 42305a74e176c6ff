#pragma once

#include "framework/dialog/KorDlgTabPage.h"

/// Pages of which one is in front. The first page is in front at the start.
class KOR_FRAMEWORK_API KorDlgTabContainer : public KorDlgObject {
 public:
  KorDlgTabContainer(KorDlgObject* parent, const char* name, unsigned style)
      : KorDlgObject(parent, name, style) {}
  KorDlgKind Kind() const override { return KorDlgKind::TabContainer; }
  std::span<const KorDlgProperty> Properties() const override;

  int GetPageCount() const { return static_cast<int>(Children().size()); }
  KorDlgTabPage* GetPage(int index) const;
  int GetSelectedPage() const { return _selected; }
  /// An index that there is not leaves the page as it was.
  void SetSelectedPage(int index, KorNotify notify = KorNotify::Silent);

  /// Verb: the user picks a page by its tab. Sends TabSelect when another page comes to the front.
  bool Pick(int index);

 protected:
  bool BringsToFront(const KorDlgObject& child) const override { return GetPage(_selected) == &child; }

 private:
  int _selected = 0;
};
