#include <random>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

class ServerCommands : public ServerFixture {};

TEST_F(ServerCommands, UnknownGetAnErrorReply) {
  EXPECT_EQ(Run("WBMakeCoffee"), "LumiraError: there is no command \"WBMakeCoffee\"");
  EXPECT_EQ(Run(""), "LumiraError: there is no command \"\"");
}

TEST_F(ServerCommands, WithRequestsThatCannotBeReadNameTheField) {
  EXPECT_EQ(Run("WBComputeNymValues", "x|a|"),
            "LumiraError: ComputeRequest: field 1 (instance flag): \"x\" is neither 0 nor 1");
  EXPECT_EQ(Run("WBGetPartData", "rubbish"),
            "LumiraError: PartDataRequest: field 1 (form): \"rubbish\" is not \"PartDataRequest/1\"");
  EXPECT_EQ(Run("LumGetChildren", "ChildrenRequest/1|a|0|0|end"),
            "LumiraError: ChildrenRequest: field 4 (limit): \"0\" is not an integer from 1 to 10000");
  EXPECT_EQ(Run("LumSearchTree", "SearchRequest/2|a|b|1|end"),
            "LumiraError: SearchRequest: version \"2\" is not known here, version 1 is");
  EXPECT_EQ(Run("LumGetProducts", "all"), "LumiraError: the request should be empty, it is \"all\"");
  EXPECT_EQ(Run("WBGetPendingWarnings", "all"), "LumiraError: the request should be empty, it is \"all\"");
}

TEST_F(ServerCommands, ForUnknownPartsAndProductsSaySo) {
  ImportBoxes();
  EXPECT_EQ(Run("WBComputeNymValues", "1|nobody|"), "LumiraError: there is no part \"nobody\"");
  EXPECT_EQ(Run("LumGetChildren", "ChildrenRequest/1|nobody|0|10|end"),
            "LumiraError: there is no part \"nobody\"");
  EXPECT_EQ(Run("LumSearchTree", "SearchRequest/1|Nothing|x|10|end"),
            "LumiraError: there is no product \"Nothing\"");
}

TEST_F(ServerCommands, SurviveRandomRequests) {
  ImportBoxes();
  std::mt19937 random(3);
  const std::string alphabet = "|0123456789%:_endtopbx\n\xFF";
  for (const char* command : {"WBComputeNymValues", "WBGetPartData", "LumGetChildren", "LumSearchTree"})
    for (int i = 0; i < 500; ++i) {
      std::string request;
      for (auto n = random() % 30; n > 0; --n) request += alphabet[random() % alphabet.size()];
      EXPECT_TRUE(protocol::IsErrorReply(Run(command, request)));
    }
  EXPECT_EQ(Compute("top").mass, 36);
}

TEST_F(ServerCommands, SeeWhatAnotherSessionImports) {
  ImportBoxes();
  EXPECT_EQ(Compute("top").mass, 36);
  auto other = OpenSqliteStore(file).Value();
  ImportOptions replace;
  replace.existing = Existing::Replace;
  ASSERT_TRUE(
      ImportProduct(*other,
                    {TableSource{"s", "parent,child\ntop,a\n"}, TableSource{"m", "part,mass [kg]\na,5\n"}},
                    replace)
          .Ok());
  EXPECT_EQ(Compute("top").mass, 5);
  EXPECT_EQ(Run("WBComputeNymValues", "1|box|"), "LumiraError: there is no part \"box\"");
}

TEST_F(ServerCommands, ReportProgressOfLongWork) {
  ImportBoxes();
  std::vector<std::string> steps;
  Server watched(*store, [&](std::string_view what, std::size_t, std::size_t) { steps.emplace_back(what); });
  watched.Run("WBComputeNymValues", "1|top|");
  EXPECT_EQ(steps, (std::vector<std::string>{"Loading the product", "Computing", "Computing"}));
}

}  // namespace
}  // namespace lumira::test
