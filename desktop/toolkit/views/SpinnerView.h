#pragma once

#include "desktop/toolkit/QtView.h"
#include "desktop/toolkit/TextSpinBox.h"
#include "framework/dialog/KorDlgSpinner.h"

namespace desktop {

class SpinnerView : public QtViewOf<KorDlgSpinner, TextSpinBox> {
 public:
  SpinnerView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  ~SpinnerView() override;
  void Show(KorDlgProperty property) override;

 private:
  void ShowArrows();
};

}  // namespace desktop
