#pragma once

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

#include "framework/pdm/KorPdmClient.h"
#include "lumira/commands/Server.h"
#include "protocol/Result.h"
#include "tests/support/PanelHarness.h"

namespace bench {

/// The server in this process.
class Embedded : public KorPdmTransport {
 public:
  explicit Embedded(lumira::Server& server) : _server(server) {}
  std::string Run(const std::string& command, const std::string& request) override {
    return _server.Run(command, request);
  }
  std::string Address() const override { return "embedded"; }

 private:
  lumira::Server& _server;
};

[[noreturn]] inline void Stop(const protocol::Error& error) {
  std::fprintf(stderr, "%s\n", error.message.c_str());
  std::exit(1);
}

/// The value of a result, or the end of the program with its reason.
template <class T>
T Take(protocol::Result<T> result) {
  if (!result) Stop(result.Failure());
  return std::move(result).Value();
}

/// The server's text of a part in a buffer.
inline LumWBAllDataBuffer_var BufferOf(const KorUnicodeString& partText) {
  auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
  if (Failed(buffer->SetAllData(partText, true))) std::abort();
  return buffer;
}

/// A panel on a part of the server, shown by the recording toolkit.
struct OpenPanel {
  explicit OpenPanel(const KorUnicodeString& partText) : buffer(BufferOf(partText)) {
    panel = std::make_unique<KorWBNymMainPanel>(buffer.Get());
    panel->Attach(&backend);
    panel->SetVisibility(KorVisibility::Shown);
  }
  ~OpenPanel() { panel->Detach(); }

  RecordingBackend backend;
  LumWBAllDataBuffer_var buffer;
  std::unique_ptr<KorWBNymMainPanel> panel;
};

}  // namespace bench
