#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "desktop/app/ProductTreeModel.h"
#include "protocol/Codec.h"
#include "tests/desktop/app/ScriptedTransport.h"

namespace desktop::test {
namespace {

protocol::TreeNode Line(const char* instance, const char* part, bool hasChildren) {
  protocol::TreeNode line;
  line.instanceId = instance;
  line.partId = part;
  line.name = std::string("Name of ") + part;
  line.hasChildren = hasChildren;
  return line;
}

/// A product P with the root part R: two wings (the same part W, with a rib each) and a tail.
class ProductTreeModelTest : public ::testing::Test {
 protected:
  void SetUp() override {
    children["R"] = {Line("W.1", "W", true), Line("W.2", "W", true), Line("T.1", "T", false)};
    children["W"] = {Line("rib.1", "rib", false)};
    children["R"][2].mass = 12.5;
    server.answer = [this](const std::string& command, const std::string& request) {
      return Answer(command, request);
    };
    model.onError = [this](const protocol::Error& error) { errors.push_back(error.message); };
    ASSERT_TRUE(model.Reload().Ok());
  }

  std::string Answer(const std::string& command, const std::string& text) {
    if (failing) return protocol::ErrorReply("the disk is full");
    if (command == "LumGetProducts") return protocol::WriteProductList({{{"P", Line("", "R", true), {}}}});
    const auto request = protocol::ReadChildrenRequest(text);
    EXPECT_TRUE(request.Ok());
    const auto& all = children[request.Value().partId];
    protocol::TreeNodes page{request.Value().partId, static_cast<int>(all.size()), request.Value().first, {}};
    const int most = std::min(request.Value().limit, serverLimit);
    for (int i = page.first; i < page.total && i < page.first + most; ++i)
      page.nodes.push_back(all[static_cast<std::size_t>(i)]);
    return protocol::WriteTreeNodes(page);
  }

  QModelIndex Root() const { return model.index(0, 0); }
  QString Cell(const QModelIndex& index, int column) const {
    return model.data(index.siblingAtColumn(column), Qt::DisplayRole).toString();
  }
  int Asked(const std::string& command) const {
    return static_cast<int>(std::count(server.commands.begin(), server.commands.end(), command));
  }

  std::map<std::string, std::vector<protocol::TreeNode>> children;
  bool failing = false;
  int serverLimit = 1'000'000;
  ScriptedTransport server;
  ProductTreeModel model;
  std::vector<std::string> errors;
};

TEST_F(ProductTreeModelTest, ShowsTheProductsWithoutAskingForTheirChildren) {
  EXPECT_EQ(model.rowCount(), 1);
  EXPECT_EQ(Cell(Root(), ProductTreeModel::Name), "Name of R");
  EXPECT_TRUE(model.hasChildren(Root()));
  EXPECT_EQ(Asked("LumGetChildren"), 0);
}

TEST_F(ProductTreeModelTest, AsksForChildrenOnceWhenSomebodyLooks) {
  ASSERT_TRUE(model.canFetchMore(Root()));
  model.fetchMore(Root());
  EXPECT_EQ(model.rowCount(Root()), 3);
  EXPECT_FALSE(model.canFetchMore(Root()));
  EXPECT_EQ(Asked("LumGetChildren"), 1);
}

TEST_F(ProductTreeModelTest, ObeysTheRulesOfItemModels) {
  // The tester looks at every line, and so has all children asked for.
  const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  EXPECT_EQ(model.rowCount(model.index(1, 0, Root())), 1);
  EXPECT_TRUE(model.RefreshValues().Ok());
  children["W"].clear();
  EXPECT_TRUE(model.RefreshValues().Ok());
  EXPECT_EQ(model.rowCount(model.index(1, 0, Root())), 0);
}

TEST_F(ProductTreeModelTest, TakesInChildrenPageByPage) {
  serverLimit = 2;
  model.fetchMore(Root());
  EXPECT_EQ(model.rowCount(Root()), 3);
  EXPECT_EQ(Asked("LumGetChildren"), 2);
}

TEST_F(ProductTreeModelTest, ShowsMassInTheCurrentUnitAndNothingForAMassThatIsNotKnown) {
  model.fetchMore(Root());
  EXPECT_EQ(Cell(model.index(2, 0, Root()), ProductTreeModel::Mass), "12.5 kg");
  EXPECT_EQ(Cell(model.index(0, 0, Root()), ProductTreeModel::Mass), "");
}

TEST_F(ProductTreeModelTest, FindsAnOccurrenceAskingForTheLinesOnTheWay) {
  const QModelIndex rib = model.IndexOf("P", {"W.2", "rib.1"});
  ASSERT_TRUE(rib.isValid());
  EXPECT_EQ(rib.parent().row(), 1);
  const OccurrencePlace place = model.PlaceAt(rib);
  EXPECT_EQ(place.product, "P");
  EXPECT_EQ(place.instancePath, (std::vector<std::string>{"W.2", "rib.1"}));
  EXPECT_EQ(place.names, (std::vector<std::string>{"Name of R", "Name of W", "Name of rib"}));
}

TEST_F(ProductTreeModelTest, FindsNothingUnderAPathThatDoesNotExist) {
  EXPECT_FALSE(model.IndexOf("P", {"W.3"}).isValid());
  EXPECT_FALSE(model.IndexOf("Q", {}).isValid());
}

TEST_F(ProductTreeModelTest, RefreshesTheValuesOfTheLinesItKnows) {
  model.fetchMore(Root());
  children["R"][2].mass = 13;
  children["R"][2].computedStatus = protocol::MassTypeStatus::Defined;
  QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  EXPECT_TRUE(model.RefreshValues().Ok());
  EXPECT_GT(changes.count(), 0);
  EXPECT_EQ(Cell(model.index(2, 0, Root()), ProductTreeModel::Mass), "13 kg");
}

TEST_F(ProductTreeModelTest, AsksAnewForChildrenThatAreNoLongerTheSame) {
  model.fetchMore(Root());
  children["R"].pop_back();
  EXPECT_TRUE(model.RefreshValues().Ok());
  EXPECT_EQ(model.rowCount(Root()), 0);
  ASSERT_TRUE(model.canFetchMore(Root()));
  model.fetchMore(Root());
  EXPECT_EQ(model.rowCount(Root()), 2);
}

TEST_F(ProductTreeModelTest, TellsOfChildrenThatCannotBeHadAndAsksNoMore) {
  failing = true;
  model.fetchMore(Root());
  EXPECT_EQ(errors, std::vector<std::string>{"the disk is full"});
  EXPECT_EQ(model.rowCount(Root()), 0);
  EXPECT_FALSE(model.canFetchMore(Root()));
}

TEST_F(ProductTreeModelTest, ARefreshStopsAtTheFirstFailureAndLeavesTheLines) {
  model.fetchMore(Root());
  failing = true;
  const auto refreshed = model.RefreshValues();
  ASSERT_FALSE(refreshed.Ok());
  EXPECT_EQ(refreshed.Failure().message, "the disk is full");
  EXPECT_EQ(model.rowCount(Root()), 3);
  EXPECT_TRUE(errors.empty());
}

TEST_F(ProductTreeModelTest, IsEmptyWhenTheProductsCannotBeHad) {
  failing = true;
  EXPECT_FALSE(model.Reload().Ok());
  EXPECT_EQ(model.rowCount(), 0);
  EXPECT_EQ(model.ProductAt({}), "");
}

}  // namespace
}  // namespace desktop::test
