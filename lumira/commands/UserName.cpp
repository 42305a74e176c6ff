#include "lumira/commands/UserName.h"

#include <cstdlib>

#include "lumira/model/Identifier.h"

namespace lumira {

std::optional<std::string> FindUserNameProblem(std::string_view name) { return FindIdentifierProblem(name); }

std::string UserOfEnvironment() {
  for (const char* variable : {"USER", "LOGNAME"})
    if (const char* name = std::getenv(variable); name != nullptr && !FindUserNameProblem(name)) return name;
  return std::string(kUnknownUser);
}

}  // namespace lumira
