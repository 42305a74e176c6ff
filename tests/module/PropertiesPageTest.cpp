#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "tests/module/EditTest.h"
#include "tests/support/TemporaryCatalogues.h"
#include "tests/support/TraceCapture.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// One property of each kind.
protocol::PartData PartWithEveryKind() {
  protocol::PartData part = SamplePart();
  part.propertiesRequested = true;
  part.dateFormat = "YYYY-MM-DD";
  part.properties = {{"Finish", "painted", 0, false, false, ""},
                     {"Count", "12", 1, false, false, ""},
                     {"Released", "2024-02-29", 1, true, false, ""},
                     {"Factor", "0.5", 2, false, false, ""},
                     {"Ballast", "1.5", 2, false, true, "MASS"}};
  return part;
}

class Properties : public EditTest {
 protected:
  /// Opens the additional-properties page with a property in the editor, in edit mode.
  void EditProperty(const std::string& name, protocol::PartData part = PartWithEveryKind()) {
    Open(std::move(part));
    Press("EditButton");
    PickPage("TabPageAdditional");
    Pick("PropertyNameCombo", name);
  }
  void ExpectUnsuitable(const char* type) {
    const KorUnicodeString word(type);
    Boxes().ExpectMessage(
        {"KorWBNymMainPanel", CatalogueText("WrongPropertyValue001.Title"),
         KorMsgCatalog::BuildMessage("KorWBNymMainPanel", "UnsuitablePropertyValue100", &word, 1).Utf8(),
         kErrorFlags});
  }
  /// Types a value and shows another property, which stores the value.
  void TypeAndLeave(const std::string& value) {
    Type("PropertyValueEditor", value);
    Pick("PropertyNameCombo", "Finish");
  }
  std::string Stored(int property) { return Buffer().GetPropertyValue(property).Utf8(); }
};

TEST_F(Properties, AreListedWithTheFirstOneShown) {
  Open(PartWithEveryKind());
  EXPECT_THAT(Lines("PropertyNameCombo"), ElementsAre("Finish", "Count", "Released", "Factor", "Ballast"));
  EXPECT_EQ(SelectedLine("PropertyNameCombo"), "Finish");
  EXPECT_EQ(Text("PropertyValueEditor"), "painted");
}

TEST_F(Properties, ShowOneAtATime) {
  Open(PartWithEveryKind());
  PickPage("TabPageAdditional");
  Pick("PropertyNameCombo", "Released");
  EXPECT_EQ(Text("PropertyValueEditor"), "2024-02-29");
  Pick("PropertyNameCombo", "Ballast");
  EXPECT_EQ(Text("PropertyValueEditor"), "1.5 kg");
}

TEST_F(Properties, OutsideEditModeAreNotStoredWhenAnotherOneIsShown) {
  Open(PartWithEveryKind());
  PickPage("TabPageAdditional");
  for (const char* name : {"Ballast", "Count", "Finish"}) Pick("PropertyNameCombo", name);
  KorUnicodeString text;
  Buffer().GetAllData(text);
  EXPECT_EQ(protocol::ReadPartData(text.Utf8()).Value().properties[4].value, "1.5");
  EXPECT_EQ(Stored(1), "painted");
}

TEST_F(Properties, OutsideEditModeAreNeitherStoredNorCheckedWhateverTheEditorHolds) {
  Open(PartWithEveryKind());
  PickPage("TabPageAdditional");
  Pick("PropertyNameCombo", "Count");
  As<KorDlgEditor>("PropertyValueEditor").SetText("unsuitable");  // no user types there
  Pick("PropertyNameCombo", "Finish");
  EXPECT_EQ(Stored(2), "12");
}

TEST_F(Properties, SayHowDatesAreWritten) {
  Open(PartWithEveryKind());
  EXPECT_EQ(Title("Hint for \"Date\" type of properties: YYYY-MM-DD"),
            "Hint for \"Date\" type of properties: YYYY-MM-DD");
}

