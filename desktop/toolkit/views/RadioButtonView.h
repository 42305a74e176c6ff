#pragma once

#include <QRadioButton>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgRadioButton.h"

namespace desktop {

class RadioButtonView : public QtViewOf<KorDlgRadioButton, QRadioButton> {
 public:
  RadioButtonView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  void Show(KorDlgProperty property) override;

 protected:
  void ShowTitle() override;
};

}  // namespace desktop
