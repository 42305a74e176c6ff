#include "framework/dialog/KorDlgEditor.h"
#include "framework/knowledge/KorCkeParmDictionary.h"
#include "tests/module/PanelTest.h"
#include "tests/module/ProbeBuffer.h"

namespace {

/// The host's dictionary without one magnitude, for as long as it lives.
class DictionaryWithout {
 public:
  explicit DictionaryWithout(const char* magnitude) {
    for (const KorCkeMagnitude_var& one : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
      if (one->Name() != magnitude) _dictionary.AddMagnitude(one);
    KorCkeGlobalFunctions::SetParmDictionary(&_dictionary);
  }
  ~DictionaryWithout() { KorCkeGlobalFunctions::RestoreParmDictionary(); }

 private:
  KorCkeParmDictionary _dictionary;
};

class Results : public PanelTest {
 protected:
  /// Other values than those shown, so that a later refresh can be seen.
  void ChangeComputed() {
    Buffer().SetMass("Computed", 5);
    const double cg[] = {1, 2, 3};
    Buffer().SetCG("Computed", cg);
    Buffer().SetInertia("Computed", KorMath3x3Matrix(7, 0, 0, 0, 8, 0, 0, 0, 9));
  }
  void ExpectOldResults() {
    EXPECT_EQ(Masses(), "2 kg, 0.5 kg, 0.25 kg");
    EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
    EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
    EXPECT_EQ(Products(), "1 kg·m², 2 kg·m², 3 kg·m²");
  }
  void ExpectNoResults() {
    EXPECT_EQ(Masses(), "..., ..., ...");
    EXPECT_EQ(CG(), "..., ..., ...");
    EXPECT_EQ(Moments(), "..., ..., ...");
    EXPECT_EQ(Products(), "..., ..., ...");
  }
};

TEST_F(Results, ShowTheComputedValuesAndTheProductsOfInertiaWithTheirPhysicalSign) {
  Open(SamplePart());
  ExpectOldResults();
}

TEST_F(Results, AProductOfInertiaThatIsZeroShowsNoSign) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].inertia = {10, 20, 30, 0, -0.0, 0};
  Open(part);
  EXPECT_EQ(Products(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(Results, AStatusQueryThatFailsEndsTheRefreshWithItsStatus) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  Open(buffer);
  ChangeComputed();
  buffer->failures["GetMassTypeDefined"] = -7;
  EXPECT_EQ(Panel().RefreshResultsTab(), -7);
  ExpectOldResults();
}

TEST_F(Results, ALowerDeviationQueryThatFailsEndsTheRefreshBehindTheMass) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  Open(buffer);
  ChangeComputed();
  SetUnit("MASS", "GRAM");
  buffer->failures["GetLowerDeviation"] = -8;
  EXPECT_EQ(Panel().RefreshResultsTab(), -8);
  EXPECT_EQ(Masses(), "5000 g, 0.5 kg, 0.25 kg");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
}

TEST_F(Results, AnUpperDeviationQueryThatFailsEndsTheRefreshBehindTheLower) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  Open(buffer);
  ChangeComputed();
  SetUnit("MASS", "GRAM");
  buffer->failures["GetUpperDeviation"] = -9;
  EXPECT_EQ(Panel().RefreshResultsTab(), -9);
  EXPECT_EQ(Masses(), "5000 g, 500 g, 0.25 kg");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(Results, WithoutADictionaryNothingChanges) {
  Open(SamplePart());
  ChangeComputed();
  KorCkeGlobalFunctions::SetParmDictionary(nullptr);
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  KorCkeGlobalFunctions::RestoreParmDictionary();
  ExpectOldResults();
}

TEST_F(Results, WithoutTheMassMagnitudeNothingChanges) {
  Open(SamplePart());
  ChangeComputed();
  const DictionaryWithout mass("MASS");
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  ExpectOldResults();
}

TEST_F(Results, WithoutTheLengthMagnitudeWhatWasShownBeforeItStays) {
  Open(SamplePart());
  ChangeComputed();
  const DictionaryWithout length("LENGTH");
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(Masses(), "5 kg, 0.5 kg, 0.25 kg");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²") << "it comes after the centre of gravity";
  EXPECT_EQ(Products(), "1 kg·m², 2 kg·m², 3 kg·m²");
  EXPECT_EQ(MTMoments(), "7 kg·m², 8 kg·m², 9 kg·m²") << "written before the centre of gravity";
  EXPECT_EQ(MTProducts(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(Results, WithoutTheInertiaMagnitudeTheMassIsShownAndTheInertiaStays) {
  Open(SamplePart());
  ChangeComputed();
  const DictionaryWithout inertia("INERTIAMOMENT");
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(Text("MassEditor"), "5 kg");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");  // it comes after the inertia
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(Results, WithAMagnitudeThatHasNoUnitsNothingChanges) {
  Open(SamplePart());
  ChangeComputed();
  KorCkeParmDictionary dictionary;
  dictionary.AddMagnitude(KorCkeMagnitude_var::Adopt(new KorCkeMagnitude("MASS", {})));
  KorCkeGlobalFunctions::SetParmDictionary(&dictionary);
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  KorCkeGlobalFunctions::RestoreParmDictionary();
  ExpectOldResults();
}

TEST_F(Results, AMassWithoutCentreOfGravityOrInertiaIsShownWithDots) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].cg.reset();
  part.massTypes[0].inertia.reset();
  Open(part);
  EXPECT_EQ(Masses(), "2 kg, 0.5 kg, 0.25 kg");
  EXPECT_EQ(CG(), "..., ..., ...");
  EXPECT_EQ(Moments(), "..., ..., ...");
  EXPECT_EQ(Products(), "..., ..., ...");
}

TEST_F(Results, ACentreOfGravityWithoutInertiaIsShownInEveryMode) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].inertia.reset();
  Open(part);
  Check("RootProductButton");
  Check("ReferenceButton");
  EXPECT_EQ(CG(), "800 mm, 2100 mm, 3300 mm");
  EXPECT_EQ(Moments(), "..., ..., ...");
}

TEST_F(Results, InertiaWithoutACentreOfGravityIsTurnedButCannotBeMoved) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].cg.reset();
  Open(part);
  Check("RootProductButton");
  EXPECT_EQ(CG(), "..., ..., ...");
  EXPECT_EQ(Moments(), "20 kg·m², 10 kg·m², 30 kg·m²");
  EXPECT_EQ(Products(), "-1 kg·m², -3 kg·m², 2 kg·m²");
  Check("ReferenceButton");
  EXPECT_EQ(Panel().RefreshResultsTab(), S_OK);
  EXPECT_EQ(Moments(), "..., ..., ...");
  EXPECT_EQ(Products(), "..., ..., ...");
}

