#pragma once

#include <cstdint>

#include "framework/dialog/KorDlgDialog.h"
#include "framework/system/KorListValKorUnicodeString.h"
#include "module/shared/KorWBNymNavExport.h"

class KorWBNymNavDistributiveReportPreview;
class KorWBNymNavReportPreview;

/// Asks for a mass-properties report of the current product root. It has no widgets yet, and the host does
/// not offer it until it has.
class ExportedByKorWBNymNavGUI KorWBNymNavReportPanel : public KorDlgDialog {
 public:
  KorWBNymNavReportPanel();
  KorWBNymNavReportPanel(const KorWBNymNavReportPanel& other);
  KorWBNymNavReportPanel& operator=(const KorWBNymNavReportPanel& other);
  ~KorWBNymNavReportPanel() override;

  /// "KorWBNymNavReportPanel", then what the base class answers.
  KorString GetResourceFilename(int index) const override;

 protected:
  KorListValKorUnicodeString _rootIds;
  KorListValKorUnicodeString _prcIds;       ///< element 1 is the current product root
  KorListValKorUnicodeString _unusedIds;    ///< kept empty
  KorListValKorUnicodeString _unusedNames;  ///< kept empty
  KorUnicodeString _rootText;
  KorWBNymNavReportPreview* _preview = nullptr;
  KorWBNymNavDistributiveReportPreview* _distributivePreview = nullptr;
  bool _instanceToBeSelected = false;  ///< the next object picked in the host becomes the reference instance
  KorUnicodeString _referenceInstance;
  std::int32_t _savedUpdateOption = 0;   ///< 0: none saved
  std::int32_t _savedComputeOption = 0;  ///< 0: none saved
  std::int32_t _savedSpecifiedIndex = 0;
};
