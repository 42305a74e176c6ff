// The pages of the part panel. The names of the widgets are the keys of the message catalogue and stay
// exactly as they are, the odd ones included.

#include "module/main_panel/KorWBNymMainPanel.h"

#include "module/main_panel/KorWBNymMainPanelWidth.h"
#include "module/shared/KorWBNymNavLayout.h"
#include "services/LumWBAllDataBuffer.h"

using namespace KorDlgStyle;
using namespace KorWBNymNavLayout;
using namespace KorWBNymMainPanelWidth;

// Each widget has its row.
// clang-format off

void KorWBNymMainPanel::BuildResultsPage() {
  auto& w = _widgets;
  BuildLayout(*w.tabs, {TabPage("TabPage002", nullptr, {
    Frame("MassFrame", kBorderedFrame, {0, 0, 3}, nullptr, {
      Label ("MassLabel",                       {0, 0}),
      Editor("MassEditor",           kReadOnly, {0, 1}, &w.mass,           kValueWidth),
      Label ("LowerDeviationLabel",             {0, 2}),
      Editor("LowerDeviationEditor", kReadOnly, {0, 3}, &w.lowerDeviation, kValueWidth),
      Label ("UpperDeviationLabel",             {0, 4}),
      Editor("UpperDeviationEditor", kReadOnly, {0, 5}, &w.upperDeviation, kValueWidth)}),
    Frame("CenterOfGravityFrame", kTitledFrame, {1, 0}, nullptr, {
      Label ("CGxLabel",            {0, 0}),
      Editor("CGxEditor", kReadOnly, {0, 1}, &w.cg[0], kValueWidth),
      Label ("CGyLabel",            {1, 0}),
      Editor("CGyEditor", kReadOnly, {1, 1}, &w.cg[1], kValueWidth),
      Label ("CGzLabel",            {2, 0}),
      Editor("CGzEditor", kReadOnly, {2, 1}, &w.cg[2], kValueWidth)}),
    Frame("MomentOfInertiaFrame", kTitledFrame, {1, 1}, nullptr, {
      Label ("IxxLabel",             {0, 0}),
      Editor("IxxEditor", kReadOnly, {0, 1}, &w.inertia[0], kValueWidth),
      Label ("IyyLabel",             {1, 0}),
      Editor("IyyEditor", kReadOnly, {1, 1}, &w.inertia[1], kValueWidth),
      Label ("IzzLabel",             {2, 0}),
      Editor("IzzEditor", kReadOnly, {2, 1}, &w.inertia[2], kValueWidth)}),
    Frame("ProductOfInertiaFrame", kTitledFrame, {1, 2}, nullptr, {
      Label ("IxyLabel",             {0, 0}),
      Editor("IxyEditor", kReadOnly, {0, 1}, &w.inertia[3], kValueWidth),
      Label ("IxzLabel",             {1, 0}),
      Editor("IxzEditor", kReadOnly, {1, 1}, &w.inertia[4], kValueWidth),
      Label ("IyzLabel",             {2, 0}),
      Editor("IyzEditor", kReadOnly, {2, 1}, &w.inertia[5], kValueWidth)})})});
}

