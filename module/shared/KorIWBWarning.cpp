#include "module/shared/KorIWBWarning.h"

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgMultiList.h"

namespace {

constexpr const char* kDialogName = "KorIWBWarning";

}  // namespace

KorIWBWarning::KorIWBWarning()
    : KorDlgDialog(KorApplicationFrame::GetMainWindow(), kDialogName, KorDlgStyle::kListDialog) {}

KorIWBWarning::KorIWBWarning(const KorIWBWarning& other) = default;
KorIWBWarning& KorIWBWarning::operator=(const KorIWBWarning& other) = default;

KorIWBWarning::~KorIWBWarning() { _list = nullptr; }

void KorIWBWarning::Build() {
  if (_list) return;
  _list = Add<KorDlgMultiList>("MultiList001", KorDlgStyle::kNone, {0, 0});
  _list->SetColumnTitleKeys({"MultiList001.ColumnTitle1"});
  _list->SetVisibleColumnCount(1);
}

KorString KorIWBWarning::GetResourceFilename(int index) const {
  return index == 0 ? kDialogName : KorDlgDialog::GetResourceFilename(index - 1);
}