TEST_F(Results, ReadOnlyEditorsCannotBeTypedInto) {
  Open(SamplePart());
  for (const char* editor : {"MassEditor", "LowerDeviationEditor", "CGxEditor", "IxxEditor", "IyzEditor"})
    EXPECT_TRUE(As<KorDlgEditor>(editor).IsReadOnly()) << editor;
}

// ---- a tensor shown under a label ----

TEST_F(Results, ATensorUnderTheLabelActiveGoesToTheResultsOnly) {
  Open(SamplePart());
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(1, -4, -5, -4, 2, -6, -5, -6, 3), "Active"),
            S_OK);
  EXPECT_EQ(Moments(), "1 kg·m², 2 kg·m², 3 kg·m²");
  EXPECT_EQ(Products(), "4 kg·m², 5 kg·m², 6 kg·m²");
  EXPECT_NE(MTMoments(), "1 kg·m², 2 kg·m², 3 kg·m²");
}

TEST_F(Results, ATensorUnderAnyOtherLabelGoesToTheMassTypesOnly) {
  Open(SamplePart());
  for (const char* label : {"Current", "Computed", "active", ""}) {
    Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(), label);
    EXPECT_EQ(MTMoments(), "0 kg·m², 0 kg·m², 0 kg·m²") << label;
    Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(1, -4, -5, -4, 2, -6, -5, -6, 3), label);
    EXPECT_EQ(MTMoments(), "1 kg·m², 2 kg·m², 3 kg·m²") << label;
    EXPECT_EQ(MTProducts(), "4 kg·m², 5 kg·m², 6 kg·m²") << label;
    ExpectOldResults();
  }
}

TEST_F(Results, OnlyTheUpperTriangleOfATensorCounts) {
  Open(SamplePart());
  Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(1, -4, -5, 99, 2, -6, 99, 99, 3), "Active");
  EXPECT_EQ(Products(), "4 kg·m², 5 kg·m², 6 kg·m²");
}

