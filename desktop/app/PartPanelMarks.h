#pragma once

#include <functional>

#include "framework/dialog/KorDlgDialog.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// Marks the editors of an open part panel whose text the panel would not read as it stands: text behind a
/// number, a number in another unit than the current one, a date that does not exist. Only while the panel is
/// in edit mode, and only editors that can be typed into; "..." stands for no value and is no error.
class PartPanelMarks {
 public:
  /// Which part the panel shows.
  using BufferOf = std::function<const LumWBAllDataBuffer&()>;
  /// Looks at the editors again after whatever the user does in `panel`. The marks must outlive it.
  PartPanelMarks(KorDlgDialog& panel, BufferOf buffer);
  PartPanelMarks(const PartPanelMarks&) = delete;
  PartPanelMarks& operator=(const PartPanelMarks&) = delete;

  /// Sets and takes away the marks; for a panel whose texts were changed by no user.
  void Update();

 private:
  void ListenBelow(KorDlgObject& widget);

  KorDlgDialog& _panel;
  BufferOf _buffer;
};

/// Whether the panel is in edit mode. It keeps no flag: that mode begins and ends with the "Edit" button.
bool IsInEditMode(KorDlgDialog& partPanel);

}  // namespace desktop
