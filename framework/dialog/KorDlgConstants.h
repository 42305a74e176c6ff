#pragma once

#include <cstdint>

/// Whether a setter tells the subscribers. With `Send` it always does, changed or not: panels rely on it to
/// put themselves in line.
enum class KorNotify { Silent, Send };

enum class KorSensitivity : int { Enabled = 8, Disabled = 16 };
enum class KorVisibility : int { Shown = 2, Hidden = 4 };
enum class KorCheckState : int { Checked = 0x40000, Unchecked = 0x80000 };

constexpr KorSensitivity KorEnabledIf(bool condition) {
  return condition ? KorSensitivity::Enabled : KorSensitivity::Disabled;
}
constexpr KorVisibility KorShownIf(bool condition) {
  return condition ? KorVisibility::Shown : KorVisibility::Hidden;
}
constexpr KorCheckState KorCheckedIf(bool condition) {
  return condition ? KorCheckState::Checked : KorCheckState::Unchecked;
}

/// Style values. What a value means depends on the widget's kind.
namespace KorDlgStyle {
inline constexpr unsigned kNone = 0;
// frames
inline constexpr unsigned kTitledFrame = 0x1;        ///< a group with border and title
inline constexpr unsigned kBorderedFrame = 0x40001;  ///< a border without a title
inline constexpr unsigned kPlainFrame = 0x80001;     ///< groups its children and shows nothing of its own
// tab pages
inline constexpr unsigned kPage = 0x1;
// editors and labels
inline constexpr unsigned kReadOnly = 0x4000000;    ///< text that can be selected and not typed into
inline constexpr unsigned kNumberEditor = 0x20000;  ///< holds one number
// combos, lists, spinners
inline constexpr unsigned kDropDown = 0x40000;
inline constexpr unsigned kMultiSelection = 0x40000;
inline constexpr unsigned kTextSpinner = 0x80000;  ///< browses texts
// dialogs
inline constexpr unsigned kPanelDialog = 0x4000;  ///< no buttons of the framework's own
inline constexpr unsigned kOkCancelDialog = 0x2000001;
inline constexpr unsigned kListDialog = 0x10000201;  ///< resizable, one Close button of the framework's own that hides it
}  // namespace KorDlgStyle

/// Sides on which a widget follows its grid cell.
namespace KorDlgAttach {
inline constexpr int kLeft = 2;
inline constexpr int kRight = 4;
inline constexpr int kBottom = 8;
inline constexpr int kTop = 16;
inline constexpr int kAll = kLeft | kRight | kBottom | kTop;
}  // namespace KorDlgAttach

/// Place of a widget in its parent's grid; rows and columns count from 0.
struct KorDlgGrid {
  int row = 0;
  int column = 0;
  int columns = 1;
  int rows = 1;
  int attachment = KorDlgAttach::kAll;
  friend bool operator==(const KorDlgGrid&, const KorDlgGrid&) = default;
};

enum class KorDlgKind {
  Dialog,
  TabContainer,
  TabPage,
  Frame,
  Label,
  Editor,
  Combo,
  MultiList,
  RadioButton,
  CheckButton,
  PushButton,
  Spinner
};

/// What of a widget's state changed. Each kind has the first six; KorDlgObject::Properties() lists them all.
enum class KorDlgProperty {
  Title,
  Help,
  Sensitivity,
  Visibility,
  Grid,
  Marking,
  Text,
  TextSelection,
  TextWidth,  // editors, spinners
  Lines,
  Selection,  // combos, lists; Selection also pages of a tab container
  Checked,    // radio and check buttons
  Arrows,     // spinners
  Columns,
  Rows,  // lists
};
