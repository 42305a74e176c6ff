#pragma once

#include <gtest/gtest.h>

#include <string>

#include "framework/dialog/KorDlgDialog.h"

namespace desktop::test {

/// What an engineer does in one day in the part panel on the bedplate of the sample, in mixed units, and what
/// the panel shows when it is opened again after the save. Works the widgets as a user does.
class WorkingDay {
 public:
  enum class Bounds { Relative, Absolute };

  explicit WorkingDay(KorDlgDialog& panel) : _panel(panel) {}

  void Edit() { Press("Frame238.EditButton"); }
  /// The revision of the document before the latest one, chosen by hand; its values are shown.
  void ChooseRevision();
  /// Another mass type's values, scaled to another mass, as those of the shown type.
  void PasteAndRescale();
  /// 4 percent of the active mass of the chosen revision, 42900 kg, as a mass and back.
  void ChangePrecisionAndBack();
  /// The bounds as parts of the mass or as masses.
  void ShowBoundsAs(Bounds bounds);
  /// A date, a length in millimetres and a mass; the last one is still being edited when it is saved.
  void EditProperties();
  void Save();
  /// All of the above, in this order; `bounds` is how the bounds are saved.
  void Work(Bounds bounds = Bounds::Relative);

  /// That a panel in display mode shows everything that was saved.
  void ExpectShown(Bounds bounds = Bounds::Relative);

 private:
  enum Page { kMassTypesPage = 1, kPrecisionPage = 3, kDocumentsPage, kPropertiesPage };

  void Press(const std::string& button);
  void GoTo(Page page);
  void Pick(const std::string& combo, const char* line);
  /// The focus comes, the text is replaced, the focus goes.
  void Type(const std::string& editor, const char* text);
  void EditProperty(const char* name, const char* shown, const char* text);
  std::string TextOf(const std::string& editor);
  std::string LineOf(const std::string& combo);
  void ExpectText(const std::string& editor, const char* text);
  void ExpectLine(const std::string& combo, const char* line);
  void ExpectChecked(const std::string& button);
  void ExpectProperty(const char* name, const char* shown);

  KorDlgDialog& _panel;
};

}  // namespace desktop::test
