// The selected filter, as the other panels read it.

#include "module/filter_panel/KorWBNymNavFilterPanel.h"

#include <iostream>

namespace {

constexpr std::int32_t kUserOption = 0;
constexpr std::int32_t kConfigurationOption = 1;
const char* const kEmptyUserFilter = "1|0";

}  // namespace

KorWBNymNavFilterPanel::Choice KorWBNymNavFilterPanel::ChoiceFor(const KorUnicodeString& prcId) {
  // The filter applies only to the product root for which it was chosen.
  if (prcId != selectedPRCID) return Choice::None;
  // A user filter list that was never recorded (empty text) counts as a choice; a recorded empty list does
  // not.
  if (selectedFilterOption == kUserOption && selectedPVSFilter != kEmptyUserFilter) return Choice::User;
  return selectedFilterOption == kConfigurationOption ? Choice::Configuration : Choice::None;
}

KorUnicodeString KorWBNymNavFilterPanel::GetFilter(const KorUnicodeString& prcId) {
  switch (ChoiceFor(prcId)) {
    case Choice::User:
      return selectedFilter;
    case Choice::Configuration:
      return kConfigurationPrefix + selectedPRCConfigHandler;
    case Choice::None:
      break;
  }
  return KorUnicodeString(kConfigurationPrefix) + kNoFilter;
}

KorUnicodeString KorWBNymNavFilterPanel::GetDisplayFilter(const KorUnicodeString& prcId) {
  switch (ChoiceFor(prcId)) {
    case Choice::User:
      return "User Filter";
    case Choice::Configuration:
      return selectedPRCConfigHandler;
    case Choice::None:
      break;
  }
  return kNoFilter;
}

bool KorWBNymNavFilterPanel::IsValid(const KorUnicodeString& prcId, const KorUnicodeString& instanceId,
                                     const KorUnicodeString& partId, const KorUnicodeString& partVersion,
                                     std::int32_t depth, const KorUnicodeString& path) {
  if (selectedFilterOption == kConfigurationOption || selectedPVSFilter.IsEmpty() ||
      selectedPVSFilter == kEmptyUserFilter || prcId != selectedPRCID)
    return true;
  KorUnicodeString depthText;
  depthText.BuildFromNum(depth);
  KorUnicodeString key = instanceId + "|" + partId + "|" + partVersion + "|" + depthText;
  if (depth != 0) key += "|" + path;
  // On purpose a search in the text and not a match of whole rows: a key inside a longer row passes too.
  return selectedPVSFilter.SearchSubString(key) >= 0;
}

bool KorWBNymNavFilterPanel::StoredListsAreParallel() {
  return _listOfInstanceIds.Size() == _listOfPartsIds.Size() &&
         _listOfPartsIds.Size() == _listOfPartVers.Size() && _listOfPartVers.Size() == _listOfPaths.Size() &&
         _listOfPaths.Size() == _listOfPathDepths.Size();
}

HRESULT KorWBNymNavFilterPanel::GetFilterContents(KorListValKorUnicodeString& instanceIds,
                                                  KorListValKorUnicodeString& partIds,
                                                  KorListValKorUnicodeString& partVersions,
                                                  KorListValKorUnicodeString& pathDepths,
                                                  KorListValKorUnicodeString& paths) {
  for (auto* list : {&instanceIds, &partIds, &partVersions, &pathDepths, &paths}) list->RemoveAll();
  if (!StoredListsAreParallel()) {
    std::cerr << "GetFilterContents() - The size of the stored lists are not equal!" << std::endl;
    return E_FAIL;
  }
  instanceIds.Append(_listOfInstanceIds);
  partIds.Append(_listOfPartsIds);
  partVersions.Append(_listOfPartVers);
  pathDepths.Append(_listOfPathDepths);
  paths.Append(_listOfPaths);
  return S_OK;
}
