#include "framework/dialog/KorApplicationFrame.h"
#include "tests/desktop/support/DemoDialog.h"

namespace desktop::test {
namespace {

KorDlgQuestion Question(const char* text) {
  KorDlgQuestion question;
  question.text = text;
  question.answers = {"Yes", "No"};
  return question;
}

KorDlgFileRequest TableFile() {
  KorDlgFileRequest request;
  request.pattern = "*.csv";
  return request;
}

class BoxesTest : public ::testing::Test {
 protected:
  void SetUp() override { KorApplicationFrame::SetBackend(&backend); }
  void TearDown() override { KorApplicationFrame::SetBackend(nullptr); }
  HeadlessBoxes boxes;
  QtBackend backend{&boxes};
};

TEST_F(BoxesTest, HeadlessRecordTheMessagesShown) {
  KorApplicationFrame::ShowMessage(
      {.title = "Server", .text = "No such part.", .flags = KorDlgMessage::kError});
  ASSERT_EQ(boxes.Messages().size(), 1u);
  EXPECT_EQ(boxes.Messages()[0].text, "No such part.");
}

TEST_F(BoxesTest, HeadlessAnswerQuestionsFromTheScriptInTurn) {
  boxes.answers = {1, std::nullopt};
  EXPECT_EQ(KorApplicationFrame::Ask(Question("Save?")), 1);
  EXPECT_EQ(KorApplicationFrame::Ask(Question("Sure?")), std::nullopt);
  EXPECT_EQ(boxes.UnexpectedCount(), 0);
}

TEST_F(BoxesTest, HeadlessCountWhatTheScriptDoesNotExpectAndAnswerItAsClosed) {
  boxes.files = {KorUnicodeString("a.csv")};
  EXPECT_EQ(KorApplicationFrame::ChooseFile(TableFile()), KorUnicodeString("a.csv"));
  EXPECT_EQ(KorApplicationFrame::ChooseFile(TableFile()), std::nullopt);
  EXPECT_EQ(KorApplicationFrame::Ask(Question("Unexpected?")), std::nullopt);
  EXPECT_EQ(boxes.UnexpectedCount(), 2);
}

}  // namespace
}  // namespace desktop::test
