#include "tests/desktop/support/QtApplication.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLoggingCategory>
#include <memory>

#include "desktop/toolkit/Theme.h"

namespace {

class QtEnvironment : public ::testing::Environment {
 public:
  void SetUp() override {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the platform without a display cannot do is no news.
    QLoggingCategory::setFilterRules("qt.qpa.*=false");
    _application = std::make_unique<QApplication>(_count, _arguments);
    desktop::Theme::Apply(desktop::ThemeChoice::Light);
  }
  void TearDown() override { _application.reset(); }

 private:
  int _count = 1;
  char _name[6] = "tests";
  char* _arguments[2] = {_name, nullptr};
  std::unique_ptr<QApplication> _application;
};

[[maybe_unused]] const auto* g_environment = ::testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace

void desktop::test::RunPendingEvents() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
