#include "desktop/toolkit/views/FrameView.h"

#include <QFrame>

#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

QWidget* MakeFrame(unsigned style, QWidget* parent) {
  if (style == KorDlgStyle::kTitledFrame) return new QGroupBox(parent);
  if (style != KorDlgStyle::kBorderedFrame) return new QWidget(parent);
  auto* frame = new QFrame(parent);
  frame->setFrameShape(QFrame::StyledPanel);
  return frame;
}

}  // namespace

FrameView::FrameView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, MakeFrame(model.Style(), parent)),
      _grid(Qt(),
            model.Style() == KorDlgStyle::kPlainFrame ? QtGrid::Margins::None : QtGrid::Margins::Frame) {}

void FrameView::ShowTitle() {
  if (auto* group = qobject_cast<QGroupBox*>(Qt())) group->setTitle(Literal(Model().GetTitle()));
}

}  // namespace desktop
