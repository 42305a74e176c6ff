#pragma once

#include <cstdint>

#include "framework/dialog/KorDlgDialog.h"
#include "framework/system/KorListValKorUnicodeString.h"
#include "framework/system/KorStatus.h"
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

  /// "KorWBNymNavFilterPanel", then what the base class answers.
  KorString GetResourceFilename(int index) const override;

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
  static KorUnicodeString selectedPVSFilter;         ///< the user filter list as text
  static KorUnicodeString selectedFilter;            ///< the filter handed to the server

 private:
  /// Fills the stored lists in tests: nothing that the class offers can make them differ in size.
  friend struct KorWBNymNavFilterPanelPeer;
  static constexpr const char* kNoFilter = "No Filter";      ///< stands for no configuration filter
  static constexpr const char* kConfigurationPrefix = "0|";  ///< opens a filter that is no list of instances
  enum class Choice { None, User, Configuration };
  static Choice ChoiceFor(const KorUnicodeString& prcId);
  static bool StoredListsAreParallel();

  // Element i of each belongs to row i of the user filter.
  static KorListValKorUnicodeString _listOfInstanceIds;
  static KorListValKorUnicodeString _listOfPartsIds;
  static KorListValKorUnicodeString _listOfPartVers;
  static KorListValKorUnicodeString _listOfPaths;
  static KorListValKorUnicodeString _listOfPathDepths;  ///< decimal
};
