// The rows of the user filter: from the list to the stored texts and back.

#include "module/filter_panel/KorWBNymNavFilterPanel.h"

#include "framework/dialog/KorDlgMultiList.h"
#include "module/filter_panel/KorWBNymNavFilterRow.h"
#include "services/KorWBServices.h"

using Row = KorWBNymNavFilterRow;

namespace {

// Unambiguous whatever the texts hold.
std::string RowKey(std::string_view instanceId, std::string_view partId, std::string_view partVersion,
                   std::string_view path) {
  std::string key;
  for (const std::string_view text : {instanceId, partId, partVersion, path})
    (key += std::to_string(text.size()) += ':') += text;
  return key;
}

KorUnicodeString Decimal(int number) {
  KorUnicodeString text;
  text.BuildFromNum(number, "%d");
  return text;
}

}  // namespace

HRESULT KorWBNymNavFilterPanel::SetCurrentFilters() {
  if (CurrentPRCId() != PVSFilterPRCID || selectedPVSFilter.IsEmpty()) return S_OK;
  if (const auto rows = KorWBNymNavReadFilterRows(selectedPVSFilter))
    for (const Row& row : *rows)
      AddValuesInMultiList(row.instanceId, row.partId, row.partVersion, row.path, row.depth);
  return S_OK;
}

void KorWBNymNavFilterPanel::AddValuesInMultiList(KorUnicodeString instanceId, KorUnicodeString partId,
                                                  KorUnicodeString partVersion, KorUnicodeString path,
                                                  std::int32_t depth) {
  KorDlgMultiList* list = _widgets.list;
  if (!list || IsDuplicate(instanceId, partId, partVersion, path)) return;
  KorUnicodeString display = _prcId;
  KorWBServices::CleanPathForDisplay(path, display);
  const int row = list->GetLineCount();
  list->SetColumnItem(Row::kInstanceColumn, instanceId, row);
  list->SetColumnItem(Row::kPartColumn, partId, row);
  list->SetColumnItem(Row::kVersionColumn, partVersion, row);
  list->SetColumnItem(Row::kShownPathColumn, display, row);
  list->SetColumnItem(Row::kDepthColumn, Decimal(depth), row);
  list->SetColumnItem(Row::kPathColumn, path, row);
  _rowKeys.insert(RowKey(instanceId.Utf8(), partId.Utf8(), partVersion.Utf8(), path.Utf8()));
  _rowKeysRevision = list->GetRowsRevision();
}

bool KorWBNymNavFilterPanel::IsDuplicate(const KorUnicodeString& instanceId, const KorUnicodeString& partId,
                                         const KorUnicodeString& partVersion, const KorUnicodeString& path) {
  if (!_widgets.list) return false;
  // Also of an empty list: the keys of the rows that it had must go before another one is added to them.
  if (_rowKeysRevision != _widgets.list->GetRowsRevision()) RenewRowKeys();
  return _rowKeys.contains(RowKey(instanceId.Utf8(), partId.Utf8(), partVersion.Utf8(), path.Utf8()));
}

void KorWBNymNavFilterPanel::RenewRowKeys() {
  const KorDlgMultiList& list = *_widgets.list;
  _rowKeys.clear();
  for (int row = 0; row < list.GetLineCount(); ++row)
    _rowKeys.insert(
        RowKey(list.GetColumnItem(Row::kInstanceColumn, row), list.GetColumnItem(Row::kPartColumn, row),
               list.GetColumnItem(Row::kVersionColumn, row), list.GetColumnItem(Row::kPathColumn, row)));
  _rowKeysRevision = list.GetRowsRevision();
}

void KorWBNymNavFilterPanel::StoreUserFilter() {
  const KorDlgMultiList& list = *_widgets.list;
  std::string text = "1|" + std::to_string(list.GetLineCount());
  for (int row = 0; row < list.GetLineCount(); ++row) {
    for (const int column : {Row::kInstanceColumn, Row::kPartColumn, Row::kVersionColumn, Row::kDepthColumn})
      (text += '|') += list.GetColumnItem(column, row);
    if (list.GetColumnItem(Row::kDepthColumn, row) != "0")
      (text += '|') += list.GetColumnItem(Row::kPathColumn, row);
    _listOfInstanceIds.Append(list.GetColumnItem(Row::kInstanceColumn, row));
    _listOfPartsIds.Append(list.GetColumnItem(Row::kPartColumn, row));
    _listOfPartVers.Append(list.GetColumnItem(Row::kVersionColumn, row));
    _listOfPaths.Append(list.GetColumnItem(Row::kPathColumn, row));
    _listOfPathDepths.Append(list.GetColumnItem(Row::kDepthColumn, row));
  }
  selectedPVSFilter = std::move(text);
}
