#pragma once

/// Watches for one block of the heap to be given back by any library of this program: through the program's
/// operator delete, which the libraries that it loads use too, or on Windows, where they do not, by asking
/// the heap.
class FreedBlock {
 public:
  static void Watch(const void* block);
  /// False, too, when nothing is watched.
  static bool WasFreed();
};
