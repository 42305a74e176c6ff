// The module's static objects, in the order in which they come into being when the module is loaded. They
// stand in one file because only within a file is that order fixed, on every platform.

#include "framework/system/KorClassDictionary.h"
#include "framework/system/TqTrace.h"
#include "module/filter_panel/KorWBNymNavFilterOptions.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavFactories.h"
#include "module/shared/KorWBNymNavUnitsConversion.h"

namespace {
const TqTrace g_partPanelTrace("KorWBCompPart");
const KorFillDictionary g_filterPanelEntry("KorWBNymNavFilterPanel", &fctCreateKorWBNymNavFilterPanel);
}  // namespace

std::int32_t KorWBNymNavFilterPanel::selectedFilterOption = KorWBNymNavFilterOptions::kNeverChosen;
KorUnicodeString KorWBNymNavFilterPanel::selectedPRCID;
KorUnicodeString KorWBNymNavFilterPanel::PVSFilterPRCID;
KorUnicodeString KorWBNymNavFilterPanel::selectedPRCConfigHandler(KorWBNymNavFilterOptions::kNoFilter);
KorUnicodeString KorWBNymNavFilterPanel::selectedPVSFilter;
KorUnicodeString KorWBNymNavFilterPanel::selectedFilter("0|No Filter");
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfInstanceIds;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPartsIds;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPartVers;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPaths;
KorListValKorUnicodeString KorWBNymNavFilterPanel::_listOfPathDepths;

namespace {
const TqTrace g_groupPanelTrace("KorWBCompGroup");
const KorFillDictionary g_reportPanelEntry("KorWBNymNavReportPanel", &fctCreateKorWBNymNavReportPanel);
const TqTrace g_reportPanelTrace("KorWBNymNavReportPanel");
}  // namespace

KorWBNymNavUnitsConversion KorWBNymNavUnitsConversion::_sManager;

const TqTrace& KorWBPartTrace() { return g_partPanelTrace; }
