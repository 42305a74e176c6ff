#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Records what a handler is called with.
class Listener : public KorCommand {
 public:
  void OnPress(KorCommand* sender, KorNotification* notification, KorCommandClientData data) {
    _sender = sender;
    _event = notification->event;
    _data = data;
  }
  KorCommand* _sender = nullptr;
  KorEvent _event = KorEvent::WindowClose;
  KorCommandClientData _data = nullptr;
};

struct Widget : testing::Test {
  SampleDialog dialog;
};

TEST_F(Widget, StartsEnabledAndShownInTheGridPlaceItWasGiven) {
  auto* button =
      dialog.form->Add<KorDlgPushButton>("New", 5, KorDlgGrid{.row = 3, .column = 2, .columns = 4});
  EXPECT_TRUE(button->IsEnabled());
  EXPECT_TRUE(button->IsShown());
  EXPECT_TRUE(button->IsAttached());
  EXPECT_EQ(button->GetGrid(), (KorDlgGrid{.row = 3, .column = 2, .columns = 4, .rows = 1}));
  EXPECT_EQ(button->Style(), 5u);
  EXPECT_EQ(button->Name(), "New");
}

TEST_F(Widget, FollowsItsCellOnAllSidesUnlessToldOtherwise) { EXPECT_EQ(KorDlgGrid().attachment, 30); }

TEST_F(Widget, ChildrenStandInTheOrderOfTheirCreation) {
  auto* a = dialog.sides->Add<KorDlgLabel>("A");
  auto* b = dialog.sides->Add<KorDlgLabel>("B");
  ASSERT_EQ(dialog.sides->Children().size(), 4u);
  EXPECT_EQ(dialog.sides->Children()[2].get(), a);
  EXPECT_EQ(dialog.sides->Children()[3].get(), b);
}

TEST_F(Widget, HandlersAreCalledInTheOrderOfSubscription) {
  std::vector<int> called;
  for (int i : {1, 2, 3})
    dialog.applyButton->Subscribe(
        KorEvent::PushActivate,
        [&called, i](KorCommand*, KorNotification*, KorCommandClientData) { called.push_back(i); });
  dialog.applyButton->Press();
  EXPECT_THAT(called, ElementsAre(1, 2, 3));
}

TEST_F(Widget, AHandlerGetsTheSenderTheEventAndItsClientData) {
  Listener listener;
  int data = 0;
  dialog.applyButton->Subscribe(KorEvent::PushActivate, &listener, &Listener::OnPress, &data);
  dialog.applyButton->Press();
  EXPECT_EQ(listener._sender, dialog.applyButton);
  EXPECT_EQ(listener._event, KorEvent::PushActivate);
  EXPECT_EQ(listener._data, &data);
}

TEST_F(Widget, TellsOnlySubscribersOfThatEvent) {
  int focus = 0;
  dialog.nameEditor->Subscribe(KorEvent::FocusOut,
                               [&focus](KorCommand*, KorNotification*, KorCommandClientData) { ++focus; });
  dialog.nameEditor->Type("Hub");
  EXPECT_EQ(focus, 0);
  dialog.nameEditor->EnterFocus();
  EXPECT_EQ(focus, 0);
  dialog.nameEditor->LeaveFocus();
  EXPECT_EQ(focus, 1);
}

TEST_F(Widget, CountsSubscriptionsByEvent) {
  KorDlgPushButton& button = *dialog.form->Add<KorDlgPushButton>("Counted");
  EXPECT_EQ(button.SubscriptionCount(KorEvent::PushActivate), 0);
  button.Subscribe(KorEvent::PushActivate, [](KorCommand*, KorNotification*, KorCommandClientData) {});
  button.Subscribe(KorEvent::PushActivate, [](KorCommand*, KorNotification*, KorCommandClientData) {});
  EXPECT_EQ(button.SubscriptionCount(KorEvent::PushActivate), 2);
  EXPECT_EQ(button.SubscriptionCount(KorEvent::FocusIn), 0);
}

TEST_F(Widget, AHandlerMaySubscribeFurtherHandlers) {
  int late = 0;
  dialog.applyButton->Subscribe(
      KorEvent::PushActivate, [&](KorCommand*, KorNotification*, KorCommandClientData) {
        for (int i = 0; i < 50; ++i)
          dialog.applyButton->Subscribe(
              KorEvent::FocusIn, [&late](KorCommand*, KorNotification*, KorCommandClientData) { ++late; });
      });
  dialog.applyButton->Press();
  dialog.applyButton->EnterFocus();
  EXPECT_EQ(late, 50);
}

