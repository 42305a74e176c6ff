#include "tests/desktop/support/QtShownBackend.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <algorithm>

#include "desktop/toolkit/MarkOverlay.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

QString Shown(QString title) { return title.replace("&&", "&"); }

}  // namespace

std::string QtShownBackend::Title(KorDlgObject& widget) {
  QWidget& qt = Qt(widget);
  if (widget.Kind() == KorDlgKind::TabPage) {
    auto& tabs = As<QTabWidget>(*widget.Parent());
    return Shown(tabs.tabText(tabs.indexOf(&qt))).toStdString();
  }
  if (auto* group = qobject_cast<QGroupBox*>(&qt)) return Shown(group->title()).toStdString();
  if (auto* label = qobject_cast<QLabel*>(&qt)) return label->text().toStdString();
  if (auto* button = qobject_cast<QAbstractButton*>(&qt)) return Shown(button->text()).toStdString();
  return qt.windowTitle().toStdString();
}

std::string QtShownBackend::Help(KorDlgObject& widget) {
  return Qt(widget).accessibleDescription().toStdString();
}

std::string QtShownBackend::Marking(KorDlgObject& widget) {
  return MarkOverlay::IsShownOn(Qt(widget)) ? Qt(widget).accessibleDescription().toStdString()
                                            : std::string();
}

std::string QtShownBackend::Text(KorDlgObject& widget) {
  if (auto* spinner = qobject_cast<QAbstractSpinBox*>(&Qt(widget))) return spinner->text().toStdString();
  return As<QLineEdit>(widget).text().toStdString();
}

bool QtShownBackend::Checked(KorDlgObject& widget) { return As<QAbstractButton>(widget).isChecked(); }

std::vector<std::string> QtShownBackend::Lines(KorDlgCombo& combo) {
  auto& box = As<QComboBox>(combo);
  std::vector<std::string> lines;
  for (int i = 0; i < box.count(); ++i) lines.push_back(box.itemText(i).toStdString());
  return lines;
}

int QtShownBackend::Selected(KorDlgObject& comboOrTabs) {
  if (auto* tabs = qobject_cast<QTabWidget*>(&Qt(comboOrTabs))) return tabs->currentIndex();
  return As<QComboBox>(comboOrTabs).currentIndex();
}

std::vector<std::string> QtShownBackend::Rows(KorDlgMultiList& list) {
  _backend.Settle();
  const QAbstractItemModel& model = *As<QTableView>(list).model();
  std::vector<std::string> rows;
  for (int row = 0; row < model.rowCount(); ++row) {
    QStringList cells;
    for (int column = 0; column < model.columnCount(); ++column)
      cells << model.data(model.index(row, column)).toString();
    rows.push_back(cells.join('|').toStdString());
  }
  return rows;
}

std::vector<int> QtShownBackend::SelectedRows(KorDlgMultiList& list) {
  _backend.Settle();
  std::vector<int> rows;
  for (const QModelIndex& index : As<QTableView>(list).selectionModel()->selectedRows())
    rows.push_back(index.row());
  std::sort(rows.begin(), rows.end());
  return rows;
}

void QtShownBackend::Click(KorDlgObject& button) {
  QWidget& qt = Qt(button);
  // Radio and check buttons answer where they are drawn, at the left of what the layout gives them.
  QTest::mouseClick(&qt, Qt::LeftButton, {}, QPoint(10, qt.height() / 2));
}

void QtShownBackend::Enter(KorDlgEditor& editor, const std::string& text) {
  auto& edit = As<QLineEdit>(editor);
  QApplication::setActiveWindow(edit.window());
  edit.setFocus();
  edit.selectAll();
  QTest::keyClicks(&edit, QString::fromStdString(text));
  edit.clearFocus();
}

void QtShownBackend::Choose(KorDlgCombo& combo, int line) {
  auto& box = As<QComboBox>(combo);
  if (!box.isEnabled()) return;
  box.showPopup();
  RunPendingEvents();
  const QModelIndex target = box.model()->index(line, 0);
  box.view()->setCurrentIndex(target);
  QTest::keyClick(box.view(), Qt::Key_Return);
}

void QtShownBackend::ClickTab(KorDlgTabContainer& tabs, int page) {
  QTabBar* bar = As<QTabWidget>(tabs).tabBar();
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(page).center());
}

void QtShownBackend::ClickUp(KorDlgSpinner& spinner) { QTest::keyClick(&Qt(spinner), Qt::Key_Up); }

void QtShownBackend::ClickDown(KorDlgSpinner& spinner) { QTest::keyClick(&Qt(spinner), Qt::Key_Down); }

void QtShownBackend::SelectRows(KorDlgMultiList& list, const std::vector<int>& rows) {
  _backend.Settle();
  RunPendingEvents();
  auto& table = As<QTableView>(list);
  for (std::size_t i = 0; i < rows.size(); ++i)
    QTest::mouseClick(table.viewport(), Qt::LeftButton, i ? Qt::ControlModifier : Qt::NoModifier,
                      table.visualRect(table.model()->index(rows[i], 0)).center());
}

void QtShownBackend::CloseWindow(KorDlgDialog& dialog) { Qt(dialog).close(); }

}  // namespace desktop::test
