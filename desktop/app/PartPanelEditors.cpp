#include "desktop/app/PartPanelEditors.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "desktop/app/Quantities.h"
#include "desktop/app/ReadableTexts.h"
#include "desktop/app/Texts.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "services/KorWBServices.h"

namespace desktop {
namespace {

constexpr const char* kNoValue = "...";
constexpr const char* kStandardPart = "Frame250.StdPartFrame.StdPartCheckButton";

constexpr const char* kLength = "LENGTH";

constexpr ReadEditor kReadEditors[] = {
    {kMassEditorPath, EditorContent::Expression, "MASS"},
    {"TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGxEditor", EditorContent::Quantity, kLength},
    {"TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGyEditor", EditorContent::Quantity, kLength},
    {"TabContainer001.TabPage003.Frame113.MTCGFrame.MTCGzEditor", EditorContent::Quantity, kLength},
    {"TabContainer001.TabPage003.Frame113.MTMomentOfInertia.MTIxxEditor", EditorContent::Quantity,
     "INERTIAMOMENT"},
    {"TabContainer001.TabPage003.Frame113.MTMomentOfInertia.MTIyyEditor", EditorContent::Quantity,
     "INERTIAMOMENT"},
    {"TabContainer001.TabPage003.Frame113.MTMomentOfInertia.MTIzzEditor", EditorContent::Quantity,
     "INERTIAMOMENT"},
    {"TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIxyEditor", EditorContent::Quantity,
     "INERTIAMOMENT"},
    {"TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIxzEditor", EditorContent::Quantity,
     "INERTIAMOMENT"},
    {"TabContainer001.TabPage003.Frame113.MTProductOfInertia.MTIyzEditor", EditorContent::Quantity,
     "INERTIAMOMENT"},
    {"TabContainer001.TabPage004.MaterialAndDensityFrame.DensityEditor", EditorContent::OptionalQuantity,
     "DENSITY"},
    {"TabContainer001.TabPage005.Frame252.PrecisionValueFrame.UpperValueEditor", EditorContent::Bound,
     "MASS"},
    {"TabContainer001.TabPage005.Frame252.PrecisionValueFrame.LowerValueEditor", EditorContent::Bound,
     "MASS"},
    {kPropertyValuePath, EditorContent::Property},
};

/// Else those of the mass type count.
bool HasOwnBounds(KorDlgDialog& panel) {
  return panel.Find<KorDlgCombo>(kPrecisionTypePath).GetSelect() != 0;
}

bool IsRelative(KorDlgDialog& panel) { return panel.Find<KorDlgCombo>(kValueTypePath).GetSelect() == 0; }

const KorUnicodeString& TextOf(KorDlgDialog& panel, const char* path) {
  return panel.Find<KorDlgEditor>(path).GetText();
}

QString StoredAs(const QString& value) { return Text("Unread.StoredAs", {value}); }

bool IsStandardPart(KorDlgDialog& panel) { return panel.Find<KorDlgCheckButton>(kStandardPart).IsChecked(); }

bool IsNoValue(KorDlgDialog& panel, const char* path) { return TextOf(panel, path) == kNoValue; }

bool ShowsNoDistribution(KorDlgDialog& panel) {
  return std::ranges::all_of(kReadEditors, [&](const ReadEditor& one) {
    return one.content != EditorContent::Quantity || IsNoValue(panel, one.path);
  });
}

/// Whether the shown mass type has no centre of gravity or inertia that a save could overwrite.
bool IsMissing(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor) {
  const KorUnicodeString type = panel.Find<KorDlgCombo>(kMassTypePath).GetSelectedLine();
  return std::string_view(editor.magnitude) == kLength ? !buffer.GetCG(type) : !buffer.GetInertia(type);
}

/// Whether "..." in an editor is what it says: a save takes no value away, nor one that was typed elsewhere.
bool StandsForNoValue(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor) {
  switch (editor.content) {
    case EditorContent::Expression:
      return ShowsNoDistribution(panel);
    case EditorContent::Quantity:
      return IsNoValue(panel, kMassEditorPath) || IsStandardPart(panel) || IsMissing(panel, buffer, editor);
    case EditorContent::OptionalQuantity:
      return true;
    case EditorContent::Bound:
      return panel.Find<KorDlgCombo>(kValueTypePath).GetSelect() ==
             buffer.GetPrecisionValueType(panel.Find<KorDlgCombo>(kActiveMassTypePath).GetSelectedLine());
    case EditorContent::Property:
      break;
  }
  return false;
}

/// The number that opens a text, in the storage unit of a magnitude: what stands behind it is passed over.
/// Nothing for one that has no place there.
std::optional<double> OpeningNumber(const KorUnicodeString& text, const char* magnitude) {
  double typed = 0;
  if (text.ConvertToNum(&typed, "%le") == 0) return std::nullopt;
  const double stored = KorWBServices::RestoreValue(typed, magnitude);
  return std::isfinite(stored) ? std::optional(stored) : std::nullopt;
}

bool IsZero(const KorUnicodeString& text) {
  double number = 0;
  return text.ConvertToNum(&number, "%le") != 0 && number == 0;
}

QString StoredOf(const KorUnicodeString& text, const char* magnitude, const QString& ofNoNumber) {
  const auto number = OpeningNumber(text, magnitude);
  return number ? StoredAs(ShowQuantity(magnitude, *number)) : ofNoNumber;
}

/// A mass that is no number keeps its whole mass type as it was; a standard part has no other values.
QString StoredOfQuantity(KorDlgDialog& panel, const KorUnicodeString& text, const char* magnitude) {
  if (IsStandardPart(panel)) return Text("Unread.StandardPart");
  if (!OpeningNumber(TextOf(panel, kMassEditorPath), "MASS")) return Text("Unread.NoMass");
  return StoredOf(text, magnitude, StoredAs(ShowQuantity(magnitude, 0)));
}

QString StoredOfPercent(const KorUnicodeString& text) {
  double percent = 0;
  text.ConvertToNum(&percent, "%le");
  return StoredAs(QString::number(percent) + "%");
}

}  // namespace

std::span<const ReadEditor> ReadEditors() { return kReadEditors; }

bool IsThere(const LumWBAllDataBuffer& buffer, const ReadEditor& editor) {
  return editor.content != EditorContent::Property || buffer.AdditionalInfoRequested();
}

bool IsInEditMode(KorDlgDialog& partPanel) {
  return !partPanel.Find<KorDlgPushButton>("Frame238.EditButton").IsEnabled();
}

QString ProblemOf(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor) {
  const KorUnicodeString& text = TextOf(panel, editor.path);
  if (text == kNoValue && StandsForNoValue(panel, buffer, editor)) return {};
  return ProblemOfText(panel, buffer, editor, text);
}

QString ProblemOfText(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor,
                      const KorUnicodeString& text) {
  switch (editor.content) {
    case EditorContent::Expression:
      return FindExpressionProblem(text, editor.magnitude);
    case EditorContent::OptionalQuantity:
      return text.Strip().IsEmpty() ? QString() : FindQuantityProblem(text, editor.magnitude);
    case EditorContent::Quantity:
      return FindQuantityProblem(text, editor.magnitude);
    case EditorContent::Bound:
      return IsRelative(panel) ? FindPercentProblem(text) : FindQuantityProblem(text, editor.magnitude);
    case EditorContent::Property:
      break;
  }
  return FindPropertyProblem(buffer, ShownProperty(panel), text);
}

QString StoredInstead(KorDlgDialog& panel, const LumWBAllDataBuffer& buffer, const ReadEditor& editor) {
  const KorUnicodeString& text = TextOf(panel, editor.path);
  switch (editor.content) {
    case EditorContent::Expression:
      return StoredOf(text, editor.magnitude, Text("Unread.NoMass"));
    case EditorContent::OptionalQuantity:
      return StoredOf(text, editor.magnitude, Text("Unread.NoDensity"));
    case EditorContent::Quantity:
      return StoredOfQuantity(panel, text, editor.magnitude);
    case EditorContent::Bound:
      if (!HasOwnBounds(panel)) return Text("Unread.OwnBounds");
      if (IsRelative(panel)) return StoredOfPercent(text);
      return StoredOf(text, editor.magnitude, StoredAs(ShowQuantity(editor.magnitude, 0)));
    case EditorContent::Property:
      break;
  }
  return StoredOfProperty(buffer, ShownProperty(panel), text);
}

/// Properties go to the server as they were typed, but for a magnitude that a number opens.
QString StoredOfProperty(const LumWBAllDataBuffer& buffer, int index, const KorUnicodeString& text) {
  double number = 0;
  if (!buffer.GetIsMagnitude(index) || text.ConvertToNum(&number, "%le") == 0) return Text("Unread.Refused");
  return StoredOf(text, buffer.GetPropMagnitudeType(index).ConvertToChar(), Text("Unread.Kept"));
}

QString WhyNotStored(KorDlgDialog& panel, const ReadEditor& editor) {
  const bool isForStandardPart = editor.content == EditorContent::Quantity && IsStandardPart(panel);
  const KorUnicodeString& text = TextOf(panel, editor.path);
  if (isForStandardPart && text != kNoValue && !IsZero(text)) return Text("Unread.StandardPart");
  if (editor.content == EditorContent::Bound && text != kNoValue && !HasOwnBounds(panel))
    return Text("Unread.OwnBounds");
  return {};
}

int ShownProperty(KorDlgDialog& panel) { return panel.Find<KorDlgCombo>(kPropertyNamePath).GetSelect() + 1; }

/// Of a magnitude the buffer holds the number in the storage unit, or a text that no number opened.
QString ProblemOfStoredProperty(const LumWBAllDataBuffer& buffer, int index) {
  const KorUnicodeString text = buffer.GetPropertyValue(index);
  double number = 0;
  if (buffer.GetIsMagnitude(index) && text.ConvertToNum(&number, "%le") != 0) return {};
  return FindPropertyProblem(buffer, index, text);
}

}  // namespace desktop
