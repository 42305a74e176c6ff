#include "lumira/store/SqliteStore.h"

#include "protocol/Utf8.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

std::optional<std::int64_t> SqliteStore::Key(const char* sql, std::string_view id) {
  SQLite::Statement query(_db, sql);
  query.bind(1, std::string(id));
  return query.executeStep() ? std::optional(query.getColumn(0).getInt64()) : std::nullopt;
}

Result<std::int64_t> SqliteStore::ProductKey(std::string_view productId) {
  if (const auto key = Key("SELECT key FROM products WHERE product = ?", productId)) return *key;
  return Error{ErrorKind::NotFound, "there is no product " + Quoted(productId)};
}

Result<std::int64_t> SqliteStore::PartKey(std::string_view partId) {
  if (const auto key = Key("SELECT key FROM parts WHERE part = ?", partId)) return *key;
  return Error{ErrorKind::NotFound, "there is no part " + Quoted(partId)};
}

}  // namespace lumira
