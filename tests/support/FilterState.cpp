#include "tests/support/FilterState.h"

#include "module/filter_panel/KorWBNymNavFilterPanel.h"

using Panel = KorWBNymNavFilterPanel;

void KorWBNymNavFilterPanelPeer::Store(const KorListValKorUnicodeString& instances,
                                       const KorListValKorUnicodeString& parts,
                                       const KorListValKorUnicodeString& versions,
                                       const KorListValKorUnicodeString& paths,
                                       const KorListValKorUnicodeString& depths) {
  Panel::_listOfInstanceIds = instances;
  Panel::_listOfPartsIds = parts;
  Panel::_listOfPartVers = versions;
  Panel::_listOfPaths = paths;
  Panel::_listOfPathDepths = depths;
}

void ResetFilterState() {
  Panel::selectedFilterOption = -1;
  Panel::selectedPRCID = "";
  Panel::PVSFilterPRCID = "";
  Panel::selectedPRCConfigHandler = "No Filter";
  Panel::selectedPVSFilter = "";
  Panel::selectedFilter = "0|No Filter";
  KorWBNymNavFilterPanelPeer::Store({}, {}, {}, {}, {});
}
