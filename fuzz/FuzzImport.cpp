#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "lumira/engine/Compile.h"
#include "lumira/engine/FilteredProduct.h"
#include "lumira/import/ImportProduct.h"
#include "lumira/store/ContentRules.h"

namespace {

// Separates the structure table, the mass table and those of filters, documents and properties; without it
// there is a mass table only, and the last ones may be missing.
constexpr std::string_view kDivider = "\n===\n";

// The text before the divider, which is taken away with it; the whole text without one.
std::string Take(std::string_view& text) {
  const std::string taken(text.substr(0, text.find(kDivider)));
  text.remove_prefix(std::min(text.size(), taken.size() + kDivider.size()));
  return taken;
}

lumira::ImportTables Split(std::string_view text) {
  const bool isOne = text.find(kDivider) == text.npos;
  lumira::ImportTables tables;
  if (!isOne) tables.structure = lumira::TableSource{"s.csv", Take(text)};
  const auto more = [&](const char* name) -> std::optional<lumira::TableSource> {
    if (text.find(kDivider) == text.npos) return std::nullopt;
    text.remove_prefix(text.find(kDivider) + kDivider.size());
    return lumira::TableSource{name, std::string(text.substr(0, text.find(kDivider)))};
  };
  tables.mass = {"m.csv", std::string(text.substr(0, text.find(kDivider)))};
  tables.filters = more("f.csv");
  tables.documents = more("d.csv");
  tables.properties = more("p.csv");
  return tables;
}

[[noreturn]] void Fail(const char* what, const std::string& why) {
  std::fprintf(stderr, "imported, but %s: %s\n", what, why.c_str());
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto tables = Split({reinterpret_cast<const char*>(data), size});
  const auto imported = lumira::ReadProductTables(tables, {});
  if (!imported) {
    if (imported.Failure().message.empty()) std::abort();
    return 0;
  }
  // Whatever the import takes, the engine can lay out, under each filter too.
  const auto compiled = lumira::Compile(imported.Value().product);
  if (!compiled) Fail("not computable", compiled.Failure().message);
  // And whatever is kept beside the structure, the store takes.
  if (const auto good = lumira::CheckContent(imported.Value().product, imported.Value().content); !good)
    Fail("the content cannot be stored", good.Failure().message);
  const lumira::StructureIndex structure(imported.Value().product);
  for (const lumira::ConfigurationFilter& filter : imported.Value().filters.filters)
    if (const auto filtered = lumira::ApplyFilter(structure, filter); !filtered)
      Fail("a filter cannot be applied", filtered.Failure().message);
  return 0;
}
