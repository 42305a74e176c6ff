#include "framework/dialog/KorDlgRadioButton.h"
#include "tests/module/PanelTest.h"

namespace {

/// The sample part with Estimated the active mass type, so that the mass-types page shows it.
protocol::PartData WithEstimatedActive() {
  protocol::PartData part = SamplePart();
  part.activeMassType = "Estimated";
  return part;
}

class InertiaMode : public PanelTest {};

TEST_F(InertiaMode, AtTheReferenceBothPagesShowTheirTensorsMovedToTheOrigin) {
  Open(WithEstimatedActive());
  Check("ReferenceButton");
  EXPECT_EQ(Moments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
  EXPECT_EQ(Products(), "1.04 kg·m², 2.06 kg·m², 3.12 kg·m²");
  EXPECT_EQ(MTMoments(), "5 kg·m², 10 kg·m², 11 kg·m²");  // 4 kg at (1, 0, 0) m
  EXPECT_EQ(MTProducts(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(InertiaMode, BackAtTheCentreOfGravityBothPagesShowTheStoredTensors) {
  Open(WithEstimatedActive());
  Check("ReferenceButton");
  Check("CGButton");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
  EXPECT_EQ(MTMoments(), "5 kg·m², 6 kg·m², 7 kg·m²");
}

TEST_F(InertiaMode, WithAComputedMassOfZeroOnlyTheOtherTensorIsMovedAndShown) {
  protocol::PartData part = WithEstimatedActive();
  part.massTypes[0].mass = 0;
  Open(part);
  const std::string before = Moments();
  Check("ReferenceButton");
  EXPECT_EQ(Moments(), before);
  EXPECT_EQ(MTMoments(), "5 kg·m², 10 kg·m², 11 kg·m²");
}

TEST_F(InertiaMode, WithAShownMassOfZeroOnlyTheComputedTensorIsMovedAndShown) {
  protocol::PartData part = WithEstimatedActive();
  part.massTypes[1].mass = 0;
  Open(part);
  const std::string before = MTMoments();
  Check("ReferenceButton");
  EXPECT_EQ(Moments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
  EXPECT_EQ(MTMoments(), before);
}

TEST_F(InertiaMode, ANegativeMassCountsAsNone) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].mass = -2;
  Open(part);
  const std::string before = Moments();
  Check("ReferenceButton");
  EXPECT_EQ(Moments(), before);
}

TEST_F(InertiaMode, WithoutComputedTensorOrPointNothingChangesOnEitherPage) {
  for (const bool tensor : {true, false}) {
    protocol::PartData part = WithEstimatedActive();
    if (tensor)
      part.massTypes[0].inertia.reset();
    else
      part.massTypes[0].cg.reset();
    Open(part);
    const std::string before = Moments() + MTMoments();
    Check("ReferenceButton");
    EXPECT_EQ(Moments() + MTMoments(), before) << tensor;
    Close();
  }
}

TEST_F(InertiaMode, WithoutTheShownTypesTensorOrPointNothingChangesOnEitherPage) {
  for (const bool tensor : {true, false}) {
    protocol::PartData part = WithEstimatedActive();
    if (tensor)
      part.massTypes[1].inertia.reset();
    else
      part.massTypes[1].cg.reset();
    Open(part);
    const std::string before = Moments() + MTMoments();
    Check("ReferenceButton");
    EXPECT_EQ(Moments() + MTMoments(), before) << tensor;
    Close();
  }
}

TEST_F(InertiaMode, ShowsTheInertiaOfAnOutOfDateResultBesideDotsOnPurpose) {
  protocol::PartData part = WithEstimatedActive();
  part.massTypes[0].status = protocol::MassTypeStatus::OutOfDate;
  Open(part);
  EXPECT_EQ(Moments(), "..., ..., ...");
  Check("ReferenceButton");
  EXPECT_EQ(Text("MassEditor"), "...");
  EXPECT_EQ(Moments(), "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²");
}

TEST_F(InertiaMode, ShowsTheInertiaOfAStandardPartInPlaceOfItsDotsOnPurpose) {
  protocol::PartData part = WithEstimatedActive();
  part.standardPart = true;
  Open(part);
  EXPECT_EQ(MTMoments(), "..., ..., ...");
  Check("ReferenceButton");
  EXPECT_EQ(MTMoments(), "5 kg·m², 10 kg·m², 11 kg·m²");
}

TEST_F(InertiaMode, InTheRootProductTheResultsAreRefreshed) {
  Open(SamplePart());
  Check("RootProductButton");
  Check("ReferenceButton");
  EXPECT_EQ(Moments(), "50.6 kg·m², 33.06 kg·m², 40.1 kg·m²");
  Check("CGButton");
  EXPECT_EQ(Moments(), "20 kg·m², 10 kg·m², 30 kg·m²");
}

TEST_F(InertiaMode, WithoutABufferChangesNothing) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  const std::string before = Moments() + MTMoments();
  Check("ReferenceButton");
  EXPECT_EQ(Moments() + MTMoments(), before);
}

TEST_F(InertiaMode, TheBufferLearnsOfItOnlyAtTheNextCompute) {
  Open(SamplePart());
  Check("ReferenceButton");
  EXPECT_FALSE(Buffer().GetReferenceInertiaMode());
}

class ReferenceModeChoice : public PanelTest {
 protected:
  int RowOf(const char* frame) { return Widget(frame).GetGrid().row; }
};

TEST_F(ReferenceModeChoice, TheCustomReferenceShowsItsFrameAboveTheCommands) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  EXPECT_TRUE(IsShown("CustomRefModeFrame"));
  EXPECT_TRUE(IsEnabled("CustomRefModeFrame"));
  EXPECT_TRUE(Widget("CustomRefModeFrame").IsAttached());
  EXPECT_TRUE(Widget("Frame238").IsAttached());
  EXPECT_GT(RowOf("CustomRefModeFrame"), RowOf("Frame250")) << "below the reference frames";
  EXPECT_GT(RowOf("Frame238"), RowOf("CustomRefModeFrame"));
}

TEST_F(ReferenceModeChoice, TheOthersHideItAndMoveTheCommandsUp) {
  Open(SamplePart());
  for (const char* other : {"CurrentPartButton", "RootProductButton"}) {
    Check("CustomReferenceButton");
    const int below = RowOf("Frame238");
    Check(other);
    EXPECT_FALSE(IsShown("CustomRefModeFrame")) << other;
    EXPECT_FALSE(IsEnabled("CustomRefModeFrame")) << other;
    EXPECT_FALSE(Widget("CustomRefModeFrame").IsAttached()) << other;
    EXPECT_TRUE(Widget("Frame238").IsAttached()) << other;
    EXPECT_LT(RowOf("Frame238"), below) << other;
    EXPECT_GT(RowOf("Frame238"), RowOf("Frame250")) << other;
  }
}

TEST_F(ReferenceModeChoice, TheButtonThatBecameUncheckedDoesNothing) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  // Unchecking the custom reference tells its handler first; the frame goes because the root product was
  // checked.
  As<KorDlgRadioButton>("CustomReferenceButton").SetState(KorCheckState::Unchecked, KorNotify::Send);
  EXPECT_TRUE(IsShown("CustomRefModeFrame"));
  EXPECT_TRUE(IsEnabled("CustomRefModeFrame"));
}

TEST_F(ReferenceModeChoice, RefreshesTheResults) {
  Open(SamplePart());
  Check("RootProductButton");
  EXPECT_EQ(CG(), "800 mm, 2100 mm, 3300 mm");
  Check("CurrentPartButton");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
}

TEST_F(ReferenceModeChoice, KeepsTheCustomFrameThatWasTyped) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  Type("CPxEditor", "12.5");
  Check("CurrentPartButton");
  Check("CustomReferenceButton");
  EXPECT_EQ(Text("CPxEditor"), "12.5");
}

TEST_F(ReferenceModeChoice, WithoutABufferChangesNothing) {
  Open(SamplePart());
  Panel().SetModel(nullptr);
  Check("CustomReferenceButton");
  EXPECT_FALSE(IsShown("CustomRefModeFrame"));
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
}

}  // namespace
