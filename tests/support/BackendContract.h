#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "framework/dialog/KorApplicationFrame.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/ShownBackend.h"

/// What every toolkit must do, run on each of them. A test program includes this header in one source file
/// and writes
///   INSTANTIATE_TEST_SUITE_P(Recording, BackendContract, testing::Values(BackendMaker(...)));
using BackendMaker = std::function<std::unique_ptr<ShownBackend>()>;

class BackendContract : public testing::TestWithParam<BackendMaker> {
 protected:
  BackendContract() : seen(GetParam()()) { dialog->Attach(&seen->Backend()); }
  ~BackendContract() override { dialog.reset(); }

  std::unique_ptr<ShownBackend> seen;
  std::unique_ptr<SampleDialog> dialog = std::make_unique<SampleDialog>();
};

using testing::ElementsAre;
using testing::IsEmpty;

// ---- attaching ----

TEST_P(BackendContract, ShowsTheWholeStateOfADialogWhenItIsAttached) {
  EXPECT_EQ(seen->Title(*dialog), "Sample");
  EXPECT_EQ(seen->Title(*dialog->form), "Form");
  EXPECT_EQ(seen->Title(*dialog->nameLabel), "Name");
  EXPECT_EQ(seen->Help(*dialog->nameEditor), "Help of NameEditor");
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "Rotor");
  EXPECT_THAT(seen->Lines(*dialog->colourCombo), ElementsAre("red", "green", "blue"));
  EXPECT_EQ(seen->Selected(*dialog->colourCombo), 1);
  EXPECT_EQ(seen->Title(*dialog->applyButton), "Apply");
  EXPECT_FALSE(seen->Checked(*dialog->finishCheck));
  EXPECT_EQ(seen->Text(*dialog->sizeSpinner), "medium");
  EXPECT_TRUE(seen->Checked(*dialog->leftRadio));
  EXPECT_FALSE(seen->Checked(*dialog->rightRadio));
  EXPECT_EQ(seen->Selected(*dialog->tabs), 0);
  EXPECT_EQ(seen->Title(*dialog->secondPage), "Second");
  EXPECT_THAT(seen->Rows(*dialog->list), ElementsAre("hub|190000", "blade|65000"));
}

TEST_P(BackendContract, AttachingCallsNoHandler) { EXPECT_THAT(dialog->Heard(), IsEmpty()); }

TEST_P(BackendContract, ForgetsADialogThatIsDetached) {
  dialog->Detach();
  EXPECT_FALSE(seen->Exists(*dialog));
  EXPECT_FALSE(seen->Exists(*dialog->nameEditor));
  dialog->nameEditor->SetText("unseen");
}

TEST_P(BackendContract, ShowsTheStateOfTheDayWhenADialogIsAttachedAgain) {
  dialog->Detach();
  dialog->nameEditor->SetText("Stator");
  dialog->tabs->SetSelectedPage(2);
  dialog->Attach(&seen->Backend());
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "Stator");
  EXPECT_EQ(seen->Selected(*dialog->tabs), 2);
}

TEST_P(BackendContract, ForgetsADialogThatIsDestroyed) {
  auto other = std::make_unique<SampleDialog>();
  other->Attach(&seen->Backend());
  SampleDialog* address = other.get();
  EXPECT_TRUE(seen->Exists(*address));
  other.reset();
  EXPECT_FALSE(seen->Exists(*address));
}

TEST_P(BackendContract, KeepsTwoDialogsApart) {
  SampleDialog other;
  other.Attach(&seen->Backend());
  other.nameEditor->SetText("Hub");
  EXPECT_EQ(seen->Text(*other.nameEditor), "Hub");
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "Rotor");
}

TEST_P(BackendContract, ShowsAWidgetThatIsAddedLater) {
  auto* late = dialog->form->Add<KorDlgPushButton>("LateButton", 0, KorDlgGrid{.row = 9});
  late->SetTitle("Late");
  EXPECT_TRUE(seen->Visible(*late));
  EXPECT_EQ(seen->Title(*late), "Late");
}

// ---- each change ----

TEST_P(BackendContract, ShowsANewTitleAndHelp) {
  dialog->applyButton->SetTitle("Apply now");
  dialog->applyButton->SetShortHelp("Applies at once");
  EXPECT_EQ(seen->Title(*dialog->applyButton), "Apply now");
  EXPECT_EQ(seen->Help(*dialog->applyButton), "Applies at once");
}

