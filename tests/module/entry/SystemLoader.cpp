#include "tests/module/entry/SystemLoader.h"

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#if defined(_WIN32)

bool SystemLoader::Load() const { return LoadLibraryA(_file.c_str()) != nullptr; }

bool SystemLoader::Unload() const {
  const HMODULE library = GetModuleHandleA(_file.c_str());
  return library && FreeLibrary(library);
}

bool SystemLoader::IsLoaded() const { return GetModuleHandleA(_file.c_str()) != nullptr; }

void* SystemLoader::Symbol(const char* name) const {
  const HMODULE library = GetModuleHandleA(_file.c_str());
  return library ? reinterpret_cast<void*>(GetProcAddress(library, name)) : nullptr;
}

std::string SystemLoader::Reason() { return "error " + std::to_string(GetLastError()); }

#else

namespace {

// Found without counting; null when it is not loaded.
void* Find(const std::string& file) {
  void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD);
  if (library) dlclose(library);
  return library;
}

}  // namespace

bool SystemLoader::Load() const { return dlopen(_file.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr; }

bool SystemLoader::Unload() const {
  void* const library = Find(_file);
  return library && dlclose(library) == 0;
}

bool SystemLoader::IsLoaded() const { return Find(_file) != nullptr; }

void* SystemLoader::Symbol(const char* name) const {
  void* const library = Find(_file);
  return library ? dlsym(library, name) : nullptr;
}

std::string SystemLoader::Reason() {
  const char* const reason = dlerror();
  return reason ? reason : "";
}

#endif
