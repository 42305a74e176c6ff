#include "module/shared/KorWBNymNavReferenceFrame.h"

#include <array>

#include "framework/dialog/KorDlgEditor.h"
#include "module/shared/KorWBNymNavMessages.h"
#include "module/shared/KorWBNymNavUnitDisplay.h"
#include "services/KorWBServices.h"

namespace {

double ReadLength(const KorDlgEditor& editor) {
  return KorWBServices::RestoreValue(editor.GetValue(), KorWBNymNavUnitDisplay::kLength);
}

void WriteBack(std::span<KorDlgEditor* const> editors) {
  for (KorDlgEditor* editor : editors) editor->SetValue(editor->GetValue(), KorNotify::Send);
}

template <class Value>
void Assign(Value*& target, const Value& value) {
  if (target)
    *target = value;
  else
    target = new Value(value);
}

}  // namespace

KorMathPoint KorWBNymNavReferenceFrame::ReadPoint() const {
  return {ReadLength(*point[0]), ReadLength(*point[1]), ReadLength(*point[2])};
}

KorMath3x3Matrix KorWBNymNavReferenceFrame::ReadAxes() const {
  std::array<double, 9> byRows;
  for (std::size_t i = 0; i < byRows.size(); ++i) byRows[i] = axes[i]->GetValue();
  KorMath3x3Matrix matrix;
  matrix.SetCoefficients(byRows);
  return matrix;
}

void KorWBNymNavReferenceFrame::WriteBackPoint() const { WriteBack(point); }

void KorWBNymNavReferenceFrame::WriteBackAxes() const { WriteBack(axes); }

void KorWBNymNavReferenceFrame::GetCustomRefModeValues(KorMathPoint& customPoint,
                                                       KorMath3x3Matrix& customAxes) const {
  customPoint = ReadPoint();
  customAxes = ReadAxes();
}

void KorWBNymNavReferenceFrame::GetCustomRefModeValues(KorMathPoint*& customPoint,
                                                       KorMath3x3Matrix*& customAxes) const {
  WriteBackPoint();
  Assign(customPoint, ReadPoint());
  WriteBackAxes();
  Assign(customAxes, ReadAxes());
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
