#pragma once

#include <initializer_list>
#include <type_traits>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorDlgTabPage.h"

/// Layouts as nested expressions that look like the dialog: a row for each widget with its name, style, grid
/// place (row, column, columns, rows), the pointer that it fills, and what is inside it.
///
///     BuildLayout(*this, {
///         Frame("MassFrame", KorDlgStyle::kBorderedFrame, {0, 0}, nullptr, {
///             Label("MassLabel", {0, 0}),
///             Editor("MassEditor", KorDlgStyle::kReadOnly, {0, 1}, &_mass, 20)})});
///
/// An expression must be handed to BuildLayout as a whole: nested rows live until the end of the statement.
namespace KorWBNymNavLayout {

struct Node {
  using Create = void (*)(KorDlgObject& parent, const Node& node);

  const char* name;
  unsigned style;
  KorDlgGrid grid;
  void* member;   ///< address of the pointer to fill, of the type that `create` makes; null: none
  int textWidth;  ///< characters that an editor shows; 0: as the place gives it
  std::initializer_list<Node> children;
  Create create;
};
using Nodes = std::initializer_list<Node>;

/// Creates the widgets below `parent`, each before what is inside it, in the order of the rows.
inline void BuildLayout(KorDlgObject& parent, Nodes nodes) {
  for (const Node& node : nodes) node.create(parent, node);
}

template <class Widget>
void CreateWidget(KorDlgObject& parent, const Node& node) {
  auto* widget = parent.Add<Widget>(node.name, node.style, node.grid);
  if (node.member) *static_cast<Widget**>(node.member) = widget;
  if constexpr (std::is_same_v<Widget, KorDlgEditor>) widget->SetVisibleTextWidth(node.textWidth);
  BuildLayout(*widget, node.children);
}

template <class Widget>
Node Row(const char* name, unsigned style, KorDlgGrid grid, Widget** member, Nodes children = {},
         int textWidth = 0) {
  return {name, style, grid, member, textWidth, children, &CreateWidget<Widget>};
}

// ---- one function for each kind, named after it ----

inline Node Frame(const char* name, unsigned style, KorDlgGrid grid, KorDlgFrame** member, Nodes children) {
  return Row(name, style, grid, member, children);
}
inline Node TabContainer(const char* name, KorDlgGrid grid, KorDlgTabContainer** member,
                         Nodes children = {}) {
  return Row(name, KorDlgStyle::kNone, grid, member, children);
}
inline Node TabPage(const char* name, KorDlgTabPage** member, Nodes children) {
  return Row(name, KorDlgStyle::kPage, {}, member, children);
}
inline Node Label(const char* name, KorDlgGrid grid, KorDlgLabel** member = nullptr,
                  unsigned style = KorDlgStyle::kNone) {
  return Row(name, style, grid, member);
}
inline Node Editor(const char* name, unsigned style, KorDlgGrid grid, KorDlgEditor** member,
                   int textWidth = 0) {
  return Row(name, style, grid, member, {}, textWidth);
}
inline Node Combo(const char* name, KorDlgGrid grid, KorDlgCombo** member) {
  return Row(name, KorDlgStyle::kDropDown, grid, member);
}
inline Node MultiList(const char* name, unsigned style, KorDlgGrid grid, KorDlgMultiList** member) {
  return Row(name, style, grid, member);
}
inline Node RadioButton(const char* name, KorDlgGrid grid, KorDlgRadioButton** member) {
  return Row(name, KorDlgStyle::kNone, grid, member);
}
inline Node CheckButton(const char* name, KorDlgGrid grid, KorDlgCheckButton** member) {
  return Row(name, KorDlgStyle::kNone, grid, member);
}
inline Node PushButton(const char* name, KorDlgGrid grid, KorDlgPushButton** member = nullptr) {
  return Row(name, KorDlgStyle::kNone, grid, member);
}
inline Node Spinner(const char* name, KorDlgGrid grid, KorDlgSpinner** member) {
  return Row(name, KorDlgStyle::kTextSpinner, grid, member);
}

}  // namespace KorWBNymNavLayout