TEST_F(Properties, HaveAnEditorTenCharactersWide) {
  Open(PartWithEveryKind());
  EXPECT_EQ(As<KorDlgEditor>("PropertyValueEditor").GetVisibleTextWidth(), 10);
}

TEST_F(Properties, InEditModeAreStoredWhenAnotherOneIsShown) {
  EditProperty("Count");
  TypeAndLeave("13");
  EXPECT_EQ(Stored(2), "13");
  EXPECT_EQ(Text("PropertyValueEditor"), "painted");
}

TEST_F(Properties, AreStoredAndDisabledByTheSave) {
  EditProperty("Finish");
  Type("PropertyValueEditor", "zinc | tin");
  EXPECT_EQ(Save().properties[0].value, "zinc | tin");
  EXPECT_FALSE(IsEnabled("PropertyValueEditor"));
  EXPECT_EQ(Text("PropertyValueEditor"), "zinc | tin");
}

// ---- validation only reports ----

TEST_F(Properties, ThatAreRealReportATextThatIsNoneAndStoreItAllTheSame) {
  EditProperty("Factor");
  ExpectUnsuitable(" \"Real\" ");
  TypeAndLeave("abc");
  EXPECT_EQ(Stored(4), "abc");
}

TEST_F(Properties, ThatAreRealTakeANumber) {
  EditProperty("Factor");
  TypeAndLeave("-1.5e3");
  EXPECT_EQ(Stored(4), "-1.5e3");
}

TEST_F(Properties, ThatAreRealReportANumberThatIsNotFinite) {
  EditProperty("Factor");
  ExpectUnsuitable(" \"Real\" ");
  TypeAndLeave("1e999");
}

TEST_F(Properties, ThatAreNumbersTakeATextThatANumberOpens) {
  EditProperty("Factor");
  TypeAndLeave("1.5abc");
  EXPECT_EQ(Stored(4), "1.5abc");
  Close();
  EditProperty("Count");
  TypeAndLeave("12.7");
  EXPECT_EQ(Stored(2), "12.7");
}

TEST_F(Properties, ThatAreDatesTakeATextInTheFormatOfTheSite) {
  EditProperty("Released");
  TypeAndLeave("2025-12-31");
  EXPECT_EQ(Stored(3), "2025-12-31");
}

TEST_F(Properties, ThatAreDatesReportAnyOtherTextAndDatesThatDoNotExist) {
  for (const char* text : {"31.12.2025", "tomorrow", "2025-02-29", "2025-13-01", "2025-1-1", "2025-04-31"}) {
    EditProperty("Released");
    ExpectUnsuitable(" \"Date\" ");
    TypeAndLeave(text);
    EXPECT_EQ(Stored(3), text);
    Close();
  }
}

TEST_F(Properties, ThatAreIntegersReportATextThatIsNone) {
  EditProperty("Count");
  ExpectUnsuitable(" \"Integer\" ");
  TypeAndLeave("x");
  EXPECT_EQ(Stored(2), "x");
}

TEST_F(Properties, OfAnyOtherTypeTakeAnything) {
  EditProperty("Finish");
  Type("PropertyValueEditor", "x");
  Pick("PropertyNameCombo", "Count");
  EXPECT_EQ(Stored(1), "x");
}

TEST_F(Properties, OfBlanksAloneAreNeverReported) {
  for (const char* name : {"Count", "Released", "Factor", "Ballast"}) {
    EditProperty(name);
    TypeAndLeave(" \t ");
    Close();
  }
}

TEST_F(Properties, OfNothingAreNeverReported) {
  for (const char* name : {"Count", "Released", "Factor", "Ballast"}) {
    EditProperty(name);
    TypeAndLeave("");
    Close();
  }
}

TEST_F(Properties, WithBlanksAroundThemAreTaken) {
  EditProperty("Released");
  TypeAndLeave(" 2025-12-31 ");
  EXPECT_EQ(Stored(3), " 2025-12-31 ");
}

TEST_F(Properties, AreReportedInASaveTooWhichGoesOn) {
  EditProperty("Count");
  Type("PropertyValueEditor", "x");
  ExpectUnsuitable(" \"Integer\" ");
  EXPECT_EQ(Save().properties[1].value, "x");
}

