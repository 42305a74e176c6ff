#include <cstring>
#include <set>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "tests/module/PanelTest.h"
#include "tests/module/ProbePanel.h"
#include "tests/support/ShownText.h"

namespace {

constexpr KorEvent kAllEvents[] = {KorEvent::PushActivate,  KorEvent::RadioModify,  KorEvent::CheckModify,
                                   KorEvent::ComboSelect,   KorEvent::EditorModify, KorEvent::FocusIn,
                                   KorEvent::FocusOut,      KorEvent::SpinnerUp,    KorEvent::SpinnerDown,
                                   KorEvent::SpinnerModify, KorEvent::ListSelect,   KorEvent::TabSelect,
                                   KorEvent::DialogOK,      KorEvent::DialogCancel, KorEvent::WindowClose};

/// Which part has the subscription.
enum class When { Always, WithDocuments, WithProperties, WithoutInstance };

/// What the client data of a subscription is.
enum class Data { None, Button, One, Two };

struct Row {
  const char* widget;
  KorEvent event;
  const char* handler;
  When when = When::Always;
  Data data = Data::None;
};

constexpr Row kRows[] = {
    {"TypeCombo", KorEvent::ComboSelect, "OnTypeComboModifyNotification"},
    {"FirstCombo", KorEvent::ComboSelect, "OnFirstComboModifyNotification"},
    {"ComputeButton", KorEvent::PushActivate, "OnComputeNotification"},
    {"DeleteButton", KorEvent::PushActivate, "OnDeleteNotification"},
    {"ReferenceButton", KorEvent::RadioModify, "OnInertiaModeModify"},
    {"CustomReferenceButton", KorEvent::RadioModify, "OnReferenceModify", When::Always, Data::Button},
    {"RootProductButton", KorEvent::RadioModify, "OnReferenceModify", When::Always, Data::Button},
    {"CurrentPartButton", KorEvent::RadioModify, "OnReferenceModify", When::Always, Data::Button},
    {"MassTypeCombo", KorEvent::ComboSelect, "OnMassTypeChangeNotification"},
    {"ActiveMassCombo", KorEvent::ComboSelect, "OnActiveTypeChangeNotification"},
    {"TabContainer001", KorEvent::TabSelect, "OnTabContainer001TabSelectNotification"},
    {"EditButton", KorEvent::PushActivate, "OnEditNotification"},
    {"SaveButton", KorEvent::PushActivate, "OnSaveNotification"},
    {"ValueTypeCombo", KorEvent::ComboSelect, "OnPrecisionValueTypeChangeNotification"},
    {"UpperValueEditor", KorEvent::FocusOut, "OnPrecisionEditorFocusNotification", When::Always, Data::One},
    {"UpperValueEditor", KorEvent::FocusIn, "OnPrecisionEditorFocusNotification", When::Always, Data::Two},
    {"LowerValueEditor", KorEvent::FocusOut, "OnPrecisionEditorFocusNotification", When::Always, Data::One},
    {"LowerValueEditor", KorEvent::FocusIn, "OnPrecisionEditorFocusNotification", When::Always, Data::Two},
    {"UpdatePropertiesButton", KorEvent::PushActivate, "OnUpdatePropertiesNotification"},
    {"MTPasteValuesCombo", KorEvent::ComboSelect, "OnMTPasteValuesComboModifyNotification"},
    {"MTMassEditor", KorEvent::EditorModify, "OnMTMassEditorModifyNotification"},
    {"WBMaterialEditor", KorEvent::EditorModify, "OnMaterialNameModifyNotification"},
    {"DensityEditor", KorEvent::EditorModify, "OnDensityModifyNotification"},
    {"MatStatNameSpinner", KorEvent::SpinnerUp, "OnMatNameUpNotification"},
    {"MatStatNameSpinner", KorEvent::SpinnerDown, "OnMatNameDownNotification"},
    {"DocumentsCombo", KorEvent::ComboSelect, "OnDocPreviewValueChange", When::WithDocuments},
    {"ChangeActiveDocButton", KorEvent::PushActivate, "OnChangeActiveDocNotification", When::WithDocuments},
    {"CancelActiveDocButton", KorEvent::PushActivate, "OnCancelActiveDocNotification", When::WithDocuments},
    {"ApplyActiveDocButton", KorEvent::PushActivate, "OnApplyActiveDocNotification", When::WithDocuments},
    {"ActiveDocLatestButton", KorEvent::RadioModify, "OnActiveDocLatestNotification", When::WithDocuments},
    {"ActiveDocUsrSelButton", KorEvent::RadioModify, "OnActiveDocUsrSelNotification", When::WithDocuments},
    {"StdPartCheckButton", KorEvent::CheckModify, "OnStandardPartClickeNotification"},
    {"PropertyNameCombo", KorEvent::ComboSelect, "OnPropertyNameComboChange", When::WithProperties},
    {"ApplyOnReference", KorEvent::RadioModify, "OnApplyMaterialRadioBModify", When::WithoutInstance},
};

/// How many rows say that this widget is subscribed to this event, among those that hold for the part.
int ExpectedCount(const std::string& widget, KorEvent event, const std::set<When>& holds) {
  int count = 0;
  for (const Row& row : kRows)
    count += widget == row.widget && event == row.event && holds.contains(row.when);
  return count;
}

void ExpectSubscriptions(const KorDlgObject& widget, const std::set<When>& holds) {
  for (const KorEvent event : kAllEvents)
    EXPECT_EQ(widget.SubscriptionCount(event), ExpectedCount(widget.Name(), event, holds))
        << FullName(widget) << ", event " << static_cast<int>(event);
  for (const auto& child : widget.Children()) ExpectSubscriptions(*child, holds);
}

void Raise(KorDlgObject& widget, KorEvent event) {
  switch (event) {
    case KorEvent::PushActivate:
      dynamic_cast<KorDlgPushButton&>(widget).Press();
      return;
    case KorEvent::CheckModify:
      dynamic_cast<KorDlgCheckButton&>(widget).Toggle();
      return;
    case KorEvent::EditorModify:
      dynamic_cast<KorDlgEditor&>(widget).Type("typed");
      return;
    case KorEvent::FocusIn:
      widget.EnterFocus();
      return;
    case KorEvent::FocusOut:
      widget.LeaveFocus();
      return;
    case KorEvent::SpinnerUp:
      dynamic_cast<KorDlgSpinner&>(widget).TurnUp();
      return;
    case KorEvent::SpinnerDown:
      dynamic_cast<KorDlgSpinner&>(widget).TurnDown();
      return;
    case KorEvent::TabSelect:
      dynamic_cast<KorDlgTabContainer&>(widget).Pick(1);
      return;
    case KorEvent::ComboSelect: {
      auto& combo = dynamic_cast<KorDlgCombo&>(widget);
      if (combo.GetLineCount() == 0) combo.SetLine("only");
      combo.Pick(0);
      return;
    }
    case KorEvent::RadioModify: {
      auto& radio = dynamic_cast<KorDlgRadioButton&>(widget);
      for (const auto& sibling : radio.Parent()->Children())
        if (auto* other = dynamic_cast<KorDlgRadioButton*>(sibling.get()))
          other->SetState(KorCheckState::Unchecked);
      radio.Check();
      return;
    }
    default:
      FAIL() << "no verb raises the event";
  }
}

void EnableAll(KorDlgObject& widget) {
  widget.SetSensitivity(KorSensitivity::Enabled);
  widget.SetVisibility(KorVisibility::Shown);
  if (auto* spinner = dynamic_cast<KorDlgSpinner*>(&widget)) {
    spinner->SetUpSensitivity(KorSensitivity::Enabled);
    spinner->SetDownSensitivity(KorSensitivity::Enabled);
  }
  for (const auto& child : widget.Children()) EnableAll(*child);
}

class Wiring : public PanelTest {
 protected:
  Wiring() {
    UseMaker([](KorWBAllDataBuffer* buffer) { return std::make_unique<ProbePanel>(buffer); });
  }
  ProbePanel& Probe() { return dynamic_cast<ProbePanel&>(Panel()); }