TEST_P(BackendContract, ShowsTextsOfAllLanguagesAsTheyAre) {
  dialog->nameEditor->SetText("Größe 5 kg·m² — 翼 & <b>");
  dialog->applyButton->SetTitle("Rechnen äöü");
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "Größe 5 kg·m² — 翼 & <b>");
  EXPECT_EQ(seen->Title(*dialog->applyButton), "Rechnen äöü");
}

TEST_P(BackendContract, MarksAWidgetAndTakesTheMarkAway) {
  dialog->nameEditor->SetMarking("no such part");
  EXPECT_EQ(seen->Marking(*dialog->nameEditor), "no such part");
  dialog->nameEditor->SetMarking("");
  EXPECT_EQ(seen->Marking(*dialog->nameEditor), "");
}

TEST_P(BackendContract, DisablesAndEnablesAWidget) {
  dialog->applyButton->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(seen->Enabled(*dialog->applyButton));
  EXPECT_TRUE(seen->Enabled(*dialog->nameEditor));
  dialog->applyButton->SetSensitivity(KorSensitivity::Enabled);
  EXPECT_TRUE(seen->Enabled(*dialog->applyButton));
}

TEST_P(BackendContract, ADisabledFrameDisablesWhatItHoldsAndGivesItBack) {
  dialog->applyButton->SetSensitivity(KorSensitivity::Disabled);
  dialog->form->SetSensitivity(KorSensitivity::Disabled);
  EXPECT_FALSE(seen->Enabled(*dialog->nameEditor));
  EXPECT_TRUE(seen->Enabled(*dialog->leftRadio));
  dialog->form->SetSensitivity(KorSensitivity::Enabled);
  EXPECT_TRUE(seen->Enabled(*dialog->nameEditor));
  EXPECT_FALSE(seen->Enabled(*dialog->applyButton)) << "its own state has not changed";
}

TEST_P(BackendContract, HidesAndShowsAWidget) {
  dialog->nameLabel->SetVisibility(KorVisibility::Hidden);
  EXPECT_FALSE(seen->Visible(*dialog->nameLabel));
  dialog->nameLabel->SetVisibility(KorVisibility::Shown);
  EXPECT_TRUE(seen->Visible(*dialog->nameLabel));
}

TEST_P(BackendContract, AHiddenFrameHidesWhatItHolds) {
  dialog->form->SetVisibility(KorVisibility::Hidden);
  EXPECT_FALSE(seen->Visible(*dialog->nameEditor));
  dialog->form->SetVisibility(KorVisibility::Shown);
  EXPECT_TRUE(seen->Visible(*dialog->nameEditor));
}

TEST_P(BackendContract, ShowsOnlyThePageInFront) {
  EXPECT_TRUE(seen->Visible(*dialog->firstEditor));
  EXPECT_FALSE(seen->Visible(*dialog->secondEditor));
  dialog->tabs->SetSelectedPage(1);
  EXPECT_FALSE(seen->Visible(*dialog->firstEditor));
  EXPECT_TRUE(seen->Visible(*dialog->secondEditor));
}

TEST_P(BackendContract, AWidgetTakenOutOfTheGridComesBackWhereItIsPut) {
  dialog->sides->ResetAttachment();
  dialog->sides->SetGrid({.row = 5});
  EXPECT_TRUE(seen->Visible(*dialog->leftRadio));
  EXPECT_TRUE(seen->Enabled(*dialog->leftRadio));
}

TEST_P(BackendContract, FollowsTheLinesOfACombo) {
  dialog->colourCombo->SetLine("black", 0);
  EXPECT_THAT(seen->Lines(*dialog->colourCombo), ElementsAre("black", "red", "green", "blue"));
  EXPECT_EQ(seen->Selected(*dialog->colourCombo), 2);
  dialog->colourCombo->DeleteLine(2);
  EXPECT_THAT(seen->Lines(*dialog->colourCombo), ElementsAre("black", "red", "blue"));
  EXPECT_EQ(seen->Selected(*dialog->colourCombo), 2);
  dialog->colourCombo->ClearLines();
  EXPECT_THAT(seen->Lines(*dialog->colourCombo), IsEmpty());
  EXPECT_EQ(seen->Selected(*dialog->colourCombo), -1);
}

