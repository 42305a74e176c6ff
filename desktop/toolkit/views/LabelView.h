#pragma once

#include <QLabel>

#include "desktop/toolkit/QtView.h"
#include "framework/dialog/KorDlgLabel.h"

namespace desktop {

/// A label; the status lamps among them are drawn with a coloured lamp before the text. A label without a
/// title is the room between others.
class LabelView : public QtViewOf<KorDlgLabel, QLabel> {
 public:
  LabelView(QtBackend& backend, KorDlgObject& model, QWidget* parent);

 protected:
  void ShowTitle() override;
};

}  // namespace desktop
