#pragma once

#include <string>

namespace desktop {

/// Who works with the program, for the history of what is saved: the user that the environment tells of, else
/// the account of the operating system; lumira::kUnknownUser when neither has a name.
std::string UserName();

}  // namespace desktop
