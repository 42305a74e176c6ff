#include "module/shared/KorWBNymNavMassValues.h"

#include "services/KorWBServices.h"

namespace {

constexpr double kMetresPerMillimetre = 0.001;
constexpr bool kFromCentreOfGravity = true;

KorWBNymNavMassValues ValuesOf(double mass, const double* cg, const KorMath3x3Matrix* inertia) {
  KorWBNymNavMassValues values;
  values.mass = mass;
  if (cg) values.cg = KorMathPoint(cg[0], cg[1], cg[2]);
  if (inertia) values.inertia = *inertia;
  return values;
}

}  // namespace

KorWBNymNavMassValues KorWBNymNavMassValues::Read(const KorWBAllDataBuffer& buffer,
                                                  const KorUnicodeString& massType) {
  std::unique_ptr<KorMath3x3Matrix> inertia;
  std::unique_ptr<double[]> cg;
  double mass = 0;
  buffer.GetMassTypeValues(massType, inertia, cg, mass);
  return ValuesOf(mass, cg.get(), inertia.get());
}

KorWBNymNavMassValues KorWBNymNavMassValues::ReadEach(const KorWBAllDataBuffer& buffer,
                                                      const KorUnicodeString& massType) {
  return ValuesOf(buffer.GetMass(massType), buffer.GetCG(massType).get(), buffer.GetInertia(massType).get());
}

void KorWBNymNavMassValues::MoveInertiaTo(const KorMathPoint& point) {
  MoveInertia(point, kFromCentreOfGravity);
}

void KorWBNymNavMassValues::MoveInertiaBackFrom(const KorMathPoint& point) {
  MoveInertia(point, !kFromCentreOfGravity);
}

void KorWBNymNavMassValues::MoveInertia(const KorMathPoint& point, bool fromCentreOfGravity) {
  KorWBServices::ConvertInertiaMatrix(*inertia, mass, kMetresPerMillimetre * *cg,
                                      kMetresPerMillimetre * point, fromCentreOfGravity);
}
