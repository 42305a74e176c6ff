#pragma once

#include <optional>
#include <string>
#include <vector>

namespace protocol {

/// Makes a product the current one of the session; an empty identifier: none. Answered with CurrentRoot.
struct RootRequest {
  std::string product = {};
};

/// A product root, by its root part and by the product.
struct RootEntry {
  std::string rootPart = {};
  std::string product = {};
};

/// What the session works on; no entry without a current root.
struct CurrentRoot {
  std::vector<RootEntry> roots = {};
  std::string text = {};  ///< for people: name of the root part
};

/// Asks for the configuration filters of products. The lists are parallel.
struct FiltersRequest {
  std::vector<std::string> rootParts = {};
  std::vector<std::string> products = {};
};

/// A configuration filter. The name is unique in the product and is what a filter string carries.
struct FilterEntry {
  std::string id = {};
  std::string name = {};
  std::string summary = {};  ///< for people: what takes part
};

/// Answers FiltersRequest: product by product, by name within each.
struct FilterList {
  std::vector<FilterEntry> filters = {};
};

/// Asks which configuration handler is set on a product.
struct HandlerRequest {
  std::string product = {};
};

/// The configuration filter that is set on a product for everybody. Answers HandlerRequest, and sets it.
struct ConfigurationHandler {
  std::string product = {};
  std::optional<std::string> name = {};  ///< absent: none is set
};

}  // namespace protocol
