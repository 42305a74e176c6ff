#include <random>

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/pdm/KorPdmClient.h"
#include "tests/module/FilterPanelTest.h"

namespace {

/// A server that answers as its dice fall: well, with an error, cut off or not at all.
class MoodyServer : public KorPdmTransport {
 public:
  explicit MoodyServer(std::mt19937& dice) : _dice(dice) { KorPdmClient::SetTransport(this); }
  ~MoodyServer() override { KorPdmClient::SetTransport(nullptr); }
  std::string Run(const std::string& command, const std::string&) override {
    const std::string good = command == "LumGetCurrentRoot"     ? "CurrentRoot/1|1|ROOT|TURBINE|Turbine|end"
                             : command == "LumGetConfigFilters" ? "FilterList/1|2|F1|Winter||F2|Summer||end"
                                                                : "ConfigurationHandler/1|TURBINE|Summer|end";
    const std::string replies[] = {
        good, good, good, "LumiraError: no", "", good.substr(0, _dice() % good.size())};
    return replies[_dice() % std::size(replies)];
  }
  std::string Address() const override { return "moody"; }

 private:
  std::mt19937& _dice;
};

struct FilterPanelRandomUser : FilterPanelTest, testing::WithParamInterface<unsigned> {
  unsigned Die(unsigned sides) { return dice() % sides; }
  std::string OneOf(std::initializer_list<const char*> texts) { return texts.begin()[Die(texts.size())]; }

  void AddSomething() {
    Add(OneOf({"I1", "I2", "", "I|3"}), OneOf({"P1", ""}), OneOf({"A", "B"}), OneOf({"", "R", "R|S", "|"}),
        static_cast<int>(Die(4)) - 1);
  }
  void UseAWidget() {
    auto& list = As<KorDlgMultiList>("FilterMultiList");
    auto& combo = As<KorDlgCombo>("ConfigHandlerIDCombo");
    switch (Die(8)) {
      case 0:
        return static_cast<void>(As<KorDlgRadioButton>("PVSFilterBtn").Check());
      case 1:
        return static_cast<void>(As<KorDlgRadioButton>("CfgFilterBtn").Check());
      case 2:
        return list.IsReachable() ? Press("RemoveCriterionButton") : void();
      case 3:
        return list.IsReachable() && Die(4) == 0 ? Press("ClearAllCriteriaButton") : void();
      case 4:
        return list.IsReachable() ? SelectRows({static_cast<int>(Die(5)), static_cast<int>(Die(9))}) : void();
      case 5:
        return combo.IsReachable() && combo.GetLineCount() > 0 ? Pick(combo.GetLine(0).Utf8()) : void();
      default:
        return AddSomething();
    }
  }
  void Leave() {
    const std::string before = Chosen::selectedFilter.Utf8() + "; " + UserFilter();
    const unsigned way = Die(3);
    if (way == 0) return PressOK();
    way == 1 ? PressCancel() : CloseWindow();
    EXPECT_EQ(Chosen::selectedFilter.Utf8() + "; " + UserFilter(), before);
  }
  // What must hold whatever the user did.
  void ExpectInLine() {
    const bool byUser = IsChecked("PVSFilterBtn");
    EXPECT_NE(byUser, IsChecked("CfgFilterBtn"));
    EXPECT_EQ(Chosen::selectedFilterOption, byUser ? 0 : 1);
    EXPECT_EQ(IsEnabled("FilterMultiList"), byUser);
    EXPECT_EQ(IsEnabled("RemoveCriterionButton"), byUser);
    EXPECT_EQ(IsEnabled("ClearAllCriteriaButton"), byUser);
    EXPECT_EQ(IsEnabled("ConfigHandlerIDCombo"), !byUser);
    List lists[5];
    EXPECT_EQ(Chosen::GetFilterContents(lists[0], lists[1], lists[2], lists[3], lists[4]), S_OK);
    Backend().ExpectMirrorsDialog(Panel());
  }

  std::mt19937 dice{GetParam()};
};

TEST_P(FilterPanelRandomUser, NeverBringsPanelFilterAndWindowOutOfLine) {
  MoodyServer server(dice);
  for (int round = 0; round < 100; ++round) {
    Make("TURBINE");
    BuildAndShow();
    for (int step = 0; step < 20; ++step) {
      UseAWidget();
      ExpectInLine();
      if (HasFailure()) return;
    }
    Leave();
    EXPECT_FALSE(Panel().IsShown());
    EXPECT_TRUE(Rows().empty());
    Close();
  }
}
INSTANTIATE_TEST_SUITE_P(Seeds, FilterPanelRandomUser, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
