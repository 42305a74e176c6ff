#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "benchmarks/support/Report.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/pdm/KorPdmClient.h"
#include "lumira/commands/Server.h"
#include "lumira/import/ImportProduct.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "tests/support/PanelHarness.h"

namespace {

using namespace bench;

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

/// The value of a result, or the end of the program with its reason.
template <class T>
T Take(protocol::Result<T> result) {
  if (result) return std::move(result).Value();
  std::fprintf(stderr, "%s\n", result.Failure().message.c_str());
  std::exit(1);
}

/// The sample turbine in a fresh database.
std::unique_ptr<lumira::Store> SampleStore(const std::filesystem::path& file) {
  std::filesystem::remove(file);
  auto store = Take(lumira::CreateSqliteStore(file.string()));
  const std::string samples = std::string(KORVO_SOURCE_DIR) + "/samples/iea15/";
  Take(lumira::ImportProduct(*store,
                             {Take(lumira::ReadTableFile(samples + "structure.csv")),
                              Take(lumira::ReadTableFile(samples + "mass.csv"))},
                             {}));
  return store;
}

/// A panel on a part of the server, shown by the recording toolkit.
struct OpenPanel {
  explicit OpenPanel(const KorUnicodeString& partText)
      : buffer(LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer)) {
    if (Failed(buffer->SetAllData(partText, true))) std::abort();
    panel = std::make_unique<KorWBNymMainPanel>(buffer.Get());
    panel->Attach(&backend);
    panel->SetVisibility(KorVisibility::Shown);
  }
  ~OpenPanel() { panel->Detach(); }

  RecordingBackend backend;
  LumWBAllDataBuffer_var buffer;
  std::unique_ptr<KorWBNymMainPanel> panel;
};

std::vector<Row> MeasureAll(lumira::Server& server) {
  constexpr int kRuns = 501;
  const std::string request = protocol::WritePartDataRequest({"RNA", "Above_yaw", {}});
  const KorUnicodeString part = server.Run(protocol::kCommandPartData, request);
  std::vector<Row> rows;

  rows.push_back(RowOf("buffer: take over the server's text", Times(kRuns, [&] {
                         const auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
                         if (Failed(buffer->SetAllData(part, true))) std::abort();
                       })));
  const double reading = rows.front().median;
  rows.push_back(RowOf("panel: construction and first refresh",
                       Times(kRuns, [&] { KeepAlive(OpenPanel(part)); }), reading, 2e-3));

  OpenPanel open(part);
  rows.push_back(RowOf("panel: refresh", Times(kRuns, [&] { open.panel->RefreshPanelWithInfo(); }), reading));

  protocol::ComputeRequest anew{true, "Above_yaw", {}};
  anew.options.reuseStoredResults = false;
  const std::string compute = protocol::WriteComputeRequest(anew);
  rows.push_back(RowOf("server: compute request to reply",
                       Times(kRuns, [&] { KeepAlive(server.Run(protocol::kCommandComputePart, compute)); })));
  const double serving = rows.back().median;
  auto& button = open.panel->Find<KorDlgPushButton>("Frame238.ComputeButton");
  rows.push_back(RowOf("panel: compute pressed to refreshed panel",
                       Times(kRuns,
                             [&] {
                               if (!button.Press()) std::abort();
                             }),
                       serving));
  return rows;
}

}  // namespace

/// bench_panel [--json FILE]
int main(int count, char** arguments) {
  if (count != 1 && !(count == 3 && std::string_view(arguments[1]) == "--json")) {
    std::fprintf(stderr, "usage: bench_panel [--json FILE]\n");
    return 2;
  }
  KorMsgCatalog::SetFolder(std::string(KORVO_SOURCE_DIR) + "/catalogues");
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("korvo-bench-panel-" + std::to_string(getpid()) + ".lumira");
  const std::unique_ptr<lumira::Store> store = SampleStore(file);
  lumira::Server server(*store);
  Embedded transport(server);
  KorPdmClient::SetTransport(&transport);
  std::cout.setstate(std::ios::failbit);  // the panels write requests and replies there; the table uses stdio
  const Report report{"time in multiples of taking over the server's text; compute: of the server's own time",
                      MeasureAll(server)};
  std::filesystem::remove(file);
  return Finish(report, count == 3 ? arguments[2] : "");
}
