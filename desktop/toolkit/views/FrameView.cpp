#include "desktop/toolkit/views/FrameView.h"

#include <QFrame>

#include "desktop/toolkit/QtBackend.h"
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
  if (Model().Children().size() != 1) return;
  // What stands alone in the frame is named by it.
  if (QtView* only = Backend().ViewOf(*Model().Children().front())) only->Show(KorDlgProperty::Title);
}

}  // namespace desktop
