#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/support/RecordingBackend.h"
#include "tests/support/SampleDialog.h"
#include "tests/support/UnreachableLog.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Editor : testing::Test {
  Editor() { dialog.Attach(&backend); }
  ~Editor() override {
    backend.ExpectMirrorsDialog(dialog);
    dialog.Detach();
  }

  RecordingBackend backend;
  SampleDialog dialog;
  UnreachableLog unreachable;
  KorDlgEditor& editor = *dialog.nameEditor;
};

TEST_F(Editor, SettingTheTextSilentlyTellsNoHandler) {
  editor.SetText("Hub");
  EXPECT_EQ(editor.GetText(), "Hub");
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(Editor, SettingTheSameTextWithNotificationStillNotifies) {
  editor.SetText("Rotor", KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("NameEditor EditorModify"));
}

TEST_F(Editor, TypingNotifiesOnce) {
  EXPECT_TRUE(editor.Type("Hub"));
  EXPECT_THAT(dialog.Heard(), ElementsAre("NameEditor EditorModify"));
}

TEST_F(Editor, TypingTheSameTextTellsNobody) {
  EXPECT_TRUE(editor.Type("Rotor"));
  EXPECT_THAT(dialog.Heard(), IsEmpty());
}

TEST_F(Editor, AReadOnlyOneCannotBeTypedIntoButSetByCode) {
  EXPECT_TRUE(dialog.lockedEditor->IsReadOnly());
  EXPECT_FALSE(dialog.lockedEditor->Type("open"));
  EXPECT_THAT(unreachable.Verbs(), ElementsAre("Type on LockedEditor"));
  EXPECT_EQ(dialog.lockedEditor->GetText(), "fixed");
  dialog.lockedEditor->SetText("open");
  EXPECT_EQ(dialog.lockedEditor->GetText(), "open");
}

TEST_F(Editor, TheReadOnlyStyleIsHex4000000) {
  EXPECT_EQ(dialog.lockedEditor->Style(), 0x4000000u);
  EXPECT_FALSE(editor.IsReadOnly());
}

TEST_F(Editor, ReadsTheNumberThatTheTextOpensWith) {
  editor.SetText(" 12.5 mm");
  EXPECT_EQ(editor.GetValue(), 12.5);
  editor.SetText("-1e3");
  EXPECT_EQ(editor.GetValue(), -1000.0);
}

TEST_F(Editor, ATextThatIsNoNumberReadsAsZero) {
  for (const char* text : {"", "...", "mass 5", "-", ".", "e5", "nan", "inf"}) {
    editor.SetText(text);
    EXPECT_EQ(editor.GetValue(), 0.0) << text;
  }
}

TEST_F(Editor, ShowsANumberSoThatItReadsBackExactly) {
  for (const double value : {0.1, 1.0 / 3.0, -1e-300, 1e22, 123456789.123456789,
                             std::numeric_limits<double>::max(), std::numeric_limits<double>::denorm_min()}) {
    editor.SetValue(value);
    EXPECT_EQ(editor.GetValue(), value) << editor.GetText();
  }
}

TEST_F(Editor, ShowsPlainNumbersPlainly) {
  editor.SetValue(25);
  EXPECT_EQ(editor.GetText(), "25");
  editor.SetValue(-0.0);
  EXPECT_EQ(editor.GetText(), "0");
  editor.SetValue(0.5);
  EXPECT_EQ(editor.GetText(), "0.5");
}

TEST_F(Editor, SettingTheSameNumberWithNotificationStillNotifies) {
  editor.SetValue(5);
  editor.SetValue(5, KorNotify::Send);
  EXPECT_THAT(dialog.Heard(), ElementsAre("NameEditor EditorModify"));
}

TEST_F(Editor, FirstColumnAndSelectionAreClippedToTheText) {
  editor.SetFirstColumn(-3);
  EXPECT_EQ(editor.GetFirstColumn(), 0);
  editor.SetFirstColumn(99);
  EXPECT_EQ(editor.GetFirstColumn(), 5);
  editor.SetSelection(-1, 99);
  EXPECT_EQ(editor.GetSelectionFirst(), 0);
  EXPECT_EQ(editor.GetSelectionLast(), 5);
  editor.SetSelection(4, 2);
  EXPECT_EQ(editor.GetSelectionFirst(), 4);
  EXPECT_EQ(editor.GetSelectionLast(), 4);
}

TEST_F(Editor, SelectionCountsCharactersAndNotBytes) {
  editor.SetText("Größe");
  editor.SetSelection(2, 99);
  EXPECT_EQ(editor.GetSelectionLast(), 5);
}

TEST_F(Editor, AShorterTextTakesFirstColumnAndSelectionBackIntoIt) {
  editor.SetFirstColumn(4);
  editor.SetSelection(2, 5);
  editor.SetText("ab");
  EXPECT_LE(editor.GetFirstColumn(), 2);
  EXPECT_LE(editor.GetSelectionLast(), 2);
  EXPECT_LE(editor.GetSelectionFirst(), editor.GetSelectionLast());
}

TEST_F(Editor, TheVisibleWidthIsShown) {
  editor.SetVisibleTextWidth(30);
  EXPECT_EQ(editor.GetVisibleTextWidth(), 30);
  EXPECT_EQ(backend.Shown(editor, KorDlgProperty::TextWidth), "30");
}

}  // namespace
