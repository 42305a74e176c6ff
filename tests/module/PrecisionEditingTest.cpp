// The precision page in edit mode.

#include "framework/dialog/KorDlgEditor.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "protocol/Codec.h"
#include "tests/module/EditingTest.h"

namespace {

constexpr std::initializer_list<const char*> kBounds = {"UpperValueEditor", "LowerValueEditor",
                                                        "ValueTypeCombo"};

/// Estimated, 200 kg, is active; its bounds are the user's: -5 %, +10 % or -5 kg, +10 kg. Those that come
/// with it are -2 % and +3 %.
protocol::PartData WithBounds(int type, int valueType) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  protocol::MassType& estimated = part.massTypes[1];
  estimated.mass = 200;
  estimated.precisionType = type;
  estimated.precisionValueType = valueType;
  estimated.lowerPrecision = valueType == 0 ? 0.05 : 5;
  estimated.upperPrecision = valueType == 0 ? 0.1 : 10;
  estimated.massTypeLowerPrecision = 0.02;
  estimated.massTypeUpperPrecision = 0.03;
  return part;
}

class PrecisionEditing : public EditingTest {
 protected:
  void EditPage(const protocol::PartData& part) { Edit(part, "TabPage005"); }
  std::string Bounds() { return Text("LowerValueEditor") + ", " + Text("UpperValueEditor"); }
  void TypeAndLeave(const std::string& editor, const std::string& text) {
    EXPECT_TRUE(Widget(editor).EnterFocus());
    Type(editor, text);
    EXPECT_TRUE(Widget(editor).LeaveFocus());
  }
  std::string SelectedText(const std::string& name) {
    const auto& editor = As<KorDlgEditor>(name);
    const int first = editor.GetSelectionFirst();
    return editor.GetText().SubString(first, editor.GetSelectionLast() - first).Utf8();
  }
};

// ---- precision type ----

TEST_F(PrecisionEditing, AStoredRelativeBoundOf005Shows5Percent) {
  EditPage(WithBounds(1, 0));
  EXPECT_EQ(Text("LowerValueEditor"), "5%");
}

TEST_F(PrecisionEditing, UserDefinedBoundsCanBeTyped) {
  EditPage(WithBounds(0, 0));
  EXPECT_FALSE(IsEnabled("UpperValueEditor"));
  Pick("TypeCombo", "User Defined");
  for (const char* widget : kBounds) EXPECT_TRUE(IsEnabled(widget)) << widget;
  EXPECT_EQ(Bounds(), "2%, 3%") << "those that were shown";
}

TEST_F(PrecisionEditing, ARefreshOfThePageTellsOfBoundsOfTheUserWhichOffersThem) {
  EditPage(WithBounds(1, 0));
  for (const char* widget : kBounds) Widget(widget).SetSensitivity(KorSensitivity::Disabled);
  EXPECT_EQ(Panel().RefreshPrecisionTab(), S_OK);
  for (const char* widget : kBounds) EXPECT_TRUE(IsEnabled(widget)) << widget;
}

TEST_F(PrecisionEditing, OutsideEditModeUserDefinedBoundsCannotBeTyped) {
  Open(WithBounds(1, 0));
  EXPECT_EQ(SelectedLine("TypeCombo"), "User Defined");
  for (const char* widget : kBounds) EXPECT_FALSE(IsEnabled(widget)) << widget;
}

TEST_F(PrecisionEditing, ChoosingMassTypeResetsTheValueTypeAndShowsItsOwnBoundsAsPercent) {
  EditPage(WithBounds(1, 1));
  Pick("TypeCombo", "Mass Type");
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Relative");
  EXPECT_EQ(Bounds(), "2%, 3%");
  for (const char* widget : kBounds) EXPECT_FALSE(IsEnabled(widget)) << widget;
}

TEST_F(PrecisionEditing, ARefreshWithoutBoundsOfTheUserLeavesTheFirstLineUnselectedByItOnPurpose) {
  EditPage(WithBounds(0, 0));
  for (const char* widget : kBounds) Widget(widget).SetSensitivity(KorSensitivity::Enabled);
  EXPECT_EQ(Panel().RefreshPrecisionTab(), S_OK);
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  // A selection would have been told of, and would have disabled them.
  for (const char* widget : kBounds) EXPECT_TRUE(IsEnabled(widget)) << widget;
}

