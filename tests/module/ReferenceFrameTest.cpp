#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <memory>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgDialog.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "module/shared/KorWBNymNavReferenceFrame.h"
#include "tests/module/PanelTest.h"
#include "tests/support/TemporaryCatalogues.h"

namespace {

/// A dialog with nothing but the twelve editors, each counting the notifications of its changes.
struct FrameDialog : KorDlgDialog {
  FrameDialog() : KorDlgDialog(nullptr, "FrameDialog", 0) {
    for (std::size_t i = 0; i < editors.size(); ++i) {
      editors[i] = Add<KorDlgEditor>(("E" + std::to_string(i)).c_str());
      editors[i]->Subscribe(KorEvent::EditorModify,
                            [this](KorCommand*, KorNotification*, KorCommandClientData) { ++told; });
    }
    SetVisibility(KorVisibility::Shown);
  }
  void Show(const std::array<const char*, 12>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) editors[i]->SetText(texts[i]);
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const KorDlgEditor* editor : editors) texts.push_back(editor->GetText().Utf8());
    return texts;
  }
  KorWBNymNavReferenceFrame Frame() const {
    return {std::span<KorDlgEditor* const, 3>(editors.data(), 3),
            std::span<KorDlgEditor* const, 9>(editors.data() + 3, 9)};
  }
  std::array<KorDlgEditor*, 12> editors{};
  int told = 0;
};

struct ReferenceFrame : testing::Test {
  ReferenceFrame() { KorApplyUnitSystem("Mixed"); }
  ~ReferenceFrame() override { KorApplyUnitSystem("Mixed"); }
  FrameDialog dialog;
};

using Verdict = KorWBNymNavReferenceFrame::Verdict;

TEST_F(ReferenceFrame, ReadsTheAxesRowByRowAsTyped) {
  dialog.Show({"0", "0", "0", "1", "2", "3", "4", "5", "6", "7", "8", "10"});
  KorMathPoint point;
  KorMath3x3Matrix axes;
  dialog.Frame().GetCustomRefModeValues(point, axes);
  EXPECT_EQ(axes, KorMath3x3Matrix(1, 2, 3, 4, 5, 6, 7, 8, 10)) << "neither converted nor normalised";
}

TEST_F(ReferenceFrame, ReadsAPointTypedInMillimetresAsTheBufferKeepsIt) {
  dialog.Show({"100", "-2.5", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  KorMathPoint point;
  KorMath3x3Matrix axes;
  dialog.Frame().GetCustomRefModeValues(point, axes);
  EXPECT_EQ(point, KorMathPoint(100, -2.5, 0));
}

TEST_F(ReferenceFrame, ReadsAPointTypedInMetresAsMillimetres) {
  KorApplyUnitSystem("SI");
  dialog.Show({"0.5", "2", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  EXPECT_EQ(dialog.Frame().ReadPoint(), KorMathPoint(500, 2000, 0));
}

TEST_F(ReferenceFrame, ATextThatIsNoNumberReadsAsZero) {
  dialog.Show({"abc", "", "...", "1", "x", "0", "0", "1", "0", "0", "0", "1"});
  EXPECT_EQ(dialog.Frame().ReadPoint(), KorMathPoint(0, 0, 0));
  EXPECT_EQ(dialog.Frame().ReadAxes().GetCoef(1, 2), 0.0);
}

TEST_F(ReferenceFrame, ThePartPanelsFormLeavesTheEditorsAsTheyAre) {
  dialog.Show({"1.50", "abc", "", "1.0", "0", "0", "0", "1e0", "0", "0", "0", "1"});
  const auto before = dialog.Texts();
  KorMathPoint point;
  KorMath3x3Matrix axes;
  dialog.Frame().GetCustomRefModeValues(point, axes);
  EXPECT_EQ(dialog.Texts(), before);
  EXPECT_EQ(dialog.told, 0);
}

TEST_F(ReferenceFrame, TheFormOfTheOtherPanelsWritesEachNumberBack) {
  dialog.Show({"1.50", "abc", "", "1.0", "0", "0", "0", "1e0", "0", "0", "0", "1"});
  KorMathPoint* point = nullptr;
  KorMath3x3Matrix* axes = nullptr;
  dialog.Frame().GetCustomRefModeValues(point, axes);
  const std::unique_ptr<KorMathPoint> ownedPoint(point);
  const std::unique_ptr<KorMath3x3Matrix> ownedAxes(axes);
  EXPECT_THAT(dialog.Texts(),
              testing::ElementsAre("1.5", "0", "0", "1", "0", "0", "0", "1", "0", "0", "0", "1"));
  ASSERT_NE(point, nullptr);
  ASSERT_NE(axes, nullptr);
  EXPECT_EQ(*point, KorMathPoint(1.5, 0, 0));
  EXPECT_EQ(*axes, KorMath3x3Matrix::Identity());
}

TEST_F(ReferenceFrame, TheFormOfTheOtherPanelsOverwritesAnObjectThatIsThere) {
  dialog.Show({"1", "2", "3", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  KorMathPoint ownPoint(9, 9, 9);
  KorMath3x3Matrix ownAxes(9, 9, 9, 9, 9, 9, 9, 9, 9);
  KorMathPoint* point = &ownPoint;
  KorMath3x3Matrix* axes = &ownAxes;
  dialog.Frame().GetCustomRefModeValues(point, axes);
  EXPECT_EQ(point, &ownPoint);
  EXPECT_EQ(axes, &ownAxes);
  EXPECT_EQ(ownPoint, KorMathPoint(1, 2, 3));
  EXPECT_EQ(ownAxes, KorMath3x3Matrix::Identity());
}

TEST_F(ReferenceFrame, WhatASubscriberDoesToAnEditorThatIsWrittenBackDoesNotChangeTheResult) {
  dialog.Show({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "13"});
  for (KorDlgEditor* editor : dialog.editors)
    editor->Subscribe(KorEvent::EditorModify, [editor](KorCommand*, KorNotification*, KorCommandClientData) {
      editor->SetText("99");
    });
  KorMathPoint ownPoint;
  KorMath3x3Matrix ownAxes;
  KorMathPoint* point = &ownPoint;
  KorMath3x3Matrix* axes = &ownAxes;
  dialog.Frame().GetCustomRefModeValues(point, axes);
  EXPECT_EQ(ownPoint, KorMathPoint(1, 2, 3));
  EXPECT_EQ(ownAxes, KorMath3x3Matrix(4, 5, 6, 7, 8, 9, 10, 11, 13));
}

TEST_F(ReferenceFrame, WritingBackTellsTheSubscribersOfEveryEditorChangedOrNot) {
  dialog.Show({"1", "2", "3", "1", "0", "0", "0", "1", "0", "0", "0", "1"});
  dialog.Frame().WriteBackPoint();
  EXPECT_EQ(dialog.told, 3);
  dialog.Frame().WriteBackAxes();
  EXPECT_EQ(dialog.told, 12);
}

TEST_F(ReferenceFrame, TheUnitAxesAreUsable) {
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix::Identity()), Verdict::Usable);
}

TEST_F(ReferenceFrame, AxesNeedNotBeOfUnitLength) {
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix(2, 0, 0, 0, 3, 0, 0, 0, 1)), Verdict::Usable);
}

TEST_F(ReferenceFrame, AxesNeedBeNeitherOrthogonalNorRightHanded) {
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix(1, 0, 0, 1, 1, 0, 0, 0, 1)), Verdict::Usable);
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix(0, 1, 0, 1, 0, 0, 0, 0, 1)), Verdict::Usable);
}