TEST_F(Widget, AHandlerMayNotifyAgain) {
  int presses = 0;
  dialog.applyButton->Subscribe(KorEvent::PushActivate,
                                [&](KorCommand*, KorNotification*, KorCommandClientData) {
                                  if (++presses < 3) dialog.applyButton->Press();
                                });
  dialog.applyButton->Press();
  EXPECT_EQ(presses, 3);
}

TEST_F(Widget, AMarkCarriesItsReasonAndIsTakenAwayByAnEmptyOne) {
  dialog.nameEditor->SetMarking("no such part");
  EXPECT_EQ(dialog.nameEditor->GetMarking(), "no such part");
  dialog.nameEditor->SetMarking("");
  EXPECT_TRUE(dialog.nameEditor->GetMarking().IsEmpty());
}

TEST_F(Widget, TakenOutOfTheGridItComesBackWithTheNextPlace) {
  dialog.sides->ResetAttachment();
  EXPECT_FALSE(dialog.sides->IsAttached());
  dialog.sides->SetGrid({.row = 7});
  EXPECT_TRUE(dialog.sides->IsAttached());
  EXPECT_EQ(dialog.sides->GetGrid().row, 7);
}

TEST_F(Widget, TakenOutOfTheGridItComesBackAlsoToTheSamePlace) {
  const KorDlgGrid place = dialog.sides->GetGrid();
  dialog.sides->ResetAttachment();
  dialog.sides->SetGrid(place);
  EXPECT_TRUE(dialog.sides->IsAttached());
}

TEST_F(Widget, TellsTheWindowOfEachCommonProperty) {
  RecordingBackend backend;
  dialog.Attach(&backend);
  dialog.nameEditor->SetTitle("Name of the part");
  dialog.nameEditor->SetShortHelp("Type a name");
  dialog.nameEditor->SetSensitivity(KorSensitivity::Disabled);
  dialog.nameEditor->SetVisibility(KorVisibility::Hidden);
  dialog.nameEditor->SetGrid({.row = 8});
  dialog.nameEditor->SetMarking("wrong");
  backend.ExpectMirrorsDialog(dialog);
  dialog.nameEditor->ResetAttachment();
  backend.ExpectMirrorsDialog(dialog);
  dialog.Detach();
}

TEST_F(Widget, SettingWhatIsAlreadySetTellsTheWindowNothing) {
  RecordingBackend backend;
  dialog.Attach(&backend);
  backend.ClearLog();
  dialog.nameEditor->SetText("Rotor");
  dialog.nameEditor->SetSensitivity(KorSensitivity::Enabled);
  dialog.nameEditor->SetVisibility(KorVisibility::Shown);
  dialog.leftRadio->SetState(KorCheckState::Checked);
  dialog.tabs->SetSelectedPage(0);
  EXPECT_THAT(backend.Log(), IsEmpty());
  dialog.Detach();
}

TEST_F(Widget, EveryKindNamesItsProperties) {
  const auto has = [](const KorDlgObject& widget, KorDlgProperty property) {
    const auto all = widget.Properties();
    return std::find(all.begin(), all.end(), property) != all.end();
  };
  for (KorDlgObject* widget : std::initializer_list<KorDlgObject*>{
           dialog.form, dialog.nameLabel, dialog.nameEditor, dialog.colourCombo, dialog.applyButton,
           dialog.finishCheck, dialog.sizeSpinner, dialog.leftRadio, dialog.tabs, dialog.firstPage,
           dialog.list, &dialog})
    for (const auto property : {KorDlgProperty::Title, KorDlgProperty::Help, KorDlgProperty::Sensitivity,
                                KorDlgProperty::Visibility, KorDlgProperty::Grid, KorDlgProperty::Marking})
      EXPECT_TRUE(has(*widget, property)) << widget->Name();
  EXPECT_TRUE(has(*dialog.nameEditor, KorDlgProperty::Text));
  EXPECT_TRUE(has(*dialog.colourCombo, KorDlgProperty::Lines));
  EXPECT_TRUE(has(*dialog.leftRadio, KorDlgProperty::Checked));
  EXPECT_TRUE(has(*dialog.sizeSpinner, KorDlgProperty::Arrows));
  EXPECT_TRUE(has(*dialog.tabs, KorDlgProperty::Selection));
  EXPECT_TRUE(has(*dialog.list, KorDlgProperty::Rows));
}

}  // namespace
