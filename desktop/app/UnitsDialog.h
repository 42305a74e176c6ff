#pragma once

#include <QDialog>
#include <vector>

#include "framework/knowledge/KorUnitSystems.h"

class QComboBox;
class QSpinBox;

namespace desktop {

/// The unit in which each magnitude is shown, by system or one by one, and the digits shown. Takes effect
/// with OK.
class UnitsDialog : public QDialog {
 public:
  explicit UnitsDialog(QWidget* parent = nullptr);
  void accept() override;

  QComboBox* SystemCombo() const { return _system; }
  /// The choice of one magnitude; null when there is none of that name.
  QComboBox* UnitCombo(const KorString& magnitude) const;
  QSpinBox* DigitsBox() const { return _digits; }

 private:
  struct MagnitudeRow {
    KorCkeMagnitude_var magnitude;
    QComboBox* unit;
  };

  QWidget* MakeRows();
  void ChooseSystem(int index);
  /// Shows the system that the choices make up, "own choice" when there is none.
  void ShowSystem();

  QComboBox* _system;
  QSpinBox* _digits;
  std::vector<MagnitudeRow> _rows;
};

}  // namespace desktop
