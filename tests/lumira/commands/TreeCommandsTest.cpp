#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;

class TreeCommands : public ServerFixture {
 protected:
  protocol::TreeNodes Children(const protocol::ChildrenRequest& request) {
    return protocol::ReadTreeNodes(Run("LumGetChildren", protocol::WriteChildrenRequest(request))).Value();
  }

  std::vector<std::string> ProductNames() {
    std::vector<std::string> names;
    const protocol::ProductList list = protocol::ReadProductList(Run("LumGetProducts")).Value();
    for (const protocol::ProductEntry& entry : list.products) names.push_back(entry.product);
    return names;
  }

  protocol::SearchReply Search(const std::string& text, int limit = 100) {
    return protocol::ReadSearchReply(Run("LumSearchTree", protocol::WriteSearchRequest({"top", text, limit})))
        .Value();
  }

  std::vector<std::string> Paths(const protocol::SearchReply& reply) {
    std::vector<std::string> paths;
    for (const protocol::Occurrence& hit : reply.hits) {
      paths.emplace_back();
      for (const std::string& element : hit.instancePath) paths.back() += "/" + element;
    }
    return paths;
  }
};

TEST_F(TreeCommands, ListNoProductsInAnEmptyDatabase) {
  EXPECT_EQ(Run("LumGetProducts"), "ProductList/1|0|end");
}

TEST_F(TreeCommands, ListProductsWithRootAndFilters) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", {"Kit"}).Ok());
  const auto list = protocol::ReadProductList(Run("LumGetProducts")).Value();
  ASSERT_EQ(list.products.size(), 1u);
  EXPECT_EQ(list.products[0].product, "top");
  EXPECT_EQ(list.products[0].root.partId, "top");
  EXPECT_EQ(list.products[0].root.instanceId, "");
  EXPECT_TRUE(list.products[0].root.hasChildren);
  EXPECT_THAT(list.products[0].filters, ElementsAre("Kit"));
}

TEST_F(TreeCommands, ListProductsWithoutReadingThem) {
  ImportBoxes();
  int loads = 0;
  Server listened(*store, [&](std::string_view, std::size_t, std::size_t) { ++loads; });
  listened.Run("LumGetProducts", "");
  EXPECT_EQ(loads, 0);
  listened.Run("LumGetChildren", "ChildrenRequest/1|top|0|10|end");
  EXPECT_GT(loads, 0);
}

TEST_F(TreeCommands, ListAProductThatCannotBeOpenedBesideTheOthers) {
  ImportBoxes();
  Import("parent,child\nother,thing\n", "part,name\nthing,Thing\n");
  SQLite::Database damaged(file, SQLite::OPEN_READWRITE);
  damaged.exec("UPDATE instances SET r_11 = 2 WHERE instance = 'left'");
  EXPECT_TRUE(protocol::IsErrorReply(Run("LumGetChildren", "ChildrenRequest/1|top|0|10|end")));
  EXPECT_THAT(ProductNames(), ElementsAre("other", "top"));
  damaged.exec("UPDATE parts SET name = CAST(x'ff' AS TEXT) WHERE part = 'top'");
  EXPECT_THAT(ProductNames(), ElementsAre("other", "top"));
  EXPECT_EQ(Children({.partId = "other"}).nodes.size(), 1u);
}

struct Damage {
  const char* done;
  const char* undone;
  std::vector<std::string> listed;
  const char* problem;
};

