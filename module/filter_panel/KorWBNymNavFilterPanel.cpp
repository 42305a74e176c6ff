#include "module/filter_panel/KorWBNymNavFilterPanel.h"

#include "framework/dialog/KorApplicationFrame.h"

namespace {
constexpr const char* kCatalogue = "KorWBNymNavFilterPanel";
}  // namespace

KorWBNymNavFilterPanel::KorWBNymNavFilterPanel()
    : KorDlgDialog(KorApplicationFrame::GetMainWindow(), kCatalogue, KorDlgStyle::kOkCancelDialog) {}

KorString KorWBNymNavFilterPanel::GetResourceFilename(int index) const {
  return index == 0 ? kCatalogue : KorDlgDialog::GetResourceFilename(index - 1);
}
