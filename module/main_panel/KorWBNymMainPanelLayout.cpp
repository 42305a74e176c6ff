// The widgets of the part panel around its pages. Their names are the keys of the message catalogue and stay
// exactly as they are, the odd ones included.

#include "module/main_panel/KorWBNymMainPanel.h"

#include <iostream>

#include "module/main_panel/KorWBNymMainPanelPlace.h"
#include "module/main_panel/KorWBNymMainPanelTrace.h"
#include "module/main_panel/KorWBNymMainPanelWidth.h"
#include "module/shared/KorWBNymNavLayout.h"
#include "services/LumWBAllDataBuffer.h"

using namespace KorDlgStyle;
using namespace KorWBNymNavLayout;
using namespace KorWBNymMainPanelPlace;
using namespace KorWBNymMainPanelWidth;

void KorWBNymMainPanel::Build() {
  KORWB_PART_TRACE("Build");
  if (!_dataBuffer) {
    std::cout << "the buffer pointer is null!!!" << std::endl;
    return;
  }
  if (_widgets.tabs) return;
  BuildHeader();
  BuildResultsPage();
  BuildMassTypesPage();
  BuildMaterialPage();
  BuildPrecisionPage();
  if (Pdm().AreOldDocumentsUsed()) BuildDocumentsPage();
  if (Pdm().AdditionalInfoRequested()) BuildAdditionalPage();
  BuildModes();
  BuildCustomFrame();
  BuildCommands();
  WireHandlers();
  SetInitialState();
}

// Each widget has its row.
// clang-format off

// Two pairs of lamps of the same names: first of the calculation status, then of the persistency status.
void KorWBNymMainPanel::BuildHeader() {
  auto& w = _widgets;
  BuildLayout(*this, {
    Frame("Frame012", kBorderedFrame, {0, 0}, nullptr, {
      Label ("SelectionLabel",             {0, 0}),
      Editor("SelectionEditor", kReadOnly, {0, 1}, &w.selection, kSelectionWidth),
      Frame("FrameStatus", kBorderedFrame, {1, 0, 2}, nullptr, {
        Label("CalculationStatus", {0, 0}),
        Label("FlagRedLabel",      {0, 1}, &w.calculationRed),
        Label("FlagGreenLabel",    {0, 2}, &w.calculationGreen),
        Label("PersistencyStatus", {0, 3}),
        Label("FlagRedLabel",      {0, 4}, &w.persistencyRed),
        Label("FlagGreenLabel",    {0, 5}, &w.persistencyGreen)})}),
    TabContainer("TabContainer001", {1, 0}, &w.tabs)});
}

void KorWBNymMainPanel::BuildModes() {
  auto& w = _widgets;
  BuildLayout(*this, {Frame("Frame250", kPlainFrame, {2, 0}, nullptr, {
    Frame("StdPartFrame", kPlainFrame, {0, 0}, nullptr, {
      CheckButton("StdPartCheckButton", {0, 0}, &w.standardPart)}),
    Frame("AdditionalFrame1", kPlainFrame, {1, 0}, nullptr, {
      Frame("ConfigHandler", kTitledFrame, {0, 0}, nullptr, {
        Editor("ConfigHandlerEditor", kReadOnly, {0, 0}, &w.configHandler, kDocumentWidth)}),
      Frame("ActiveDoc", kTitledFrame, {0, 1}, nullptr, {
        Editor("Act", kReadOnly, {0, 0}, &w.act, kDocumentWidth)})}),
    Frame("AdditionalFrame2", kPlainFrame, {2, 0}, nullptr, {
      Frame("InertiaModeFrame", kTitledFrame, {0, 0}, &w.inertiaModeFrame, {
        RadioButton("CGButton",              {0, 0}, &w.atCG),
        RadioButton("ReferenceButton",       {0, 1}, &w.atReference)}),
      Frame("ReferenceModeFrame", kTitledFrame, {0, 1}, &w.referenceModeFrame, {
        RadioButton("CurrentPartButton",     {0, 0}, &w.currentPart),
        RadioButton("RootProductButton",     {0, 1}, &w.rootProduct),
        RadioButton("CustomReferenceButton", {0, 2}, &w.customReference)})})})});
}

// "XAxisxEditor" with its small x is the name. The order of the axis widgets is theirs too.
void KorWBNymMainPanel::BuildCustomFrame() {
  auto& w = _widgets;
  BuildLayout(*this, {Frame("CustomRefModeFrame", kTitledFrame, kCustomFrame, &w.customFrame, {
    Frame("Frame033", kPlainFrame, {0, 0}, nullptr, {
      Label ("CPxLabel",                 {0, 0}),
      Editor("CPxEditor", kNumberEditor, {0, 1}, &w.customPoint[0], kNumberWidth),
      Label ("CPyLabel",                 {0, 2}),
      Editor("CPyEditor", kNumberEditor, {0, 3}, &w.customPoint[1], kNumberWidth),
      Label ("CPzLabel",                 {0, 4}),
      Editor("CPzEditor", kNumberEditor, {0, 5}, &w.customPoint[2], kNumberWidth)}),
    Frame("DirectionsFrame", kTitledFrame, {1, 0}, nullptr, {
      Label ("XAxisXLabel",                 {0, 0}),
      Editor("XAxisxEditor", kNumberEditor, {0, 1}, &w.customAxes[0], kNumberWidth),
      Label ("XAxisZLabel",                 {0, 4}),
      Label ("XAxisYLabel",                 {0, 2}),
      Editor("XAxisYEditor", kNumberEditor, {0, 3}, &w.customAxes[1], kNumberWidth),
      Editor("XAxisZEditor", kNumberEditor, {0, 5}, &w.customAxes[2], kNumberWidth),
      Label ("YAxisXLabel",                 {1, 0}),
      Editor("YAxisXEditor", kNumberEditor, {1, 1}, &w.customAxes[3], kNumberWidth),
      Label ("YAxisZLabel",                 {1, 4}),
      Label ("YAxisYLabel",                 {1, 2}),
      Editor("YAxisYEditor", kNumberEditor, {1, 3}, &w.customAxes[4], kNumberWidth),
      Editor("YAxisZEditor", kNumberEditor, {1, 5}, &w.customAxes[5], kNumberWidth),
      Label ("ZAxisXLabel",                 {2, 0}),
      Editor("ZAxisXEditor", kNumberEditor, {2, 1}, &w.customAxes[6], kNumberWidth),
      Label ("ZAxisYLabel",                 {2, 2}),
      Editor("ZAxisYEditor", kNumberEditor, {2, 3}, &w.customAxes[7], kNumberWidth),
      Editor("ZAxisZEditor", kNumberEditor, {2, 5}, &w.customAxes[8], kNumberWidth),
      Label ("ZAxisZLabel",                 {2, 4})})})});
}

// The labels between the buttons only keep them apart.
void KorWBNymMainPanel::BuildCommands() {
  auto& w = _widgets;
  BuildLayout(*this, {Frame("Frame238", kPlainFrame, kCommandsBelowCustomFrame, &w.commandFrame, {
    Label     ("Label252",      {0, 0}),
    PushButton("ComputeButton", {0, 1}, &w.compute),
    Label     ("Label251",      {0, 2}),
    PushButton("EditButton",    {0, 3}, &w.edit),
    PushButton("SaveButton",    {0, 4}, &w.save),
    Label     ("Label247",      {0, 5}),
    PushButton("CloseButton",   {0, 6})})});
}
