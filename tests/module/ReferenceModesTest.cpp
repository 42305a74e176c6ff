#include "framework/knowledge/KorUnitSystems.h"
#include "tests/module/PanelTest.h"
#include "tests/module/ProbeBuffer.h"

namespace {

/// A unit system with what the results show in every mode, and the custom point as it is typed there.
struct Units {
  const char* system;
  const char* masses;
  std::array<const char*, 3> point;
};

// 1 in = 25.4 mm; 1 lb·in² = 0.45359237 · 0.0254² kg·m².
constexpr Units kMixed{"Mixed", "2 kg, 0.5 kg, 0.25 kg", {"100", "200", "300"}};
constexpr Units kSi{"SI", "2 kg, 0.5 kg, 0.25 kg", {"0.1", "0.2", "0.3"}};
constexpr Units kImperial{"Imperial", "4.409245244 lb, 1.102311311 lb, 0.5511556555 lb", {"0", "0", "0"}};

/// How the sample part's results read in one reference mode and one inertia mode.
struct View {
  const char* name;
  const Units& units;
  const char* referenceButton;
  const char* inertiaButton;
  const char* cg;
  const char* moments;
  const char* products;
};
std::ostream& operator<<(std::ostream& out, const View& view) {
  return out << view.name << " in " << view.units.system;
}

// The part: 2 kg at c = (0.1, 0.2, 0.3) m; tensor rows (10, -1, -2), (-1, 20, -3), (-2, -3, 30) about c.
//
// The root product: turned by 90° about z, (x, y) -> (-y, x), and moved by (1, 2, 3) m:
// - c = (0.8, 2.1, 3.3) m
// - tensor rows (20, 1, 3), (1, 10, -2), (3, -2, 30)
//
// The custom frame: point p = (0.1, 0.2, 0.3) m, axes A = (1, 0, 0), (0, 0, 1), (0, -1, 0):
// - reference A·p = (0.1, 0.3, -0.2) m
// - A·c = (0.8, 3.3, -2.1) m
// - tensor A⁻¹·M·A with rows (20, -3, 1), (-3, 30, 2), (1, 2, 10)
//
// About the reference: I + m·(|d|²·E − d·dᵀ), d from the centre of gravity to the reference.
constexpr View kViews[] = {
    {"CurrentPartAtCG", kMixed, "CurrentPartButton", "CGButton", "100 mm, 200 mm, 300 mm",
     "10 kg·m², 20 kg·m², 30 kg·m²", "1 kg·m², 2 kg·m², 3 kg·m²"},
    {"CurrentPartAtReference", kMixed, "CurrentPartButton", "ReferenceButton", "100 mm, 200 mm, 300 mm",
     "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²", "1.04 kg·m², 2.06 kg·m², 3.12 kg·m²"},
    {"RootProductAtCG", kMixed, "RootProductButton", "CGButton", "800 mm, 2100 mm, 3300 mm",
     "20 kg·m², 10 kg·m², 30 kg·m²", "-1 kg·m², -3 kg·m², 2 kg·m²"},
    {"RootProductAtReference", kMixed, "RootProductButton", "ReferenceButton", "800 mm, 2100 mm, 3300 mm",
     "50.6 kg·m², 33.06 kg·m², 40.1 kg·m²", "2.36 kg·m², 2.28 kg·m², 15.86 kg·m²"},
    {"CustomAtCG", kMixed, "CustomReferenceButton", "CGButton", "700 mm, 3000 mm, -1900 mm",
     "20 kg·m², 30 kg·m², 10 kg·m²", "3 kg·m², -1 kg·m², -2 kg·m²"},
    {"CustomAtReference", kMixed, "CustomReferenceButton", "ReferenceButton", "700 mm, 3000 mm, -1900 mm",
     "45.22 kg·m², 38.2 kg·m², 28.98 kg·m²", "7.2 kg·m², -3.66 kg·m², -13.4 kg·m²"},
    {"CurrentPartAtCG", kSi, "CurrentPartButton", "CGButton", "0.1 m, 0.2 m, 0.3 m",
     "10 kg·m², 20 kg·m², 30 kg·m²", "1 kg·m², 2 kg·m², 3 kg·m²"},
    {"CurrentPartAtReference", kSi, "CurrentPartButton", "ReferenceButton", "0.1 m, 0.2 m, 0.3 m",
     "10.26 kg·m², 20.2 kg·m², 30.1 kg·m²", "1.04 kg·m², 2.06 kg·m², 3.12 kg·m²"},
    {"RootProductAtCG", kSi, "RootProductButton", "CGButton", "0.8 m, 2.1 m, 3.3 m",
     "20 kg·m², 10 kg·m², 30 kg·m²", "-1 kg·m², -3 kg·m², 2 kg·m²"},
    {"RootProductAtReference", kSi, "RootProductButton", "ReferenceButton", "0.8 m, 2.1 m, 3.3 m",
     "50.6 kg·m², 33.06 kg·m², 40.1 kg·m²", "2.36 kg·m², 2.28 kg·m², 15.86 kg·m²"},
    {"CustomAtCG", kSi, "CustomReferenceButton", "CGButton", "0.7 m, 3 m, -1.9 m",
     "20 kg·m², 30 kg·m², 10 kg·m²", "3 kg·m², -1 kg·m², -2 kg·m²"},
    {"CustomAtReference", kSi, "CustomReferenceButton", "ReferenceButton", "0.7 m, 3 m, -1.9 m",
     "45.22 kg·m², 38.2 kg·m², 28.98 kg·m²", "7.2 kg·m², -3.66 kg·m², -13.4 kg·m²"},
    {"CurrentPartAtCG", kImperial, "CurrentPartButton", "CGButton",
     "3.937007874 in, 7.874015748 in, 11.81102362 in",
     "34171.71898 lb·in², 68343.43796 lb·in², 102515.1569 lb·in²",
     "3417.171898 lb·in², 6834.343796 lb·in², 10251.51569 lb·in²"},
    {"RootProductAtCG", kImperial, "RootProductButton", "CGButton",
     "31.49606299 in, 82.67716535 in, 129.9212598 in",
     "68343.43796 lb·in², 34171.71898 lb·in², 102515.1569 lb·in²",
     "-3417.171898 lb·in², -10251.51569 lb·in², 6834.343796 lb·in²"},
    {"RootProductAtReference", kImperial, "RootProductButton", "ReferenceButton",
     "31.49606299 in, 82.67716535 in, 129.9212598 in",
     "172908.898 lb·in², 112971.703 lb·in², 137028.5931 lb·in²",
     "8064.52568 lb·in², 7791.151928 lb·in², 54196.34631 lb·in²"},
};

class ReferenceModes : public PanelTest, public testing::WithParamInterface<View> {};

TEST_P(ReferenceModes, ShowCentreOfGravityAndInertiaAsWorkedOutByHand) {
  const View& view = GetParam();
  const auto& [px, py, pz] = view.units.point;
  KorApplyUnitSystem(view.units.system);
  Open(SamplePart());
  Check("CustomReferenceButton");
  TypeCustomFrame({px, py, pz, "1", "0", "0", "0", "0", "1", "0", "-1", "0"});
  Check("CurrentPartButton");
  Check(view.inertiaButton);
  Check(view.referenceButton);
  EXPECT_EQ(Masses(), view.units.masses);
  EXPECT_EQ(CG(), view.cg);
  EXPECT_EQ(Moments(), view.moments);
  EXPECT_EQ(Products(), view.products);
}
INSTANTIATE_TEST_SUITE_P(Modes, ReferenceModes, testing::ValuesIn(kViews),
                         [](const testing::TestParamInfo<View>& one) {
                           return std::string(one.param.units.system) + one.param.name;
                         });

class ReferenceMode : public PanelTest {};

TEST_F(ReferenceMode, ACustomPointTypedInInchesIsTakenAsInches) {
  SetUnit("LENGTH", "INCH");
  Open(SamplePart());
  ChooseCustomFrame({"10", "0", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  // (800 - 254) mm, 2100 mm, 3300 mm
  EXPECT_EQ(CG(), "21.49606299 in, 82.67716535 in, 129.9212598 in");
}

TEST_F(ReferenceMode, IdentityAxesAtTheOriginShowWhatTheRootProductShows) {
  Open(SamplePart());
  for (const char* mode : {"CGButton", "ReferenceButton"}) {
    Check("CurrentPartButton");
    Check(mode);
    Check("RootProductButton");
    const std::string root = CG() + Moments() + Products();
    ChooseCustomFrame({"0", "0", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
    EXPECT_EQ(CG() + Moments() + Products(), root) << mode;
  }
}

TEST_F(ReferenceMode, AxesThatAreNotOrthonormalAreTakenAsTyped) {
  Open(SamplePart());
  ChooseCustomFrame({"0", "0", "0", "2", "0", "0", "0", "3", "0", "0", "0", "1"});
  EXPECT_EQ(CG(), "1600 mm, 6300 mm, 3300 mm");
  // The tensor of the root product, element (i, j) times a_j / a_i; the upper triangle is shown.
  EXPECT_EQ(Moments(), "20 kg·m², 10 kg·m², 30 kg·m²");
  EXPECT_EQ(Products(), "-1.5 kg·m², -1.5 kg·m², 0.6666666667 kg·m²");
}

TEST_F(ReferenceMode, AxesThatAreSingularChangeNothing) {
  Open(SamplePart());
  Check("RootProductButton");
  const std::string root = Masses() + CG() + Moments() + Products();
  Check("CustomReferenceButton");  // its axes are still all zero
  EXPECT_EQ(Masses() + CG() + Moments() + Products(), root);
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  TypeCustomFrame({"5", "5", "5", "1", "0", "0", "2", "0", "0", "0", "0", "1"});
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(Masses() + CG() + Moments() + Products(), root);
}

TEST_F(ReferenceMode, AxesWhoseInverseIsNotFiniteChangeNothingAlthoughTheirDeterminantIsNotZero) {
  Open(SamplePart());
  Check("CustomReferenceButton");
  TypeCustomFrame({"0", "0", "0", "1e-320", "0", "0", "0", "1", "0", "0", "0", "1"});
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(ReferenceMode, AMassOfExactlyZeroLeavesTheCentreOfGravityUntransformed) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].mass = 0;
  Open(part);
  Check("RootProductButton");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
  EXPECT_EQ(Moments(), "20 kg·m², 10 kg·m², 30 kg·m²") << "the tensor is turned all the same";
}

TEST_F(ReferenceMode, AMassOfExactlyZeroIsNotPlacedInTheCustomAxesEither) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].mass = 0;
  Open(part);
  ChooseCustomFrame({"10", "20", "30", "1", "0", "0", "0", "0", "1", "0", "-1", "0"});
  EXPECT_EQ(CG(), "90 mm, 270 mm, -180 mm");  // A·c - A·p with c = (100, 200, 300), p = (10, 20, 30) mm
}

TEST_F(ReferenceMode, SingularAxesFailAndKeepTheOldTextsOfAPartThatIsNotComputedToo) {
  Open(SamplePart());
  Buffer().SetMassTypeDefined("Computed", false);
  Check("CustomReferenceButton");  // its axes are still all zero
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(Masses(), "2 kg, 0.5 kg, 0.25 kg");
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(ReferenceMode, ANegativeMassIsPlacedLikeAnyOther) {
  protocol::PartData part = SamplePart();
  part.massTypes[0].mass = -2;
  Open(part);
  Check("RootProductButton");
  EXPECT_EQ(CG(), "800 mm, 2100 mm, 3300 mm");
}

TEST_F(ReferenceMode, APlacementShorterThanTwelveValuesLeavesTheMissingOnesAtZero) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  buffer->placement = {0, -1, 0, 1, 0, 0, 0, 0, 1};  // no translation
  Open(buffer);
  Check("RootProductButton");
  EXPECT_EQ(CG(), "-200 mm, 100 mm, 300 mm");
  buffer->placement = {1, 0, 0, 0, 1};  // two rows and a bit
  EXPECT_EQ(Panel().RefreshResultsTab(), S_OK);
  EXPECT_EQ(CG(), "100 mm, 200 mm, 0 mm");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 0 kg·m²");
}

TEST_F(ReferenceMode, APlacementLongerThanTwelveValuesCountsUpToTheTwelfth) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  buffer->placement = {1, 0, 0, 0, 1, 0, 0, 0, 1, 10, 20, 30, 99, 99};
  Open(buffer);
  Check("RootProductButton");
  EXPECT_EQ(CG(), "110 mm, 220 mm, 330 mm");
}

TEST_F(ReferenceMode, APartWithoutAPlacementIsShownAtTheOriginWithoutExtent) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  buffer->placement = std::vector<double>();
  Open(buffer);
  Check("RootProductButton");
  EXPECT_EQ(CG(), "0 mm, 0 mm, 0 mm");
  EXPECT_EQ(Moments(), "0 kg·m², 0 kg·m², 0 kg·m²");
}

