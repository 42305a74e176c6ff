#pragma once

#include "framework/system/KorListValKorUnicodeString.h"

/// Reaches the lists in which the filter panel stores the rows of the user filter.
struct KorWBNymNavFilterPanelPeer {
  static void Store(const KorListValKorUnicodeString& instances, const KorListValKorUnicodeString& parts,
                    const KorListValKorUnicodeString& versions, const KorListValKorUnicodeString& paths,
                    const KorListValKorUnicodeString& depths);
};

/// Puts the filter, one for the process, back to what it is when the module is loaded: nothing was chosen.
void ResetFilterState();
