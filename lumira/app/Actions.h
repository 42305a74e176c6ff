#pragma once

#include <iostream>
#include <optional>
#include <string>

#include "lumira/import/ImportProduct.h"
#include "protocol/Result.h"

/// What the program can do, each with its parameters.
namespace lumira {

/// Where a program writes to, and reads from.
struct Console {
  std::ostream& out;
  std::ostream& errors;
  bool showProgress = false;
  std::istream& in = std::cin;
};

struct InitAction {
  std::string file;
};

struct ImportAction {
  std::string file;
  std::string structure;   ///< path of the structure table; empty: it is in the mass table
  std::string mass;        ///< path of the mass table
  std::string filters;     ///< path of the filter table; empty: no filters
  std::string documents;   ///< path of the document table; empty: no documents
  std::string properties;  ///< path of the property table; empty: no extra properties
  ImportOptions options;
};

struct TreeAction {
  std::string file;
  std::string part;   ///< the first line; empty: every product from its root
  int depth = 1'000;  ///< levels below the first part
};

struct ComputeAction {
  std::string file;
  std::string part;
  std::optional<std::string> filterName;  ///< of a configuration filter
  std::optional<std::string> userFilter;  ///< "1|" and chosen instances (protocol/Filter.h)
};

struct CommandAction {
  std::string file;
  std::string name;
  std::string request;  ///< "-": it comes from the input
  std::string user;     ///< who runs it; goes into the history of what is saved
};

struct HistoryAction {
  std::string file;
  std::string part;
  int limit = 100;  ///< most saves to print
};

protocol::Result<void> Do(const InitAction& action, const Console& console);
protocol::Result<void> Do(const ImportAction& action, const Console& console);
protocol::Result<void> Do(const TreeAction& action, const Console& console);
protocol::Result<void> Do(const ComputeAction& action, const Console& console);
protocol::Result<void> Do(const CommandAction& action, const Console& console);
protocol::Result<void> Do(const HistoryAction& action, const Console& console);

}  // namespace lumira