TEST_F(ReferenceFrame, ParallelAxesAreSingular) {
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix(1, 0, 0, 2, 0, 0, 0, 0, 1)), Verdict::Singular);
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix()), Verdict::Singular);
}

TEST_F(ReferenceFrame, AxesWhoseInverseOverflowsCannotBeInverted) {
  EXPECT_EQ(KorWBNymNavReferenceFrame::Check(KorMath3x3Matrix(1e-320, 0, 0, 0, 1, 0, 0, 0, 1)),
            Verdict::NotInvertible);
}

/// The check of the group and report panels with the message that it shows.
struct ReferenceFrameReport : ReferenceFrame {
  ReferenceFrameReport() {
    catalogues.Write(
        "en", "Catalogue",
        "InertiaReferenceAxis001.Title = \"title one\"\nInertiaReferenceAxis001.Message = \"message one\"\n"
        "InertiaReferenceAxis002.Title = \"title two\"\nInertiaReferenceAxis002.Message = \"message two\"\n");
    KorApplicationFrame::SetBackend(&backend);
  }
  ~ReferenceFrameReport() override { KorApplicationFrame::SetBackend(nullptr); }

  bool Check(const KorMath3x3Matrix& axes, const char* titleWhenNotInvertible) {
    return KorWBNymNavReferenceFrame::CheckAndReport(axes, &dialog, "Catalogue", titleWhenNotInvertible);
  }
  TemporaryCatalogues catalogues;
  RecordingBackend backend;
};

TEST_F(ReferenceFrameReport, UsableAxesShowNothing) {
  EXPECT_TRUE(Check(KorMath3x3Matrix::Identity(), "InertiaReferenceAxis001.Title"));
  EXPECT_TRUE(Check(KorMath3x3Matrix(2, 0, 0, 0, 3, 0, 0, 0, 1), "InertiaReferenceAxis001.Title"));
}

TEST_F(ReferenceFrameReport, ParallelAxesShowTheFirstMessage) {
  backend.Boxes().ExpectMessage({"FrameDialog", "title one", "message one", kErrorFlags});
  EXPECT_FALSE(Check(KorMath3x3Matrix(1, 0, 0, 2, 0, 0, 0, 0, 1), "InertiaReferenceAxis002.Title"));
}

TEST_F(ReferenceFrameReport, AxesThatCannotBeInvertedShowTheSecondMessageUnderTheTitleThatThePanelChooses) {
  const KorMath3x3Matrix axes(1e-320, 0, 0, 0, 1, 0, 0, 0, 1);
  backend.Boxes().ExpectMessage({"FrameDialog", "title one", "message two", kErrorFlags});
  EXPECT_FALSE(Check(axes, "InertiaReferenceAxis001.Title")) << "the group panel's title, kept on purpose";
  backend.Boxes().ExpectMessage({"FrameDialog", "title two", "message two", kErrorFlags});
  EXPECT_FALSE(Check(axes, "InertiaReferenceAxis002.Title")) << "the report panel's title";
}

}  // namespace
