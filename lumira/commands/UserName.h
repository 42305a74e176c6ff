#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lumira {

/// Who works when nobody says who it is.
inline constexpr std::string_view kUnknownUser = "unknown";

/// Why a text cannot be the name of a user, as the end of a sentence; none when it can: the rules are those
/// of identifiers (model/Identifier.h).
std::optional<std::string> FindUserNameProblem(std::string_view name);

/// The user that the environment tells of (USER, else LOGNAME); `kUnknownUser` when neither is a name.
std::string UserOfEnvironment();

}  // namespace lumira
