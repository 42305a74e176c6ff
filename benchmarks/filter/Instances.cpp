#include "benchmarks/filter/Instances.h"

#include <string>

namespace bench {
namespace {

constexpr int kAssemblies = 200;
constexpr int kParts = 2000;

// Six instances from the root down, as a product of that depth names them.
std::string PathOf(int assembly) {
  const auto numbered = [](const char* name, int number) { return name + std::to_string(number); };
  return numbered("IEA15-TURBINE.", 1) + "|" + numbered("RNA-ASSEMBLY.", 1) + "|" +
         numbered("NACELLE-MODULE.", assembly / 50 + 1) + "|" + numbered("DRIVE-TRAIN.", assembly / 10 + 1) +
         "|" + numbered("HOUSING-SECTION.", assembly % 10 + 1) + "|" +
         numbered("FLANGE-JOINT.", assembly + 1);
}

Instance MakeInstance(int number, Naming naming) {
  const int assembly = number % kAssemblies;
  const int inAssembly = number / kAssemblies;
  const bool bolt = inAssembly % 2 == 0;
  const std::string part =
      bolt ? "M36-BOLT-" + std::to_string(assembly) : "BRACKET-" + std::to_string(number % kParts);
  const std::string child = std::to_string(inAssembly + 1);
  return {naming == Naming::ByNumber ? child : part + "." + child, part, "A.1", PathOf(assembly), 6};
}

}  // namespace

std::vector<Instance> MakeInstances(int count, Naming naming) {
  std::vector<Instance> instances;
  instances.reserve(static_cast<std::size_t>(count));
  for (int number = 0; number < count; ++number) instances.push_back(MakeInstance(number, naming));
  return instances;
}

KorUnicodeString UserFilterOf(const std::vector<Instance>& rows) {
  std::string text = "1|" + std::to_string(rows.size());
  for (const Instance& row : rows)
    text += "|" + row.id.Utf8() + "|" + row.part.Utf8() + "|" + row.version.Utf8() + "|" +
            std::to_string(row.depth) + "|" + row.path.Utf8();
  return text;
}

}  // namespace bench
