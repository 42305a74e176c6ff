#pragma once

/// While it lives, the C++ run-time gives so many blocks and then none. Everything of the process gets its
/// memory there, so a test puts only one call between its beginning and its end.
class FailingMemory {
 public:
  explicit FailingMemory(int blocks);
  ~FailingMemory();
  FailingMemory(const FailingMemory&) = delete;
  FailingMemory& operator=(const FailingMemory&) = delete;

  /// Whether a block was refused while the last one lived.
  static bool HasRefused();
};
