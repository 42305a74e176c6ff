#include "module/shared/KorWBNymNavFactories.h"

#include <new>

#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/report_panel/KorWBNymNavReportPanel.h"

namespace {

template <class Panel>
void* Create() {
  try {
    return new Panel;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

}  // namespace

void* fctCreateKorWBNymNavFilterPanel() { return Create<KorWBNymNavFilterPanel>(); }
void* fctCreateKorWBNymNavReportPanel() { return Create<KorWBNymNavReportPanel>(); }
