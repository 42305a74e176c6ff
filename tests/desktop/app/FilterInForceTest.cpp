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
};

TEST_F(FilterInForceTest, OneThatCannotBeReadIsNamedShortlyWithTheReason) {
  commands.text = "1|100001";
  for (int row = 0; row < 100'001; ++row) commands.text += "|I" + std::to_string(row) + "|P|A|0";
  const FilterInForce filter(&commands, "IEA15");
  EXPECT_FALSE(filter.LetsAllPass());
  EXPECT_EQ(filter.Name(), "User Filter");
  const QString meaning = filter.Meaning({});
  EXPECT_TRUE(meaning.startsWith("The filter \"User Filter\" cannot be read: ")) << meaning.toStdString();
  EXPECT_TRUE(meaning.contains("row count")) << meaning.toStdString();
  EXPECT_LT(meaning.size(), 300);
}

TEST_F(FilterInForceTest, IsTheSameAsLongAsProductNameAndTextAre) {
  const FilterInForce filter(&commands, "IEA15");
  EXPECT_TRUE(filter.IsInForce(&commands, "IEA15"));
  EXPECT_FALSE(filter.IsInForce(&commands, "Car"));
  EXPECT_FALSE(filter.IsInForce(nullptr, "IEA15"));
  commands.name = "Structure only";
  EXPECT_FALSE(filter.IsInForce(&commands, "IEA15"));
  commands.name = "User Filter";
  commands.text = "1|1|I2|P1|A|0";
  EXPECT_FALSE(filter.IsInForce(&commands, "IEA15"));
  EXPECT_FALSE(FilterInForce().IsInForce(&commands, ""));
}

}  // namespace
}  // namespace desktop::test
