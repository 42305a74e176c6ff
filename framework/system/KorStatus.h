#pragma once

#include <cstdint>

/// Status of an operation that can fail: 0 or positive for success, negative for failure.
using HRESULT = std::int32_t;

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
/// The generic failure, 0x80004005.
inline constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005u);

constexpr bool Succeeded(HRESULT status) { return status >= 0; }
constexpr bool Failed(HRESULT status) { return status < 0; }
