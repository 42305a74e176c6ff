#include "desktop/app/SampleProduct.h"

#include <filesystem>
#include <optional>
#include <utility>

#include "lumira/store/OpenSqliteStore.h"

namespace desktop {
namespace {

namespace fs = std::filesystem;
using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

// A disk that is nearly full may have room for the log and none for the file itself, which then stays behind.
Result<void> CheckStandsAlone(const std::string& file) {
  std::error_code error;
  const auto left = fs::file_size(file + "-wal", error);
  if (error || left == 0) return {};
  return Error{ErrorKind::Storage, "\"" + file + "\" cannot be finished: the disk is full or nearly so"};
}

Result<lumira::ImportReport> ImportSample(const std::string& folder, const std::string& file) {
  auto tables = ReadSampleTables(folder);
  if (!tables) return tables.Failure();
  auto store = lumira::CreateSqliteStore(file);
  if (!store) return store.Failure();
  lumira::ImportOptions options;
  options.product = "IEA15";
  auto report = lumira::ImportProduct(*store.Value(), tables.Value(), options);
  store.Value().reset();
  if (report)
    if (auto whole = CheckStandsAlone(file); !whole) return whole.Failure();
  return report;
}

/// What SQLite keeps beside a database, by what stands behind its name.
constexpr const char* kCompanions[] = {"", "-wal", "-shm", "-journal"};

Error Cannot(const char* what, const std::string& file, const std::error_code& error) {
  return {ErrorKind::Storage, "\"" + file + "\" cannot be " + what + ": " + error.message()};
}

/// Gives a file the place of another one. Where there is no file the other one goes, too: the companions of a
/// database must not be taken for those of the next.
Result<void> TakePlace(const std::string& from, const std::string& to) {
  std::error_code error;
  if (fs::exists(from, error))
    fs::rename(from, to, error);
  else if (!error)
    fs::remove(to, error);
  if (error) return Cannot("renamed", from, error);
  return {};
}

Result<void> RemoveWithCompanions(const std::string& file) {
  for (const char* companion : kCompanions) {
    std::error_code error;
    fs::remove(file + companion, error);
    if (error) return Cannot("removed", file + companion, error);
  }
  return {};
}

/// Gives a whole product file its name. What is left beside the name then is the log of a file that somebody
/// removed, and nobody can read it any more.
Result<void> GiveName(const std::string& made, const std::string& file) {
  if (auto aside = SetAside(file); !aside) return aside;
  if (auto cleared = RemoveWithCompanions(file); !cleared) return cleared;
  return TakePlace(made, file);
}

}  // namespace

Result<lumira::ImportTables> ReadSampleTables(const std::string& samplesFolder) {
  const fs::path folder = fs::path(samplesFolder) / "iea15";
  lumira::ImportTables tables;
  const std::pair<const char*, std::optional<lumira::TableSource>&> besideMass[] = {
      {"structure.csv", tables.structure},
      {"filters.csv", tables.filters},
      {"documents.csv", tables.documents},
      {"properties.csv", tables.properties}};
  for (const auto& [name, table] : besideMass) {
    auto read = lumira::ReadTableFile((folder / name).string());
    if (!read) return read.Failure();
    table = std::move(read).Value();
  }
  auto mass = lumira::ReadTableFile((folder / "mass.csv").string());
  if (!mass) return mass.Failure();
  tables.mass = std::move(mass).Value();
  return tables;
}

std::string NameSetAside(const std::string& file) { return file + ".old"; }

Result<void> SetAside(const std::string& file) {
  std::error_code error;
  const bool isThere = fs::exists(file, error);
  if (error) return Cannot("found", file, error);
  if (!isThere) return {};
  for (const char* companion : kCompanions)
    if (auto moved = TakePlace(file + companion, NameSetAside(file) + companion); !moved) return moved;
  return {};
}

Result<lumira::ImportReport> CreateSampleProduct(const std::string& samplesFolder, const std::string& file) {
  // Made under another name, so that a file of the product's own name is always whole, and the old one stays
  // in its place until there is a new one.
  const std::string making = file + ".new";
  const fs::path folder = fs::path(file).parent_path();
  std::error_code error;
  if (!folder.empty()) fs::create_directories(folder, error);
  if (error) return Cannot("made", folder.string(), error);
  if (auto cleared = RemoveWithCompanions(making); !cleared) return cleared.Failure();
  auto report = ImportSample(samplesFolder, making);
  if (report)
    if (auto named = GiveName(making, file); !named) report = named.Failure();
  if (!report) (void)RemoveWithCompanions(making);
  return report;
}

}  // namespace desktop
