#include <gtest/gtest.h>

#include "framework/pdm/KorPdmClient.h"
#include "services/KorImmKitServices.h"
#include "tests/support/ScriptedServer.h"

namespace {

using List = KorListValKorUnicodeString;
using Request = ScriptedServer::Request;

/// Outputs that hold something old before each call.
struct Outputs {
  List first{"old"};
  List second{"old", "older"};
  KorUnicodeString text = "old";

  void ExpectEmptyLists() const {
    EXPECT_EQ(first.Size(), 0);
    EXPECT_EQ(second.Size(), 0);
  }
};

HRESULT AskForFilters(Outputs& out) {
  return KorImmKitServices::GetPRCConfigFilter({"ROOT"}, {"TURBINE"}, out.first, out.second);
}

void ExpectThatEachFailsWithEmptyOutputs() {
  Outputs root, filters;
  KorUnicodeString handler = "old";
  EXPECT_EQ(KorImmKitServices::GetCurrentRootIdentifiers(root.first, root.second, root.text), E_FAIL);
  EXPECT_EQ(AskForFilters(filters), E_FAIL);
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("TURBINE", handler), E_FAIL);
  root.ExpectEmptyLists();
  filters.ExpectEmptyLists();
  EXPECT_EQ(root.text, "");
  EXPECT_EQ(handler, "");
}

TEST(RootServices, TheCurrentRootIsItsPartItsProductAndAText) {
  ScriptedServer server;
  server.Expect("LumGetCurrentRoot", "CurrentRoot/1|1|ROOT|TURBINE|Wind turbine|end");
  Outputs out;
  EXPECT_EQ(KorImmKitServices::GetCurrentRootIdentifiers(out.first, out.second, out.text), S_OK);
  EXPECT_EQ(out.first, List{"ROOT"});
  EXPECT_EQ(out.second, List{"TURBINE"});
  EXPECT_EQ(out.text, "Wind turbine");
  EXPECT_EQ(server.Requests().front(), (Request{"LumGetCurrentRoot", ""}));
}

TEST(RootServices, SeveralRootsComeInParallelLists) {
  ScriptedServer server;
  server.Expect("LumGetCurrentRoot", "CurrentRoot/1|2|R1|P1|R2|P2|Both|end");
  Outputs out;
  EXPECT_EQ(KorImmKitServices::GetCurrentRootIdentifiers(out.first, out.second, out.text), S_OK);
  EXPECT_EQ(out.first, (List{"R1", "R2"}));
  EXPECT_EQ(out.second, (List{"P1", "P2"}));
}

TEST(RootServices, NoCurrentRootIsAFailure) {
  ScriptedServer server;
  server.Expect("LumGetCurrentRoot", "CurrentRoot/1|0||end");
  Outputs out;
  EXPECT_EQ(KorImmKitServices::GetCurrentRootIdentifiers(out.first, out.second, out.text), E_FAIL);
  out.ExpectEmptyLists();
  EXPECT_EQ(out.text, "");
}

TEST(RootServices, TheFiltersOfAProductAreIdentifiersAndNamesInTheOrderOfTheServer) {
  ScriptedServer server;
  server.Expect("LumGetConfigFilters", "FilterList/1|2|F2|Winter|cold|F1|Summer||end");
  Outputs out;
  EXPECT_EQ(AskForFilters(out), S_OK);
  EXPECT_EQ(out.first, (List{"F2", "F1"}));
  EXPECT_EQ(out.second, (List{"Winter", "Summer"}));
  EXPECT_EQ(server.Requests().front(),
            (Request{"LumGetConfigFilters", "FiltersRequest/1|1|ROOT|1|TURBINE|end"}));
}

TEST(RootServices, AProductWithoutFiltersHasEmptyLists) {
  ScriptedServer server;
  server.Expect("LumGetConfigFilters", "FilterList/1|0|end");
  Outputs out;
  EXPECT_EQ(AskForFilters(out), S_OK);
  out.ExpectEmptyLists();
}

TEST(RootServices, TheFiltersOfNoProductCanBeAskedFor) {
  ScriptedServer server;
  server.Expect("LumGetConfigFilters", "FilterList/1|0|end");
  Outputs out;
  EXPECT_EQ(KorImmKitServices::GetPRCConfigFilter({}, {}, out.first, out.second), S_OK);
  EXPECT_EQ(server.Requests().front().text, "FiltersRequest/1|0|0|end");
}

TEST(RootServices, TheHandlerOfAProductIsTheNameOfAFilter) {
  ScriptedServer server;
  server.Expect("LumGetConfigHandler", "ConfigurationHandler/1|TURBINE|Winter|end");
  KorUnicodeString handler = "old";
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("TURBINE", handler), S_OK);
  EXPECT_EQ(handler, "Winter");
  EXPECT_EQ(server.Requests().front(), (Request{"LumGetConfigHandler", "HandlerRequest/1|TURBINE|end"}));
}

TEST(RootServices, AProductWithoutHandlerAnswersSFalseAndAnEmptyName) {
  ScriptedServer server;
  server.Expect("LumGetConfigHandler", "ConfigurationHandler/1|TURBINE|__null__|end");
  KorUnicodeString handler = "old";
  EXPECT_EQ(KorImmKitServices::GetPRCConfigHandler("TURBINE", handler), S_FALSE);
  EXPECT_EQ(handler, "");
}

TEST(RootServices, WithoutAServerEachFailsWithEmptyOutputs) {
  ASSERT_EQ(KorPdmClient::GetTransport(), nullptr);
  ExpectThatEachFailsWithEmptyOutputs();
}

/// A reply that no question can make use of.
struct Useless {
  const char* name;
  const char* reply;
};
void PrintTo(const Useless& useless, std::ostream* out) { *out << useless.name; }

struct UselessReply : testing::TestWithParam<Useless> {};

TEST_P(UselessReply, IsAFailureWithEmptyOutputs) {
  ScriptedServer server;
  for (const char* command : {"LumGetCurrentRoot", "LumGetConfigFilters", "LumGetConfigHandler"})
    server.Expect(command, GetParam().reply);
  ExpectThatEachFailsWithEmptyOutputs();
}

constexpr Useless kUseless[] = {
    {"Empty", ""},
    {"AnError", "LumiraError: the product is gone"},
    {"OfNoForm", "nonsense"},
    {"OfAnotherForm", "PendingWarnings/1|0|end"},
    {"RootCutBehindItsHead", "CurrentRoot/1|"},
    {"RootWithoutEndMark", "CurrentRoot/1|1|ROOT|TURBINE|Turbine"},
    {"RootsOfNegativeNumber", "CurrentRoot/1|-1|Turbine|end"},
    {"RootsThatAreNotThere", "CurrentRoot/1|2000000000|ROOT|TURBINE|Turbine|end"},
    {"RootsOfNoNumber", "CurrentRoot/1|x|Turbine|end"},
    {"FewerFiltersThanTold", "FilterList/1|2|F1|A||end"},
    {"FiltersOfNegativeNumber", "FilterList/1|-1|end"},
    {"FiltersThatAreNotThere", "FilterList/1|99999999999|F1|A||end"},
    {"HandlerWithoutName", "ConfigurationHandler/1|TURBINE|end"},
    {"HandlerCutBehindItsHead", "ConfigurationHandler/1"},
    {"NotUtf8", "\xff\xfe|\x01"},
};

INSTANTIATE_TEST_SUITE_P(RootServices, UselessReply, testing::ValuesIn(kUseless),
                         [](const auto& one) { return std::string(one.param.name); });

}  // namespace
