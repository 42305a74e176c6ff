#pragma once

#include "desktop/app/PartPanelMarks.h"

namespace desktop {

/// Asks before a save that would not take these texts as they stand: names each as the user sees it, with
/// what would be stored. True: save all the same; closing the box goes back to the panel.
bool AgreesToStoreInstead(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer,
                          const std::vector<UnreadText>& texts);

}  // namespace desktop
