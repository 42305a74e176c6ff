#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "lumira/import/ImportProduct.h"

namespace lumira::test {

/// Two children of "top", without data.
inline constexpr char kTwoChildren[] = "parent,child\ntop,a\ntop,b\n";

inline protocol::Result<ImportedProduct> ReadTables(const std::string& structure, const std::string& mass,
                                                    const ImportOptions& options = {}) {
  return ReadProductTables({TableSource{"s.csv", structure}, TableSource{"m.csv", mass}}, options);
}

/// The message of a refused import.
inline std::string Errors(const std::string& structure, const std::string& mass,
                          const ImportOptions& options = {}) {
  const auto imported = ReadTables(structure, mass, options);
  return imported.Ok() ? "imported" : imported.Failure().message;
}

/// What a mass table of part "a" is refused with.
inline std::string MassErrors(const std::string& mass) { return Errors("parent,child\ntop,a\n", mass); }

/// What a structure table is refused with; the mass table says nothing.
inline std::string StructureErrors(const std::string& structure, const ImportOptions& options = {}) {
  return Errors(structure, "part\na\n", options);
}

inline const Part& PartOf(const ImportedProduct& imported, const std::string& id) {
  for (const Part& part : imported.product.parts)
    if (part.id == id) return part;
  throw std::out_of_range(id);
}

inline const Instance& InstanceOf(const ImportedProduct& imported, const std::string& id) {
  for (const Instance& instance : imported.product.instances)
    if (instance.id == id) return instance;
  throw std::out_of_range(id);
}

}  // namespace lumira::test