TEST_F(TreeCommands, NameWhatCannotBeReadOfAProductAndListTheOthers) {
  ImportBoxes();
  Import("parent,child\nother,thing\n", "part,name\nthing,Thing\n");
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Kit", {"left"})).Ok());
  Compute("top");
  const Damage damages[] = {{"UPDATE roots SET part = CAST(x'ff' AS TEXT) WHERE part = 'top'",
                             "UPDATE roots SET part = 'top' WHERE part <> 'other'",
                             {"other", "top"},
                             "(row product = \"1\", column part: \"\\xFF\" is not UTF-8)"},
                            {"UPDATE filters SET name = CAST(x'ff' AS TEXT)",
                             "UPDATE filters SET name = 'Kit'",
                             {"other", "top"},
                             "(row key = \"1\", column name: \"\\xFF\" is not UTF-8)"},
                            {"UPDATE filter_values SET value = CAST(x'ff' AS TEXT)",
                             "UPDATE filter_values SET value = 'left'",
                             {"other", "top"},
                             "(row filter = \"1\", column value: \"\\xFF\" is not UTF-8)"},
                            {"UPDATE results SET mass = 9e999",
                             "UPDATE results SET mass = 36",
                             {"other", "top"},
                             "column mass: inf is not a finite number)"},
                            {"UPDATE products SET product = CAST(x'ff' AS TEXT) WHERE product = 'top'",
                             "UPDATE products SET product = 'top' WHERE product <> 'other'",
                             {"other"},
                             "(row key = \"1\", column product: \"\\xFF\" is not UTF-8)"}};
  SQLite::Database database(file, SQLite::OPEN_READWRITE);
  for (const Damage& damage : damages) {
    database.exec(damage.done);
    Restart();
    const auto list = protocol::ReadProductList(Run("LumGetProducts"));
    ASSERT_TRUE(list.Ok()) << damage.done << ": " << list.Failure().message;
    EXPECT_EQ(ProductNames(), damage.listed) << damage.done;
    ASSERT_EQ(list.Value().problems.size(), 1u) << damage.done;
    EXPECT_THAT(list.Value().problems[0], testing::AllOf(testing::HasSubstr("database \"" + file + "\""),
                                                         testing::HasSubstr(damage.problem)));
    EXPECT_EQ(Children({.partId = "other"}).nodes.size(), 1u);
    EXPECT_EQ(server->Execute("LumGetChildren", "ChildrenRequest/1|top|0|10|end").Ok(), false) << damage.done;
    database.exec(damage.undone);
  }
  Restart();
  EXPECT_TRUE(protocol::ReadProductList(Run("LumGetProducts")).Value().problems.empty());
  EXPECT_EQ(Children({.partId = "top"}).nodes.size(), 2u);
}

TEST_F(TreeCommands, TellTheSameOfARootBeforeAndAfterItsProductIsRead) {
  ImportBoxes();
  Compute("top");
  ChangeMass("bolt", 3);
  for (const auto expected : {protocol::MassTypeStatus::OutOfDate, protocol::MassTypeStatus::Defined}) {
    if (expected == protocol::MassTypeStatus::Defined) Compute("top");
    Restart();
    const std::string before = Run("LumGetProducts");
    Children({.partId = "top"});
    EXPECT_EQ(Run("LumGetProducts"), before);
    EXPECT_EQ(protocol::ReadProductList(before).Value().products[0].root.computedStatus, expected);
  }
}

