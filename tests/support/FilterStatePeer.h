#pragma once

#include "module/filter_panel/KorWBNymNavFilterPanel.h"

/// Reaches the rows that the filter panel stores for the process, and brings its state back to the start.
struct KorWBNymNavFilterPanelPeer {
  using Panel = KorWBNymNavFilterPanel;
  using List = KorListValKorUnicodeString;

  static void Store(const List& instances, const List& parts, const List& versions, const List& paths,
                    const List& depths) {
    Panel::_listOfInstanceIds = instances;
    Panel::_listOfPartsIds = parts;
    Panel::_listOfPartVers = versions;
    Panel::_listOfPaths = paths;
    Panel::_listOfPathDepths = depths;
  }
  /// As it is when the module has been loaded.
  static void Reset() {
    Panel::selectedFilterOption = -1;
    Panel::selectedPRCID = "";
    Panel::PVSFilterPRCID = "";
    Panel::selectedPRCConfigHandler = "No Filter";
    Panel::selectedPVSFilter = "";
    Panel::selectedFilter = "0|No Filter";
    Store({}, {}, {}, {}, {});
  }
};