TEST_F(PrecisionEditing, AnotherActiveMassTypeShowsItsBounds) {
  EditPage(WithBounds(1, 1));
  EXPECT_EQ(Bounds(), "5 kg, 10 kg");
  PickPage("TabPage003");
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_EQ(Text("ActiveMassTypeSelectedEditor"), "Weighed");
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Relative");
  EXPECT_EQ(Bounds(), "0%, 0%");
  EXPECT_FALSE(IsEnabled("UpperValueEditor"));
  Pick("ActiveMassCombo", "Estimated");
  EXPECT_EQ(SelectedLine("TypeCombo"), "User Defined");
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Absolute");
  EXPECT_EQ(Bounds(), "5 kg, 10 kg");
  EXPECT_TRUE(IsEnabled("UpperValueEditor"));
}

TEST_F(PrecisionEditing, OwnBoundsThatAreAbsoluteAreShownInKilograms) {
  protocol::PartData part = SamplePart();
  part.massTypes[2].precisionValueType = 1;
  part.massTypes[2].massTypeLowerPrecision = 2;
  part.massTypes[2].massTypeUpperPrecision = 3;
  Edit(part, "TabPage003");
  Pick("ActiveMassCombo", "Weighed");
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  EXPECT_EQ(SelectedLine("ValueTypeCombo"), "Absolute");
  EXPECT_EQ(Bounds(), "2 kg, 3 kg");
}

/// Answers with a precision type that no data text can hold.
class OddPrecision : public LumWBAllDataBuffer {
 public:
  int GetPrecisionType(const KorUnicodeString&) const override { return 2; }
};

TEST_F(PrecisionEditing, ATypeThatIsNeither0Nor1IsTheUsersForAnActiveTypeButNotForARefresh) {
  auto buffer = LumWBAllDataBuffer_var::Adopt(new OddPrecision);
  EXPECT_EQ(buffer->SetAllData(protocol::WritePartData(WithBounds(1, 0)), true), S_OK);
  Open(buffer);
  EXPECT_EQ(SelectedLine("TypeCombo"), "Mass Type");
  EXPECT_EQ(Bounds(), "2%, 3%");
  Press("EditButton");
  PickPage("TabPage003");
  Pick("ActiveMassCombo", "Estimated");
  EXPECT_EQ(SelectedLine("TypeCombo"), "User Defined");
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionEditing, WithoutABufferAnotherPrecisionTypeChangesNothing) {
  EditPage(WithBounds(1, 0));
  Panel().SetModel(nullptr);
  Pick("TypeCombo", "Mass Type");
  EXPECT_EQ(Bounds(), "5%, 10%");
  EXPECT_TRUE(IsEnabled("UpperValueEditor"));
}

// ---- value type ----

TEST_F(PrecisionEditing, FivePercentOf200Are10AndBack) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "10 kg, 20 kg");
  Pick("ValueTypeCombo", "Relative");
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionEditing, ConvertsWithTheMassInTheCurrentUnit) {
  SetUnit("MASS", "TONNE");
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "0.01 t, 0.02 t");
  Pick("ValueTypeCombo", "Relative");
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionEditing, ConvertingLeavesTheBuffer) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Buffer().GetLowerPrecision("Estimated"), 0.05);
  EXPECT_EQ(Buffer().GetPrecisionValueType("Estimated"), 0);
}

TEST_F(PrecisionEditing, SelectingTheSameValueTypeTwiceChangesNothingTheSecondTime) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "10 kg, 20 kg");
}

TEST_F(PrecisionEditing, TheFirstChoiceOfAPanelConvertsAlsoToTheTypeThatIsShownOnPurpose) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Relative");  // 5 and 10, taken as kilograms, of 200 kg
  EXPECT_EQ(Bounds(), "2.5%, 5%");
}

TEST_F(PrecisionEditing, WhatARefreshSelectsIsNoChangeOnPurpose) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  Panel().RefreshPrecisionTab();
  EXPECT_EQ(Bounds(), "5%, 10%");
  Pick("ValueTypeCombo", "Absolute");  // as at the last change
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionEditing, TheResetOfTheValueTypeIsNoChangeOnPurpose) {
  EditPage(WithBounds(1, 1));
  Pick("TypeCombo", "Mass Type");
  Pick("TypeCombo", "User Defined");
  Pick("ValueTypeCombo", "Relative");  // the first change: 2 and 3, taken as kilograms, of 200 kg
  EXPECT_EQ(Bounds(), "1%, 1.5%");
}

