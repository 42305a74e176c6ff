// The additional-properties page: one property at a time, typed as text.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <cmath>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/shared/KorWBNymNavMessages.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/LumWBAllDataBuffer.h"

using Definitions = KorLumWBCSCommonDefinitions;
using Display = KorWBNymNavUnitDisplay;

namespace {

constexpr int kIntegerOrDate = 1;
constexpr int kReal = 2;
constexpr bool kFromStorage = true;

bool IsReal(const KorUnicodeString& text) {
  double number = 0;
  return text.ConvertToNum(&number, "%le") == 1;
}

bool IsInteger(const KorUnicodeString& text) {
  int number = 0;
  return text.ConvertToNum(&number, "%d") == 1;
}

bool IsDate(const KorUnicodeString& text, const KorUnicodeString& format) {
  std::time_t time = 0;
  return KorWBServices::GetDateFromText(
             text, format, Definitions::dateFieldDelimiter1, Definitions::dateYMDFieldDelimiter1,
             Definitions::dateHMSFieldDelimiter1, KorWBServices::DateFields::Date, time) == S_OK;
}

/// A text typed for a property as it is stored: of a magnitude in the storage unit. What no number opens
/// stays as it is: it has been reported, and the user corrects it. Nothing for a number that is too large
/// there.
std::optional<KorUnicodeString> AsStored(const LumWBAllDataBuffer& buffer, int property,
                                         const KorUnicodeString& text) {
  double number = 0;
  if (!buffer.GetIsMagnitude(property) || text.ConvertToNum(&number, "%le") == 0) return text;
  const double stored = KorWBServices::RestoreValue(number, buffer.GetPropMagnitudeType(property));
  if (!std::isfinite(stored)) return std::nullopt;
  KorUnicodeString converted;
  converted.BuildFromNum(stored, Definitions::FormatDouble.ConvertToChar());
  return converted;
}

/// What the text should have been, as the message calls it; null when it suits the property.
const char* FindUnsuitable(const LumWBAllDataBuffer& buffer, int property, const KorUnicodeString& text) {
  const int type = buffer.GetPropertyType(property);
  if (!AsStored(buffer, property, text)) return " \"Real\" ";
  if (type == kReal) return IsReal(text) ? nullptr : " \"Real\" ";
  if (type != kIntegerOrDate) return nullptr;
  if (!buffer.GetIsDate(property)) return IsInteger(text) ? nullptr : " \"Integer\" ";
  return IsDate(text, buffer.GetDateFormatForExtraProperties()) ? nullptr : " \"Date\" ";
}

}  // namespace

HRESULT KorWBNymMainPanel::RefreshAdditionalInfoTab() {
  KORWB_PART_TRACE("RefreshAdditionalInfoTab");
  if (!_dataBuffer || !_widgets.additionalPage) return traceStatus = E_FAIL;
  KorDlgCombo& names = *_widgets.propertyName;
  names.ClearLines();
  for (int property = 1; property <= Pdm().GetPropertyCount(); ++property)
    names.SetLine(Pdm().GetPropertyName(property), property - 1);
  _editedPropertyIndex = 0;
  names.SetSelect(0);
  // The editor shows the first property before the selection is told of: in edit mode the handler stores what
  // stands there, which is still that of the property shown before, perhaps of another part.
  ShowSelectedProperty();
  names.SetSelect(0, KorNotify::Send);
  ShowSelectedProperty();
  return traceStatus;
}

void KorWBNymMainPanel::ShowSelectedProperty() {
  const KorUnicodeString value = Pdm().GetPropertyValue(_widgets.propertyName->GetSelect() + 1);
  _widgets.propertyValue->SetText(value);
  RefreshMagnitudePropertiesUnits(value, kFromStorage);
}

// In edit mode the value typed for the property shown before is stored; outside nothing is.
void KorWBNymMainPanel::OnPropertyNameComboChange(KorCommand*, KorNotification*, KorCommandClientData) {
  if (!_dataBuffer) return;
  ValidateAndUpdateBufferAndPropEditor(!_widgets.propertyValue->IsEnabled());
}

/// `keepBuffer` true: the editor's text is not stored.
void KorWBNymMainPanel::ValidateAndUpdateBufferAndPropEditor(bool keepBuffer) {
  if (!keepBuffer) StoreEditedProperty();
  ShowSelectedProperty();
  _editedPropertyIndex = _widgets.propertyName->GetSelect();
}

/// The validation only reports: the text is stored whatever the verdict, but for a number that cannot be. A
/// text that is still the one that shows the stored value is not stored again, so that a magnitude keeps the
/// digits that are not shown.
void KorWBNymMainPanel::StoreEditedProperty() {
  const int property = _editedPropertyIndex + 1;
  const KorUnicodeString& text = _widgets.propertyValue->GetText();
  ValidatePropertyValue(property, text);
  if (text == ShownPropertyValue(property)) return;
  if (const auto value = AsStored(Pdm(), property, text)) Pdm().SetPropertyValue(property, *value);
}

/// `property` counts from 1.
void KorWBNymMainPanel::ValidatePropertyValue(int property, const KorUnicodeString& text) {
  const KorUnicodeString stripped = text.Strip();
  const char* expected = stripped.IsEmpty() ? nullptr : FindUnsuitable(Pdm(), property, stripped);
  if (!expected) return;
  const KorWBNymNavMessages messages = Messages();
  messages.Show(
      "WrongPropertyValue001.Title",
      messages.Text("UnsuitablePropertyValue100", KorUnicodeString(expected), "-- inappropriate --"));
}

KorUnicodeString KorWBNymMainPanel::ShownPropertyValue(int property) const {
  const KorUnicodeString value = Pdm().GetPropertyValue(property);
  return ShownMagnitude(property, value, kFromStorage).value_or(value);
}

/// Nothing for a property that is no magnitude, one that cannot be shown, and a text that no number opens.
std::optional<KorUnicodeString> KorWBNymMainPanel::ShownMagnitude(int property, const KorUnicodeString& text,
                                                                  bool fromStorage) const {
  double number = 0;
  if (!Pdm().GetIsMagnitude(property) || text.ConvertToNum(&number, "%le") == 0) return std::nullopt;
  const auto display = Display::Of(Pdm().GetPropMagnitudeType(property).ConvertToChar());
  if (!display) return std::nullopt;
  return fromStorage ? display->Show(number) : display->ShowTyped(number);
}

void KorWBNymMainPanel::RefreshMagnitudePropertiesUnits(const KorUnicodeString& text, bool fromStorage) {
  if (!_dataBuffer || !_widgets.additionalPage || text.IsEmpty()) return;
  const int property = _widgets.propertyName->GetSelect() + 1;
  if (!Pdm().GetIsMagnitude(property)) return;
  const KorUnicodeString magnitude = Pdm().GetPropMagnitudeType(property);
  const auto display = Display::Of(magnitude.ConvertToChar());
  if (!display) {
    KorWBPartTraceLine("Could not obtain a valid pointer for the ", magnitude, " magnitude!");
    return;
  }
  KorWBPartTraceLine("Current unit: ", display->CurrentUnitName());
  KorWBPartTraceLine("Storage unit: ", display->ReferenceUnitName());
  if (const auto shown = ShownMagnitude(property, text, fromStorage)) _widgets.propertyValue->SetText(*shown);
}
