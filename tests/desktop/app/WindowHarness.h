#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <initializer_list>

#include "desktop/app/ImportDialog.h"
#include "desktop/app/MainWindow.h"
#include "desktop/toolkit/HeadlessBoxes.h"
#include "framework/dialog/KorDlgMultiList.h"

namespace desktop::test {

/// The main window on a fresh sample product, with boxes that are recorded and settings of its own.
class WindowTest : public ::testing::Test {
 protected:
  WindowTest();
  ~WindowTest() override;
  void SetUp() override;
  void TearDown() override;

  /// The product file of this test.
  QString File() const { return folder.filePath("iea15.lumira"); }
  /// Selects a part of the sample by its instances below the root, such as {"nacelle.1", "Above_yaw.1"}.
  void Select(const std::vector<std::string>& instancePath);
  /// Selects several, the last of them as the current one.
  void SelectAll(const std::vector<std::vector<std::string>>& instancePaths);
  void OpenPanelOnAboveYaw();
  KorDlgDialog& OpenFilterPanel();
  /// A widget of the open filter panel by its place below "MainFrame".
  template <class Widget>
  Widget& InFilterPanel(const std::string& path) {
    return window.FilterPanel().Panel()->Find<Widget>("TabContainer001.TabPage001.MainFrame." + path);
  }
  /// Chooses a configuration filter of the product in the filter panel and presses OK.
  void ChooseFilter(const std::string& name);
  /// The rows of the filter panel's list, cells joined by ", ", hidden columns included.
  std::vector<std::string> FilterRows();
  /// Puts a second product, "Car" with the instance "wheel.1", into the product file and opens that anew.
  void AddSecondProduct();
  /// Works the import dialog with tables of a product "cart": presses the buttons and closes it. The first
  /// word of what it reports after each.
  QStringList WorkTheImportDialog(std::initializer_list<QPushButton* (ImportDialog::*)() const> buttons);
  KorDlgDialog& Panel() { return *window.PartPanel().Panel(); }
  /// The text of the only message shown so far; fails when there is none or another one.
  std::string OnlyMessage() const;

  QTemporaryDir folder;
  Settings settings;
  HeadlessBoxes boxes;
  QtBackend backend;
  MainWindow window;
};

}  // namespace desktop::test
