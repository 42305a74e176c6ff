#include <QApplication>
#include <QStatusBar>

#include "desktop/app/PdmCommands.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

TEST_F(WindowTest, SaysThatTheServerComputesWhileItDoes) {
  QString during;
  bool waits = false;
  ScriptedTransport server;
  server.answer = [&](auto&...) {
    during = window.statusBar()->currentMessage();
    waits = QApplication::overrideCursor() != nullptr;
    return std::string();
  };
  VARIANT request, reply;
  RunServerCode("WBComputeNymValues", request, reply);
  EXPECT_EQ(during, QString::fromUtf8("The server computes\u2026"));
  EXPECT_TRUE(waits);
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(WindowTest, SaysThatTheServerWorksForACommandWithoutATextOfItsOwn) {
  QString during;
  ScriptedTransport server;
  server.answer = [&](auto&...) {
    during = window.statusBar()->currentMessage();
    return std::string();
  };
  VARIANT request, reply;
  RunServerCode("SomethingNew", request, reply);
  EXPECT_EQ(during, QString::fromUtf8("The server is working\u2026"));
}

}  // namespace
}  // namespace desktop::test
