#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

class RootCommands : public ServerFixture {
 protected:
  std::string SetTo(const std::string& product) {
    return Run("LumSetCurrentRoot", protocol::WriteRootRequest({product}));
  }

  std::string Current() { return Run("LumGetCurrentRoot"); }
};

constexpr char kNone[] = "CurrentRoot/1|0||end";

TEST_F(RootCommands, HaveNoRootUntilOneIsSet) {
  ImportBoxes();
  EXPECT_EQ(Current(), kNone);
  EXPECT_EQ(SetTo("top"), "CurrentRoot/1|1|top|top|top|end");
  EXPECT_EQ(Current(), "CurrentRoot/1|1|top|top|top|end");
  EXPECT_EQ(SetTo(""), kNone);
  EXPECT_EQ(Current(), kNone);
}

TEST_F(RootCommands, TellTheRootPartAndItsNameForPeople) {
  ImportOptions options;
  options.product = "Machine 1";
  Import("parent,child\nmachine,a\n", "part,name,mass [kg]\nmachine,The machine,\na,,1\n", options);
  EXPECT_EQ(SetTo("Machine 1"), "CurrentRoot/1|1|machine|Machine 1|The machine|end");
}

TEST_F(RootCommands, KeepTheRootWhenAnUnknownProductIsToBeSet) {
  ImportBoxes();
  SetTo("top");
  EXPECT_EQ(SetTo("nobody"), "LumiraError: there is no product \"nobody\"");
  EXPECT_EQ(Run("LumSetCurrentRoot", "RootRequest/1|top"),
            "LumiraError: RootRequest: field 3 (end) is missing, the text ends after field 2");
  EXPECT_EQ(Current(), "CurrentRoot/1|1|top|top|top|end");
}

TEST_F(RootCommands, AreOfOneSessionOnly) {
  ImportBoxes();
  Server other(*store);
  SetTo("top");
  EXPECT_EQ(other.Run("LumGetCurrentRoot", ""), kNone);
}

TEST_F(RootCommands, HaveNoRootAnyMoreWhenTheProductHasVanished) {
  ImportBoxes();
  SetTo("top");
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("PRAGMA foreign_keys = ON; DELETE FROM products");
  EXPECT_EQ(Current(), kNone);
  ImportBoxes();
  EXPECT_EQ(Current(), kNone) << "another product of the name is not the one that was set";
}

TEST_F(RootCommands, SayWhyARootCannotBeRead) {
  ImportBoxes();
  SetTo("top");
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("DELETE FROM roots");
  EXPECT_THAT(Current(), testing::HasSubstr("product \"top\" has no root part"));
  EXPECT_THAT(SetTo("top"), testing::HasSubstr("product \"top\" has no root part"));
}

TEST_F(RootCommands, TakeNoRequestWhereNoneIsDue) {
  EXPECT_EQ(Run("LumGetCurrentRoot", "x"), "LumiraError: the request should be empty, it is \"x\"");
  EXPECT_EQ(Run("LumGetFindings", "x"), "LumiraError: the request should be empty, it is \"x\"");
}

}  // namespace
}  // namespace lumira::test
