#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_set>

#include "framework/dialog/KorDlgDialog.h"
#include "framework/system/KorListValKorUnicodeString.h"
#include "framework/system/KorStatus.h"
#include "module/filter_panel/KorWBNymNavFilterPanelWidgets.h"
#include "module/shared/KorWBNymNavExport.h"

/// Chooses the product-structure filter. The choice is one for the process: it outlives the dialog, and the
/// other panels read it through the static functions. Only this panel writes it.
///
/// Texts: fields are separated by "|" without escaping. A user filter list is "1|", the row count n and, when
/// n is at least 1, "|" and the rows; a row is instance id, part id, part version, path depth and, when the
/// depth is not "0", the path, which holds as many fields as the depth says. A filter for the server is a
/// user filter list, or "0|" and the name of a configuration filter; "0|No Filter" lets every instance pass.
class ExportedByKorWBNymNavGUI KorWBNymNavFilterPanel : public KorDlgDialog {
 public:
  KorWBNymNavFilterPanel();
  /// A copy shares the widgets, which its original owns; the parent command is not taken over.
  KorWBNymNavFilterPanel(const KorWBNymNavFilterPanel& other);
  KorWBNymNavFilterPanel& operator=(const KorWBNymNavFilterPanel& other);
  ~KorWBNymNavFilterPanel() override;

  /// Lays the dialog out, asks the server for the current root and its filters, and shows the choice in
  /// force; once.
  void Build() override;
  /// "KorWBNymNavFilterPanel", then what the base class answers.
  KorString GetResourceFilename(int index) const override;

  /// What shown paths are relative to; to be told before Build.
  void SetPRCId(const KorUnicodeString& prcId);
  /// Refills the list from the stored user filter, when that was recorded for the current root. A text that
  /// breaks the form adds nothing at all. S_OK in any case.
  HRESULT SetCurrentFilters();
  /// Adds a row unless there is one of the same instance, part, version and path. `path` holds the instances
  /// from the root down to the one above, joined by "|"; `depth` is their number.
  void AddValuesInMultiList(KorUnicodeString instanceId, KorUnicodeString partId,
                            KorUnicodeString partVersion, KorUnicodeString path, std::int32_t depth);
  /// The depth is not compared.
  bool IsDuplicate(const KorUnicodeString& instanceId, const KorUnicodeString& partId,
                   const KorUnicodeString& partVersion, const KorUnicodeString& path);
  /// Hides the panel and empties its list. Returns 0.
  int Cancel(KorCommand* from, KorNotification* notification) override;

  /// The filter for requests about objects of the product root `prcId`: "0|No Filter" unless the choice was
  /// made for that root.
  static KorUnicodeString GetFilter(const KorUnicodeString& prcId);
  /// A short text for the filter in force: "No Filter", "User Filter" or the name of the configuration
  /// filter.
  static KorUnicodeString GetDisplayFilter(const KorUnicodeString& prcId);
  /// Whether an instance passes the user filter. `path` counts only when `depth` is not 0.
  static bool IsValid(const KorUnicodeString& prcId, const KorUnicodeString& instanceId,
                      const KorUnicodeString& partId, const KorUnicodeString& partVersion, std::int32_t depth,
                      const KorUnicodeString& path);
  /// Copies out the rows of the user filter; mind that the depths come before the paths. E_FAIL, with the
  /// lists left empty, when the stored lists have different sizes.
  static HRESULT GetFilterContents(KorListValKorUnicodeString& instanceIds,
                                   KorListValKorUnicodeString& partIds,
                                   KorListValKorUnicodeString& partVersions,
                                   KorListValKorUnicodeString& pathDepths, KorListValKorUnicodeString& paths);

  static std::int32_t selectedFilterOption;  ///< 0: user filter, 1: configuration filter, -1: never chosen
  static KorUnicodeString selectedPRCID;     ///< product root for which the filter was chosen
  static KorUnicodeString PVSFilterPRCID;    ///< product root for which `selectedPVSFilter` was recorded
  static KorUnicodeString selectedPRCConfigHandler;  ///< name of the chosen configuration filter
  /// The user filter list as text.
  static KorUnicodeString selectedPVSFilter;
  static KorUnicodeString selectedFilter;  ///< the filter handed to the server

 protected:
  // ---- handlers; their order in the class is part of the interface to derived panels ----

  virtual void OnClearAllCriteriaNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnRemoveCriterionNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnCancelNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnFilterNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnFilterClickNotification(KorCommand*, KorNotification*, KorCommandClientData);

 private:
  /// Fills the stored lists in tests: nothing that the class offers can make them differ in size.
  friend struct KorWBNymNavFilterPanelPeer;
  enum class Choice { None, User, Configuration };
  static Choice ChoiceFor(const KorUnicodeString& prcId);
  static bool StoredListsAreParallel();
  static bool UserFilterHolds(std::string_view key);

  void BuildWidgets();
  void BuildColumns();
  void WireHandlers();
  HRESULT GetPRCConfigFilters();
  void FillConfigHandlers();
  void SelectConfigHandler();
  const KorUnicodeString& CurrentPRCId() const;
  void StoreUserFilter();
  void RenewRowKeys();

  // Element i of each belongs to row i of the user filter.
  static KorListValKorUnicodeString _listOfInstanceIds;
  static KorListValKorUnicodeString _listOfPartsIds;
  static KorListValKorUnicodeString _listOfPartVers;
  static KorListValKorUnicodeString _listOfPaths;
  static KorListValKorUnicodeString _listOfPathDepths;  ///< decimal

  KorListValKorUnicodeString _rootIds;
  KorListValKorUnicodeString _prcIds;  ///< element 1 is the current product root
  KorListValKorUnicodeString _filterIds;
  KorListValKorUnicodeString _filterNames;
  KorUnicodeString _rootText;
  KorWBNymNavFilterPanelWidgets _widgets;
  KorUnicodeString _prcId;  ///< what shown paths are relative to

  // The rows of the list by what makes them equal, as of a state of the list.
  std::unordered_set<std::string> _rowKeys;
  std::uint64_t _rowKeysRevision = 0;
};
