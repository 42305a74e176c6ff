#include "module/shared/KorWBNymNavReferenceFrame.h"

#include <algorithm>
#include <array>

#include "framework/dialog/KorDlgEditor.h"
#include "module/shared/KorWBNymNavMessages.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorWBServices.h"

namespace {

template <std::size_t N>
std::array<double, N> ValuesOf(std::span<KorDlgEditor* const, N> editors) {
  std::array<double, N> values;
  std::transform(editors.begin(), editors.end(), values.begin(), [](auto* one) { return one->GetValue(); });
  return values;
}

/// The values as they were read, whatever the subscribers that are told of the writing do to the editors.
template <std::size_t N>
std::array<double, N> ReadAndWriteBack(std::span<KorDlgEditor* const, N> editors) {
  std::array<double, N> values;
  for (std::size_t i = 0; i < N; ++i) {
    values[i] = editors[i]->GetValue();
    editors[i]->SetValue(values[i], KorNotify::Send);
  }
  return values;
}

/// From coordinates in the current length unit.
KorMathPoint PointFrom(const std::array<double, 3>& shown) {
  const auto restored = [](double length) {
    return KorWBServices::RestoreValue(length, KorWBNymNavUnitDisplay::kLength);
  };
  return {restored(shown[0]), restored(shown[1]), restored(shown[2])};
}

KorMath3x3Matrix MatrixFrom(const std::array<double, 9>& byRows) {
  KorMath3x3Matrix matrix;
  matrix.SetCoefficients(byRows);
  return matrix;
}

template <class Value>
void Assign(Value*& target, const Value& value) {
  if (target)
    *target = value;
  else
    target = new Value(value);
}

}  // namespace

KorMathPoint KorWBNymNavReferenceFrame::ReadPoint() const { return PointFrom(ValuesOf(point)); }

KorMath3x3Matrix KorWBNymNavReferenceFrame::ReadAxes() const { return MatrixFrom(ValuesOf(axes)); }

void KorWBNymNavReferenceFrame::WriteBackPoint() const { ReadAndWriteBack(point); }

void KorWBNymNavReferenceFrame::WriteBackAxes() const { ReadAndWriteBack(axes); }

void KorWBNymNavReferenceFrame::GetCustomRefModeValues(KorMathPoint& customPoint,
                                                       KorMath3x3Matrix& customAxes) const {
  customPoint = ReadPoint();
  customAxes = ReadAxes();
}

void KorWBNymNavReferenceFrame::GetCustomRefModeValues(KorMathPoint*& customPoint,
                                                       KorMath3x3Matrix*& customAxes) const {
  Assign(customPoint, PointFrom(ReadAndWriteBack(point)));
  Assign(customAxes, MatrixFrom(ReadAndWriteBack(axes)));
}

KorWBNymNavReferenceFrame::Verdict KorWBNymNavReferenceFrame::Check(const KorMath3x3Matrix& axes) {
  if (axes.Determinant() == 0.0) return Verdict::Singular;
  KorMath3x3Matrix inverse;
  return axes.Invert(inverse) ? Verdict::Usable : Verdict::NotInvertible;
}

bool KorWBNymNavReferenceFrame::CheckAndReport(const KorMath3x3Matrix& axes, KorDlgDialog* panel,
                                               const KorString& catalogue,
                                               const KorString& titleWhenNotInvertible) {
  const KorWBNymNavMessages messages{panel, catalogue};
  switch (Check(axes)) {
    case Verdict::Usable:
      return true;
    case Verdict::Singular:
      messages.Show("InertiaReferenceAxis001.Title", messages.Text("InertiaReferenceAxis001.Message"));
      return false;
    case Verdict::NotInvertible:
      break;
  }
  messages.Show(titleWhenNotInvertible, messages.Text("InertiaReferenceAxis002.Message"));
  return false;
}
