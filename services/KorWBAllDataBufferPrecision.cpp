#include "services/KorWBAllDataBuffer.h"

#include <cmath>

#include "services/KorWBBufferContent.h"

namespace {

bool IsZeroOrOne(int value) { return value == 0 || value == 1; }

// The field of a mass type, 0 for one that is not listed.
template <class Value>
Value Read(const protocol::MassType* massType, Value protocol::MassType::*field) {
  return massType ? massType->*field : Value{};
}

template <class Value>
HRESULT Write(protocol::MassType* massType, Value protocol::MassType::*field, Value value, bool acceptable) {
  if (!massType || !acceptable) return E_FAIL;
  massType->*field = value;
  return S_OK;
}

}  // namespace

int KorWBAllDataBuffer::GetPrecisionType(const KorUnicodeString& massType) const {
  return Read(Data().Find(massType), &protocol::MassType::precisionType);
}

HRESULT KorWBAllDataBuffer::SetPrecisionType(const KorUnicodeString& massType, int type) {
  return Write(Data().Find(massType), &protocol::MassType::precisionType, type, IsZeroOrOne(type));
}

int KorWBAllDataBuffer::GetPrecisionValueType(const KorUnicodeString& massType) const {
  return Read(Data().Find(massType), &protocol::MassType::precisionValueType);
}

HRESULT KorWBAllDataBuffer::SetPrecisionValueType(const KorUnicodeString& massType, int valueType) {
  return Write(Data().Find(massType), &protocol::MassType::precisionValueType, valueType,
               IsZeroOrOne(valueType));
}

double KorWBAllDataBuffer::GetLowerPrecision(const KorUnicodeString& massType) const {
  return Read(Data().Find(massType), &protocol::MassType::lowerPrecision);
}

double KorWBAllDataBuffer::GetUpperPrecision(const KorUnicodeString& massType) const {
  return Read(Data().Find(massType), &protocol::MassType::upperPrecision);
}

HRESULT KorWBAllDataBuffer::SetLowerPrecision(const KorUnicodeString& massType, double bound) {
  return Write(Data().Find(massType), &protocol::MassType::lowerPrecision, bound, std::isfinite(bound));
}

HRESULT KorWBAllDataBuffer::SetUpperPrecision(const KorUnicodeString& massType, double bound) {
  return Write(Data().Find(massType), &protocol::MassType::upperPrecision, bound, std::isfinite(bound));
}

double KorWBAllDataBuffer::GetMassTypeLowerPrecision(const KorUnicodeString& massType) const {
  return Read(Data().Find(massType), &protocol::MassType::massTypeLowerPrecision);
}

double KorWBAllDataBuffer::GetMassTypeUpperPrecision(const KorUnicodeString& massType) const {
  return Read(Data().Find(massType), &protocol::MassType::massTypeUpperPrecision);
}
