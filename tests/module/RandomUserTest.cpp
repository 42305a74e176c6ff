#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "tests/support/PanelHarness.h"
#include "tests/support/SamplePart.h"

namespace {

/// A window that takes every message box as read.
class PatientBackend : public RecordingBackend {
 public:
  void ShowMessage(const KorDlgMessage&) override {}
};

/// A server that answers as its dice fall: well, with an error, cut off or not at all.
class MoodyServer : public KorPdmTransport {
 public:
  explicit MoodyServer(std::mt19937& dice) : _dice(dice) { KorPdmClient::SetTransport(this); }
  ~MoodyServer() override { KorPdmClient::SetTransport(nullptr); }
  std::string Run(const std::string&, const std::string&) override {
    static const std::string kGood =
        "ComputeReply/1|P-100|Computed|1|3|0.5|0|0|1|2|3|0|0|0|0.1|0.2|0|0|0|0|0|0|end";
    static const std::string kPart = protocol::WritePartData(SamplePartWithDocuments());
    const std::string replies[] = {kGood,
                                   kGood,
                                   kPart,
                                   kPart.substr(0, _dice() % kPart.size()),
                                   "SaveReply/1|P-100|8|end",
                                   "LumiraError: no",
                                   "PendingWarnings/1|1|2|bad|end",
                                   "",
                                   kGood.substr(0, _dice() % kGood.size())};
    return replies[_dice() % std::size(replies)];
  }
  std::string Address() const override { return "moody"; }

 private:
  std::mt19937& _dice;
};

/// Does one thing that a user could do with the widget.
void Use(KorDlgObject& widget, std::mt19937& dice) {
  static constexpr const char* kTexts[] = {"", "0", "1", "-2.5", "1e400", "abc", "nan", "...", "7 mm"};
  if (auto* push = dynamic_cast<KorDlgPushButton*>(&widget)) push->Press();
  if (auto* radio = dynamic_cast<KorDlgRadioButton*>(&widget)) radio->Check();
  if (auto* check = dynamic_cast<KorDlgCheckButton*>(&widget)) check->Toggle();
  if (auto* spinner = dynamic_cast<KorDlgSpinner*>(&widget)) {
    if (spinner->GetUpSensitivity() == KorSensitivity::Enabled) spinner->TurnUp();
    if (spinner->GetDownSensitivity() == KorSensitivity::Enabled) spinner->TurnDown();
  }
  if (auto* editor = dynamic_cast<KorDlgEditor*>(&widget); editor && !editor->IsReadOnly())
    editor->Type(kTexts[dice() % std::size(kTexts)]);
  if (auto* combo = dynamic_cast<KorDlgCombo*>(&widget); combo && combo->GetLineCount() > 0)
    combo->Pick(static_cast<int>(dice() % static_cast<unsigned>(combo->GetLineCount())));
  if (auto* tabs = dynamic_cast<KorDlgTabContainer*>(&widget)) {
    const int page = static_cast<int>(dice() % static_cast<unsigned>(tabs->GetPageCount()));
    if (tabs->GetPage(page)->IsEnabled()) tabs->Pick(page);
  }
}

void Collect(KorDlgObject& parent, std::vector<KorDlgObject*>& widgets) {
  for (const auto& child : parent.Children()) {
    widgets.push_back(child.get());
    Collect(*child, widgets);
  }
}

struct RandomUser : testing::TestWithParam<unsigned> {};

TEST_P(RandomUser, NeverFindsAStateThatTheWindowDoesNotShow) {
  std::mt19937 dice(GetParam());
  const UnreachableGuard guard;
  const StreamCapture output(std::cout);
  PatientBackend backend;
  KorApplicationFrame::SetBackend(&backend);
  {
    MoodyServer server(dice);
    protocol::PartData part = SamplePartWithDocuments();
    part.propertiesRequested = true;
    if (GetParam() % 3 != 0) part.properties = SamplePartWithADate().properties;
    part.hasInstance = GetParam() % 2 == 0;
    part.computed = false;
    const protocol::PartData plain = SamplePart();
    auto first = PanelHarness::BufferOf(part);
    auto second = PanelHarness::BufferOf(plain);
    KorWBNymMainPanel panel(first.Get());
    panel.Attach(&backend);
    panel.SetVisibility(KorVisibility::Shown);
    std::vector<KorDlgObject*> widgets;
    Collect(panel, widgets);
    for (int step = 0; step < 2000; ++step) {
      KorDlgObject& widget = *widgets[dice() % widgets.size()];
      if (widget.IsReachable()) Use(widget, dice);
      if (step % 500 == 250) panel.SetModel(dice() % 2 == 0 ? first.Get() : second.Get());
      if (step % 500 == 400) KorApplyUnitSystem(dice() % 2 == 0 ? "Imperial" : "SI");
      if (step % 100 == 0) backend.ExpectMirrorsDialog(panel);
    }
    backend.ExpectMirrorsDialog(panel);
  }
  EXPECT_EQ(backend.WidgetCount(), 0u);
  KorApplicationFrame::SetBackend(nullptr);
  KorApplyUnitSystem("Mixed");
}
INSTANTIATE_TEST_SUITE_P(Seeds, RandomUser, testing::Values(1u, 2u, 3u, 4u));

}  // namespace
