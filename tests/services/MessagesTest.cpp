#include <gtest/gtest.h>

#include "framework/dialog/KorApplicationFrame.h"
#include "services/KorWBServices.h"
#include "tests/support/RecordingBackend.h"

namespace {

/// The recording backend as the application's toolkit, for as long as it lives.
struct DisplayMsg : testing::Test {
  DisplayMsg() { KorApplicationFrame::SetBackend(&backend); }
  ~DisplayMsg() override { KorApplicationFrame::SetBackend(nullptr); }
  RecordingBackend backend;
};

TEST_F(DisplayMsg, ShowsAMessageBoxOverItsParent) {
  KorDlgDialog panel(nullptr, "Panel", 0);
  backend.Boxes().ExpectMessage({"Panel", "Server", "No such part: é", kErrorFlags});
  KorWBServices::DisplayMsg(&panel, "Server", "No such part: é", KorWBServices::kErrorOrWarning);
}

TEST_F(DisplayMsg, HandsANullParentOnForTheBackendToTakeAsTheMainWindow) {
  backend.Boxes().ExpectMessage({"", "", "text", kInformationFlags});
  KorWBServices::DisplayMsg(nullptr, nullptr, "text", KorWBServices::kInformation);
}

}  // namespace
