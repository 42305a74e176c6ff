#include "desktop/app/PartPanelMarks.h"

#include "desktop/app/ReadableTexts.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"

namespace desktop {
namespace {

/// How the panel reads an editor.
enum class Content {
  Expression,  ///< a quantity, or a sum that becomes one
  Quantity,
  OptionalQuantity,  ///< nothing typed means that the part has no such value
  Bound,             ///< in percent or as a mass, as "ValueTypeCombo" says
  Property,          ///< as the type of the property says
};

struct MarkedEditor {
  const char* path;  ///< below the pages
  Content content;
  const char* magnitude = "";
};

constexpr MarkedEditor kMarkedEditors[] = {
    {"TabPage003.Frame107.Frame231.MTMassEditor", Content::Expression, "MASS"},
    {"TabPage003.Frame113.MTCGFrame.MTCGxEditor", Content::Quantity, "LENGTH"},
    {"TabPage003.Frame113.MTCGFrame.MTCGyEditor", Content::Quantity, "LENGTH"},
    {"TabPage003.Frame113.MTCGFrame.MTCGzEditor", Content::Quantity, "LENGTH"},
    {"TabPage003.Frame113.MTMomentOfInertia.MTIxxEditor", Content::Quantity, "INERTIAMOMENT"},
    {"TabPage003.Frame113.MTMomentOfInertia.MTIyyEditor", Content::Quantity, "INERTIAMOMENT"},
    {"TabPage003.Frame113.MTMomentOfInertia.MTIzzEditor", Content::Quantity, "INERTIAMOMENT"},
    {"TabPage003.Frame113.MTProductOfInertia.MTIxyEditor", Content::Quantity, "INERTIAMOMENT"},
    {"TabPage003.Frame113.MTProductOfInertia.MTIxzEditor", Content::Quantity, "INERTIAMOMENT"},
    {"TabPage003.Frame113.MTProductOfInertia.MTIyzEditor", Content::Quantity, "INERTIAMOMENT"},
    {"TabPage004.MaterialAndDensityFrame.DensityEditor", Content::OptionalQuantity, "DENSITY"},
    {"TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor", Content::Bound, "MASS"},
    {"TabPage005.Frame252.PrecisionValueFrame.LowerValueEditor", Content::Bound, "MASS"},
    {"TabPageAdditional.ExtraPropertiesFrame.PropertyValueEditor", Content::Property},
};

/// What a user can do that changes a text, or whether it can be typed.
constexpr KorEvent kUserEvents[] = {KorEvent::EditorModify, KorEvent::FocusOut,    KorEvent::ComboSelect,
                                    KorEvent::RadioModify,  KorEvent::CheckModify, KorEvent::PushActivate,
                                    KorEvent::TabSelect};

constexpr const char* kValueType = "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";
constexpr const char* kPropertyName =
    "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.PropertyNameCombo";

bool IsRelative(KorDlgDialog& panel) { return panel.Find<KorDlgCombo>(kValueType).GetSelect() == 0; }

QString ProblemOfProperty(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer,
                          const KorUnicodeString& text) {
  return FindPropertyProblem(buffer, panel.Find<KorDlgCombo>(kPropertyName).GetSelect() + 1, text);
}

QString ProblemOf(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const MarkedEditor& row,
                  const KorUnicodeString& text) {
  switch (row.content) {
    case Content::Expression:
      return FindExpressionProblem(text, row.magnitude);
    case Content::OptionalQuantity:
      return text.Strip().IsEmpty() ? QString() : FindQuantityProblem(text, row.magnitude);
    case Content::Quantity:
      return FindQuantityProblem(text, row.magnitude);
    case Content::Bound:
      return IsRelative(panel) ? FindPercentProblem(text) : FindQuantityProblem(text, row.magnitude);
    case Content::Property:
      break;
  }
  return ProblemOfProperty(panel, buffer, text);
}

}  // namespace

PartPanelMarks::PartPanelMarks(KorDlgDialog& panel, BufferOf buffer)
    : _panel(panel), _buffer(std::move(buffer)) {
  ListenBelow(panel);
}

/// Code may change any text without a notification, so that each of them is looked at after each one.
void PartPanelMarks::ListenBelow(KorDlgObject& widget) {
  for (const auto& child : widget.Children()) {
    for (const KorEvent event : kUserEvents) child->Subscribe(event, [this](auto...) { Update(); });
    ListenBelow(*child);
  }
}

void PartPanelMarks::Update() {
  const LumWBAllDataBuffer& buffer = _buffer();
  const bool editing = IsInEditMode(_panel);
  for (const MarkedEditor& row : kMarkedEditors) {
    if (row.content == Content::Property && !buffer.AdditionalInfoRequested()) continue;
    auto& editor = _panel.Find<KorDlgEditor>(KorString("TabContainer001.") + row.path);
    const bool counts = editing && editor.IsEnabled();
    editor.SetMarking(counts ? ProblemOf(_panel, buffer, row, editor.GetText()).toStdString() : "");
  }
}

bool IsInEditMode(KorDlgDialog& partPanel) {
  return !partPanel.Find<KorDlgPushButton>("Frame238.EditButton").IsEnabled();
}

}  // namespace desktop
