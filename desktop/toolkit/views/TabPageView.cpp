#include "desktop/toolkit/views/TabPageView.h"

#include "desktop/toolkit/QtBackend.h"
#include "desktop/toolkit/views/TabContainerView.h"

namespace desktop {

TabPageView::TabPageView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QWidget(parent)), _grid(Qt(), QtGrid::Margins::Frame) {
  if (QtView* container = backend.ParentView(model)) container->Place(*this);
}

void TabPageView::Show(KorDlgProperty) {
  if (auto* container = dynamic_cast<TabContainerView*>(Backend().ParentView(Model())))
    container->ShowPages();
}

}  // namespace desktop