TEST_F(Results, TheirRefreshAlsoWritesTheComputedTensorToTheMassTypesOnPurpose) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  EXPECT_EQ(Panel().RefreshResultsTab(), S_OK);
  EXPECT_EQ(MTMoments(), "10 kg·m², 20 kg·m², 30 kg·m²") << "the label is the name of the computed mass type";
}

TEST_F(Results, WithoutTheInertiaMagnitudeATensorIsNotShown) {
  Open(SamplePart());
  const DictionaryWithout inertia("INERTIAMOMENT");
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(1, 0, 0, 0, 1, 0, 0, 0, 1), "Active"),
            E_FAIL);
  ExpectOldResults();
}

// ---- one magnitude shown again ----

TEST_F(Results, MassesAreShownAgainInTheCurrentUnitOnBothPages) {
  Open(SamplePart());
  SetUnit("MASS", "GRAM");
  SetUnit("LENGTH", "METER");
  EXPECT_EQ(Panel().RefreshMassUnits(), S_OK);
  EXPECT_EQ(Masses(), "2000 g, 500 g, 250 g");
  EXPECT_EQ(Text("MTMassEditor"), "2000 g");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm") << "lengths are another magnitude";
}

TEST_F(Results, LengthsAreShownAgainInTheCurrentUnitOnBothPages) {
  Open(SamplePart());
  SetUnit("LENGTH", "METER");
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  EXPECT_EQ(CG(), "0.1 m, 0.2 m, 0.3 m");
  EXPECT_EQ(Text("MTCGxEditor") + ", " + Text("MTCGyEditor") + ", " + Text("MTCGzEditor"),
            "0.1 m, 0.2 m, 0.3 m");
}

TEST_F(Results, MomentsAreShownAgainInTheCurrentUnitOnBothPages) {
  Open(SamplePart());
  SetUnit("INERTIAMOMENT", "KG_CM2");
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  EXPECT_EQ(Moments(), "100000 kg·cm², 200000 kg·cm², 300000 kg·cm²");
  EXPECT_EQ(Products(), "10000 kg·cm², 20000 kg·cm², 30000 kg·cm²");
  EXPECT_EQ(MTMoments(), "100000 kg·cm², 200000 kg·cm², 300000 kg·cm²");
  EXPECT_EQ(MTProducts(), "10000 kg·cm², 20000 kg·cm², 30000 kg·cm²");
}

TEST_F(Results, LengthsAndMomentsAreShownAgainInTheChosenReference) {
  Open(SamplePart());
  Check("RootProductButton");
  Check("ReferenceButton");
  SetUnit("LENGTH", "METER");
  SetUnit("INERTIAMOMENT", "KG_CM2");
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  EXPECT_EQ(CG(), "0.8 m, 2.1 m, 3.3 m");
  EXPECT_EQ(Moments(), "506000 kg·cm², 330600 kg·cm², 401000 kg·cm²");
}

TEST_F(Results, LengthsAndMomentsAreShownAgainInTheCustomAxes) {
  Open(SamplePart());
  ChooseCustomFrame({"100", "200", "300", "1", "0", "0", "0", "0", "1", "0", "-1", "0"});
  SetUnit("INERTIAMOMENT", "KG_CM2");
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  EXPECT_EQ(Moments(), "200000 kg·cm², 300000 kg·cm², 100000 kg·cm²");
  SetUnit("LENGTH", "METER");
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  // The point as it is typed reads as 100, 200, 300 m now: A·p = (100, 300, -200) m.
  EXPECT_EQ(CG(), "-99.2 m, -296.7 m, 197.9 m");
}

TEST_F(Results, AtTheReferenceTheShownMassTypeIsShownAgainMovedToTheOrigin) {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  Open(part);
  Check("ReferenceButton");
  SetUnit("INERTIAMOMENT", "KG_CM2");
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  EXPECT_EQ(MTMoments(), "50000 kg·cm², 100000 kg·cm², 110000 kg·cm²");  // 4 kg at (1, 0, 0) m
}

TEST_F(Results, AFailingDeviationQueryDoesNotFailTheMassesShownAgain) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  Open(buffer);
  SetUnit("MASS", "GRAM");
  buffer->failures["GetLowerDeviation"] = -8;
  EXPECT_EQ(Panel().RefreshMassUnits(), S_OK);
  EXPECT_EQ(Masses(), "2000 g, 0.5 kg, 0.25 kg");
}

