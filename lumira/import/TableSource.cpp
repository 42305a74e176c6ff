#include "lumira/import/TableSource.h"

#include <filesystem>
#include <fstream>

#include "lumira/import/Guarded.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;

namespace {

protocol::Result<TableSource> Read(const std::string& path, const TableLimits& limits) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) return Error{ErrorKind::NotFound, path + ": there is no such file"};
  if (!std::filesystem::is_regular_file(status)) return Error{ErrorKind::BadValue, path + ": is not a file"};
  const auto size = std::filesystem::file_size(path, error);
  if (error) return Error{ErrorKind::Storage, path + ": cannot be read: " + error.message()};
  if (size > limits.bytes)
    return Error{ErrorKind::BadValue, path + ": has " + std::to_string(size) + " bytes, the limit is " +
                                          std::to_string(limits.bytes)};
  std::ifstream file(path, std::ios::binary);
  std::string text(static_cast<std::size_t>(size), '\0');
  if (!file.read(text.data(), static_cast<std::streamsize>(text.size())))
    return Error{ErrorKind::Storage, path + ": cannot be read"};
  return TableSource{std::filesystem::path(path).filename().string(), std::move(text)};
}

}  // namespace

protocol::Result<TableSource> ReadTableFile(const std::string& path, const TableLimits& limits) {
  return Guarded([&] { return Read(path, limits); });
}

}  // namespace lumira