TEST_F(ReferenceMode, ThePlacementDoesNotMatterForTheCurrentPart) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  buffer->placement = std::vector<double>{1};
  Open(buffer);
  EXPECT_EQ(CG(), "100 mm, 200 mm, 300 mm");
}

TEST_F(ReferenceMode, AxesOfAnySizeTurnTheTensorAsUnitAxesDo) {
  for (const char* size : {"1e103", "1.6e-108"}) {
    Open(SamplePart());
    ChooseCustomFrame({"0", "0", "0", size, "0", "0", "0", size, "0", "0", "0", size});
    EXPECT_EQ(Panel().RefreshResultsTab(), S_OK) << size;
    EXPECT_EQ(Moments(), "20 kg·m², 10 kg·m², 30 kg·m²") << size;
    Close();
  }
}

TEST_F(ReferenceMode, APointThatIsTooLargeForANumberChangesNothing) {
  SetUnit("LENGTH", "METER");
  Open(SamplePart());
  Check("CustomReferenceButton");
  TypeCustomFrame({"1e306", "0", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(CG(), "0.1 m, 0.2 m, 0.3 m");
  EXPECT_EQ(Moments(), "10 kg·m², 20 kg·m², 30 kg·m²");
}

TEST_F(ReferenceMode, WhatBecomesTooLargeForANumberIsNotKnown) {
  SetUnit("LENGTH", "METER");
  Open(SamplePart());
  Check("ReferenceButton");
  ChooseCustomFrame({"1e160", "0", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  EXPECT_EQ(Moments(), "..., ..., ...");
  EXPECT_EQ(CG(), "-1e+160 m, 2.1 m, 3.3 m");
}

TEST_F(ReferenceMode, AxesOfVeryDifferentSizesCountAsTyped) {
  Open(SamplePart());
  ChooseCustomFrame({"0", "0", "0", "1e-110", "0", "0", "0", "1e110", "0", "0", "0", "1"});
  EXPECT_EQ(Panel().RefreshResultsTab(), S_OK);
  EXPECT_EQ(Moments(), "20 kg·m², 10 kg·m², 30 kg·m²");
}

TEST_F(ReferenceMode, ACentreOfGravityThatBecomesTooLargeForANumberIsNotKnown) {
  Open(SamplePart());
  ChooseCustomFrame({"0", "0", "0", "1e306", "0", "0", "0", "1", "0", "0", "0", "1"});
  EXPECT_EQ(CG(), "..., ..., ...") << "as a whole, though only x is too large";
}

}  // namespace
