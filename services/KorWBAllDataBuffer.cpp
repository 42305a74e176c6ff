#include "services/KorWBAllDataBuffer.h"

#include <algorithm>

#include "services/KorWBBufferContent.h"
#include "services/KorWBLengths.h"

KorWBAllDataBuffer::KorWBAllDataBuffer() : _content(std::make_unique<Content>()) {}

KorWBAllDataBuffer::~KorWBAllDataBuffer() = default;

HRESULT KorWBAllDataBuffer::GetPartIdentifier(KorUnicodeString& identifier) const {
  identifier = Data().data.partId;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetConfigurationHandler(KorUnicodeString& handler) const {
  handler = Data().data.configurationHandler;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetFilter(const KorUnicodeString& filter) {
  Data().data.filter = filter.Utf8();
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetFilter(KorUnicodeString& filter) const {
  filter = Data().data.filter;
  return S_OK;
}

std::vector<double> KorWBAllDataBuffer::GetPlacement() const {
  constexpr std::ptrdiff_t kRotationCoefficients = 9;
  std::vector<double> placement = Data().data.placement;
  if (placement.empty()) return placement;
  const auto translation = placement.begin() + kRotationCoefficients;
  std::transform(translation, placement.end(), translation, KorMillimetresFromMetres);
  return placement;
}

HRESULT KorWBAllDataBuffer::GetCalculationUpToDate(bool& upToDate) const {
  upToDate = Data().data.computed;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetCalculationUpToDate(bool upToDate) {
  Data().data.computed = upToDate;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::IsPersisted(bool& persisted) const {
  persisted = Data().data.persisted;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetPreComputeSwitch(bool mayReuseStoredResults) {
  Data().mayReuseStoredResults = mayReuseStoredResults;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetReferenceInertiaMode(bool atReference) {
  Data().data.referenceInertiaMode = atReference;
  return S_OK;
}

bool KorWBAllDataBuffer::GetReferenceInertiaMode() const { return Data().data.referenceInertiaMode; }

bool KorWBAllDataBuffer::IsComputableWithUserMassType() const { return Data().computableWithUserMassType; }

HRESULT KorWBAllDataBuffer::SetComputableWithUserMassType(bool computable) {
  Data().computableWithUserMassType = computable;
  return S_OK;
}
