#pragma once

#include "desktop/commands/KorWBPickedInstance.h"
#include "framework/dialog/KorDlgDialog.h"

/// An open filter panel, as the host works it.
class KorWBFilterPanel {
 public:
  virtual ~KorWBFilterPanel() = default;

  /// Lives as long as this object.
  virtual KorDlgDialog& Dialog() = 0;
  /// Adds an instance to the list; false when it was there already.
  virtual bool Add(const KorWBPickedInstance& instance) = 0;
};
