#pragma once

/// Watches for one block of the heap to be given back, through the operator delete of this program, which the
/// libraries that it loads use too.
class FreedBlock {
 public:
  static void Watch(const void* block);
  static bool WasFreed();
};
