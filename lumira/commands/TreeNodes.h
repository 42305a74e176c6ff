#pragma once

#include <cstdint>

#include "lumira/commands/OpenProduct.h"
#include "protocol/Tree.h"

namespace lumira {

/// A part as a line of the tree; `instance` is nullptr for a root.
protocol::TreeNode MakeTreeNode(const OpenProduct& product, std::uint32_t part, const Instance* instance);

}  // namespace lumira
