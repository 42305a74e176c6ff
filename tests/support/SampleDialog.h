#pragma once

#include <string>
#include <vector>

#include "framework/dialog/KorDlgCheckButton.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgFrame.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgMultiList.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgSpinner.h"
#include "framework/dialog/KorDlgTabContainer.h"

/// A dialog with a widget of every kind, shown, that writes down each notification it gets.
class SampleDialog : public KorDlgDialog {
 public:
  SampleDialog() : KorDlgDialog(nullptr, "SampleDialog", KorDlgStyle::kPanelDialog) {
    SetTitle("Sample");
    BuildForm();
    BuildPages();
    SetVisibility(KorVisibility::Shown);
    Listen(*this);
  }

  /// "ApplyButton PushActivate", ... in the order of the notifications.
  const std::vector<std::string>& Heard() const { return _heard; }
  void Forget() { _heard.clear(); }

  KorDlgFrame* form = nullptr;
  KorDlgLabel* nameLabel = nullptr;
  KorDlgEditor* nameEditor = nullptr;
  KorDlgEditor* lockedEditor = nullptr;
  KorDlgCombo* colourCombo = nullptr;
  KorDlgPushButton* applyButton = nullptr;
  KorDlgCheckButton* finishCheck = nullptr;
  KorDlgSpinner* sizeSpinner = nullptr;
  KorDlgFrame* sides = nullptr;
  KorDlgRadioButton* leftRadio = nullptr;
  KorDlgRadioButton* rightRadio = nullptr;
  KorDlgTabContainer* tabs = nullptr;
  KorDlgTabPage* firstPage = nullptr;
  KorDlgTabPage* secondPage = nullptr;
  KorDlgTabPage* thirdPage = nullptr;
  KorDlgEditor* firstEditor = nullptr;
  KorDlgEditor* secondEditor = nullptr;
  KorDlgMultiList* list = nullptr;

 private:
  template <class Widget>
  static Widget* Titled(KorDlgObject* parent, const char* name, unsigned style, int row, const char* title) {
    auto* widget = parent->Add<Widget>(name, style, KorDlgGrid{.row = row});
    widget->SetTitle(title);
    widget->SetShortHelp(std::string("Help of ") + name);
    return widget;
  }

  void BuildForm() {
    form = Titled<KorDlgFrame>(this, "Form", KorDlgStyle::kTitledFrame, 0, "Form");
    nameLabel = Titled<KorDlgLabel>(form, "NameLabel", 0, 0, "Name");
    nameEditor = Titled<KorDlgEditor>(form, "NameEditor", 0, 1, "");
    nameEditor->SetText("Rotor");
    lockedEditor = Titled<KorDlgEditor>(form, "LockedEditor", KorDlgStyle::kReadOnly, 2, "");
    lockedEditor->SetText("fixed");
    colourCombo = Titled<KorDlgCombo>(form, "ColourCombo", KorDlgStyle::kDropDown, 3, "");
    for (const char* colour : {"red", "green", "blue"}) colourCombo->SetLine(colour);
    colourCombo->SetSelect(1);
    applyButton = Titled<KorDlgPushButton>(form, "ApplyButton", 0, 4, "Apply");
    finishCheck = Titled<KorDlgCheckButton>(form, "FinishCheck", 0, 5, "Painted");
    sizeSpinner = Titled<KorDlgSpinner>(form, "SizeSpinner", KorDlgStyle::kTextSpinner, 6, "");
    sizeSpinner->SetText("medium");
    sides = Titled<KorDlgFrame>(this, "Sides", KorDlgStyle::kTitledFrame, 1, "Side");
    leftRadio = Titled<KorDlgRadioButton>(sides, "LeftRadio", 0, 0, "Left");
    rightRadio = Titled<KorDlgRadioButton>(sides, "RightRadio", 0, 1, "Right");
    leftRadio->SetState(KorCheckState::Checked);
  }

  void BuildPages() {
    tabs = Add<KorDlgTabContainer>("Tabs", 0, KorDlgGrid{.row = 2});
    firstPage = Titled<KorDlgTabPage>(tabs, "FirstPage", KorDlgStyle::kPage, 0, "First");
    firstEditor = Titled<KorDlgEditor>(firstPage, "FirstEditor", 0, 0, "");
    secondPage = Titled<KorDlgTabPage>(tabs, "SecondPage", KorDlgStyle::kPage, 0, "Second");
    secondEditor = Titled<KorDlgEditor>(secondPage, "SecondEditor", 0, 0, "");
    thirdPage = Titled<KorDlgTabPage>(tabs, "ThirdPage", KorDlgStyle::kPage, 0, "Third");
    list = thirdPage->Add<KorDlgMultiList>("List", KorDlgStyle::kMultiSelection);
    list->SetColumnTitles({"Part", "Mass"});
    list->SetColumnItem(0, "hub", 0);
    list->SetColumnItem(1, "190000", 0);
    list->SetColumnItem(0, "blade", 1);
    list->SetColumnItem(1, "65000", 1);
  }

  void Listen(KorDlgObject& widget) {
    static constexpr struct {
      KorEvent event;
      const char* name;
    } kEvents[] = {
        {KorEvent::PushActivate, "PushActivate"}, {KorEvent::RadioModify, "RadioModify"},
        {KorEvent::CheckModify, "CheckModify"},   {KorEvent::ComboSelect, "ComboSelect"},
        {KorEvent::EditorModify, "EditorModify"}, {KorEvent::FocusIn, "FocusIn"},
        {KorEvent::FocusOut, "FocusOut"},         {KorEvent::SpinnerUp, "SpinnerUp"},
        {KorEvent::SpinnerDown, "SpinnerDown"},   {KorEvent::SpinnerModify, "SpinnerModify"},
        {KorEvent::ListSelect, "ListSelect"},     {KorEvent::TabSelect, "TabSelect"},
        {KorEvent::DialogOK, "DialogOK"},         {KorEvent::DialogCancel, "DialogCancel"},
        {KorEvent::WindowClose, "WindowClose"},
    };
    for (const auto& one : kEvents)
      widget.Subscribe(one.event,
                       [this, &widget, what = one.name](KorCommand*, KorNotification*, KorCommandClientData) {
                         _heard.push_back(widget.Name() + " " + what);
                       });
    for (const auto& child : widget.Children()) Listen(*child);
  }

  std::vector<std::string> _heard;
};
