#include <gtest/gtest.h>

#include "desktop/app/PdmCommands.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

TEST(PdmCommands, FailWithoutAServerAndNameTheCommand) {
  KorPdmClient::SetTransport(nullptr);
  const auto products = GetProducts();
  ASSERT_FALSE(products.Ok());
  EXPECT_EQ(products.Failure().message, "no product is open: the command \"LumGetProducts\" was not sent");
}

TEST(PdmCommands, FailWithTheServersMessage) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return protocol::ErrorReply("there is no part \"x\""); };
  const auto children = GetChildren({"x", 0, 10});
  ASSERT_FALSE(children.Ok());
  EXPECT_EQ(children.Failure().message, "there is no part \"x\"");
}

TEST(PdmCommands, FailOnAReplyThatCannotBeRead) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return "nonsense"; };
  const auto products = GetProducts();
  ASSERT_FALSE(products.Ok());
  EXPECT_EQ(products.Failure().kind, protocol::ErrorKind::BadText);
}

TEST(PdmCommands, FailOnAnEmptyReply) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return ""; };
  EXPECT_FALSE(SearchTree({"IEA15", "nose", 10}).Ok());
}

TEST(PdmCommands, GiveTheDataOfAPartAsItCame) {
  ScriptedTransport server;
  server.answer = [](auto&...) { return "whatever the buffer reads"; };
  const auto text = GetPartDataText({});
  ASSERT_TRUE(text.Ok());
  EXPECT_EQ(text.Value(), "whatever the buffer reads");
  EXPECT_EQ(server.commands, std::vector<std::string>{"WBGetPartData"});
}

}  // namespace
}  // namespace desktop::test
