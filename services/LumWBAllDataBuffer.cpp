#include "services/LumWBAllDataBuffer.h"

#include "services/KorWBBufferContent.h"

LumWBAllDataBuffer::LumWBAllDataBuffer() = default;

LumWBAllDataBuffer::~LumWBAllDataBuffer() = default;

LumWBAllDataBuffer* LumWBAllDataBuffer::Of(KorWBAllDataBuffer* buffer) {
  return dynamic_cast<LumWBAllDataBuffer*>(buffer);
}

HRESULT LumWBAllDataBuffer::GetInstancePath(KorUnicodeString& path) const {
  path = Data().data.instancePath;
  return S_OK;
}

bool LumWBAllDataBuffer::HasInstInLUMIRA() const { return Data().data.hasInstance; }

bool LumWBAllDataBuffer::IsStandatadPart() const { return Data().data.standardPart; }

HRESULT LumWBAllDataBuffer::SetStandardPart(bool standard) {
  Data().data.standardPart = standard;
  return S_OK;
}

HRESULT LumWBAllDataBuffer::GetAppliedOnObject(KorUnicodeString& object) const {
  object = Data().data.material.appliedOn;
  return S_OK;
}

HRESULT LumWBAllDataBuffer::SetAppliedOnObject(const KorUnicodeString& object) {
  Data().data.material.appliedOn = object.Utf8();
  return S_OK;
}

HRESULT LumWBAllDataBuffer::GetPartRefWBMaterialName(KorUnicodeString& name) const {
  name = Data().data.material.referenceName;
  return S_OK;
}

HRESULT LumWBAllDataBuffer::GetPartRefWBDensity(double& density) const {
  density = Data().data.material.referenceDensity.value_or(0);
  return S_OK;
}