TEST_P(BackendContract, FollowsTheRowsOfAList) {
  dialog->list->SetColumnItem(0, "nose", 2);
  dialog->list->DeleteLines({0});
  EXPECT_THAT(seen->Rows(*dialog->list), ElementsAre("blade|65000", "nose|"));
  dialog->list->SetSelection({1});
  EXPECT_THAT(seen->SelectedRows(*dialog->list), ElementsAre(1));
  dialog->list->ClearLines();
  EXPECT_THAT(seen->Rows(*dialog->list), IsEmpty());
  EXPECT_THAT(seen->SelectedRows(*dialog->list), IsEmpty());
}

TEST_P(BackendContract, AChangeMadeByCodeIsNoActionOfTheUser) {
  dialog->nameEditor->SetText("Hub");
  dialog->colourCombo->SetLine("black", 0);
  dialog->colourCombo->SetSelect(3);
  dialog->finishCheck->SetState(KorCheckState::Checked);
  dialog->rightRadio->SetState(KorCheckState::Checked);
  dialog->sizeSpinner->SetText("large");
  dialog->tabs->SetSelectedPage(2);
  dialog->list->SetSelection({0});
  dialog->list->ClearLines();
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "Hub");
  EXPECT_TRUE(seen->Checked(*dialog->rightRadio));
  EXPECT_FALSE(seen->Checked(*dialog->leftRadio));
  EXPECT_THAT(dialog->Heard(), IsEmpty());
}

// ---- the user's hands ----

TEST_P(BackendContract, AClickPressesAButtonOnce) {
  seen->Click(*dialog->applyButton);
  EXPECT_THAT(dialog->Heard(), ElementsAre("ApplyButton PushActivate"));
}

TEST_P(BackendContract, AClickOnADisabledButtonDoesNothing) {
  dialog->form->SetSensitivity(KorSensitivity::Disabled);
  seen->Click(*dialog->applyButton);
  seen->Click(*dialog->finishCheck);
  EXPECT_THAT(dialog->Heard(), IsEmpty());
}

TEST_P(BackendContract, EnteredTextArrivesOnceBetweenTheFocusEvents) {
  seen->Enter(*dialog->nameEditor, "Gear");
  EXPECT_EQ(dialog->nameEditor->GetText(), "Gear");
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "Gear");
  EXPECT_THAT(dialog->Heard(),
              ElementsAre("NameEditor FocusIn", "NameEditor EditorModify", "NameEditor FocusOut"));
}

TEST_P(BackendContract, EnteringTheSameTextModifiesNothing) {
  seen->Enter(*dialog->nameEditor, "Rotor");
  EXPECT_THAT(dialog->Heard(), ElementsAre("NameEditor FocusIn", "NameEditor FocusOut"));
}

TEST_P(BackendContract, AReadOnlyEditorTakesNoText) {
  seen->Enter(*dialog->lockedEditor, "broken");
  EXPECT_EQ(dialog->lockedEditor->GetText(), "fixed");
  EXPECT_EQ(seen->Text(*dialog->lockedEditor), "fixed");
}

TEST_P(BackendContract, ShowsWhatAHandlerMadeOfTheEnteredText) {
  dialog->nameEditor->Subscribe(
      KorEvent::EditorModify,
      [this](KorCommand*, KorNotification*, KorCommandClientData) { dialog->nameEditor->SetText("5"); });
  seen->Enter(*dialog->nameEditor, "2+3");
  EXPECT_EQ(seen->Text(*dialog->nameEditor), "5");
}

TEST_P(BackendContract, ShowsThatAHandlerDisabledTheButtonThatCalledIt) {
  dialog->applyButton->Subscribe(KorEvent::PushActivate,
                                 [this](KorCommand*, KorNotification*, KorCommandClientData) {
                                   dialog->applyButton->SetSensitivity(KorSensitivity::Disabled);
                                 });
  seen->Click(*dialog->applyButton);
  EXPECT_FALSE(seen->Enabled(*dialog->applyButton));
  seen->Click(*dialog->applyButton);
  EXPECT_THAT(dialog->Heard(), ElementsAre("ApplyButton PushActivate"));
}

