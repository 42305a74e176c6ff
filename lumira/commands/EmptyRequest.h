#pragma once

#include <string_view>

#include "protocol/Result.h"
#include "protocol/Utf8.h"

namespace lumira {

/// For commands that take no parameters.
inline protocol::Result<void> CheckIsEmpty(std::string_view request) {
  if (request.empty()) return {};
  return protocol::Error{protocol::ErrorKind::BadText,
                         "the request should be empty, it is " + protocol::Quoted(request)};
}

}  // namespace lumira