TEST_F(PrecisionEditing, TheValueTypeOfAnotherActiveTypeIsNoChangeOnPurpose) {
  Edit(WithBounds(1, 1), "TabPage003");
  Pick("ActiveMassCombo", "Weighed");
  Pick("ActiveMassCombo", "Estimated");
  PickPage("TabPage005");
  Pick("ValueTypeCombo", "Absolute");  // the first change: 5 and 10, taken as percent, of 200 kg
  EXPECT_EQ(Bounds(), "10 kg, 20 kg");
}

TEST_F(PrecisionEditing, AfterAChangeAndAResetTheSameValueTypeAgainConvertsNothingOnPurpose) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  Pick("TypeCombo", "Mass Type");
  Pick("TypeCombo", "User Defined");
  Pick("ValueTypeCombo", "Absolute");  // as at the last change
  EXPECT_EQ(Bounds(), "2%, 3%");
  Save();
  EXPECT_EQ(Buffer().GetLowerPrecision("Estimated"), 2);
  EXPECT_EQ(Text("LowerValueEditor"), "2 kg");
}

TEST_F(PrecisionEditing, AfterAChangeAndAnotherActiveTypeTheSameValueTypeAgainConvertsNothingOnPurpose) {
  EditPage(WithBounds(1, 0));
  Pick("ValueTypeCombo", "Absolute");
  PickPage("TabPage003");
  Pick("ActiveMassCombo", "Weighed");
  Pick("ActiveMassCombo", "Estimated");
  PickPage("TabPage005");
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionEditing, ThePercentageOfNoMassIsNoValueAndASaveStoresNoBoundOfTheOtherValueType) {
  protocol::PartData part = WithBounds(1, 1);
  part.massTypes[1].mass = 0;
  EditPage(part);
  Pick("ValueTypeCombo", "Relative");
  EXPECT_EQ(Bounds(), "..., ...");
  Save();
  EXPECT_EQ(Buffer().GetLowerPrecision("Estimated"), 0) << "5 kg are not 500 percent";
  EXPECT_EQ(Buffer().GetUpperPrecision("Estimated"), 0);
  EXPECT_EQ(Buffer().GetPrecisionValueType("Estimated"), 0) << "the value type is stored in any case";
  EXPECT_EQ(Bounds(), "0%, 0%") << "what is stored";
}

TEST_F(PrecisionEditing, ThePercentageOfNoMassIsNoValueAndBackAtAbsoluteASaveKeepsTheStoredBounds) {
  protocol::PartData part = WithBounds(1, 1);
  part.massTypes[1].mass = 0;
  EditPage(part);
  Pick("ValueTypeCombo", "Relative");
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "..., ...") << "no 0 kg, which nobody typed";
  Save();
  EXPECT_EQ(Buffer().GetLowerPrecision("Estimated"), 5);
  EXPECT_EQ(Buffer().GetUpperPrecision("Estimated"), 10);
  EXPECT_EQ(Buffer().GetPrecisionValueType("Estimated"), 1);
}

/// Computed, 2 kg, is active in the buffer; Estimated, 4 kg, is chosen as active and not saved.
class PrecisionOfAChosenType : public PrecisionEditing {
 protected:
  void SetUp() override {
    PrecisionEditing::SetUp();
    protocol::PartData part = WithBounds(1, 0);
    part.activeMassType = "Computed";
    part.massTypes[0].precisionType = 0;
    part.massTypes[0].massTypeLowerPrecision = 0.2;
    part.massTypes[0].massTypeUpperPrecision = 0.3;
    part.massTypes[1].mass = 4;
    Edit(part, "TabPage003");
    Pick("ActiveMassCombo", "Estimated");
    PickPage("TabPage005");
  }
};

TEST_F(PrecisionOfAChosenType, ItsMassConvertsTheBounds) {
  ASSERT_EQ(Bounds(), "5%, 10%");
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "0.2 kg, 0.4 kg") << "of 4 kg, not of 2 kg";
}

TEST_F(PrecisionOfAChosenType, MassTypeShowsTheBoundsThatComeWithIt) {
  Pick("TypeCombo", "Mass Type");
  EXPECT_EQ(Bounds(), "2%, 3%") << "not the 20 % and 30 % of Computed";
}

TEST_F(PrecisionEditing, TheMassThatConvertsIsTheOneTheUserReads) {
  protocol::PartData part = WithBounds(1, 0);
  part.massTypes[1].mass = 1.0 / 3;
  part.massTypes[1].lowerPrecision = 3;
  EditPage(part);
  ASSERT_EQ(Text("MTMassEditor"), "0.3333333333 kg");
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Text("LowerValueEditor"), "0.9999999999 kg") << "not the 1 kg of a third of a kilogram";
}

