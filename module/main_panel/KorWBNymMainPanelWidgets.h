#pragma once

#include <array>

class KorDlgCheckButton;
class KorDlgCombo;
class KorDlgEditor;
class KorDlgFrame;
class KorDlgLabel;
class KorDlgPushButton;
class KorDlgRadioButton;
class KorDlgSpinner;
class KorDlgTabContainer;
class KorDlgTabPage;

/// The widgets of the part panel that its code uses. The dialog's tree owns them.
///
/// All are null until the panel is laid out. Those of the documents page and of the additional-properties
/// page stay null when the panel was laid out for a part without them.
struct KorWBNymMainPanelWidgets {
  using Editors3 = std::array<KorDlgEditor*, 3>;  ///< x, y, z
  using Editors6 = std::array<KorDlgEditor*, 6>;  ///< Ixx, Iyy, Izz, Ixy, Ixz, Iyz
  using Editors9 = std::array<KorDlgEditor*, 9>;  ///< X axis x, y, z, then Y axis, then Z axis

  // header
  KorDlgEditor* selection = nullptr;
  KorDlgLabel* calculationRed = nullptr;
  KorDlgLabel* calculationGreen = nullptr;
  KorDlgLabel* persistencyRed = nullptr;
  KorDlgLabel* persistencyGreen = nullptr;
  KorDlgTabContainer* tabs = nullptr;

  // results
  KorDlgEditor* mass = nullptr;
  KorDlgEditor* lowerDeviation = nullptr;
  KorDlgEditor* upperDeviation = nullptr;
  Editors3 cg{};
  Editors6 inertia{};

  // mass types
  KorDlgCombo* activeMass = nullptr;
  KorDlgCombo* massType = nullptr;
  KorDlgCombo* pasteValues = nullptr;
  KorDlgEditor* mtMass = nullptr;
  KorDlgPushButton* updateProperties = nullptr;
  KorDlgPushButton* deleteValues = nullptr;
  Editors3 mtCG{};
  Editors6 mtInertia{};

  // material
  KorDlgEditor* material = nullptr;
  KorDlgEditor* density = nullptr;
  KorDlgLabel* definedFor = nullptr;
  KorDlgFrame* applyOnFrame = nullptr;
  KorDlgRadioButton* applyOnReference = nullptr;
  KorDlgRadioButton* applyOnInstance = nullptr;
  KorDlgSpinner* statisticsName = nullptr;
  KorDlgEditor* statisticsDensity = nullptr;
  KorDlgCombo* firstPriority = nullptr;
  KorDlgCombo* secondPriority = nullptr;

  // precision
  KorDlgCombo* precisionType = nullptr;
  KorDlgEditor* upperPrecision = nullptr;
  KorDlgEditor* lowerPrecision = nullptr;
  KorDlgCombo* precisionValueType = nullptr;
  KorDlgEditor* activeTypeShown = nullptr;

  // documents
  KorDlgTabPage* documentsPage = nullptr;
  KorDlgCombo* activeDocs = nullptr;
  KorDlgPushButton* changeActiveDoc = nullptr;
  KorDlgPushButton* applyActiveDoc = nullptr;
  KorDlgPushButton* cancelActiveDoc = nullptr;
  KorDlgCombo* documents = nullptr;
  std::array<KorDlgEditor*, 5> docAttributes{};
  KorDlgRadioButton* activeDocLatest = nullptr;
  KorDlgRadioButton* activeDocUserSelected = nullptr;
  KorDlgEditor* currentlyAttached = nullptr;

  // additional properties
  KorDlgTabPage* additionalPage = nullptr;
  KorDlgCombo* propertyName = nullptr;
  KorDlgEditor* propertyValue = nullptr;

  // below the pages
  KorDlgCheckButton* standardPart = nullptr;
  KorDlgEditor* configHandler = nullptr;
  KorDlgEditor* act = nullptr;
  KorDlgFrame* inertiaModeFrame = nullptr;
  KorDlgRadioButton* atCG = nullptr;
  KorDlgRadioButton* atReference = nullptr;
  KorDlgFrame* referenceModeFrame = nullptr;
  KorDlgRadioButton* currentPart = nullptr;
  KorDlgRadioButton* rootProduct = nullptr;
  KorDlgRadioButton* customReference = nullptr;
  KorDlgFrame* customFrame = nullptr;
  Editors3 customPoint{};
  Editors9 customAxes{};
  KorDlgFrame* commandFrame = nullptr;
  KorDlgPushButton* compute = nullptr;
  KorDlgPushButton* edit = nullptr;
  KorDlgPushButton* save = nullptr;
};
