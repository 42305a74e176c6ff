#pragma once

#include <memory>
#include <string>

#include "lumira/store/Store.h"

namespace lumira {

/// How long to wait for another program that holds the file, milliseconds.
inline constexpr int kLockPatience = 2'000;

/// Makes a new, empty store in an SQLite file. BadValue without a name, Conflict when the file
/// exists; Storage when it cannot be made.
protocol::Result<std::unique_ptr<Store>> CreateSqliteStore(const std::string& file,
                                                           int lockPatience = kLockPatience);

/// Opens a store for reading and writing; tables of an older version are brought up to date. NotFound when
/// there is no such file; Storage when it is damaged, not one of ours, read-only, locked, or written by a
/// newer version. The file is not touched then.
protocol::Result<std::unique_ptr<Store>> OpenSqliteStore(const std::string& file,
                                                         int lockPatience = kLockPatience);

}  // namespace lumira
