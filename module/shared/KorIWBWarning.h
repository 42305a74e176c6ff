#pragma once

#include "framework/dialog/KorDlgDialog.h"
#include "module/shared/KorWBNymNavExport.h"

class KorDlgMultiList;

/// A list of warnings, one to a line, in a single titled column. For the host and other libraries: whoever
/// opens it builds it, fills the list "MultiList001" (column 0) and shows it; its Close button hides it.
class ExportedByKorWBNymNavGUI KorIWBWarning : public KorDlgDialog {
 public:
  KorIWBWarning();
  /// A copy shares the list, which its original owns.
  KorIWBWarning(const KorIWBWarning& other);
  KorIWBWarning& operator=(const KorIWBWarning& other);
  ~KorIWBWarning() override;

  /// Creates the list; once.
  void Build() override;
  /// "KorIWBWarning", then what the base class answers.
  KorString GetResourceFilename(int index) const override;

 protected:
  KorDlgMultiList* _list = nullptr;  ///< null until Build; the dialog's tree owns it
};
