#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

#include "desktop/app/TypedTexts.h"
#include "framework/dialog/KorDlgDialog.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// A text that the part panel would not read as it stands.
struct UnreadText {
  KorDlgObject* editor;  ///< where it can be corrected
  int property = 0;      ///< of a property, its index in the buffer, from 1; 0 for any other text
  QString text;
  QString problem;        ///< why, for the user
  QString storedInstead;  ///< what a save would make of it, for the user
};

/// Marks the editors of an open part panel whose text the panel would not read as it stands: text behind a
/// number, a number in another unit than the current one, a date that does not exist. Only while the panel is
/// in edit mode, and only editors that can be typed into; "..." stands for no value and is no error. The page
/// of such an editor is marked too, and the list of properties for one that is not shown. A mark outlives
/// that the panel writes what it has read in place of what was typed. What the panel would not store at all
/// is marked as well, and a revision that could not be loaded.
class PartPanelMarks {
 public:
  /// Which part the panel shows.
  using BufferOf = TypedTexts::BufferOf;
  /// Whether the server has property `index` (from 1) as it is in the buffer: what nobody has typed is not
  /// marked.
  using IsPropertyStored = std::function<bool(int index)>;
  /// Looks at the editors again after whatever the user does in `panel`. The marks must outlive it.
  PartPanelMarks(KorDlgDialog& panel, BufferOf buffer, IsPropertyStored isPropertyStored);
  PartPanelMarks(const PartPanelMarks&) = delete;
  PartPanelMarks& operator=(const PartPanelMarks&) = delete;

  /// The texts of now, in the order of the pages.
  std::vector<UnreadText> Find() const;
  /// Sets and takes away the marks; for a panel whose texts were changed by no user.
  void Update();

 private:
  void ListenBelow(KorDlgObject& widget);
  std::vector<UnreadText> FindInEditors() const;
  std::optional<UnreadText> FindIn(const ReadEditor& row, KorDlgEditor& editor) const;
  std::optional<UnreadText> FindRevision() const;
  std::vector<UnreadText> FindInHiddenProperties() const;
  std::optional<UnreadText> FindInHiddenProperty(int index) const;
  bool IsStoredProperty(int property, const KorDlgEditor& editor) const;
  QString ToldProblem(const ReadEditor& row, const TypedText& typed) const;
  void FollowRevision(const KorDlgObject& sender, KorEvent event);

  KorDlgDialog& _panel;
  BufferOf _buffer;
  IsPropertyStored _isPropertyStored;
  TypedTexts _typed;
  bool _wantsRevision = false;  ///< the user has asked for one by hand in this edit mode
};

/// Where a text of the panel stands, as the user sees it: page, frame and label, or the name of the property.
QString PlaceOf(const UnreadText& text, const LumWBAllDataBuffer& buffer);

}  // namespace desktop
