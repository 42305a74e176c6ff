#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <QByteArray>

#include "desktop/app/UserName.h"

namespace desktop::test {
namespace {

class UserNameTest : public testing::Test {
 protected:
  void TearDown() override {
    qputenv("USER", _user);
    qputenv("LOGNAME", _logName);
  }

 private:
  QByteArray _user = qgetenv("USER");
  QByteArray _logName = qgetenv("LOGNAME");
};

TEST_F(UserNameTest, IsTheOneThatTheEnvironmentTellsOf) {
  qputenv("USER", "eva");
  EXPECT_EQ(UserName(), "eva");
}

TEST_F(UserNameTest, IsThatOfTheAccountWhenTheEnvironmentTellsOfNone) {
  qunsetenv("USER");
  qunsetenv("LOGNAME");
  EXPECT_EQ(UserName(), getpwuid(geteuid())->pw_name);
}

}  // namespace
}  // namespace desktop::test
