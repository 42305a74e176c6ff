#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace lumira {

/// What an import did, or would do. Each text stands for itself: file, line and column included.
struct ImportReport {
  std::string product;
  std::size_t parts = 0;
  std::size_t instances = 0;
  std::size_t massTypes = 0;          ///< rows of mass data
  std::size_t filters = 0;            ///< configuration filters
  std::size_t revisions = 0;          ///< of documents
  std::size_t properties = 0;         ///< extra properties of the product
  std::vector<std::string> leftOut;   ///< columns and rows that were not taken, and why
  std::vector<std::string> warnings;  ///< what looks wrong but was taken
};

}  // namespace lumira
