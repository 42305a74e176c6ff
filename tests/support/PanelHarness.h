#pragma once

#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include "module/main_panel/KorWBNymMainPanel.h"
#include "protocol/PartData.h"
#include "services/LumWBAllDataBuffer.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/ScriptedServer.h"
#include "tests/support/StreamCapture.h"
#include "tests/support/UnreachableGuard.h"

/// A user in front of the part panel, in a test: no display, a server that answers from a script.
///
/// `Open` makes the panel on a part and shows it; then the verbs do what a user can do and the questions
/// answer what he sees. Any verb on a widget that he could not reach, any message that was not expected and
/// any request that the script does not know fails the test; so does, at the end, a window that does not show
/// the panel as it is.
///
/// Widgets are named by their path or by its last elements as far as these are unique ("MassEditor",
/// "FrameStatus.FlagRedLabel[2]"). Lengths are shown in millimetres, the rest in SI, until a test chooses
/// other units.
class PanelHarness {
 public:
  using Maker = std::function<std::unique_ptr<KorWBNymMainPanel>(KorWBAllDataBuffer*)>;

  PanelHarness();
  ~PanelHarness();
  PanelHarness(const PanelHarness&) = delete;
  PanelHarness& operator=(const PanelHarness&) = delete;

  // ---- opening ----
  /// A buffer that holds this part.
  static LumWBAllDataBuffer_var BufferOf(const protocol::PartData& part);
  void Open(const protocol::PartData& part);
  void Open(LumWBAllDataBuffer_var buffer);
  void OpenWithoutBuffer();
  /// How `Open` makes the panel; the panel itself when nothing else is said.
  void UseMaker(Maker maker) { _maker = std::move(maker); }
  void Close();

  KorWBNymMainPanel& Panel() { return *_panel; }
  LumWBAllDataBuffer& Buffer() { return *_buffer; }
  ScriptedServer& Server() { return _server; }
  RecordingBackend& Backend() { return _backend; }
  BoxScript& Boxes() { return _backend.Boxes(); }
  /// What was written to the standard output since the start or the last ClearOutput.
  std::string Output() const { return _output.Text(); }
  void ClearOutput() { _output.Clear(); }

  // ---- what the user does ----
  void Press(const std::string& button);
  void Type(const std::string& editor, const std::string& text);
  void Pick(const std::string& combo, const std::string& line);
  void Check(const std::string& radio);
  void Toggle(const std::string& check);
  void PickPage(const std::string& page);

  // ---- what he sees ----
  KorDlgObject& Widget(const std::string& name);
  template <class Kind>
  Kind& As(const std::string& name) {
    return dynamic_cast<Kind&>(Widget(name));
  }
  bool Has(const std::string& name);
  std::string Text(const std::string& editorOrSpinner);
  std::string Title(const std::string& name);
  /// The widget's own sensitivity and visibility, whatever stands above it.
  bool IsEnabled(const std::string& name);
  bool IsShown(const std::string& name);
  bool IsChecked(const std::string& button);
  std::string SelectedLine(const std::string& combo);
  std::string SelectedPage();
  /// The texts of the twelve results editors, joined by ", ": mass, lower and upper deviation; x, y, z; Ixx,
  /// Iyy, Izz; Ixy, Ixz, Iyz.
  std::string Masses();
  std::string CG();
  std::string Moments();
  std::string Products();
  /// The same of the mass-types page.
  std::string MTMoments();
  std::string MTProducts();

  /// A text of the panel's catalogue; the test fails when there is none.
  static std::string CatalogueText(const std::string& key);
  static void SetUnit(const std::string& magnitude, const std::string& unit);

 private:
  std::string Joined(std::initializer_list<const char*> editors);

  UnreachableGuard _guard;
  StreamCapture _output{std::cout};
  RecordingBackend _backend;
  ScriptedServer _server;
  Maker _maker;
  LumWBAllDataBuffer_var _buffer;
  std::unique_ptr<KorWBNymMainPanel> _panel;
};
