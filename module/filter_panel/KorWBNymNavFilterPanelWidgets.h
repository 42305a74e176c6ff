#pragma once

class KorDlgCombo;
class KorDlgFrame;
class KorDlgLabel;
class KorDlgMultiList;
class KorDlgPushButton;
class KorDlgRadioButton;
class KorDlgTabContainer;
class KorDlgTabPage;

/// The widgets of the filter panel; null until it is laid out. The dialog's tree owns them.
struct KorWBNymNavFilterPanelWidgets {
  KorDlgTabContainer* tabs = nullptr;
  KorDlgTabPage* page = nullptr;
  KorDlgFrame* mainFrame = nullptr;
  KorDlgRadioButton* userFilter = nullptr;
  KorDlgFrame* listFrame = nullptr;
  KorDlgMultiList* list = nullptr;
  KorDlgFrame* listCommands = nullptr;
  KorDlgPushButton* removeRows = nullptr;
  KorDlgPushButton* clearRows = nullptr;
  KorDlgRadioButton* configurationFilter = nullptr;
  KorDlgFrame* configurationFrame = nullptr;
  KorDlgLabel* configurationLabel = nullptr;
  KorDlgCombo* configurations = nullptr;
};
