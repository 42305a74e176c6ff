#include "tests/module/FailingMemory.h"

#include <cstdlib>
#include <new>

namespace {

thread_local bool t_limited = false;
thread_local bool t_refused = false;
thread_local int t_left = 0;

}  // namespace

FailingMemory::FailingMemory(int blocks) {
  t_left = blocks;
  t_refused = false;
  t_limited = true;
}

FailingMemory::~FailingMemory() { t_limited = false; }

bool FailingMemory::HasRefused() { return t_refused; }

// The memory of the C++ run-time in this program and in the libraries that it loads.
void* operator new(std::size_t size) {
  t_refused = t_refused || (t_limited && t_left <= 0);
  if (t_limited && t_left-- <= 0) throw std::bad_alloc();
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
