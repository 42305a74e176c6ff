#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "lumira/engine/Compile.h"
#include "lumira/import/ImportProduct.h"

namespace {

// Separates the structure table from the mass table; without it there is a mass table only.
constexpr std::string_view kDivider = "\n===\n";

lumira::ImportTables Split(std::string_view text) {
  const std::size_t divider = text.find(kDivider);
  if (divider == text.npos) return {std::nullopt, {"m.csv", std::string(text)}};
  return {lumira::TableSource{"s.csv", std::string(text.substr(0, divider))},
          {"m.csv", std::string(text.substr(divider + kDivider.size()))}};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto tables = Split({reinterpret_cast<const char*>(data), size});
  const auto imported = lumira::ReadProductTables(tables, {});
  if (!imported) {
    if (imported.Failure().message.empty()) std::abort();
    return 0;
  }
  // Whatever the import takes, the engine can lay out.
  const auto compiled = lumira::Compile(imported.Value().product);
  if (!compiled) {
    std::fprintf(stderr, "imported, but not computable: %s\n", compiled.Failure().message.c_str());
    std::abort();
  }
  return 0;
}
