#pragma once

#include <cstdint>
#include <vector>

#include "framework/system/KorUnicodeString.h"

namespace bench {

/// An instance of a product as a search reports it.
struct Instance {
  KorUnicodeString id, part, version, path;
  std::int32_t depth = 0;
};

/// How instances are named below their parent.
enum class Naming {
  ByPart,    ///< part and number, such as "M36-BOLT-0007.1274"
  ByNumber,  ///< the number alone, such as "1274": many instances share an identifier
};

/// `count` instances below 200 assemblies at depth 6. One child in two is a bolt of its assembly, so that
/// each assembly has thousands of siblings of one part; the others are one of 2000 parts.
std::vector<Instance> MakeInstances(int count, Naming naming);

/// The text of a user filter of these rows.
KorUnicodeString UserFilterOf(const std::vector<Instance>& rows);

}  // namespace bench
