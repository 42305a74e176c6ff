#pragma once

#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "tests/module/PanelTest.h"

/// The sample part with that active mass type.
inline protocol::PartData SamplePartWithActive(const char* massType) {
  protocol::PartData part = SamplePart();
  part.activeMassType = massType;
  return part;
}

/// The same as a standard part.
inline protocol::PartData SampleStandardPart(const char* activeMassType) {
  protocol::PartData part = SamplePartWithActive(activeMassType);
  part.standardPart = true;
  return part;
}

/// A test of the part panel in edit mode.
class EditingTest : public PanelTest {
 protected:
  /// Opens the panel, goes to a page and into edit mode.
  void Edit(const protocol::PartData& part, const std::string& page) {
    Open(part);
    PickPage(page);
    Press("EditButton");
  }

  /// Chooses inertia about the reference point, as nobody can while another page is in front.
  void LookAtTheReferencePoint() {
    As<KorDlgRadioButton>("ReferenceButton").SetState(KorCheckState::Checked);
  }

  /// What the mass-types page shows of mass, centre of gravity, moments and products.
  std::string MTValues() {
    return Text("MTMassEditor") + "; " + Text("MTCGxEditor") + ", " + Text("MTCGyEditor") + ", " +
           Text("MTCGzEditor") + "; " + MTMoments() + "; " + MTProducts();
  }

  /// Saves, which the server takes.
  void Save() {
    Server().Expect("WBSaveNymValues", "SaveReply/1|P-100|8|end");
    Press("SaveButton");
  }

  /// How many of the nine centre-of-gravity and inertia editors can be typed in.
  int EditableDistribution() {
    int count = 0;
    for (const std::string& editor : kDistribution) count += IsEnabled(editor);
    return count;
  }
};

/// A test of the mass-types page in edit mode, with what it shows of the sample part's mass types.
class MassTypesEditingTest : public EditingTest {
 protected:
  static constexpr const char* kEstimated =
      "4 kg; 1000 mm, 0 mm, 0 mm; 5 kg·m², 6 kg·m², 7 kg·m²; 0 kg·m², 0 kg·m², 0 kg·m²";
  static constexpr const char* kComputed =
      "2 kg; 100 mm, 200 mm, 300 mm; 10 kg·m², 20 kg·m², 30 kg·m²; 1 kg·m², 2 kg·m², 3 kg·m²";
  static constexpr const char* kNothing = "...; ..., ..., ...; ..., ..., ...; ..., ..., ...";

  void EditPage(const protocol::PartData& part) { Edit(part, "TabPage003"); }
  std::vector<KorUnicodeString> PasteLines() { return As<KorDlgCombo>("MTPasteValuesCombo").GetLines(); }
};