TEST_F(Properties, WithoutACatalogueAreReportedWithADefaultText) {
  TemporaryCatalogues empty;
  EditProperty("Count");
  Boxes().ExpectMessage({"KorWBNymMainPanel", "", "-- inappropriate --", kErrorFlags});
  TypeAndLeave("x");
}

// ---- magnitudes ----

TEST_F(Properties, ThatAreMagnitudesAreStoredInTheStorageUnitAndShownInTheCurrentOne) {
  SetUnit("MASS", "GRAM");  // a thousandth of the storage unit
  EditProperty("Ballast");
  EXPECT_EQ(Text("PropertyValueEditor"), "1500 g");
  TypeAndLeave("2");
  EXPECT_EQ(Stored(5), "0.002");
  Pick("PropertyNameCombo", "Ballast");
  EXPECT_EQ(Text("PropertyValueEditor"), "2 g");
}

TEST_F(Properties, ThatAreMagnitudesKeepTheDigitsThatAreNotShown) {
  protocol::PartData part = PartWithEveryKind();
  part.properties[4].value = "1.2345678901234567";
  SetUnit("MASS", "POUND");
  EditProperty("Ballast", part);
  Pick("PropertyNameCombo", "Finish");
  EXPECT_EQ(Stored(5), "1.2345678901234567");
}

TEST_F(Properties, ThatAreMagnitudesStoreWhatNoNumberOpensAsItWasTyped) {
  EditProperty("Ballast");
  ExpectUnsuitable(" \"Real\" ");
  TypeAndLeave("heavy");
  EXPECT_EQ(Stored(5), "heavy");
  Pick("PropertyNameCombo", "Ballast");
  EXPECT_EQ(Text("PropertyValueEditor"), "heavy");
  Type("PropertyValueEditor", "3");
}

TEST_F(Properties, ThatAreMagnitudesReportANumberTooLargeForTheStorageUnitAndKeepTheStoredOne) {
  SetUnit("MASS", "TONNE");
  EditProperty("Ballast");
  ExpectUnsuitable(" \"Real\" ");
  TypeAndLeave("1e306");
  EXPECT_EQ(Stored(5), "1.5");
  Pick("PropertyNameCombo", "Ballast");
  EXPECT_EQ(Text("PropertyValueEditor"), "0.0015 t");
}

TEST_F(Properties, ThatAreMagnitudesOfAnyTypeReportANumberTooLarge) {
  protocol::PartData part = PartWithEveryKind();
  part.properties[4].type = 0;
  SetUnit("MASS", "TONNE");
  EditProperty("Ballast", part);
  Type("PropertyValueEditor", "-1e306");
  ExpectUnsuitable(" \"Real\" ");
  EXPECT_EQ(Save().properties[4].value, "1.5");
}

TEST_F(Properties, ThatAreMagnitudesStoreBlanksAsTheyWereTyped) {
  EditProperty("Ballast");
  TypeAndLeave(" ");
  EXPECT_EQ(Stored(5), " ");
}

TEST_F(Properties, OfAMagnitudeThatTheHostDoesNotKnowAreTracedAndShownAsStored) {
  protocol::PartData part = PartWithEveryKind();
  part.properties[4].magnitude = "CHARM";
  Open(part);
  PickPage("TabPageAdditional");
  TraceCapture trace("KorWBCompPart");
  Pick("PropertyNameCombo", "Ballast");
  EXPECT_EQ(Text("PropertyValueEditor"), "1.5");
  EXPECT_THAT(trace.Text(), HasSubstr("Could not obtain a valid pointer for the CHARM magnitude!\n"));
}

TEST_F(Properties, ThatAreMagnitudesTraceTheirUnits) {
  SetUnit("MASS", "GRAM");
  Open(PartWithEveryKind());
  PickPage("TabPageAdditional");
  TraceCapture trace("KorWBCompPart");
  Pick("PropertyNameCombo", "Ballast");
  EXPECT_THAT(trace.Text(), HasSubstr("Current unit: GRAM\nStorage unit: KILOGRAM\n"));
}

