// The module's static objects, in the order in which they come into being when the module is loaded. They
// stand in one file because only within a file is that order fixed, on every platform.

#include "framework/system/TqTrace.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavUnitsConversion.h"

namespace {
const TqTrace g_partPanelTrace("KorWBCompPart");
}  // namespace

const TqTrace& KorWBPartTrace() { return g_partPanelTrace; }

std::int32_t KorWBNymNavFilterPanel::selectedFilterOption = -1;
KorUnicodeString KorWBNymNavFilterPanel::selectedPRCID;
KorUnicodeString KorWBNymNavFilterPanel::PVSFilterPRCID;
KorUnicodeString KorWBNymNavFilterPanel::selectedPRCConfigHandler(kNoFilter);
KorUnicodeString KorWBNymNavFilterPanel::selectedPVSFilter;
KorUnicodeString KorWBNymNavFilterPanel::selectedFilter(KorUnicodeString(kConfigurationPrefix) + kNoFilter);
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfInstanceIds;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPartsIds;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPartVers;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPaths;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPathDepths;

KorWBNymNavUnitsConversion KorWBNymNavUnitsConversion::_sManager;
