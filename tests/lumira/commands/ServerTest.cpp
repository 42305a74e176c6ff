#include <algorithm>
#include <map>
#include <random>

#include "ServerFixture.h"
#include "Variations.h"

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

struct VariedCommand {
  std::string_view name;
  std::string request;
  bool (*canBeRead)(std::string_view reply);
};

const VariedCommand kVariedCommands[] = {
    {protocol::kCommandComputePart, "1|top|ComputeOptions/1|0%7CKit|0|1||end",
     [](std::string_view reply) { return protocol::ReadComputeReply(reply).Ok(); }},
    {protocol::kCommandPartData, "PartDataRequest/1|top|box|1|left|0%7CKit|end",
     [](std::string_view reply) { return protocol::ReadPartData(reply).Ok(); }},
    {protocol::kCommandChildren, "ChildrenRequest/1|box|0|10|end",
     [](std::string_view reply) { return protocol::ReadTreeNodes(reply).Ok(); }},
    {protocol::kCommandSearch, "SearchRequest/1|top|bolt|10|end",
     [](std::string_view reply) { return protocol::ReadSearchReply(reply).Ok(); }},
    {protocol::kCommandComputePart, "1|top|ComputeOptions/1|1%7C1%7Cbolts%7Cbolt%7C%7C1%7Cleft|0|1||end",
     [](std::string_view reply) { return protocol::ReadComputeReply(reply).Ok(); }},
    {protocol::kCommandSetCurrentRoot, "RootRequest/1|top|end",
     [](std::string_view reply) { return protocol::ReadCurrentRoot(reply).Ok(); }},
    {protocol::kCommandFilters, "FiltersRequest/1|1|top|1|top|end",
     [](std::string_view reply) { return protocol::ReadFilterList(reply).Ok(); }},
    {protocol::kCommandHandler, "HandlerRequest/1|top|end",
     [](std::string_view reply) { return protocol::ReadConfigurationHandler(reply).Ok(); }},
    {protocol::kCommandSetHandler, "ConfigurationHandler/1|top|__null__|end",
     [](std::string_view reply) { return protocol::ReadConfigurationHandler(reply).Ok(); }},
    {protocol::kCommandHistory, "HistoryRequest/1|box|0|10|end",
     [](std::string_view reply) { return protocol::ReadHistory(reply).Ok(); }},
};

TEST_F(ServerCommands, AnswerVariedRequestsReadablyAndChangeNothing) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Kit", {"left"})).Ok());
  const Product before = store->LoadProduct("top").Value();
  const std::int64_t state = store->Products().Value()[0].state;
  std::mt19937 random(3);
  int answered = 0, refused = 0;
  for (const VariedCommand& command : kVariedCommands) {
    ASSERT_TRUE(command.canBeRead(Run(command.name, command.request))) << command.name;
    for (int i = 0; i < 1'000; ++i) {
      const std::string request = Varied(command.request, random);
      const std::string reply = Run(command.name, request);
      ++(protocol::IsErrorReply(reply) ? refused : answered);
      EXPECT_NE(protocol::IsErrorReply(reply), command.canBeRead(reply)) << request;
    }
  }
  EXPECT_GT(answered, 100);
  EXPECT_GT(refused, 1'000);
  EXPECT_EQ(store->LoadProduct("top").Value(), before);
  EXPECT_EQ(store->Products().Value().size(), 1u);
  EXPECT_EQ(store->Products().Value()[0].state, state);
  EXPECT_EQ(store->LoadFilters("top").Value(),
            (std::vector<ConfigurationFilter>{LeavingOut("Kit", {"left"})}));
  // A request may have become one without a filter; what is stored then is right.
  const std::map<std::string, double> masses = {{"top", 36}, {"box", 18}, {"bolt", 2}, {"plate", 10}};
  const auto results = store->LoadResults("top").Value();
  for (const StoredResult& result : results)
    EXPECT_EQ(result.computed.properties.mass, masses.at(result.partId)) << result.partId;
}

TEST_F(ServerCommands, SeeWhatAnotherSessionComputes) {
  ImportBoxes();
  const auto otherStore = OpenSqliteStore(file).Value();
  Server other(*otherStore), sharing(*store);
  const auto statusFor = [](Server& session) {
    const auto data = protocol::ReadPartData(
        session.Run("WBGetPartData", protocol::WritePartDataRequest({.partId = "box"})));
    return data.Value().massTypes.at(0).status;
  };
  for (Server* session : {server.get(), &other, &sharing})
    EXPECT_EQ(statusFor(*session), protocol::MassTypeStatus::Undefined);
  Compute("box");
  for (Server* session : {server.get(), &other, &sharing})
    EXPECT_EQ(statusFor(*session), protocol::MassTypeStatus::Defined);
  other.Run("WBComputeNymValues", "1|top|");
  Compute("plate");  // the count of one's own savings does not hide that of another
  const auto list = protocol::ReadProductList(Run("LumGetProducts")).Value();
  EXPECT_EQ(list.products[0].root.computedStatus, protocol::MassTypeStatus::Defined);
  EXPECT_EQ(list.products[0].root.mass, 36);
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
