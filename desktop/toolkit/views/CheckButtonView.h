#pragma once

#include <QCheckBox>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgCheckButton.h"

namespace desktop {

class CheckButtonView : public QtViewOf<KorDlgCheckButton, QCheckBox> {
 public:
  CheckButtonView(QtBackend& backend, KorDlgObject& model, QWidget* parent);
  void Show(KorDlgProperty property) override;

 protected:
  void ShowTitle() override;
};

}  // namespace desktop
