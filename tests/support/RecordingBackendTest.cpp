#include <gtest/gtest-spi.h>

#include "tests/support/BackendContract.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/RecordingShownBackend.h"
#include "tests/support/ShownText.h"

INSTANTIATE_TEST_SUITE_P(Recording, BackendContract, testing::Values(BackendMaker([] {
                           return std::make_unique<RecordingShownBackend>();
                         })));

namespace {

TEST(RecordingBackend, KnowsNothingThatItWasNotTold) {
  RecordingBackend backend;
  SampleDialog dialog;
  EXPECT_FALSE(backend.Knows(dialog));
  EXPECT_EQ(backend.Shown(*dialog.nameEditor, KorDlgProperty::Text), "unknown");
  backend.Created(dialog);
  EXPECT_EQ(backend.Shown(dialog, KorDlgProperty::Title), "unknown");
  backend.Changed(dialog, KorDlgProperty::Title);
  EXPECT_EQ(backend.Shown(dialog, KorDlgProperty::Title), "Sample");
}

TEST(RecordingBackend, ShowsAnAttachedDialogAsItIs) {
  RecordingBackend backend;
  SampleDialog dialog;
  dialog.Attach(&backend);
  backend.ExpectMirrorsDialog(dialog);
}

TEST(RecordingBackend, AMissingNotificationFailsTheTest) {
  RecordingBackend backend;
  KorDlgDialog dialog(nullptr, "Bare", 0);
  backend.Created(dialog);
  for (const KorDlgProperty property : dialog.Properties())
    if (property != KorDlgProperty::Sensitivity) backend.Changed(dialog, property);
  EXPECT_NONFATAL_FAILURE(backend.ExpectMirrorsDialog(dialog),
                          "the window of Bare:  shows another Sensitivity");
}

TEST(RecordingBackend, AChangeOfAWidgetThatWasNeverCreatedFailsTheTest) {
  RecordingBackend backend;
  SampleDialog dialog;
  EXPECT_NONFATAL_FAILURE(backend.Changed(*dialog.nameEditor, KorDlgProperty::Text), "before it was created");
}

TEST(RecordingBackend, AChildCreatedBeforeItsParentFailsTheTest) {
  RecordingBackend backend;
  SampleDialog dialog;
  EXPECT_NONFATAL_FAILURE(backend.Created(*dialog.nameEditor), "before its parent");
}

TEST(RecordingBackend, AParentDestroyedBeforeItsChildFailsTheTest) {
  RecordingBackend backend;
  SampleDialog dialog;
  backend.Created(dialog);
  backend.Created(*dialog.sides);
  EXPECT_NONFATAL_FAILURE(backend.Destroyed(dialog), "outlives its parent");
}

TEST(RecordingBackend, APropertyThatTheKindDoesNotHaveFailsTheTest) {
  RecordingBackend backend;
  SampleDialog dialog;
  dialog.Attach(&backend);
  EXPECT_NONFATAL_FAILURE(backend.Changed(*dialog.applyButton, KorDlgProperty::Rows), "has no Rows");
}

TEST(RecordingBackend, NamesARepeatedWidgetByItsOccurrence) {
  SampleDialog dialog;
  auto* second = dialog.form->Add<KorDlgLabel>("NameLabel");
  EXPECT_EQ(FullName(*second), "SampleDialog: Form.NameLabel[2]");
  EXPECT_EQ(FullName(*dialog.nameEditor), "SampleDialog: Form.NameEditor");
}

TEST(BoxScript, AnswersAndRecordsWhatIsExpected) {
  RecordingBackend backend;
  backend.Boxes().ExpectMessage({"", "Title", "Text", 0x10000000});
  backend.ShowMessage({nullptr, "Title", "Text", 0x10000000});
  backend.Boxes().ExpectQuestion("Delete it?", 1);
  backend.Boxes().ExpectFileRequest("Open", "/a.csv");
  EXPECT_EQ(backend.Ask({nullptr, "Sure", "Delete it?", {"Yes", "No"}}), 1);
  EXPECT_EQ(backend.ChooseFile({nullptr, "Open", "*.csv", KorDlgFileRequest::Mode::Open}),
            KorUnicodeString("/a.csv"));
  EXPECT_THAT(backend.Boxes().Messages(), ElementsAre(ShownMessage{"", "Title", "Text", 0x10000000}));
}

TEST(BoxScript, ABoxThatNoScriptExpectsFailsTheTest) {
  RecordingBackend backend;
  EXPECT_NONFATAL_FAILURE(backend.ShowMessage({nullptr, "Title", "Text", 0}), "unexpected");
  EXPECT_NONFATAL_FAILURE(backend.Ask({nullptr, "Title", "Sure?", {}}), "unexpected question");
  EXPECT_NONFATAL_FAILURE(backend.ChooseFile({}), "unexpected request");
}

TEST(BoxScript, AnExpectedBoxThatNeverComesFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(
      {
        BoxScript boxes;
        boxes.ExpectMessage({"", "Title", "Text", 0});
      },
      "never shown");
}

TEST(BoxScript, AMessageOtherThanExpectedFailsTheTest) {
  BoxScript boxes;
  boxes.ExpectMessage({"", "Title", "Text", 0});
  EXPECT_NONFATAL_FAILURE(boxes.Show({nullptr, "Title", "Other", 0}), "Other");
}

}  // namespace
