#pragma once

#include <cstddef>

#include "framework/system/KorExport.h"

/// Where the host's commands and dialogs get their memory.
class KOR_FRAMEWORK_API KorObjectAllocator {
 public:
  /// Where memory comes from and goes back to. `allocate` answers null when there is none left.
  struct Source {
    void* (*allocate)(std::size_t size);
    void (*free)(void* memory);
  };

  /// Throws std::bad_alloc when there is no memory.
  static void* Allocate(std::size_t size);
  /// Takes back what Allocate gave while the same source was set; null is nothing.
  static void Free(void* memory) noexcept;

  /// Answers the source that was set before.
  static Source SetSource(Source source);
};
