#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "benchmarks/panel/OpenPanel.h"
#include "benchmarks/support/Report.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "lumira/import/ImportProduct.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"

namespace {

using namespace bench;

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

std::vector<Row> MeasureAll(lumira::Server& server) {
  constexpr int kRuns = 501;
  const std::string request = protocol::WritePartDataRequest({"RNA", "Above_yaw", {}});
  const KorUnicodeString part = server.Run(protocol::kCommandPartData, request);
  std::vector<Row> rows;

  rows.push_back(
      RowOf("buffer: take over the server's text", Times(kRuns, [&] { KeepAlive(BufferOf(part)); })));
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