void KorWBNymMainPanel::BuildMassTypesPage() {
  auto& w = _widgets;
  BuildLayout(*w.tabs, {TabPage("TabPage003", nullptr, {
    Frame("Frame230", kPlainFrame, {0, 0}, nullptr, {
      Label("ActiveMassLabel", {0, 0}),
      Combo("ActiveMassCombo", {0, 1}, &w.activeMass)}),
    Frame("Frame107", kBorderedFrame, {1, 0}, nullptr, {
      Frame("Frame231", kPlainFrame, {0, 0}, nullptr, {
        Label     ("MassTypeLabel",          {0, 0}),
        Combo     ("MassTypeCombo",          {0, 1}, &w.massType),
        Label     ("SpacerLabel1",           {0, 2}),
        Label     ("SpacerLabel2",           {1, 2}),
        Label     ("MTPasteValuesLabel",     {0, 3}),
        Combo     ("MTPasteValuesCombo",     {0, 4}, &w.pasteValues),
        Label     ("MTMassLabel",            {1, 0}),
        Editor    ("MTMassEditor",    kNone, {1, 1}, &w.mtMass, kValueWidth),
        PushButton("UpdatePropertiesButton", {1, 3}, &w.updateProperties),
        PushButton("DeleteButton",           {1, 4}, &w.deleteValues)})}),
    Frame("Frame113", kPlainFrame, {2, 0}, nullptr, {
      Frame("MTCGFrame", kTitledFrame, {0, 0}, nullptr, {
        Label ("MTCGxLabel",         {0, 0}),
        Editor("MTCGxEditor", kNone, {0, 1}, &w.mtCG[0], kValueWidth),
        Label ("MTCGyLabel",         {1, 0}),
        Editor("MTCGyEditor", kNone, {1, 1}, &w.mtCG[1], kValueWidth),
        Label ("MTCGzLabel",         {2, 0}),
        Editor("MTCGzEditor", kNone, {2, 1}, &w.mtCG[2], kValueWidth)}),
      Frame("MTMomentOfInertia", kTitledFrame, {0, 1}, nullptr, {
        Label ("MTIxxLabel",         {0, 0}),
        Editor("MTIxxEditor", kNone, {0, 1}, &w.mtInertia[0], kValueWidth),
        Label ("MTIyyLabel",         {1, 0}),
        Editor("MTIyyEditor", kNone, {1, 1}, &w.mtInertia[1], kValueWidth),
        Label ("MTIzzLabel",         {2, 0}),
        Editor("MTIzzEditor", kNone, {2, 1}, &w.mtInertia[2], kValueWidth)}),
      Frame("MTProductOfInertia", kTitledFrame, {0, 2}, nullptr, {
        Label ("MTIxyLabel",         {0, 0}),
        Editor("MTIxyEditor", kNone, {0, 1}, &w.mtInertia[3], kValueWidth),
        Label ("MTIxzLabel",         {1, 0}),
        Editor("MTIxzEditor", kNone, {1, 1}, &w.mtInertia[4], kValueWidth),
        Label ("MTIyzLabel",         {2, 0}),
        Editor("MTIyzEditor", kNone, {2, 1}, &w.mtInertia[5], kValueWidth)})})})});
}

void KorWBNymMainPanel::BuildMaterialPage() {
  auto& w = _widgets;
  BuildLayout(*w.tabs, {TabPage("TabPage004", nullptr, {
    Frame("MaterialAndDensityFrame", kTitledFrame, {0, 0}, nullptr, {
      Label  ("WBMaterialLabel",             {0, 0}),
      Editor ("WBMaterialEditor",     kNone, {0, 1}, &w.material, kValueWidth),
      Label  ("DensityLabel",                {0, 2}),
      Editor ("DensityEditor",        kNone, {0, 3}, &w.density, kValueWidth),
      Label  ("Material defined for the: ",  {1, 0}, &w.definedFor),
      Frame("ApplyOnButtonsFrame", kPlainFrame, {1, 1, 3}, &w.applyOnFrame, {
        RadioButton("ApplyOnReference", {0, 0}, &w.applyOnReference),
        RadioButton("ApplyOnInstance",  {0, 1}, &w.applyOnInstance)}),
      Label  ("MatStatNameLabel",            {2, 0}),
      Spinner("MatStatNameSpinner",          {2, 1}, &w.statisticsName),
      Label  ("MatStatDensityLabel",         {2, 2}),
      Editor ("MatStatDensityEditor", kNone, {2, 3}, &w.statisticsDensity, kValueWidth)}),
    Frame("DensityPriorityFrame", kTitledFrame, {1, 0}, nullptr, {
      Label("FirstLabel",  {0, 0}),
      Combo("FirstCombo",  {0, 1}, &w.firstPriority),
      Label("SecondLabel", {0, 2}),
      Combo("SecondCombo", {0, 3}, &w.secondPriority)})})});
}

void KorWBNymMainPanel::BuildPrecisionPage() {
  auto& w = _widgets;
  BuildLayout(*w.tabs, {TabPage("TabPage005", nullptr, {
    Frame("Frame252", kPlainFrame, {0, 0}, nullptr, {
      Frame("Frame092", kPlainFrame, {1, 0}, nullptr, {
        Label("TypeLabel", {0, 0}),
        Combo("TypeCombo", {0, 1}, &w.precisionType)}),
      Frame("PrecisionValueFrame", kTitledFrame, {2, 0}, nullptr, {
        Label ("UpperValueLabel",         {0, 0}),
        Editor("UpperValueEditor", kNone, {0, 1}, &w.upperPrecision, kValueWidth),
        Label ("LowerValueLabel",         {0, 2}),
        Editor("LowerValueEditor", kNone, {0, 3}, &w.lowerPrecision, kValueWidth),
        Label ("ValueTypeLabel",          {0, 4}),
        Combo ("ValueTypeCombo",          {0, 5}, &w.precisionValueType)}),
      Frame("Frame253", kPlainFrame, {0, 0}, nullptr, {
        Label ("ActiveMassTypeSelected",                  {0, 0}),
        Editor("ActiveMassTypeSelectedEditor", kReadOnly, {0, 1}, &w.activeTypeShown, kValueWidth)})})})});
}

