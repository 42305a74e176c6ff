#pragma once

#include <QString>
#include <optional>
#include <span>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "services/LumWBAllDataBuffer.h"

/// The editors of the part panel whose text stands for more than itself, and how the panel reads each.
namespace desktop {

enum class EditorContent {
  Expression,  ///< a quantity, or a sum that becomes one
  Quantity,
  OptionalQuantity,  ///< nothing typed means that the part has no such value
  Bound,             ///< in percent or as a mass, as "ValueTypeCombo" says
  Property,          ///< as the type of the property says
};

struct ReadEditor {
  const char* path;
  EditorContent content;
  const char* magnitude = "";
};

/// All of them, in the order of the pages. The property's is there only for a part with properties.
std::span<const ReadEditor> ReadEditors();
bool IsThere(const LumWBAllDataBuffer& buffer, const ReadEditor& editor);

inline constexpr const char* kMassTypePath = "TabContainer001.TabPage003.Frame107.Frame231.MassTypeCombo";
inline constexpr const char* kActiveMassTypePath = "TabContainer001.TabPage003.Frame230.ActiveMassCombo";
inline constexpr const char* kPrecisionTypePath = "TabContainer001.TabPage005.Frame252.Frame092.TypeCombo";
inline constexpr const char* kValueTypePath =
    "TabContainer001.TabPage005.Frame252.PrecisionValueFrame.ValueTypeCombo";
inline constexpr const char* kMassEditorPath = "TabContainer001.TabPage003.Frame107.Frame231.MTMassEditor";
inline constexpr const char* kPropertyNamePath =
    "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.PropertyNameCombo";
inline constexpr const char* kPropertyValuePath =
    "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.PropertyValueEditor";

/// Whether the panel is in edit mode. It keeps no flag: that mode begins and ends with the "Edit" button.
bool IsInEditMode(KorDlgDialog& partPanel);

/// What is the matter with the text of an editor, for the user; empty: nothing is.
QString ProblemOf(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor);
/// The same of a text that stood in the editor before.
QString ProblemOfText(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor,
                      const KorUnicodeString& text);
/// What a save stores of a text with a problem, for the user.
QString StoredInstead(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor);

/// Why a text that can be read is not stored at all, for the user; empty: it is. To be asked of typed texts.
QString WhyNotStored(KorDlgDialog& panel, const ReadEditor& editor);

/// What a save stores of the text of a property, for the user.
QString StoredOfProperty(const LumWBAllDataBuffer& buffer, int index, const KorUnicodeString& text);

/// Index of the property shown, from 1 as in the buffer.
int ShownProperty(KorDlgDialog& panel);
/// The same for a property that is not shown, whose text is in the buffer already.
QString ProblemOfStoredProperty(const LumWBAllDataBuffer& buffer, int index);

}  // namespace desktop