  void BringToFront(KorDlgObject& widget) {
    for (KorDlgObject* page = &widget; page->Parent(); page = page->Parent()) {
      auto* tabs = dynamic_cast<KorDlgTabContainer*>(page->Parent());
      if (!tabs) continue;
      for (int index = 0; index < tabs->GetPageCount(); ++index)
        if (tabs->GetPage(index) == page) tabs->SetSelectedPage(index);
    }
  }

  void ExpectHandled(const Row& row) {
    KorDlgObject& widget = Widget(row.widget);
    BringToFront(widget);
    if (row.event == KorEvent::TabSelect) dynamic_cast<KorDlgTabContainer&>(widget).SetSelectedPage(0);
    Probe().calls.clear();
    Raise(widget, row.event);
    ASSERT_EQ(Probe().calls.size(), 1u) << row.widget;
    const ProbePanel::Call& call = Probe().calls.front();
    EXPECT_EQ(call.handler, row.handler) << row.widget;
    EXPECT_EQ(call.sender, &widget) << row.widget;
    switch (row.data) {
      case Data::None:
        EXPECT_EQ(call.data, nullptr) << row.widget;
        break;
      case Data::Button:
        EXPECT_EQ(call.data, static_cast<void*>(&widget)) << row.widget;
        break;
      case Data::One:
        EXPECT_EQ(KorClientNumber(call.data), 1) << row.widget;
        break;
      case Data::Two:
        EXPECT_EQ(KorClientNumber(call.data), 2) << row.widget;
        break;
    }
  }
};

TEST_F(Wiring, EveryNotificationReachesItsHandlerWithItsClientData) {
  protocol::PartData part = SamplePartWithDocuments();
  part.propertiesRequested = true;
  part.hasInstance = false;
  Open(part);
  EnableAll(Panel());
  for (const Row& row : kRows) ExpectHandled(row);
}

TEST_F(Wiring, SubscribesNothingElseOnAPlainPart) {
  Open(SamplePart());
  ExpectSubscriptions(Panel(), {When::Always});
}

TEST_F(Wiring, APartWithAnInstanceInThePdmHasNoHandlerOnApplyOnReference) {
  Open(SamplePart());
  EXPECT_EQ(Widget("ApplyOnReference").SubscriptionCount(KorEvent::RadioModify), 0);
}

TEST_F(Wiring, SubscribesTheHandlersOfEveryPageThatThereIs) {
  protocol::PartData part = SamplePartWithDocuments();
  part.propertiesRequested = true;
  part.hasInstance = false;
  Open(part);
  ExpectSubscriptions(Panel(),
                      {When::Always, When::WithDocuments, When::WithProperties, When::WithoutInstance});
}

TEST_F(Wiring, TheReferenceButtonTellsOfBeingUncheckedToo) {
  Open(SamplePart());
  Check("ReferenceButton");
  Probe().calls.clear();
  Check("CGButton");
  ASSERT_EQ(Probe().calls.size(), 1u);
  EXPECT_EQ(Probe().calls[0].handler, "OnInertiaModeModify");
}

TEST_F(Wiring, TheCloseButtonIsLeftToTheHost) {
  Open(SamplePart());
  Probe().calls.clear();
  Press("CloseButton");
  EXPECT_TRUE(Probe().calls.empty());
}

/// Place of a virtual operation in the class's table: with this compiler's rules a pointer to it holds its
/// offset.
template <class Method>
std::ptrdiff_t TablePlace(Method method) {
  std::ptrdiff_t place = 0;
  std::memcpy(&place, &method, sizeof place);
  return place;
}

TEST_F(Wiring, TheHandlersStandInTheClassInTheOrderThatDerivedPanelsRelyOn) {
#if defined(_WIN32)
  GTEST_SKIP() << "pointers to virtual operations do not hold their place here";
#endif
  using P = ProbePanel;
  const std::vector<std::ptrdiff_t> places = {
      TablePlace(&P::OnTypeComboModifyNotification),
      TablePlace(&P::OnFirstComboModifyNotification),
      TablePlace(&P::OnMassTypeChangeNotification),
      TablePlace(&P::OnComputeNotification),
      TablePlace(&P::OnDeleteNotification),
      TablePlace(&P::OnInertiaModeModify),
      TablePlace(&P::OnReferenceModify),
      TablePlace(&P::OnTabContainer001TabSelectNotification),
      TablePlace(&P::OnEditNotification),
      TablePlace(&P::OnSaveNotification),
      TablePlace(&P::OnModifyUnit),
      TablePlace(&P::OnActiveTypeChangeNotification),
      TablePlace(&P::OnMatNameUpNotification),
      TablePlace(&P::OnMatNameDownNotification),
      TablePlace(&P::OnUpdatePropertiesNotification),
      TablePlace(&P::OnMTPasteValuesComboModifyNotification),
      TablePlace(&P::OnMTMassEditorModifyNotification),
      TablePlace(&P::OnChangeActiveDocNotification),
      TablePlace(&P::OnCancelActiveDocNotification),
      TablePlace(&P::OnDocPreviewValueChange),
      TablePlace(&P::OnApplyActiveDocNotification),
      TablePlace(&P::OnPrecisionEditorFocusNotification),
      TablePlace(&P::OnPrecisionValueTypeChangeNotification),
      TablePlace(&P::OnStandardPartClickeNotification),
      TablePlace(&P::OnPropertyNameComboChange),
  };
  for (std::size_t i = 1; i < places.size(); ++i)
    EXPECT_EQ(places[i] - places[i - 1], static_cast<std::ptrdiff_t>(sizeof(void*)))
        << "behind handler " << i;
}

}  // namespace
