#include "services/KorWBAllDataBuffer.h"

#include <cmath>

#include "services/KorWBBufferContent.h"

KorUnicodeString KorWBAllDataBuffer::GetMaterialName() const { return Data().data.material.name; }

HRESULT KorWBAllDataBuffer::SetMaterialName(const KorUnicodeString& name) {
  Data().data.material.name = name.Utf8();
  return S_OK;
}

double KorWBAllDataBuffer::GetDensity() const { return Data().data.material.density.value_or(0); }

bool KorWBAllDataBuffer::IsDensityDefined() const { return Data().data.material.density.has_value(); }

HRESULT KorWBAllDataBuffer::SetDensity(double density) {
  if (!std::isfinite(density)) return E_FAIL;
  Data().data.material.density = density;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetDensityDefined(bool defined) {
  std::optional<double>& density = Data().data.material.density;
  density = defined ? std::optional(density.value_or(0)) : std::nullopt;
  return S_OK;
}

int KorWBAllDataBuffer::GetDensityPriority() const { return Data().data.material.densityPriority; }

HRESULT KorWBAllDataBuffer::SetDensityPriority(int priority) {
  if (priority != 0 && priority != 1) return E_FAIL;
  Data().data.material.densityPriority = priority;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetMaterialStatistics(KorListValKorUnicodeString& names,
                                                  std::vector<double>& densities,
                                                  std::vector<int>& kinds) const {
  names.RemoveAll();
  densities.clear();
  kinds.clear();
  for (const protocol::MaterialStatistic& statistic : Data().data.material.statistics) {
    names.Append(statistic.name);
    densities.push_back(statistic.density);
    kinds.push_back(statistic.kind);
  }
  return S_OK;
}
