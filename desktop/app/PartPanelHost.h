#pragma once

#include <QObject>
#include <memory>

#include "desktop/toolkit/QtBackend.h"
#include "module/main_panel/KorWBNymMainPanel.h"
#include "protocol/Result.h"
#include "services/LumWBAllDataBuffer.h"

namespace desktop {

/// The command "part panel": puts the data of what is selected into a data buffer, opens the module's panel
/// on it and binds it anew when something else is selected. Closing the panel, by its button or its window,
/// destroys it.
class PartPanelHost : public QObject {
 public:
  explicit PartPanelHost(QtBackend& backend);
  ~PartPanelHost() override;

  bool IsOpen() const { return _panel != nullptr; }
  /// Opens the panel on a part's data as the server sent it, or binds it when it is open. On failure the
  /// panel stays as it was.
  protocol::Result<void> Show(const std::string& partDataText);
  void Close();

  /// After a change of units, and after one of language.
  void RefreshValues();
  void RefreshTexts();

  /// Null while the panel is closed.
  KorWBNymMainPanel* Panel() const { return _panel.get(); }
  const LumWBAllDataBuffer* Buffer() const { return _buffer.Get(); }
  QWidget* Window() const;

 private:
  void Open();

  QtBackend& _backend;
  LumWBAllDataBuffer_var _buffer;
  std::unique_ptr<KorWBNymMainPanel> _panel;
};

}  // namespace desktop
