#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>

#include "benchmarks/panel/LargePart.h"
#include "benchmarks/panel/OpenPanel.h"
#include "benchmarks/support/Report.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"

namespace {

using namespace bench;

constexpr int kRuns = 51;

std::string Ask(lumira::Server& server, std::string_view command, const std::string& request) {
  std::string reply = server.Run(command, request);
  if (protocol::IsErrorReply(reply)) Stop({protocol::ErrorKind::Internal, reply});
  return reply;
}

// The steps one after the other, as a user waits for them, and what picking a revision takes then.
std::vector<Row> MeasureAll(lumira::Server& server) {
  std::vector<Row> rows;
  const std::string request = protocol::WritePartDataRequest({"large", "large", {}});
  rows.push_back(RowOf("server: request to the text of the part",
                       Times(kRuns, [&] { KeepAlive(Ask(server, protocol::kCommandPartData, request)); })));
  const double serving = rows.front().median;
  const std::string text = Ask(server, protocol::kCommandPartData, request);
  const KorUnicodeString part = text;
  rows.push_back(
      RowOf("buffer: take over the text", Times(kRuns, [&] { KeepAlive(BufferOf(part)); }), serving));
  rows.push_back(RowOf("panel: buffer, construction and first refresh",
                       Times(kRuns, [&] { KeepAlive(OpenPanel(part)); }), serving));
  OpenPanel open(part);
  rows.push_back(RowOf("panel: refresh", Times(kRuns, [&] { open.panel->RefreshPanelWithInfo(); }), serving));
  rows.push_back(RowOf(
      "server: request to the text of one revision",
      Times(kRuns, [&] { KeepAlive(Ask(server, protocol::kCommandActiveDocument, "D-1|R250")); }), serving));
  return rows;
}

}  // namespace

/// bench_part [--json FILE]
int main(int count, char** arguments) {
  if (count != 1 && !(count == 3 && std::string_view(arguments[1]) == "--json")) {
    std::fprintf(stderr, "usage: bench_part [--json FILE]\n");
    return 2;
  }
  KorMsgCatalog::SetFolder(std::string(KORVO_SOURCE_DIR) + "/catalogues");
  const std::filesystem::path file =
      std::filesystem::temp_directory_path() / ("korvo-bench-part-" + std::to_string(getpid()) + ".lumira");
  const auto store = Take(lumira::CreateSqliteStore(file.string()));
  const LargePart large = MakeLargePart({});
  if (const auto added = store->AddProduct(large.product, lumira::Existing::Refuse, {}, {}, large.content);
      !added)
    Stop(added.Failure());
  lumira::Server server(*store);
  Embedded transport(server);
  KorPdmClient::SetTransport(&transport);
  std::cout.setstate(std::ios::failbit);  // the panels write traces there; the table uses stdio
  const Report report{"time in multiples of the server's own time for the part", MeasureAll(server)};
  std::filesystem::remove(file);
  return Finish(report, count == 3 ? arguments[2] : "");
}
