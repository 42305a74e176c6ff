#include "tests/desktop/support/DemoDialog.h"

#include <QApplication>

#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {

DemoDialog::DemoDialog(unsigned style) : KorDlgDialog(nullptr, "Demo", style) {
  using namespace KorDlgStyle;
  SetTitle("Demonstration");

  header = Add<KorDlgFrame>("Header", kTitledFrame, {.row = 0});
  header->SetTitle("Nuts & bolts");
  nameLabel = header->Add<KorDlgLabel>("NameLabel", kNone, {.row = 0, .column = 0});
  nameLabel->SetTitle("Name");
  nameEditor = header->Add<KorDlgEditor>("NameEditor", kNone, {.row = 0, .column = 1});
  nameEditor->SetText("cover");
  nameEditor->SetShortHelp("What the part is called.");
  massEditor = header->Add<KorDlgEditor>("MassEditor", kReadOnly, {.row = 0, .column = 2});
  massEditor->SetText("12.5 kg");
  redLamp = header->Add<KorDlgLabel>("FlagRedLabel", kNone, {.row = 0, .column = 3});
  redLamp->SetTitle("Out of date");

  tabs = Add<KorDlgTabContainer>("Tabs", kNone, {.row = 1});
  inputs = tabs->Add<KorDlgTabPage>("Inputs", kPage);
  inputs->SetTitle("Inputs");
  kindCombo = inputs->Add<KorDlgCombo>("KindCombo", kDropDown, {.row = 0});
  for (const char* line : {"Computed", "Estimated", "Weighed"}) kindCombo->SetLine(line);
  modes = inputs->Add<KorDlgFrame>("Modes", kPlainFrame, {.row = 1});
  own = modes->Add<KorDlgRadioButton>("OwnButton", kNone, {.column = 0});
  own->SetTitle("Own frame");
  own->SetState(KorCheckState::Checked);
  root = modes->Add<KorDlgRadioButton>("RootButton", kNone, {.column = 1});
  root->SetTitle("Root product");
  standard = inputs->Add<KorDlgCheckButton>("StandardButton", kNone, {.row = 2});
  standard->SetTitle("Standard part");
  spinner = inputs->Add<KorDlgSpinner>("MaterialSpinner", kTextSpinner, {.row = 3});
  spinner->SetText("Steel");
  number = inputs->Add<KorDlgEditor>("AxisEditor", kNumberEditor, {.row = 4});
  number->SetValue(0.5);

  lists = tabs->Add<KorDlgTabPage>("Lists", kPage);
  lists->SetTitle("Lists");
  list = lists->Add<KorDlgMultiList>("List", kMultiSelection);
  list->SetColumnTitles({"Part", "Mass"});
  list->SetColumnItem(0, "cover", 0);
  list->SetColumnItem(1, "20554 kg", 0);
  list->SetColumnItem(0, "nose", 1);

  buttons = Add<KorDlgFrame>("Buttons", kPlainFrame, {.row = 2});
  compute = buttons->Add<KorDlgPushButton>("ComputeButton", kNone, {.column = 0});
  compute->SetTitle("Compute");
  compute->SetShortHelp("Asks the server.");
  close = buttons->Add<KorDlgPushButton>("CloseButton", kNone, {.column = 1});
  close->SetTitle("Close");
}

void QtBackendTest::SetUp() {
  KorDlgObject::SetUnreachableObserver([](const KorDlgObject& widget, const char* verb) {
    ADD_FAILURE() << verb << " on \"" << widget.Path() << "\", which cannot be reached";
  });
}

void QtBackendTest::TearDown() {
  KorDlgObject::SetUnreachableObserver({});
  dialog.Detach();
  RunPendingEvents();
}

void QtBackendTest::Open() {
  dialog.SetVisibility(KorVisibility::Shown);
  dialog.Attach(&backend);
  RunPendingEvents();
  QApplication::setActiveWindow(Window());
}

}  // namespace desktop::test
