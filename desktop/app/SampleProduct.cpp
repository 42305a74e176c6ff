#include "desktop/app/SampleProduct.h"

#include <filesystem>

#include "lumira/store/OpenSqliteStore.h"

namespace desktop {
namespace {

namespace fs = std::filesystem;
using protocol::Result;

Result<lumira::ImportReport> ImportSample(const std::string& folder, const std::string& file) {
  auto tables = ReadSampleTables(folder);
  if (!tables) return tables.Failure();
  auto store = lumira::CreateSqliteStore(file);
  if (!store) return store.Failure();
  lumira::ImportOptions options;
  options.product = "IEA15";
  return lumira::ImportProduct(*store.Value(), tables.Value(), options);
}

/// What SQLite keeps beside a database, by what stands behind its name.
constexpr const char* kCompanions[] = {"", "-wal", "-shm", "-journal"};

Result<void> Rename(const std::string& from, const std::string& to) {
  std::error_code error;
  if (fs::exists(from, error)) fs::rename(from, to, error);
  if (!error) return {};
  return protocol::Error{protocol::ErrorKind::Storage,
                         "\"" + from + "\" cannot be renamed: " + error.message()};
}

}  // namespace

Result<lumira::ImportTables> ReadSampleTables(const std::string& samplesFolder) {
  const fs::path folder = fs::path(samplesFolder) / "iea15";
  auto structure = lumira::ReadTableFile((folder / "structure.csv").string());
  if (!structure) return structure.Failure();
  auto mass = lumira::ReadTableFile((folder / "mass.csv").string());
  if (!mass) return mass.Failure();
  auto filters = lumira::ReadTableFile((folder / "filters.csv").string());
  if (!filters) return filters.Failure();
  return lumira::ImportTables{std::move(structure).Value(), std::move(mass).Value(),
                              std::move(filters).Value()};
}

std::string NameSetAside(const std::string& file) { return file + ".old"; }

Result<void> SetAside(const std::string& file) {
  for (const char* companion : kCompanions) {
    std::error_code ignored;
    fs::remove(NameSetAside(file) + companion, ignored);
    if (auto renamed = Rename(file + companion, NameSetAside(file) + companion); !renamed) return renamed;
  }
  return {};
}

Result<lumira::ImportReport> CreateSampleProduct(const std::string& samplesFolder, const std::string& file) {
  // Made under another name, so that a file of the product's own name is always whole.
  const std::string making = file + ".new";
  std::error_code error;
  fs::create_directories(fs::path(file).parent_path(), error);
  fs::remove(making, error);
  auto report = ImportSample(samplesFolder, making);
  if (report) fs::rename(making, file, error);
  if (report && error)
    report =
        protocol::Error{protocol::ErrorKind::Storage, "\"" + file + "\" cannot be made: " + error.message()};
  if (!report) fs::remove(making, error);
  return report;
}

}  // namespace desktop
