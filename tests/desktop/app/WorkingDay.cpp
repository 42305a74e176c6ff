#include "tests/desktop/app/WorkingDay.h"

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"

namespace desktop::test {
namespace {

const std::string kTypes = "TabContainer001.TabPage003.Frame107.Frame231.";
const std::string kInertia = "TabContainer001.TabPage003.Frame113.MTMomentOfInertia.";
const std::string kProducts = "TabContainer001.TabPage003.Frame113.MTProductOfInertia.";
const std::string kCG = "TabContainer001.TabPage003.Frame113.MTCGFrame.";
const std::string kMaterial = "TabContainer001.TabPage004.MaterialAndDensityFrame.";
const std::string kPriority = "TabContainer001.TabPage004.DensityPriorityFrame.";
const std::string kPrecision = "TabContainer001.TabPage005.Frame252.";
const std::string kBounds = kPrecision + "PrecisionValueFrame.";
const std::string kActiveDocument =
    "TabContainer001.TabPageDocuments.UpperMainFrameActiveDoc.FrameActiveDoc.";
const std::string kDocumentMode =
    "TabContainer001.TabPageDocuments.LowerMainFrameActiveDoc.FrameActiveDocType.";
const std::string kProperties = "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.";

}  // namespace

void WorkingDay::ChooseRevision() {
  GoTo(kDocumentsPage);
  ASSERT_TRUE(_panel.Find<KorDlgRadioButton>(kDocumentMode + "ActiveDocUsrSelButton").Check());
  Press(kActiveDocument + "ChangeActiveDocButton");
  Pick(kActiveDocument + "ActiveDocsCombo", "DOC-BEDPLATE B");
  Press(kActiveDocument + "ApplyActiveDocButton");
  GoTo(kMassTypesPage);
  Pick(kTypes + "MassTypeCombo", "Calculated");
  ExpectText(kTypes + "MTMassEditor", "42900 kg");
}

void WorkingDay::PasteAndRescale() {
  GoTo(kMassTypesPage);
  Type(kTypes + "MTMassEditor", "2 * 21500");
  ExpectText(kTypes + "MTMassEditor", "43000");
  Pick(kTypes + "MTPasteValuesCombo", "Computed");
  ExpectText(kTypes + "MTMassEditor", "42274.27441 kg");
  Type(kTypes + "MTMassEditor", "84548.54882976364 kg");
  Press(kTypes + "UpdatePropertiesButton");
  // Twice the mass and 549069.848115082 kg m2.
  ExpectText(kInertia + "MTIxxEditor", "1098139.696 kg\u00b7m\u00b2");
  Type(kCG + "MTCGxEditor", "-1300.5 mm");
}

void WorkingDay::ChangePrecisionAndBack() {
  GoTo(kPrecisionPage);
  Pick(kPrecision + "Frame092.TypeCombo", "User Defined");
  Type(kBounds + "LowerValueEditor", "4");
  Type(kBounds + "UpperValueEditor", "2.5 %");
  ExpectText(kBounds + "UpperValueEditor", "2.5%");
  ShowBoundsAs(Bounds::Absolute);
  ExpectText(kBounds + "LowerValueEditor", "1716 kg");
  ShowBoundsAs(Bounds::Relative);
  ExpectText(kBounds + "LowerValueEditor", "4%");
}

void WorkingDay::ShowBoundsAs(Bounds bounds) {
  GoTo(kPrecisionPage);
  Pick(kBounds + "ValueTypeCombo", bounds == Bounds::Relative ? "Relative" : "Absolute");
}

void WorkingDay::EditProperties() {
  GoTo(kPropertiesPage);
  EditProperty("Last weighing", "2020-06-18", "2024-02-29");
  EditProperty("Overall length", "9200 mm", "9350.5 mm");
  EditProperty("Transport mass", "44500 kg", "45125");
}

void WorkingDay::Save() {
  Press("Frame238.SaveButton");
  EXPECT_FALSE(_panel.Find<KorDlgPushButton>("Frame238.SaveButton").IsEnabled());
}

void WorkingDay::Work(Bounds bounds) {
  Edit();
  ChooseRevision();
  PasteAndRescale();
  ChangePrecisionAndBack();
  if (bounds == Bounds::Absolute) ShowBoundsAs(bounds);
  EditProperties();
  Save();
}

// The scaled tensor is twice the published one of the bedplate: (549069.848115082, 664478.6729689115,
// 407774.3100071914) and 176991.4853469148 as its element xz, kg m2.
void WorkingDay::ExpectShown(Bounds bounds) {
  ExpectLine(kTypes + "MassTypeCombo", "Calculated");
  ExpectLine("TabContainer001.TabPage003.Frame230.ActiveMassCombo", "Calculated");
  ExpectText(kTypes + "MTMassEditor", "84548.54883 kg");
  ExpectText(kCG + "MTCGxEditor", "-1300.5 mm");
  ExpectText(kCG + "MTCGyEditor", "0 mm");
  ExpectText(kCG + "MTCGzEditor", "2586.079673 mm");
  ExpectText(kInertia + "MTIxxEditor", "1098139.696 kg\u00b7m\u00b2");
  ExpectText(kInertia + "MTIyyEditor", "1328957.346 kg\u00b7m\u00b2");
  ExpectText(kInertia + "MTIzzEditor", "815548.62 kg\u00b7m\u00b2");
  ExpectText(kProducts + "MTIxyEditor", "0 kg\u00b7m\u00b2");
  ExpectText(kProducts + "MTIxzEditor", "-353982.9707 kg\u00b7m\u00b2");
  ExpectText(kProducts + "MTIyzEditor", "0 kg\u00b7m\u00b2");
  ExpectText(kMaterial + "WBMaterialEditor", "Cast iron");
  ExpectText(kMaterial + "DensityEditor", "7200 kg/m\u00b3");
  ExpectLine(kPriority + "FirstCombo", "WB");
  ExpectText(kPrecision + "Frame253.ActiveMassTypeSelectedEditor", "Calculated");
  ExpectLine(kPrecision + "Frame092.TypeCombo", "User Defined");
  ExpectLine(kBounds + "ValueTypeCombo", bounds == Bounds::Relative ? "Relative" : "Absolute");
  ExpectText(kBounds + "LowerValueEditor", bounds == Bounds::Relative ? "4%" : "1716 kg");
  ExpectText(kBounds + "UpperValueEditor", bounds == Bounds::Relative ? "2.5%" : "1072.5 kg");
  ExpectChecked(kDocumentMode + "ActiveDocUsrSelButton");
  ExpectLine(kActiveDocument + "ActiveDocsCombo", "DOC-BEDPLATE B");
  ExpectText("Frame250.AdditionalFrame1.ActiveDoc.Act", "DOC-BEDPLATE B");
  ExpectProperty("Last weighing", "2024-02-29");
  ExpectProperty("Overall length", "9350.5 mm");
  ExpectProperty("Transport mass", "45125 kg");
  ExpectProperty("Supplier", "Nordguss");
}

void WorkingDay::Press(const std::string& button) {
  ASSERT_TRUE(_panel.Find<KorDlgPushButton>(button).Press()) << button;
}

void WorkingDay::GoTo(Page page) {
  ASSERT_TRUE(_panel.Find<KorDlgTabContainer>("TabContainer001").Pick(page)) << page;
}

void WorkingDay::Pick(const std::string& combo, const char* line) {
  ASSERT_TRUE(_panel.Find<KorDlgCombo>(combo).Pick(KorUnicodeString(line))) << combo << " " << line;
}

void WorkingDay::Type(const std::string& editor, const char* text) {
  auto& widget = _panel.Find<KorDlgEditor>(editor);
  ASSERT_TRUE(widget.EnterFocus()) << editor;
  ASSERT_TRUE(widget.Type(text)) << editor;
  ASSERT_TRUE(widget.LeaveFocus()) << editor;
}

void WorkingDay::EditProperty(const char* name, const char* shown, const char* text) {
  ExpectProperty(name, shown);
  Type(kProperties + "PropertyValueEditor", text);
}

std::string WorkingDay::TextOf(const std::string& editor) {
  return _panel.Find<KorDlgEditor>(editor).GetText().Utf8();
}

std::string WorkingDay::LineOf(const std::string& combo) {
  return _panel.Find<KorDlgCombo>(combo).GetSelectedLine().Utf8();
}

void WorkingDay::ExpectText(const std::string& editor, const char* text) {
  EXPECT_EQ(TextOf(editor), text) << editor;
}

void WorkingDay::ExpectLine(const std::string& combo, const char* line) {
  EXPECT_EQ(LineOf(combo), line) << combo;
}

void WorkingDay::ExpectChecked(const std::string& button) {
  EXPECT_TRUE(_panel.Find<KorDlgRadioButton>(button).IsChecked()) << button;
}

void WorkingDay::ExpectProperty(const char* name, const char* shown) {
  GoTo(kPropertiesPage);
  Pick(kProperties + "PropertyNameCombo", name);
  ExpectText(kProperties + "PropertyValueEditor", shown);
}

}  // namespace desktop::test
