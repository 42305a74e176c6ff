#include "services/KorWBAllDataBuffer.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "services/KorLumWBCSCommonDefinitions.h"
#include "services/KorWBBufferContent.h"

namespace {

using protocol::MassTypeStatus;

// Status numbers are the wire's.
static_assert(KorWBAllDataBuffer::kNotDefined == static_cast<int>(MassTypeStatus::Undefined));
static_assert(KorWBAllDataBuffer::kDefined == static_cast<int>(MassTypeStatus::Defined));
static_assert(KorWBAllDataBuffer::kOutOfDate == static_cast<int>(MassTypeStatus::OutOfDate));

KorMath3x3Matrix MatrixFrom(const protocol::Tensor& t) {
  const auto [xx, yy, zz, xy, xz, yz] = t;
  return {xx, xy, xz, xy, yy, yz, xz, yz, zz};
}

protocol::Tensor TensorFrom(const KorMath3x3Matrix& m) {
  return {m.GetCoef(1, 1), m.GetCoef(2, 2), m.GetCoef(3, 3),
          m.GetCoef(1, 2), m.GetCoef(1, 3), m.GetCoef(2, 3)};
}

bool AllFinite(const double* values, std::size_t count) {
  return std::all_of(values, values + count, [](double value) { return std::isfinite(value); });
}

}  // namespace

KorListValKorUnicodeString KorWBAllDataBuffer::GetMassTypeList() const {
  KorListValKorUnicodeString names;
  for (const protocol::MassType& massType : Data().data.massTypes) names.Append(massType.name);
  return names;
}

KorUnicodeString KorWBAllDataBuffer::GetActiveMassType() const { return Data().data.activeMassType; }

HRESULT KorWBAllDataBuffer::SetActiveMassType(const KorUnicodeString& massType) {
  if (!Data().Find(massType)) return E_FAIL;
  Data().data.activeMassType = massType.Utf8();
  return S_OK;
}

int KorWBAllDataBuffer::GetMassTypeDefined(const KorUnicodeString& massType) const {
  int status = kNotDefined;
  GetMassTypeDefined(massType, status);
  return status;
}

HRESULT KorWBAllDataBuffer::GetMassTypeDefined(const KorUnicodeString& massType, int& status) const {
  if (const protocol::MassType* found = Data().Find(massType)) {
    status = static_cast<int>(found->status);
    return S_OK;
  }
  if (massType != KorLumWBCSCommonDefinitions::Computed) return E_FAIL;
  status = kNotDefined;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::SetMassTypeDefined(const KorUnicodeString& massType, bool defined) {
  protocol::MassType* found = Data().Find(massType);
  if (!found) return E_FAIL;
  using protocol::MassTypeStatus;
  found->status = defined ? MassTypeStatus::Defined : MassTypeStatus::Undefined;
  return S_OK;
}

double KorWBAllDataBuffer::GetMass(const KorUnicodeString& massType) const {
  const protocol::MassType* found = Data().Find(massType);
  return found ? found->mass.value_or(0) : 0;
}

bool KorWBAllDataBuffer::HasMass(const KorUnicodeString& massType) const {
  const protocol::MassType* found = Data().Find(massType);
  return found && found->mass;
}

HRESULT KorWBAllDataBuffer::SetMass(const KorUnicodeString& massType, double mass) {
  protocol::MassType* found = Data().Find(massType);
  if (!found || !std::isfinite(mass)) return E_FAIL;
  found->mass = mass;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::RemoveMass(const KorUnicodeString& massType) {
  protocol::MassType* found = Data().Find(massType);
  if (!found) return E_FAIL;
  found->mass.reset();
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetLowerDeviation(const KorUnicodeString& massType, double& deviation) const {
  const protocol::MassType* found = Data().Find(massType);
  if (!found) return E_FAIL;
  deviation = found->lowerDeviation;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetUpperDeviation(const KorUnicodeString& massType, double& deviation) const {
  const protocol::MassType* found = Data().Find(massType);
  if (!found) return E_FAIL;
  deviation = found->upperDeviation;
  return S_OK;
}

std::unique_ptr<double[]> KorWBAllDataBuffer::GetCG(const KorUnicodeString& massType) const {
  const protocol::MassType* found = Data().Find(massType);
  if (!found || !Data().CgOf(*found)) return nullptr;
  const Content::Coordinates& stored = *Data().CgOf(*found);
  auto cg = std::make_unique<double[]>(stored.size());
  std::copy(stored.begin(), stored.end(), cg.get());
  return cg;
}

HRESULT KorWBAllDataBuffer::SetCG(const KorUnicodeString& massType, const double* cg) {
  protocol::MassType* found = Data().Find(massType);
  if (!found || !cg || !AllFinite(cg, 3)) return E_FAIL;
  Data().SetCg(*found, cg);
  return S_OK;
}

HRESULT KorWBAllDataBuffer::RemoveCG(const KorUnicodeString& massType) {
  protocol::MassType* found = Data().Find(massType);
  if (!found) return E_FAIL;
  Data().RemoveCg(*found);
  return S_OK;
}

std::unique_ptr<KorMath3x3Matrix> KorWBAllDataBuffer::GetInertia(const KorUnicodeString& massType) const {
  const protocol::MassType* found = Data().Find(massType);
  if (!found || !found->inertia) return nullptr;
  return std::make_unique<KorMath3x3Matrix>(MatrixFrom(*found->inertia));
}

HRESULT KorWBAllDataBuffer::SetInertia(const KorUnicodeString& massType, const KorMath3x3Matrix& inertia) {
  protocol::MassType* found = Data().Find(massType);
  const protocol::Tensor tensor = TensorFrom(inertia);
  if (!found || !AllFinite(tensor.data(), tensor.size())) return E_FAIL;
  found->inertia = tensor;
  return S_OK;
}

HRESULT KorWBAllDataBuffer::RemoveInertia(const KorUnicodeString& massType) {
  protocol::MassType* found = Data().Find(massType);
  if (!found) return E_FAIL;
  found->inertia.reset();
  return S_OK;
}

HRESULT KorWBAllDataBuffer::GetMassTypeValues(const KorUnicodeString& massType,
                                              std::unique_ptr<KorMath3x3Matrix>& inertia,
                                              std::unique_ptr<double[]>& cg, double& mass) const {
  if (!Data().Find(massType)) return E_FAIL;
  inertia = GetInertia(massType);
  cg = GetCG(massType);
  mass = GetMass(massType);
  return S_OK;
}
