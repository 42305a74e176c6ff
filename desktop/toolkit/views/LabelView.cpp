#include "desktop/toolkit/views/LabelView.h"

#include <algorithm>
#include <iterator>

#include "desktop/toolkit/Colours.h"
#include "desktop/toolkit/LampLabel.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

struct Lamp {
  const char* name;
  QColor colour;
};

/// Which labels are lamps.
const Lamp kLamps[] = {
    {"FlagRedLabel", colours::kLampRed},
    {"FlagGreenLabel", colours::kLampGreen},
};

QLabel* MakeLabel(const KorDlgObject& model, QWidget* parent) {
  const auto lamp = std::find_if(std::begin(kLamps), std::end(kLamps),
                                 [&](const Lamp& one) { return model.Name() == one.name; });
  return lamp == std::end(kLamps) ? new QLabel(parent) : new LampLabel(lamp->colour, parent);
}

}  // namespace

LabelView::LabelView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, MakeLabel(model, parent)) {
  Qt()->setTextFormat(Qt::PlainText);
  if (model.Style() & KorDlgStyle::kReadOnly) Qt()->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void LabelView::ShowTitle() {
  const QString title = ToQt(Model().GetTitle());
  if (Qt()->text() != title) Qt()->setText(title);
  if (!Partner()) return;
  Qt()->setBuddy(Partner()->Qt());
  Partner()->Show(KorDlgProperty::Title);
}

}  // namespace desktop
