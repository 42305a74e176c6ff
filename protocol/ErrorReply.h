#pragma once

#include <string>
#include <string_view>

namespace protocol {

/// The error header and the message: what a command that failed answers.
std::string ErrorReply(std::string_view message);

/// Whether the error header stands anywhere in the reply. No reply that this library
/// writes can contain it; a compute request and a filter can, since names stand in them as they are.
bool IsErrorReply(std::string_view reply);

}  // namespace protocol
