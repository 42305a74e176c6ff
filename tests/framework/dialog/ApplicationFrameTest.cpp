#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "framework/dialog/KorApplicationFrame.h"
#include "tests/support/RecordingBackend.h"

namespace {

/// The recording backend as the application's toolkit, for as long as it lives.
struct ApplicationFrame : testing::Test {
  ApplicationFrame() { KorApplicationFrame::SetBackend(&backend); }
  ~ApplicationFrame() override { KorApplicationFrame::SetBackend(nullptr); }
  RecordingBackend backend;
};

TEST_F(ApplicationFrame, HasOneMainWindow) {
  ASSERT_NE(KorApplicationFrame::GetMainWindow(), nullptr);
  EXPECT_EQ(KorApplicationFrame::GetMainWindow(), KorApplicationFrame::GetMainWindow());
}

TEST_F(ApplicationFrame, HandsMessagesToTheToolkit) {
  KorDlgDialog dialog(nullptr, "Owner", 0);
  backend.Boxes().ExpectMessage({"Owner", "Title", "Text", 0x8000000});
  KorApplicationFrame::ShowMessage({&dialog, "Title", "Text", KorDlgMessage::kInformation});
}

TEST_F(ApplicationFrame, HandsQuestionsAndFileRequestsToTheToolkit) {
  backend.Boxes().ExpectQuestion("Go on?", 0);
  backend.Boxes().ExpectQuestion("Really?", std::nullopt);
  backend.Boxes().ExpectFileRequest("Open", "a.csv");
  EXPECT_EQ(KorApplicationFrame::Ask({nullptr, "", "Go on?", {"Yes", "No"}}), 0);
  EXPECT_EQ(KorApplicationFrame::Ask({nullptr, "", "Really?", {"Yes", "No"}}), std::nullopt);
  EXPECT_EQ(KorApplicationFrame::ChooseFile({nullptr, "Open", "*.csv", KorDlgFileRequest::Mode::Open}),
            KorUnicodeString("a.csv"));
}

TEST_F(ApplicationFrame, WithoutAToolkitEveryBoxIsAnsweredAsIfClosed) {
  KorApplicationFrame::SetBackend(nullptr);
  EXPECT_EQ(KorApplicationFrame::GetBackend(), nullptr);
  KorApplicationFrame::ShowMessage({nullptr, "Title", "Text", 0});
  EXPECT_EQ(KorApplicationFrame::Ask({nullptr, "", "Go on?", {"Yes"}}), std::nullopt);
  EXPECT_EQ(KorApplicationFrame::ChooseFile({}), std::nullopt);
}

}  // namespace
