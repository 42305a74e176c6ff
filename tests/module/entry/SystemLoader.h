#pragma once

#include <string>

/// A dynamic library in the hands of the system's loader, which counts how often it is loaded.
class SystemLoader {
 public:
  explicit SystemLoader(std::string file) : _file(std::move(file)) {}

  bool Load() const;
  /// One step back; false when the loader does not know the library.
  bool Unload() const;
  bool IsLoaded() const;
  /// Address of an exported name, null when there is none or the library is not loaded.
  void* Symbol(const char* name) const;
  /// Why the last step failed, in the loader's words.
  static std::string Reason();

 private:
  std::string _file;
};
