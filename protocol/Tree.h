#pragma once

#include <optional>
#include <string>
#include <vector>

#include "protocol/PartData.h"

namespace protocol {

/// One line of the product tree: an instance and the part that it places.
struct TreeNode {
  std::string instanceId = {};  ///< empty for a root part
  std::string partId = {};
  std::string name = {};
  std::string revision = {};
  int quantity = 1;  ///< coincident copies that the instance stands for
  bool hasChildren = false;
  MassTypeStatus computedStatus = MassTypeStatus::Undefined;
  std::optional<double> mass = {};  ///< kg, of the active mass type; of one copy
};

/// The children of a part, or one page of them.
struct TreeNodes {
  std::string parentPartId = {};
  int total = 0;  ///< children that the part has
  int first = 0;  ///< index of the first node below
  std::vector<TreeNode> nodes = {};
};

/// A product and the named configuration filters defined for it.
struct ProductEntry {
  std::string product = {};  ///< identifier of the product root
  TreeNode root = {};
  std::vector<std::string> filters = {};
};

/// Answers "LumGetProducts".
struct ProductList {
  std::vector<ProductEntry> products = {};
  /// What could not be read of products, for people; those products are listed with what is known of them,
  /// and left out when not even the identifier is.
  std::vector<std::string> problems = {};
};

/// One place in a product where a part is used.
struct Occurrence {
  std::vector<std::string> instancePath =
      {};  ///< instance identifiers from the root part down; empty for the root
  TreeNode node = {};
};

/// Answers "LumSearchTree".
struct SearchReply {
  bool cut = false;  ///< there are more hits than the limit let through
  std::vector<Occurrence> hits = {};
};

}  // namespace protocol
