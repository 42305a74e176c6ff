// The selected filter, as the other panels read it.

#include "module/filter_panel/KorWBNymNavFilterPanel.h"

#include <iostream>
#include <memory>

#include "module/filter_panel/KorWBNymNavFilterIndex.h"
#include "module/filter_panel/KorWBNymNavFilterOptions.h"

using namespace KorWBNymNavFilterOptions;

KorWBNymNavFilterPanel::Choice KorWBNymNavFilterPanel::ChoiceFor(const KorUnicodeString& prcId) {
  // The filter applies only to the product root for which it was chosen.
  if (prcId != selectedPRCID) return Choice::None;
  // A user filter list that was never recorded (empty text) counts as a choice; a recorded empty list does
  // not.
  if (selectedFilterOption == kUser && selectedPVSFilter != kEmptyUserFilter) return Choice::User;
  return selectedFilterOption == kConfiguration ? Choice::Configuration : Choice::None;
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

namespace {

// What an instance is looked for by. Made for each instance of a search, so it is put together in one piece.
std::string FilterKey(const KorUnicodeString& instanceId, const KorUnicodeString& partId,
                      const KorUnicodeString& partVersion, std::int32_t depth, const KorUnicodeString& path) {
  std::string key;
  key.reserve(256);
  for (const KorUnicodeString* identifier : {&instanceId, &partId, &partVersion})
    (key += identifier->Utf8()) += '|';
  key += std::to_string(depth);
  if (depth != 0) (key += '|') += path.Utf8();
  return key;
}

}  // namespace

bool KorWBNymNavFilterPanel::IsValid(const KorUnicodeString& prcId, const KorUnicodeString& instanceId,
                                     const KorUnicodeString& partId, const KorUnicodeString& partVersion,
                                     std::int32_t depth, const KorUnicodeString& path) {
  if (selectedFilterOption == kConfiguration || selectedPVSFilter.IsEmpty() ||
      selectedPVSFilter == kEmptyUserFilter || prcId != selectedPRCID)
    return true;
  return UserFilterHolds(FilterKey(instanceId, partId, partVersion, depth, path));
}

namespace {

// The index of the last long text that was asked about, and which text that was.
struct IndexedText {
  std::uint64_t contentId = 0;
  std::unique_ptr<KorWBNymNavFilterIndex> index;
};

IndexedText& TheIndexedText() {
  static IndexedText indexed;
  return indexed;
}

}  // namespace

// On purpose a search in the text and not a match of whole rows: a key inside a longer row passes too.
bool KorWBNymNavFilterPanel::UserFilterHolds(std::string_view key) {
  const std::string& text = selectedPVSFilter.Utf8();
  constexpr std::size_t kSearchedPlainly = 4096;
  if (text.size() <= kSearchedPlainly) return text.find(key) != text.npos;
  IndexedText& indexed = TheIndexedText();
  if (const std::uint64_t contentId = selectedPVSFilter.ContentId(); indexed.contentId != contentId)
    indexed = {contentId, std::make_unique<KorWBNymNavFilterIndex>(text)};
  return indexed.index->Contains(key);
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
