#include "tests/module/entry/FreedBlock.h"

#if defined(_WIN32)
#include <malloc.h>
#include <windows.h>
#else
#include <cstdlib>
#include <new>
#endif

namespace {
const void* g_watched = nullptr;
bool g_freed = false;
}  // namespace

void FreedBlock::Watch(const void* block) {
  g_watched = block;
  g_freed = false;
}

#if defined(_WIN32)

bool FreedBlock::WasFreed() {
  if (g_watched && !HeapValidate(reinterpret_cast<HANDLE>(_get_heap_handle()), 0, g_watched)) {
    g_watched = nullptr;  // whoever gets the block next is somebody else
    g_freed = true;
  }
  return g_freed;
}

#else

bool FreedBlock::WasFreed() { return g_freed; }

namespace {

void Free(void* memory) noexcept {
  if (memory && memory == g_watched) {
    g_watched = nullptr;  // whoever gets the block next is somebody else
    g_freed = true;
  }
  std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
  if (void* memory = std::malloc(size > 0 ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { Free(memory); }
void operator delete(void* memory, std::size_t) noexcept { Free(memory); }

#endif
