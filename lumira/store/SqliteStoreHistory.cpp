#include <SQLiteCpp/VariadicBind.h>

#include <limits>
#include <utility>

#include "lumira/store/ProductRules.h"
#include "lumira/store/SqliteStore.h"
#include "lumira/store/SqliteTables.h"
#include "protocol/Utf8.h"

namespace lumira {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Quoted;
using protocol::Result;

namespace {

constexpr char kRecord[] =
    "INSERT INTO history(part, number, user, time, state_before, state_after, before, after) "
    "VALUES(?, ?, ?, ?, ?, ?, ?, ?)";
constexpr char kRecords[] =
    "SELECT number, user, time, state_before, state_after FROM history WHERE part = ? AND number < ? ORDER "
    "BY number DESC LIMIT ?";
// A state that one record leads to and another stands on has a text in both, of which the later one may tell
// more than an older program has written. Each half has its own index, which the plus keeps in use.
constexpr char kStateText[] =
    "SELECT number, text FROM ("
    "SELECT number, before AS text FROM history WHERE part = ?1 AND state_before = ?2 UNION ALL "
    "SELECT number, after FROM history WHERE part = ?1 AND state_after = ?2) "
    "ORDER BY +number DESC LIMIT 1";

HistoryRecord RecordIn(SQLite::Statement& row) {
  return {.number = row.getColumn(0).getInt64(),
          .by = {TextIn(row, 1), TextIn(row, 2)},
          .stateBefore = row.getColumn(3).getInt64(),
          .stateAfter = row.getColumn(4).getInt64()};
}

}  // namespace

Result<StoredPart> SqliteStore::LoadPart(std::string_view partId) {
  return Read([&]() -> Result<StoredPart> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    return PartAt(key.Value());
  });
}

StoredPart SqliteStore::PartAt(std::int64_t partKey) {
  SQLite::Statement query(_db, SelectSql<Part>("key, mass_type_count, state", "parts", "WHERE key = ?"));
  query.bind(1, partKey);
  query.executeStep();
  StoredPart stored{ReadRow<Part>(query, 3), DetailsAt(partKey), query.getColumn(2).getInt64()};
  stored.part.massTypes = ReadRows<MassTypeData>(_db, "mass_types", partKey);
  CheckMassTypeCount(stored.part, query.getColumn(1).getInt64());
  return stored;
}

Result<SavedState> SqliteStore::SavePart(const PartSaving& saving) {
  const Part& part = saving.saved.part;
  if (auto good = CheckPart(part); !good) return good.Failure();
  SavedState state;
  const auto written = Write([&]() -> Result<void> {
    const auto key = PartKey(part.id);
    if (!key) return key.Failure();
    const StoredPart present = PartAt(key.Value());
    if (present.state != saving.saved.state)
      return Error{ErrorKind::Conflict, "part " + Quoted(part.id) + " has been changed in between"};
    state.product = ProductNameOf(key.Value());
    state.productBefore = ProductStateOf(key.Value());
    if (present.part != part) WritePart(key.Value(), part);
    if (auto good = CheckMaterials(key.Value(), present.part, part); !good) return good;
    if (auto good = WriteDetails(key.Value(), saving.saved.details); !good) return good;
    state.productAfter = ProductStateOf(key.Value());
    state.state = NextPartState();
    SetPartState(key.Value(), state.state);
    AddRecord(key.Value(), saving, state.state);
    return {};
  });
  return written ? Result<SavedState>(state) : written.Failure();
}

void SqliteStore::AddRecord(std::int64_t partKey, const PartSaving& saving, std::int64_t stateAfter) {
  SQLite::Statement insert(_db, kRecord);
  SQLite::bind(insert, partKey, HistorySize(partKey) + 1, saving.by.user, saving.by.time, saving.saved.state,
               stateAfter, saving.before, saving.after);
  insert.exec();
}

std::int64_t SqliteStore::NextPartState() {
  if (_db.exec("UPDATE part_states SET last = last + 1 WHERE key = 1") != 1)
    throw DamagedContent("the counter of the states of parts is missing");
  return _db.execAndGet("SELECT last FROM part_states WHERE key = 1").getInt64();
}

void SqliteStore::SetPartState(std::int64_t partKey, std::int64_t state) {
  _db.exec("UPDATE parts SET state = " + std::to_string(state) + " WHERE key = " + std::to_string(partKey));
}

std::string SqliteStore::ProductNameOf(std::int64_t partKey) {
  SQLite::Statement query(_db, "SELECT key, product FROM products WHERE key = ?");
  query.bind(1, ProductOf(partKey));
  return query.executeStep() ? IdentifierIn(query, 1) : std::string();
}

std::int64_t SqliteStore::ProductStateOf(std::int64_t partKey) {
  return _db.execAndGet("SELECT state FROM products WHERE key = " + std::to_string(ProductOf(partKey)))
      .getInt64();
}

// Numbers have no gaps, so that a lost record shows.
std::int64_t SqliteStore::HistorySize(std::int64_t partKey) {
  SQLite::Statement query(_db, "SELECT count(*), coalesce(max(number), 0) FROM history WHERE part = ?");
  query.bind(1, partKey);
  query.executeStep();
  const std::int64_t records = query.getColumn(0).getInt64();
  CheckRowCount([&] { return "the history of part with key " + std::to_string(partKey); },
                {"record", "records"}, static_cast<std::size_t>(records), query.getColumn(1).getInt64());
  return records;
}

Result<HistoryPage> SqliteStore::LoadHistory(std::string_view partId, std::int64_t before,
                                             std::int64_t limit) {
  return Read([&]() -> Result<HistoryPage> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    HistoryPage page{HistorySize(key.Value()), {}};
    SQLite::Statement query(_db, kRecords);
    SQLite::bind(query, key.Value(), before > 0 ? before : std::numeric_limits<std::int64_t>::max(), limit);
    while (query.executeStep()) page.records.push_back(RecordIn(query));
    return page;
  });
}

Result<HistoryTexts> SqliteStore::LoadHistoryTexts(std::string_view partId, std::int64_t number) {
  return Read([&]() -> Result<HistoryTexts> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    SQLite::Statement query(_db, "SELECT number, before, after FROM history WHERE part = ? AND number = ?");
    SQLite::bind(query, key.Value(), number);
    if (query.executeStep()) return HistoryTexts{TextIn(query, 1), TextIn(query, 2)};
    return Error{ErrorKind::NotFound, "part " + Quoted(partId) + " has no entry " + std::to_string(number) +
                                          " in its history, which has " +
                                          std::to_string(HistorySize(key.Value()))};
  });
}

Result<std::optional<std::string>> SqliteStore::FindStateText(std::string_view partId, std::int64_t state) {
  return Read([&]() -> Result<std::optional<std::string>> {
    const auto key = PartKey(partId);
    if (!key) return key.Failure();
    SQLite::Statement query(_db, kStateText);
    SQLite::bind(query, key.Value(), state);
    return query.executeStep() ? std::optional(TextIn(query, 1)) : std::nullopt;
  });
}

}  // namespace lumira
