#include "services/LumWBAllDataBuffer.h"

#include <algorithm>

#include "services/KorWBBufferContent.h"

namespace {

constexpr int kUncheckedType = 3;

std::size_t IndexOf(int index) { return static_cast<std::size_t>(index) - 1; }

// Null for an index outside the properties; they count from 1.
template <class Properties>
auto* PropertyAt(Properties& properties, int index) {
  const bool inside = index >= 1 && static_cast<std::size_t>(index) <= properties.size();
  return inside ? &properties[IndexOf(index)] : nullptr;
}

// A field of a property, or what stands for one that is not there.
template <class Value>
Value Read(const protocol::PartData& data, int index, Value protocol::ExtraProperty::*field,
           Value none = {}) {
  const protocol::ExtraProperty* property = PropertyAt(data.properties, index);
  return property ? property->*field : none;
}

}  // namespace

bool LumWBAllDataBuffer::AdditionalInfoRequested() const { return Data().data.propertiesRequested; }

int LumWBAllDataBuffer::GetPropertyCount() const { return static_cast<int>(Data().data.properties.size()); }

KorUnicodeString LumWBAllDataBuffer::GetPropertyName(int index) const {
  return Read(Data().data, index, &protocol::ExtraProperty::name);
}

KorUnicodeString LumWBAllDataBuffer::GetPropertyValue(int index) const {
  return PropertyAt(Data().data.properties, index) ? KorUnicodeString(Data().propertyTexts[IndexOf(index)])
                                                   : KorUnicodeString();
}

HRESULT LumWBAllDataBuffer::SetPropertyValue(int index, const KorUnicodeString& value) {
  if (!PropertyAt(Data().data.properties, index)) return E_FAIL;
  Data().SetPropertyText(IndexOf(index), value.Utf8());
  return S_OK;
}

int LumWBAllDataBuffer::GetPropertyType(int index) const {
  return Read(Data().data, index, &protocol::ExtraProperty::type, kUncheckedType);
}

bool LumWBAllDataBuffer::GetIsDate(int index) const {
  return Read(Data().data, index, &protocol::ExtraProperty::isDate);
}

bool LumWBAllDataBuffer::GetIsMagnitude(int index) const {
  return Read(Data().data, index, &protocol::ExtraProperty::isMagnitude);
}

KorUnicodeString LumWBAllDataBuffer::GetPropMagnitudeType(int index) const {
  return Read(Data().data, index, &protocol::ExtraProperty::magnitude);
}

KorUnicodeString LumWBAllDataBuffer::GetDateFormatForExtraProperties() const {
  return Data().data.dateFormat;
}

bool LumWBAllDataBuffer::AreDateTypePropertiesPresent() const {
  const auto& properties = Data().data.properties;
  return std::any_of(properties.begin(), properties.end(),
                     [](const protocol::ExtraProperty& property) { return property.isDate; });
}
