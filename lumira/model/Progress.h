#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace lumira {

/// Told now and then how far a long piece of work is: what is being done, how much of it, out of how much
/// (0: not known). Called on the thread that does the work; an empty one is never called.
using Progress = std::function<void(std::string_view what, std::size_t done, std::size_t total)>;

inline void Report(const Progress& progress, std::string_view what, std::size_t done, std::size_t total) {
  if (progress) progress(what, done, total);
}

}  // namespace lumira
