#include "tests/desktop/app/WindowHarness.h"

#include <QApplication>

#include "desktop/app/QtTranslation.h"
#include "desktop/app/SampleProduct.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

/// The window is made before the first line of a test runs.
const struct UseCatalogues {
  UseCatalogues() { KorMsgCatalog::SetFolder(KORVO_SOURCE_DIR "/catalogues"); }
} g_useCatalogues;

}  // namespace

WindowTest::WindowTest()
    : settings(folder.filePath("settings.ini")), backend(&boxes), window(settings, backend) {
  KorApplicationFrame::SetBackend(&backend);
}

WindowTest::~WindowTest() { KorApplicationFrame::SetBackend(nullptr); }

void WindowTest::SetUp() {
  ASSERT_TRUE(KorMsgCatalog::Has("KorvoDesktop", "Title")) << KorMsgCatalog::GetFolder();
  settings.ApplyUnits();
  const auto made = CreateSampleProduct(KORVO_SOURCE_DIR "/samples", File().toStdString());
  ASSERT_TRUE(made.Ok()) << made.Failure().message;
  window.show();
  ASSERT_TRUE(window.OpenProduct(File()));
}

void WindowTest::TearDown() {
  window.PartPanel().Close();
  RunPendingEvents();
  KorMsgCatalog::SetLanguage("en");
  TranslateQt("en");
  settings.ApplyUnits();
}

void WindowTest::Select(const std::vector<std::string>& instancePath) {
  ASSERT_TRUE(window.Select("IEA15", instancePath));
}

void WindowTest::OpenPanelOnAboveYaw() {
  Select({"nacelle.1", "Above_yaw.1"});
  window.ShowPartPanel();
  ASSERT_TRUE(window.PartPanel().IsOpen());
  RunPendingEvents();
  QApplication::setActiveWindow(window.PartPanel().Window());
}

std::string WindowTest::OnlyMessage() const {
  EXPECT_EQ(boxes.Messages().size(), 1u);
  return boxes.Messages().empty() ? std::string() : boxes.Messages().back().text.Utf8();
}

}  // namespace desktop::test