// The five attribute editors share one name; the labels before them tell them apart.
void KorWBNymMainPanel::BuildDocumentsPage() {
  auto& w = _widgets;
  BuildLayout(*w.tabs, {TabPage("TabPageDocuments", &w.documentsPage, {
    Frame("UpperMainFrameActiveDoc", kPlainFrame, {0, 0}, nullptr, {
      Frame("FrameActiveDoc", kBorderedFrame, {0, 0}, nullptr, {
        Label     ("ActiveDocsComboLabel",  {0, 0}),
        Combo     ("ActiveDocsCombo",       {0, 1}, &w.activeDocs),
        PushButton("ChangeActiveDocButton", {0, 2}, &w.changeActiveDoc),
        Label     ("ActiveDocsPad1",        {0, 3}),
        PushButton("ApplyActiveDocButton",  {0, 4}, &w.applyActiveDoc),
        PushButton("CancelActiveDocButton", {0, 5}, &w.cancelActiveDoc)})}),
    Frame("LowerMainFrameActiveDoc", kBorderedFrame, {1, 0}, nullptr, {
      Frame("FrameComboDocs", kPlainFrame, {0, 0}, nullptr, {
        Label("DocumentsComboLabel", {0, 0}),
        Combo("DocumentsCombo",      {0, 1}, &w.documents)}),
      Frame("FrameDocAttr", kTitledFrame, {1, 0}, nullptr, {
        Label ("DocAttr1EditorLabel",       {0, 0}, nullptr, kReadOnly),
        Editor("DocAttr1Editor", kReadOnly, {0, 1}, &w.docAttributes[0], kDocumentWidth),
        Label ("DocAttr2EditorLabel",       {1, 0}, nullptr, kReadOnly),
        Editor("DocAttr1Editor", kReadOnly, {1, 1}, &w.docAttributes[1], kDocumentWidth),
        Label ("DocAttr3EditorLabel",       {2, 0}, nullptr, kReadOnly),
        Editor("DocAttr1Editor", kReadOnly, {2, 1}, &w.docAttributes[2], kDocumentWidth),
        Label ("DocAttr4EditorLabel",       {3, 0}, nullptr, kReadOnly),
        Editor("DocAttr1Editor", kReadOnly, {3, 1}, &w.docAttributes[3], kDocumentWidth),
        Label ("DocAttr5EditorLabel",       {4, 0}, nullptr, kReadOnly),
        Editor("DocAttr1Editor", kReadOnly, {4, 1}, &w.docAttributes[4], kDocumentWidth)}),
      Frame("FrameActiveDocType", kTitledFrame, {2, 0}, nullptr, {
        RadioButton("ActiveDocLatestButton",  {0, 0}, &w.activeDocLatest),
        RadioButton("ActiveDocUsrSelButton",  {0, 1}, &w.activeDocUserSelected)}),
      Frame("FrameCurrentlyAttachedDoc", kBorderedFrame, {3, 0}, nullptr, {
        Label ("CurrentlyAttachedDocLabel",             {0, 0}, nullptr, kReadOnly),
        Editor("CurrentlyAttachedDocEditor", kReadOnly, {0, 1}, &w.currentlyAttached, kDocumentWidth)})})})});
}

void KorWBNymMainPanel::BuildAdditionalPage() {
  auto& w = _widgets;
  KorDlgFrame* properties = nullptr;
  BuildLayout(*w.tabs, {TabPage("TabPageAdditional", &w.additionalPage, {
    Frame("ExtraPropertiesFrame", kTitledFrame, {0, 0}, &properties, {
      Label ("PropertyNameLabel",          {0, 0}),
      Label ("PropertyValueLabel",         {0, 1}),
      Combo ("PropertyNameCombo",          {1, 0}, &w.propertyName),
      Editor("PropertyValueEditor", kNone, {1, 1}, &w.propertyValue, kNumberWidth)})})});
  w.propertyValue->SetSensitivity(KorSensitivity::Disabled);
  if (Pdm().AreDateTypePropertiesPresent())
    BuildLayout(*properties, {Label("Hint for \"Date\" type of properties: YYYY-MM-DD", {2, 0, 2})});
}
