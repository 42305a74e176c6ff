#include "desktop/toolkit/views/TabContainerView.h"

#include <QSignalBlocker>
#include <QTabBar>

#include "desktop/toolkit/MarkIcon.h"
#include "desktop/toolkit/QtBackend.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {

TabContainerView::TabContainerView(QtBackend& backend, KorDlgObject& model, QWidget* parent)
    : QtViewOf(backend, model, new QTabWidget(parent)) {
  QObject::connect(Qt(), &QTabWidget::currentChanged, this, [this](int tab) {
    QtView* picked = nullptr;
    int index = 0;
    for (; Model().GetPage(index) && !picked; ++index) {
      QtView* view = Backend().ViewOf(*Model().GetPage(index));
      if (view && view->Qt() == Qt()->widget(tab)) picked = view;
    }
    if (picked) Act([&] { Model().Pick(index - 1); }, KorDlgProperty::Selection);
  });
}

void TabContainerView::Place(QtView& child) {
  const QSignalBlocker quiet(Qt());
  if (Qt()->indexOf(child.Qt()) < 0) Qt()->addTab(child.Qt(), {});
}

void TabContainerView::Show(KorDlgProperty property) {
  if (property == KorDlgProperty::Selection) return ShowPages();
  QtView::Show(property);
}

void TabContainerView::ShowPages() {
  // Qt brings another tab to the front when the current one is disabled or hidden; which page is in front is
  // the container's to say, so that comes last and its tab stays enabled.
  const QSignalBlocker quiet(Qt());
  for (int i = 0; KorDlgTabPage* page = Model().GetPage(i); ++i) ShowTab(*page);
}

void TabContainerView::ShowTab(KorDlgTabPage& page) {
  QtView* view = Backend().ViewOf(page);
  const int tab = view ? Qt()->indexOf(view->Qt()) : -1;
  if (tab < 0) return;
  const bool front = Model().GetPage(Model().GetSelectedPage()) == &page;
  ShowTexts(tab, page);
  Qt()->setTabVisible(tab, page.IsShown() || front);
  Qt()->setTabEnabled(tab, page.IsEnabled() || front);
  view->Qt()->setEnabled(page.IsEnabled());
  if (front && Qt()->currentIndex() != tab) Qt()->setCurrentIndex(tab);
}

void TabContainerView::ShowTexts(int tab, const KorDlgTabPage& page) {
  const QString marking = ToQt(page.GetMarking());
  Qt()->setTabText(tab, Literal(page.GetTitle()));
  QStringList lines{marking, ToQt(page.GetShortHelp())};
  lines.removeAll(QString());
  Qt()->setTabToolTip(tab, AsWrappedTip(lines));
  Qt()->tabBar()->setAccessibleTabName(
      tab, marking.isEmpty() ? QString() : ToQt(page.GetTitle()) + ": " + marking);
  if (marking.isEmpty() != Qt()->tabIcon(tab).isNull())
    Qt()->setTabIcon(tab, marking.isEmpty() ? QIcon() : MarkIcon(Qt()->iconSize().height()));
}

}  // namespace desktop