TEST_P(BackendContract, ChoosingALineTellsOfItAlsoForTheLineShown) {
  seen->Choose(*dialog->colourCombo, 2);
  EXPECT_EQ(dialog->colourCombo->GetSelectedLine(), "blue");
  seen->Choose(*dialog->colourCombo, 2);
  EXPECT_THAT(dialog->Heard(), ElementsAre("ColourCombo ComboSelect", "ColourCombo ComboSelect"));
}

TEST_P(BackendContract, CheckingARadioButtonUnchecksTheOtherFirst) {
  seen->Click(*dialog->rightRadio);
  EXPECT_TRUE(seen->Checked(*dialog->rightRadio));
  EXPECT_FALSE(seen->Checked(*dialog->leftRadio));
  EXPECT_THAT(dialog->Heard(), ElementsAre("LeftRadio RadioModify", "RightRadio RadioModify"));
}

TEST_P(BackendContract, ClickingACheckedRadioButtonLeavesItChecked) {
  seen->Click(*dialog->leftRadio);
  EXPECT_TRUE(seen->Checked(*dialog->leftRadio));
  EXPECT_THAT(dialog->Heard(), IsEmpty());
}

TEST_P(BackendContract, ClickingACheckButtonChecksAndUnchecksIt) {
  seen->Click(*dialog->finishCheck);
  EXPECT_TRUE(seen->Checked(*dialog->finishCheck));
  seen->Click(*dialog->finishCheck);
  EXPECT_FALSE(seen->Checked(*dialog->finishCheck));
  EXPECT_THAT(dialog->Heard(), ElementsAre("FinishCheck CheckModify", "FinishCheck CheckModify"));
}

TEST_P(BackendContract, TheArrowsOfASpinnerWorkOneByOne) {
  seen->ClickUp(*dialog->sizeSpinner);
  seen->ClickDown(*dialog->sizeSpinner);
  dialog->sizeSpinner->SetDownSensitivity(KorSensitivity::Disabled);
  seen->ClickDown(*dialog->sizeSpinner);
  seen->ClickUp(*dialog->sizeSpinner);
  EXPECT_THAT(dialog->Heard(),
              ElementsAre("SizeSpinner SpinnerUp", "SizeSpinner SpinnerDown", "SizeSpinner SpinnerUp"));
}

TEST_P(BackendContract, ClickingATabBringsItsPageToTheFrontOnce) {
  seen->ClickTab(*dialog->tabs, 1);
  seen->ClickTab(*dialog->tabs, 1);
  EXPECT_EQ(dialog->tabs->GetSelectedPage(), 1);
  EXPECT_EQ(seen->Selected(*dialog->tabs), 1);
  EXPECT_THAT(dialog->Heard(), ElementsAre("Tabs TabSelect"));
}

TEST_P(BackendContract, ADisabledPageStaysBehind) {
  dialog->secondPage->SetSensitivity(KorSensitivity::Disabled);
  seen->ClickTab(*dialog->tabs, 1);
  EXPECT_EQ(seen->Selected(*dialog->tabs), 0);
  EXPECT_THAT(dialog->Heard(), IsEmpty());
}

TEST_P(BackendContract, AHandlerMayBringThePageBack) {
  dialog->tabs->Subscribe(KorEvent::TabSelect, [this](KorCommand*, KorNotification*, KorCommandClientData) {
    dialog->tabs->SetSelectedPage(0);
  });
  seen->ClickTab(*dialog->tabs, 2);
  EXPECT_EQ(seen->Selected(*dialog->tabs), 0);
}

TEST_P(BackendContract, SelectingRowsOfAListTellsOfThem) {
  seen->ClickTab(*dialog->tabs, 2);
  dialog->Forget();
  seen->SelectRows(*dialog->list, {1});
  EXPECT_THAT(dialog->list->GetSelectedLines(), ElementsAre(1));
  EXPECT_THAT(dialog->Heard(), ElementsAre("List ListSelect"));
}

TEST_P(BackendContract, ClosingTheWindowTellsTheDialog) {
  seen->CloseWindow(*dialog);
  EXPECT_THAT(dialog->Heard(), ElementsAre("SampleDialog WindowClose"));
}
