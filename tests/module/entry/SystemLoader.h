#pragma once

#include <string>

#if defined(_WIN32)
#include <windows.h>
#else
#include <dlfcn.h>
#endif

/// A dynamic library in the hands of the system's loader: `Load` and `Unload` count, as the loader does.
class SystemLoader {
 public:
  explicit SystemLoader(std::string file) : _file(std::move(file)) {}

  bool Load() const { return Open() != nullptr; }
  /// One step back; false when the loader does not know the library.
  bool Unload() const {
    const Handle handle = Find();
    return handle && Close(handle);
  }
  bool IsLoaded() const { return Find() != nullptr; }
  /// Address of an exported name, null when there is none or the library is not loaded.
  void* Symbol(const char* name) const {
    const Handle handle = Find();
    return handle ? Address(handle, name) : nullptr;
  }
  /// Why the last step failed, in the loader's words.
  static std::string Reason();

 private:
#if defined(_WIN32)
  using Handle = HMODULE;
  Handle Open() const { return LoadLibraryA(_file.c_str()); }
  Handle Find() const { return GetModuleHandleA(_file.c_str()); }
  static bool Close(Handle handle) { return FreeLibrary(handle); }
  static void* Address(Handle handle, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(handle, name));
  }
#else
  using Handle = void*;
  Handle Open() const { return dlopen(_file.c_str(), RTLD_NOW | RTLD_LOCAL); }
  // Found without counting.
  Handle Find() const {
    const Handle handle = dlopen(_file.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) dlclose(handle);
    return handle;
  }
  static bool Close(Handle handle) { return dlclose(handle) == 0; }
  static void* Address(Handle handle, const char* name) { return dlsym(handle, name); }
#endif

  std::string _file;
};

inline std::string SystemLoader::Reason() {
#if defined(_WIN32)
  return "error " + std::to_string(GetLastError());
#else
  const char* reason = dlerror();
  return reason ? reason : "";
#endif
}
