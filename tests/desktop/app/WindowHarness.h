#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "desktop/app/MainWindow.h"
#include "desktop/toolkit/HeadlessBoxes.h"

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
  void OpenPanelOnAboveYaw();
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
