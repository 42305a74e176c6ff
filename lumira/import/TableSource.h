#pragma once

#include <cstddef>
#include <string>

#include "protocol/Result.h"

namespace lumira {

/// Largest tables that are read. A larger one is refused with the limit.
struct TableLimits {
  std::size_t bytes = std::size_t{1} << 30;
  std::size_t rows = 10'000'000;
  std::size_t columns = 1'000;
  std::size_t cellBytes = 64 * 1024;
};

/// The text of a table and the name that messages call it by.
struct TableSource {
  std::string name;
  std::string text;
};

/// Reads a file whole. The name in messages is the file name without its folders. NotFound when there is no
/// such file, BadValue when it is no file (a folder, a pipe) or above the limit, Storage when it cannot be
/// read, Internal when there is not enough memory.
protocol::Result<TableSource> ReadTableFile(const std::string& path, const TableLimits& limits = {});

}  // namespace lumira