TEST_F(TreeCommands, CutAPageThatWouldNotFitInAText) {
  auto product = Product{"wide", {}, {}, {"root"}};
  product.parts.emplace_back().id = "root";
  for (int i = 0; i < 30; ++i) {
    Part& part = product.parts.emplace_back();
    part.id = "p" + std::to_string(i);
    part.name = std::string(300'000, '|');
    product.instances.push_back({"i" + std::to_string(i), "root", part.id, 1, {}});
  }
  ASSERT_TRUE(store->AddProduct(product, Existing::Refuse).Ok());
  // 27 names of 300 000 bytes fit in eight mebibytes, 28 do not.
  EXPECT_EQ(Children({.partId = "root"}).total, 30);
  EXPECT_EQ(Children({.partId = "root"}).nodes.size(), 27u);
  EXPECT_EQ(Children({.partId = "root", .first = 27}).nodes.size(), 3u);
  const auto found =
      protocol::ReadSearchReply(Run("LumSearchTree", protocol::WriteSearchRequest({"wide", "p", 100})))
          .Value();
  EXPECT_EQ(found.hits.size(), 27u);
  EXPECT_TRUE(found.cut);
}

TEST_F(TreeCommands, GiveChildrenInTheOrderOfTheTable) {
  Import("parent,child,instance\ntop,z,1st\ntop,a,2nd\ntop,m,0th\n", "part\nz\na\nm\n");
  const protocol::TreeNodes children = Children({.partId = "top"});
  EXPECT_EQ(children.parentPartId, "top");
  EXPECT_EQ(children.total, 3);
  EXPECT_EQ(children.nodes[0].partId, "z");
  EXPECT_EQ(children.nodes[1].partId, "a");
  EXPECT_EQ(children.nodes[2].instanceId, "0th");
}

TEST_F(TreeCommands, TellWhatATreeShows) {
  ImportBoxes();
  Compute("box");
  const protocol::TreeNodes top = Children({.partId = "top"});
  EXPECT_EQ(top.nodes[1].instanceId, "right");
  EXPECT_TRUE(top.nodes[1].hasChildren);
  EXPECT_EQ(top.nodes[1].computedStatus, protocol::MassTypeStatus::Defined);
  EXPECT_EQ(top.nodes[1].mass, 18);
  const protocol::TreeNodes box = Children({.partId = "box"});
  EXPECT_EQ(box.nodes[0].name, "Bolt M8");
  EXPECT_EQ(box.nodes[0].quantity, 4);
  EXPECT_FALSE(box.nodes[0].hasChildren);
  EXPECT_EQ(box.nodes[0].computedStatus, protocol::MassTypeStatus::Undefined);
  EXPECT_EQ(box.nodes[0].mass, 2);
}

TEST_F(TreeCommands, DoNotTellAMassThatIsNotKnown) {
  ImportBoxes();
  EXPECT_FALSE(Children({.partId = "top"}).nodes[0].mass.has_value());
}

TEST_F(TreeCommands, GiveChildrenPageByPage) {
  std::string structure = "parent,child\n";
  for (int i = 0; i < 25; ++i) structure += "top,p" + std::to_string(i) + "\n";
  Import(structure, "part\np0\n");
  const auto page = Children({.partId = "top", .first = 20, .limit = 10});
  EXPECT_EQ(page.total, 25);
  EXPECT_EQ(page.first, 20);
  ASSERT_EQ(page.nodes.size(), 5u);
  EXPECT_EQ(page.nodes[0].partId, "p20");
  EXPECT_TRUE(Children({.partId = "top", .first = 25}).nodes.empty());
  EXPECT_TRUE(Children({.partId = "top", .first = 2147483647}).nodes.empty());
}

TEST_F(TreeCommands, GiveNoChildrenOfALeaf) {
  ImportBoxes();
  EXPECT_EQ(Run("LumGetChildren", "ChildrenRequest/1|bolt|0|10|end"), "TreeNodes/1|bolt|0|0|0|end");
}

TEST_F(TreeCommands, FindEveryOccurrenceOfASharedPartInTheOrderOfTheTree) {
  ImportBoxes();
  EXPECT_THAT(Paths(Search("bolt")), ElementsAre("/left/bolts", "/right/bolts"));
}

TEST_F(TreeCommands, FindByPartNameAndInstanceWhateverTheCase) {
  ImportBoxes();
  EXPECT_THAT(Paths(Search("m8")), ElementsAre("/left/bolts", "/right/bolts"));
  EXPECT_THAT(Paths(Search("RIGHT")), ElementsAre("/right"));
  EXPECT_THAT(Paths(Search("BOX")), ElementsAre("/left", "/right"));
  EXPECT_THAT(Paths(Search("nothing")), ElementsAre());
}

TEST_F(TreeCommands, FindTheRootItself) {
  ImportBoxes();
  const protocol::SearchReply reply = Search("top");
  ASSERT_EQ(reply.hits.size(), 1u);
  EXPECT_TRUE(reply.hits[0].instancePath.empty());
  EXPECT_EQ(reply.hits[0].node.partId, "top");
}

TEST_F(TreeCommands, SayWhenThereAreMoreHitsThanWanted) {
  ImportBoxes();
  const protocol::SearchReply cut = Search("bolt", 1);
  EXPECT_TRUE(cut.cut);
  EXPECT_THAT(Paths(cut), ElementsAre("/left/bolts"));
  EXPECT_FALSE(Search("bolt", 2).cut);
}

TEST_F(TreeCommands, FindEverythingForAnEmptyText) {
  ImportBoxes();
  EXPECT_EQ(Search("").hits.size(), 7u);  // the root, two boxes, and two parts in each
}

TEST_F(TreeCommands, SearchAProductWithMoreOccurrencesThanCanBeCounted) {
  // Sixty levels, each with the next one twice: 2^60 occurrences of the last.
  std::string structure = "parent,child\ntop,p0\n";
  for (int i = 0; i < 60; ++i) {
    const std::string next = "p" + std::to_string(i) + ",p" + std::to_string(i + 1) + "\n";
    structure += next + next;
  }
  Import(structure + "p30,needle\n", "part,mass [kg]\np60,1\n");
  const protocol::SearchReply reply = Search("needle", 3);
  EXPECT_TRUE(reply.cut);
  EXPECT_EQ(reply.hits.size(), 3u);
  EXPECT_EQ(reply.hits[0].instancePath.size(), 32u);
  EXPECT_TRUE(Search("no such thing").hits.empty());
  EXPECT_EQ(Compute("top").mass, 1152921504606846976.0);
}

}  // namespace
}  // namespace lumira::test
