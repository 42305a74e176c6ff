#pragma once

#include <QComboBox>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgCombo.h"

namespace desktop {

class ComboView : public QtViewOf<KorDlgCombo, QComboBox> {
 public:
  ComboView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  void Show(KorDlgProperty property) override;

 private:
  void ShowLines();
};

}  // namespace desktop
