#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "lumira/store/OpenSqliteStore.h"
#include "lumira/store/Store.h"

namespace lumira::test {

/// A directory of its own that is removed with its owner.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "lumira-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    _path = name;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(_path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  std::string File(const std::string& name) const { return (_path / name).string(); }

 private:
  std::filesystem::path _path;
};

/// How the suite gets at one implementation: a new, empty store, and what was stored opened again.
struct StoreKind {
  std::string name;
  std::function<std::unique_ptr<Store>(const std::string& place)> create;
  std::function<std::unique_ptr<Store>(const std::string& place)> open;

  friend std::ostream& operator<<(std::ostream& out, const StoreKind& kind) { return out << kind.name; }
};

inline StoreKind SqliteKind() {
  return {"Sqlite", [](const std::string& place) { return CreateSqliteStore(place).Value(); },
          [](const std::string& place) { return OpenSqliteStore(place).Value(); }};
}

/// Every promise of `Store` that does not depend on where the data lies.
class StoreContract : public testing::TestWithParam<StoreKind> {
 protected:
  StoreContract() : store(GetParam().create(_folder.File("store"))) {}

  /// What another program, started later, would see.
  Store& Reopened() {
    store.reset();
    store = GetParam().open(_folder.File("store"));
    return *store;
  }

 private:
  TemporaryFolder _folder;

 protected:
  std::unique_ptr<Store> store;
};

/// Two leaves below a root; every member differs from its default.
Product SampleProduct();

}  // namespace lumira::test
