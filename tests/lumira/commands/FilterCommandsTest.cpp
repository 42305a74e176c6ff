#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

class FilterCommands : public ServerFixture {
 protected:
  std::string Filters(const std::vector<std::string>& roots, const std::vector<std::string>& products) {
    return Run("LumGetConfigFilters", protocol::WriteFiltersRequest({roots, products}));
  }

  std::string Handler(const std::string& product) {
    return Run("LumGetConfigHandler", protocol::WriteHandlerRequest({product}));
  }

  std::string SetHandler(const std::string& product, const std::optional<std::string>& name) {
    return Run("LumSetConfigHandler", protocol::WriteConfigurationHandler({product, name}));
  }
};

TEST_F(FilterCommands, ListFiltersByNameWithWhatTheyLeaveOut) {
  ImportBoxes();
  auto filter = LeavingOut("Without left", {"left"});
  filter.description = "Half of it";
  ASSERT_TRUE(store->SaveFilter("top", filter).Ok());
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Empty", {"left", "right"})).Ok());
  EXPECT_EQ(Filters({"top"}, {"top"}),
            "FilterList/1|2|top/Empty|Empty|Leaves out 4 of 4 instances|"
            "top/Without left|Without left|Half of it - Leaves out 1 of 4 instances|end");
}

TEST_F(FilterCommands, ListFiltersProductByProduct) {
  ImportBoxes();
  Import("parent,child\nother,thing\n", "part,mass [kg]\nthing,3\n");
  ASSERT_TRUE(store->SaveFilter("top", {"A"}).Ok());
  ASSERT_TRUE(store->SaveFilter("other", {"B"}).Ok());
  EXPECT_EQ(Filters({"other", ""}, {"other", "top"}),
            "FilterList/1|2|other/B|B|Leaves out 0 of 1 instance|top/A|A|Leaves out 0 of 4 instances|end");
  EXPECT_EQ(Filters({}, {}), "FilterList/1|0|end");
}

TEST_F(FilterCommands, RefuseListsThatDoNotBelongTogether) {
  ImportBoxes();
  EXPECT_EQ(Filters({"top"}, {}), "LumiraError: the request has 1 root part for 0 products");
  EXPECT_EQ(Filters({"box"}, {"top"}),
            "LumiraError: the root part of product \"top\" is \"top\", not \"box\"");
  EXPECT_EQ(Filters({"top"}, {"nobody"}), "LumiraError: there is no product \"nobody\"");
}

TEST_F(FilterCommands, SayWhichFilterCannotBeApplied) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Kit", {"left"})).Ok());
  SQLite::Database(file, SQLite::OPEN_READWRITE).exec("UPDATE filter_values SET value = 'gone'");
  EXPECT_THAT(
      Filters({"top"}, {"top"}),
      testing::HasSubstr("Cannot be applied%3A configuration filter \"Kit\", condition 1%3A there is no "
                         "instance \"gone\""));
  EXPECT_EQ(Refusal("top", "0|Kit"),
            "configuration filter \"Kit\", condition 1: there is no instance \"gone\"");
}

TEST_F(FilterCommands, SetAHandlerForEverybody) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", {"Kit"}).Ok());
  EXPECT_EQ(Handler("top"), "ConfigurationHandler/1|top|__null__|end");
  EXPECT_EQ(SetHandler("top", "Kit"), "ConfigurationHandler/1|top|Kit|end");
  Restart();
  EXPECT_EQ(Handler("top"), "ConfigurationHandler/1|top|Kit|end");
  EXPECT_EQ(SetHandler("top", std::nullopt), "ConfigurationHandler/1|top|__null__|end");
  EXPECT_EQ(Handler("top"), "ConfigurationHandler/1|top|__null__|end");
}

TEST_F(FilterCommands, RefuseAHandlerThatIsNoFilterOfTheProduct) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", {"Kit"}).Ok());
  SetHandler("top", "Kit");
  EXPECT_EQ(SetHandler("top", "Nobody"),
            "LumiraError: there is no configuration filter \"Nobody\" in product \"top\"");
  EXPECT_EQ(SetHandler("top", "No Filter"),
            "LumiraError: there is no configuration filter \"No Filter\" in product \"top\"");
  EXPECT_EQ(SetHandler("nobody", "Kit"), "LumiraError: there is no product \"nobody\"");
  EXPECT_EQ(Handler("nobody"), "LumiraError: there is no product \"nobody\"");
  EXPECT_EQ(Handler("top"), "ConfigurationHandler/1|top|Kit|end");
}

TEST_F(FilterCommands, KeepResultsUpToDateWhenAHandlerIsSet) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", {"Kit"}).Ok());
  Compute("top");
  SetHandler("top", "Kit");
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, protocol::MassTypeStatus::Defined);
}

}  // namespace
}  // namespace lumira::test