TEST_F(Properties, ThatAreMagnitudesCanBeShownFromTheCurrentUnitWithoutConversion) {
  SetUnit("MASS", "GRAM");
  Open(PartWithEveryKind());
  PickPage("TabPageAdditional");
  Pick("PropertyNameCombo", "Ballast");
  Panel().RefreshMagnitudePropertiesUnits("2.50", false);
  EXPECT_EQ(Text("PropertyValueEditor"), "2.5 g");
  Panel().RefreshMagnitudePropertiesUnits("2.50", true);
  EXPECT_EQ(Text("PropertyValueEditor"), "2500 g");
  Panel().RefreshMagnitudePropertiesUnits("", true);
  EXPECT_EQ(Text("PropertyValueEditor"), "2500 g");
}

TEST_F(Properties, ThatAreNoMagnitudesAreShownAsTheyAre) {
  Open(PartWithEveryKind());
  Panel().RefreshMagnitudePropertiesUnits("7", true);
  EXPECT_EQ(Text("PropertyValueEditor"), "painted");
}

// ---- refresh ----

TEST_F(Properties, AreNotRefreshedWithoutABufferOrThePage) {
  Open(SamplePart());
  EXPECT_EQ(Panel().RefreshAdditionalInfoTab(), E_FAIL);
  Close();
  Open(PartWithEveryKind());
  EXPECT_EQ(Panel().RefreshAdditionalInfoTab(), S_OK);
  Panel().SetModel(nullptr);
  EXPECT_EQ(Panel().RefreshAdditionalInfoTab(), E_FAIL);
}

TEST_F(Properties, BeginAgainWithTheFirstOneAtARefreshWhichEndsEditModeAndStoresNothing) {
  EditProperty("Count");
  Type("PropertyValueEditor", "99");
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(SelectedLine("PropertyNameCombo"), "Finish");
  EXPECT_EQ(Text("PropertyValueEditor"), "painted");
  EXPECT_EQ(Stored(1), "painted");
  EXPECT_EQ(Stored(2), "12");
  EXPECT_FALSE(IsEnabled("PropertyValueEditor"));
}

TEST_F(Properties, BeginAgainWithTheFirstOneAtARefreshOfThePageInEditModeAndMixNothingUp) {
  EditProperty("Count");
  Panel().RefreshAdditionalInfoTab();
  EXPECT_EQ(Text("PropertyValueEditor"), "painted");
  EXPECT_EQ(Stored(1), "painted");
  EXPECT_EQ(Stored(2), "12");
}

TEST_F(Properties, OfThePartBeforeAreNotStoredForTheNextOne) {
  EditProperty("Count");
  Type("PropertyValueEditor", "99");
  protocol::PartData other = PartWithEveryKind();
  other.properties[0].value = "raw";
  auto next = BufferOf(other);
  Panel().SetModel(next.Get());
  EXPECT_EQ(next->GetPropertyValue(1), "raw");
  EXPECT_EQ(Text("PropertyValueEditor"), "raw");
}

// The page stays as it was laid out for the first part.
TEST_F(Properties, OfAPartThatHasNoneRequestedAreNotTakenFromThePage) {
  Open(PartWithEveryKind());
  protocol::PartData other = PartWithEveryKind();
  other.propertiesRequested = false;
  other.properties.at(0).value = "zinc";
  auto next = BufferOf(other);
  Panel().SetModel(next.Get());
  ASSERT_EQ(Text("PropertyValueEditor"), "painted") << "of the part before";
  Press("EditButton");
  EXPECT_EQ(Save().properties.at(0).value, "zinc");
}

TEST_F(Properties, ThatThereAreNoneOfCanBeSavedToo) {
  protocol::PartData part = SamplePart();
  part.propertiesRequested = true;
  Open(part);
  Press("EditButton");
  PickPage("TabPageAdditional");
  Type("PropertyValueEditor", "of nothing");
  EXPECT_TRUE(Save().properties.empty());
}

}  // namespace
