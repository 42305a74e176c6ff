#pragma once

#include <string>
#include <vector>

#include "protocol/Tree.h"

namespace desktop {

/// Which occurrence is meant.
struct OccurrenceKey {
  std::string product;
  std::vector<std::string> instancePath;  ///< from the root part down; empty for the root itself
};

/// An occurrence that the user has selected: where it stands in its product, and its line of the tree.
struct OccurrencePlace {
  std::string product;
  std::vector<std::string> instancePath;  ///< from the root part down; empty for the root itself
  std::vector<std::string> names;         ///< of the parts on the way, the root's first
  protocol::TreeNode node;
};

}  // namespace desktop