TEST_F(PrecisionEditing, ABoundWithoutAValueIsNotRewrittenWhenTheFocusLeaves) {
  for (const int valueType : {0, 1}) {
    EditPage(WithBounds(1, valueType));
    TypeAndLeave("UpperValueEditor", "...");
    EXPECT_EQ(Text("UpperValueEditor"), "...");
    Close();
  }
}

TEST_F(PrecisionEditing, WithoutTheMassMagnitudeBoundsStayAsTheyAre) {
  EditPage(WithBounds(1, 0));
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "5%, 10%");
}

TEST_F(PrecisionEditing, WithoutABufferTheMassIsZero) {
  EditPage(WithBounds(1, 0));
  Panel().SetModel(nullptr);
  Pick("ValueTypeCombo", "Absolute");
  EXPECT_EQ(Bounds(), "0 kg, 0 kg");
}

// ---- focus ----

TEST_F(PrecisionEditing, ARelativeBoundOf750IsRewrittenAs75PercentWhenTheFocusLeaves) {
  EditPage(WithBounds(1, 0));
  TypeAndLeave("UpperValueEditor", "7.50");
  EXPECT_EQ(Text("UpperValueEditor"), "7.5%");
  EXPECT_EQ(Text("LowerValueEditor"), "5%");
}

TEST_F(PrecisionEditing, AnAbsoluteBoundIsRewrittenInTheCurrentMassUnitAndSelected) {
  SetUnit("MASS", "GRAM");
  EditPage(WithBounds(1, 1));
  TypeAndLeave("LowerValueEditor", "7.50");
  EXPECT_EQ(Text("LowerValueEditor"), "7.5 g");
  EXPECT_EQ(SelectedText("LowerValueEditor"), "7.5 g");
}

TEST_F(PrecisionEditing, ComingIntoABoundSelectsItWhole) {
  EditPage(WithBounds(1, 0));
  Type("UpperValueEditor", "7.50");
  EXPECT_TRUE(Widget("UpperValueEditor").EnterFocus());
  EXPECT_EQ(Text("UpperValueEditor"), "7.50");
  EXPECT_EQ(SelectedText("UpperValueEditor"), "7.50");
}

TEST_F(PrecisionEditing, ARelativeBoundIsNotSelectedWhenTheFocusLeaves) {
  EditPage(WithBounds(1, 0));
  Type("UpperValueEditor", "7.50");
  EXPECT_TRUE(Widget("UpperValueEditor").LeaveFocus());
  EXPECT_EQ(SelectedText("UpperValueEditor"), "");
}

TEST_F(PrecisionEditing, ABoundThatIsNoNumberReadsAsZero) {
  EditPage(WithBounds(1, 0));
  TypeAndLeave("UpperValueEditor", "plenty");
  EXPECT_EQ(Text("UpperValueEditor"), "0%");
}

TEST_F(PrecisionEditing, WithoutTheMassMagnitudeAnAbsoluteBoundIsSelectedAsItIs) {
  EditPage(WithBounds(1, 1));
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  TypeAndLeave("UpperValueEditor", "7.50");
  EXPECT_EQ(Text("UpperValueEditor"), "7.50");
  EXPECT_EQ(SelectedText("UpperValueEditor"), "7.50");
}

/// Lets a test call the handler as a sender that is no editor would.
struct AskedPanel : KorWBNymMainPanel {
  using KorWBNymMainPanel::KorWBNymMainPanel;
  using KorWBNymMainPanel::OnPrecisionEditorFocusNotification;
};

TEST_F(PrecisionEditing, WithoutASendingEditorNothingIsRewritten) {
  UseMaker([](KorWBAllDataBuffer* buffer) { return std::make_unique<AskedPanel>(buffer); });
  EditPage(WithBounds(1, 0));
  Type("UpperValueEditor", "7.50");
  for (KorCommand* sender :
       {static_cast<KorCommand*>(nullptr), static_cast<KorCommand*>(&Widget("EditButton"))})
    static_cast<AskedPanel&>(Panel()).OnPrecisionEditorFocusNotification(sender, nullptr, KorClientData(1));
  EXPECT_EQ(Text("UpperValueEditor"), "7.50");
}

TEST_F(PrecisionEditing, ABoundWithoutAValueKeepsTheStoredOneOfTheSameValueType) {
  EditPage(WithBounds(1, 0));
  Type("UpperValueEditor", "...");
  Save();
  EXPECT_EQ(Buffer().GetUpperPrecision("Estimated"), 0.1);
}

}  // namespace
