#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace protocol {

/// Offset of the first byte that is not part of well-formed UTF-8 (RFC 3629, table of section 4); none when
/// all is.
std::optional<std::size_t> FindInvalidUtf8(std::string_view text);

/// A text as a terminal may show it: control characters and malformed bytes as \xNN.
std::string Printable(std::string_view text);

/// A text as a message may show it: quoted, control characters and malformed bytes as \xNN, long ones cut.
std::string Quoted(std::string_view text);

}  // namespace protocol
