#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "benchmarks/save/Products.h"
#include "benchmarks/support/Report.h"
#include "lumira/commands/HistoryText.h"
#include "lumira/commands/SaveRules.h"
#include "lumira/commands/Server.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"

namespace {

using namespace bench;

constexpr int kItems = 100'000;
constexpr int kMassTypes = 200;
constexpr int kRevisions = 500;
constexpr int kProperties = 300;
constexpr int kRuns = 41;
constexpr double kTarget = 0.1;  // s, from the request to the acknowledgement

/// The value of a result, or the end of the program with its reason.
template <class T>
T Take(protocol::Result<T> result) {
  if (result) return std::move(result).Value();
  std::fprintf(stderr, "%s\n", result.Failure().message.c_str());
  std::exit(1);
}

void Require(const protocol::Result<void>& done) {
  if (done) return;
  std::fprintf(stderr, "%s\n", done.Failure().message.c_str());
  std::exit(1);
}

/// Folder of its own for the database, removed at the end.
class Folder {
 public:
  Folder() { std::filesystem::create_directory(_path); }
  ~Folder() { std::filesystem::remove_all(_path); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  std::string File(const char* name) const { return (_path / name).string(); }

 private:
  std::filesystem::path _path =
      std::filesystem::temp_directory_path() / ("bench-save-" + std::to_string(getpid()));
};

std::unique_ptr<lumira::Store> MakeStore(const std::string& file) {
  auto store = Take(lumira::CreateSqliteStore(file));
  Require(store->AddProduct(EightEach(kItems, kMassTypes), lumira::Existing::Refuse, {}, {},
                            LongContent(kRevisions, kProperties)));
  return store;
}

/// What no save can do without: so many bytes at the end of a file, on the disk. s
std::vector<double> DiskTimes(const std::string& name, std::size_t bytes) {
  const int file = open(name.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  const std::string content(bytes, 'x');
  auto times = Times(kRuns, [&] {
    if (write(file, content.data(), content.size()) < 0 || fdatasync(file) != 0) std::abort();
  });
  close(file);
  return times;
}

/// A client with the part open, whose every save has another mass.
class Client {
 public:
  Client(lumira::Store& store, std::string part) : _server(store, {}, "bench"), _part(std::move(part)) {
    _data = Take(protocol::ReadPartData(
        _server.Run(protocol::kCommandPartData, protocol::WritePartDataRequest({.partId = _part}))));
  }

  const protocol::PartData& Data() const { return _data; }

  std::string NextRequest() {
    *_data.massTypes.at(1).mass += 1;
    return protocol::WritePartData(_data);
  }

  void Save(const std::string& request) {
    _data.stateToken =
        Take(protocol::ReadSaveReply(_server.Run(protocol::kCommandSavePart, request))).stateToken;
  }

  void ComputeRoot() {
    Take(protocol::ReadComputeReply(_server.Run(protocol::kCommandComputePart, "1|top|")));
  }

 private:
  lumira::Server _server;
  std::string _part;
  protocol::PartData _data;
};

/// From the request to the reply. s
std::vector<double> SaveTimes(Client& client) {
  std::vector<double> times;
  for (int run = 0; run < kRuns; ++run) {
    const std::string request = client.NextRequest();
    times.push_back(SecondsOf([&] { client.Save(request); }));
  }
  return times;
}

/// The steps of one save, by the functions that the command is made of.
void MeasureSteps(std::vector<Row>& rows, lumira::Store& store, Client& client, double whole) {
  const std::string text = client.NextRequest();
  const protocol::PartData request = Take(protocol::ReadPartData(text));
  const lumira::StoredPart stored = Take(store.LoadPart("P0"));
  lumira::PartSaving saving{
      Take(lumira::ApplySave(stored, request)), {"bench", "2026-01-01T00:00:00Z"}, {}, {}};
  const auto add = [&](const char* name, std::vector<double> times) {
    rows.push_back(RowOf(std::string("  step: ") + name, std::move(times), whole));
  };
  add("read the request", Times(kRuns, [&] { KeepAlive(protocol::ReadPartData(text)); }));
  add("load what is stored", Times(kRuns, [&] { KeepAlive(store.LoadPart("P0")); }));
  add("check and apply", Times(kRuns, [&] { KeepAlive(lumira::ApplySave(stored, request)); }));
  add("texts for the history", Times(kRuns, [&] {
        saving.before = lumira::ToHistoryText(lumira::SavedValuesOf(stored.part, stored.details));
        saving.after = lumira::ToHistoryText(lumira::SavedValuesOf(saving.saved.part, saving.saved.details));
      }));
  add("write and commit", Times(kRuns, [&] {
        *saving.saved.part.massTypes.at(0).properties.mass += 1;
        saving.saved.state = Take(store.SavePart(saving)).state;
      }));
}

std::vector<Row> MeasureAll(const Folder& folder) {
  std::vector<Row> rows;
  const auto store = MakeStore(folder.File("p.lumira"));
  Client large(*store, "P0"), small(*store, "P77");
  const std::size_t bytes = large.NextRequest().size();
  rows.push_back(
      RowOf("disk: as many bytes as the request appended, synced", DiskTimes(folder.File("disk"), bytes)));
  const double disk = rows.back().median;

  large.ComputeRoot();
  rows.push_back(RowOf("part of 200 mass types: save to acknowledged", SaveTimes(large), disk, kTarget));
  const double whole = rows.back().median;
  MeasureSteps(rows, *store, large, whole);
  small.ComputeRoot();
  rows.push_back(RowOf("part of one mass type: save to acknowledged", SaveTimes(small), disk, kTarget));

  std::vector<double> own, others;
  for (int run = 0; run < 5; ++run) {
    small.Save(small.NextRequest());
    own.push_back(SecondsOf([&] { small.ComputeRoot(); }));
    others.push_back(SecondsOf([&] { Client(*store, "P99").ComputeRoot(); }));
  }
  rows.push_back(RowOf("compute of the root after a save, product at hand", own));
  const double path = rows.back().median;
  rows.push_back(RowOf("compute of the root of 100 k parts, loaded anew", others, path));
  return rows;
}

}  // namespace

/// bench_save [--json FILE]
int main(int count, char** arguments) {
  if (count != 1 && !(count == 3 && std::string_view(arguments[1]) == "--json")) {
    std::fprintf(stderr, "usage: bench_save [--json FILE]\n");
    return 2;
  }
  const Folder folder;
  return Finish({"saves: in multiples of the disk; steps: of the whole save; loaded anew: of the row before",
                 MeasureAll(folder)},
                count == 3 ? arguments[2] : "");
}
