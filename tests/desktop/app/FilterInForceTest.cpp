// The filter in force as the desktop reads it from the commands.
#include <gtest/gtest.h>

#include "desktop/app/FilterInForce.h"
#include "desktop/commands/KorWBCommands.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

/// Commands with a filter of the test's own.
class CommandsWithFilter : public KorWBCommands {
 public:
  std::unique_ptr<KorWBPartPanel> CreatePartPanel(KorWBAllDataBuffer&) const override { return nullptr; }
  std::unique_ptr<KorWBFilterPanel> CreateFilterPanel(const KorUnicodeString&, KorCommand&) const override {
    return nullptr;
  }
  std::unique_ptr<KorDlgDialog> CreateWarningList(const std::vector<KorUnicodeString>&) const override {
    return nullptr;
  }
  KorUnicodeString GetFilter(const KorUnicodeString&) const override { return text; }
  KorUnicodeString GetDisplayFilter(const KorUnicodeString&) const override { return name; }

  std::string text = "1|1|I1|P1|A|0";
  std::string name = "User Filter";
};

struct FilterInForceTest : ::testing::Test {
  CommandsWithFilter commands;
  FilterInForce filter;
};

TEST_F(FilterInForceTest, OneThatCannotBeReadIsNamedShortlyWithTheReason) {
  commands.text = "1|100001";
  for (int row = 0; row < 100'001; ++row) commands.text += "|I" + std::to_string(row) + "|P|A|0";
  EXPECT_TRUE(filter.Follow(&commands, "IEA15"));
  EXPECT_FALSE(filter.LetsAllPass());
  EXPECT_EQ(filter.Name(), "User Filter");
  const QString meaning = filter.Meaning({});
  EXPECT_TRUE(meaning.startsWith("The filter \"User Filter\" cannot be read: ")) << meaning.toStdString();
  EXPECT_TRUE(meaning.contains("row count")) << meaning.toStdString();
  EXPECT_LT(meaning.size(), 300);
}

TEST_F(FilterInForceTest, IsTheSameAsLongAsProductNameAndTextAre) {
  EXPECT_TRUE(filter.Follow(&commands, "IEA15"));
  EXPECT_FALSE(filter.Follow(&commands, "IEA15"));
  EXPECT_TRUE(filter.Follow(&commands, "Car"));
  EXPECT_EQ(filter.Product(), "Car");
  commands.name = "Structure only";
  EXPECT_TRUE(filter.Follow(&commands, "Car"));
  EXPECT_EQ(filter.Name(), "Structure only");
  commands.text = "1|1|I2|P1|A|0";
  EXPECT_TRUE(filter.Follow(&commands, "Car"));
  EXPECT_EQ(filter.Definition().rows[0].instanceId, "I2");
}

TEST_F(FilterInForceTest, WithoutCommandsThereIsNone) {
  EXPECT_TRUE(filter.Follow(&commands, "IEA15"));
  EXPECT_TRUE(filter.Follow(nullptr, "IEA15"));
  EXPECT_TRUE(filter.LetsAllPass());
  EXPECT_FALSE(filter.Follow(nullptr, "IEA15"));
}

// A filter of a hundred thousand instances would make each step through the tree slow.
TEST_F(FilterInForceTest, OneThatIsInForceStillIsNotReadAgain) {
  EXPECT_TRUE(filter.Follow(&commands, "IEA15"));
  const auto* rows = filter.Definition().rows.data();
  EXPECT_FALSE(filter.Follow(&commands, "IEA15"));
  EXPECT_EQ(filter.Definition().rows.data(), rows) << "rows that are read anew lie elsewhere";
}

}  // namespace
}  // namespace desktop::test
