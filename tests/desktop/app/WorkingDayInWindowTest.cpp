// The same working day in the main window: the tree says what the save has made out of date, and what is up
// to date again after a compute.
#include "tests/desktop/app/EditingHarness.h"
#include "tests/desktop/app/WorkingDay.h"

namespace desktop::test {
namespace {

const std::vector<std::string> kBedplate{"nacelle.1", "Above_yaw.1", "bedplate.1"};
const std::vector<std::string> kGenerator{"nacelle.1", "Above_yaw.1", "generator.1"};
const std::vector<std::vector<std::string>> kAbove{{}, {"nacelle.1"}, {"nacelle.1", "Above_yaw.1"}};

class WorkingDayInWindowTest : public EditingTest {
 protected:
  void ComputeEverything() {
    for (const auto& path : kAbove) ComputeAt(path);
    for (const auto& path : {kGenerator, kBedplate}) ComputeAt(path);
  }
  void ExpectAbove(const char* status) {
    for (const auto& path : kAbove) EXPECT_EQ(StatusAt(path), status) << path.size();
  }
};

TEST_F(WorkingDayInWindowTest, TheTreeSaysWhatIsOutOfDateAfterTheSaveAndUpToDateAfterTheCompute) {
  ComputeEverything();
  ExpectAbove("up to date");
  WorkingDay day(Panel());
  day.Work();
  RunPendingEvents();
  ExpectAbove("out of date");
  EXPECT_EQ(StatusAt(kBedplate), "out of date");
  EXPECT_EQ(StatusAt(kGenerator), "up to date") << "nothing of it was saved";

  ComputeAt({"nacelle.1", "Above_yaw.1"});
  EXPECT_EQ(StatusAt({"nacelle.1", "Above_yaw.1"}), "up to date");
  EXPECT_EQ(StatusAt({"nacelle.1"}), "out of date") << "it has not been computed";
  ComputeEverything();
  ExpectAbove("up to date");
  EXPECT_EQ(StatusAt(kBedplate), "up to date");
  EXPECT_TRUE(boxes.Messages().empty());
  EXPECT_TRUE(boxes.Questions().empty());
}

TEST_F(WorkingDayInWindowTest, AProductThatIsOpenedAgainShowsEverythingThatWasSaved) {
  ComputeEverything();
  WorkingDay(Panel()).Work();
  RunPendingEvents();
  ASSERT_TRUE(window.OpenProduct(File()));
  OpenPanelOnBedplate();
  WorkingDay(Panel()).ExpectShown();
  ExpectAbove("out of date");
  EXPECT_TRUE(boxes.Questions().empty());
}

}  // namespace
}  // namespace desktop::test