class ResultsOfStatus : public Results, public testing::WithParamInterface<protocol::MassTypeStatus> {};

TEST_P(ResultsOfStatus, AreDotsAndStayDotsWhenTheUnitsAreShownAgain) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].status = GetParam();
  Open(part);
  EXPECT_EQ(Panel().RefreshResultsTab(), S_OK);
  ExpectNoResults();
  EXPECT_EQ(Panel().RefreshMassUnits(), S_OK);
  EXPECT_EQ(Panel().RefreshLengthUnits(), S_OK);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
  ExpectNoResults();
}
INSTANTIATE_TEST_SUITE_P(ZeroAndTwo, ResultsOfStatus,
                         testing::Values(protocol::MassTypeStatus::Undefined,
                                         protocol::MassTypeStatus::OutOfDate));

TEST_F(Results, TheDensityIsShownAgainInTheCurrentUnit) {
  Open(SamplePart());
  SetUnit("DENSITY", "G__CM3");
  EXPECT_EQ(Panel().RefreshDensityUnits(), S_OK);
  EXPECT_EQ(Text("DensityEditor"), "7.85 g/cm³");
}

TEST_F(Results, TheDensityAloneIsShownWithoutTheConversionOfTheReferenceUnitOnPurpose) {
  Open(SamplePart());
  const auto unit = [](const char* symbol) {
    return KorCkeUnit_var::Adopt(new KorCkeUnit("BIG", symbol, 1000));
  };
  KorCkeParmDictionary dictionary;  // of magnitudes whose first unit converts
  dictionary.AddMagnitude(KorCkeMagnitude_var::Adopt(new KorCkeMagnitude("DENSITY", {unit("D")})));
  dictionary.AddMagnitude(KorCkeMagnitude_var::Adopt(new KorCkeMagnitude("MASS", {unit("M")})));
  KorCkeGlobalFunctions::SetParmDictionary(&dictionary);
  Panel().RefreshDensityUnits();
  Panel().RefreshMassUnits();
  KorCkeGlobalFunctions::RestoreParmDictionary();
  EXPECT_EQ(Text("DensityEditor"), "7.85 D");
  EXPECT_EQ(Text("MassEditor"), "2 M") << "2 converted to 2000 and shown as 2";
}

TEST_F(Results, WithoutItsMagnitudeNothingIsShownAgain) {
  Open(SamplePart());
  const std::string before = Masses() + CG() + Moments() + Text("DensityEditor");
  KorCkeParmDictionary empty;
  KorCkeGlobalFunctions::SetParmDictionary(&empty);
  EXPECT_EQ(Panel().RefreshMassUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshLengthUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshDensityUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), E_FAIL);
  KorCkeGlobalFunctions::RestoreParmDictionary();
  EXPECT_EQ(Masses() + CG() + Moments() + Text("DensityEditor"), before);
}

TEST_F(Results, WithoutABufferNothingIsShownAgain) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  EXPECT_EQ(Panel().RefreshMassUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshLengthUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshDensityUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(), "Active"), E_FAIL);
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(Results, AtTheReferenceAMassOfZeroOrBelowIsShownAgainWithoutAMove) {
  for (const double mass : {0.0, -4.0}) {
    protocol::PartData part = SamplePart();
    part.activeMassType = "Estimated";
    part.massTypes[1].mass = mass;
    Open(part);
    Check("ReferenceButton");
    EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), S_OK);
    EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²") << mass;
    Close();
  }
}

TEST_F(Results, WhatIsTooLargeForANumberInTheCurrentUnitShowsNoValue) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].mass = 1e306;
  SetUnit("MASS", "GRAM");
  Open(part);
  EXPECT_EQ(Text("MassEditor"), "...");
  EXPECT_EQ(Text("MTMassEditor"), "...");
}

TEST_F(Results, InertiaThatBecomesTooLargeAtTheReferenceShowsNoValueOnBothPages) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].cg = {1e155, 0, 0};
  Open(part);
  Check("ReferenceButton");
  EXPECT_EQ(Moments(), "10 kg·m², ..., ...");
  EXPECT_EQ(MTMoments(), "10 kg·m², ..., ...");
}

}  // namespace
