#include "desktop/toolkit/ViewMakers.h"

#include <algorithm>
#include <iterator>

#include "desktop/toolkit/views/CheckButtonView.h"
#include "desktop/toolkit/views/ComboView.h"
#include "desktop/toolkit/views/DialogView.h"
#include "desktop/toolkit/views/EditorView.h"
#include "desktop/toolkit/views/FrameView.h"
#include "desktop/toolkit/views/LabelView.h"
#include "desktop/toolkit/views/MultiListView.h"
#include "desktop/toolkit/views/PushButtonView.h"
#include "desktop/toolkit/views/RadioButtonView.h"
#include "desktop/toolkit/views/SpinnerView.h"
#include "desktop/toolkit/views/TabContainerView.h"
#include "desktop/toolkit/views/TabPageView.h"

namespace desktop {
namespace {

using Maker = std::unique_ptr<QtView> (*)(QtBackend&, KorDlgObject&, QWidget*);

template <class View>
std::unique_ptr<QtView> Make(QtBackend& backend, KorDlgObject& widget, QWidget* parent) {
  return std::make_unique<View>(backend, widget, parent);
}

struct KindMaker {
  KorDlgKind kind;
  Maker make;
};

constexpr KindMaker kMakers[] = {
    {KorDlgKind::Dialog, Make<DialogView>},
    {KorDlgKind::TabContainer, Make<TabContainerView>},
    {KorDlgKind::TabPage, Make<TabPageView>},
    {KorDlgKind::Frame, Make<FrameView>},
    {KorDlgKind::Label, Make<LabelView>},
    {KorDlgKind::Editor, Make<EditorView>},
    {KorDlgKind::Combo, Make<ComboView>},
    {KorDlgKind::MultiList, Make<MultiListView>},
    {KorDlgKind::RadioButton, Make<RadioButtonView>},
    {KorDlgKind::CheckButton, Make<CheckButtonView>},
    {KorDlgKind::PushButton, Make<PushButtonView>},
    {KorDlgKind::Spinner, Make<SpinnerView>},
};

}  // namespace

std::unique_ptr<QtView> MakeView(QtBackend& backend, KorDlgObject& widget, QWidget* parent) {
  const auto maker = std::find_if(std::begin(kMakers), std::end(kMakers),
                                  [&](const KindMaker& one) { return one.kind == widget.Kind(); });
  return maker->make(backend, widget, parent);
}

}  // namespace desktop
