#include "module/report_panel/KorWBNymNavReportPanel.h"

#include "framework/dialog/KorApplicationFrame.h"
#include "module/shared/KorWBNymNavTrace.h"

namespace {

constexpr const char* kPanelName = "KorWBNymNavReportPanel";

}  // namespace

KorWBNymNavReportPanel::KorWBNymNavReportPanel()
    : KorDlgDialog(KorApplicationFrame::GetMainWindow(), kPanelName, KorDlgStyle::kPanelDialog) {
  KORWB_TRACE_SCOPE("KorWBNymNavReportPanel", "KorWBNymNavReportPanel", "KorWBNymNavReportPanel");
}

KorWBNymNavReportPanel::KorWBNymNavReportPanel(const KorWBNymNavReportPanel& other) = default;
KorWBNymNavReportPanel& KorWBNymNavReportPanel::operator=(const KorWBNymNavReportPanel& other) = default;
KorWBNymNavReportPanel::~KorWBNymNavReportPanel() = default;

KorString KorWBNymNavReportPanel::GetResourceFilename(int index) const {
  return index == 0 ? kPanelName : KorDlgDialog::GetResourceFilename(index - 1);
}
