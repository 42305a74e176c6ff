#pragma once

#include <QPushButton>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgPushButton.h"

namespace desktop {

class PushButtonView : public QtViewOf<KorDlgPushButton, QPushButton> {
 public:
  PushButtonView(QtBackend& backend, KorDlgObject& model, QWidget* parent);

 protected:
  void ShowTitle() override;
  QString HelpSuffix() const override;

 private:
  void AddShortcut();
};

}  // namespace desktop
