#include "protocol/ErrorReply.h"

#include "protocol/Constants.h"

namespace protocol {

std::string ErrorReply(std::string_view message) { return std::string(kErrorHeader).append(message); }

bool IsErrorReply(std::string_view reply) { return reply.find(kErrorHeader) != std::string_view::npos; }

}  // namespace protocol
