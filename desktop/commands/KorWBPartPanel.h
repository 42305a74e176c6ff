#pragma once

#include "framework/dialog/KorDlgDialog.h"
#include "services/KorWBAllDataBuffer.h"

/// An open part panel, as the host works it.
class KorWBPartPanel {
 public:
  virtual ~KorWBPartPanel() = default;

  /// Lives as long as this object.
  virtual KorDlgDialog& Dialog() = 0;
  /// Shows another part, or the same one under the filter that is in force now.
  virtual void Bind(KorWBAllDataBuffer& buffer) = 0;
  /// Shows all values anew, after a change of units or of language.
  virtual void Refresh() = 0;
};
