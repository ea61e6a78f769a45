// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventStore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "tools/jx/collector/EventSchema.h"
#include "tools/jx/collector/HeaderJson.h"
#include "tools/jx/collector/Revalidation.h"

namespace jx {
namespace {

constexpr const char* kCannotStore = "cannot store the event";

// Creates the database file accessible to its owner only, and restricts the files of earlier
// versions. SQLite gives its companions the mode of the database, whatever the umask.
Done restrictToOwner(const std::filesystem::path& file) {
  // An existing file is not opened: closing it would release the locks of SQLite in this process.
  const int created = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (created >= 0) ::close(created);
  for (const char* companion : {"", "-wal", "-shm", "-journal"}) {
    const std::string path = file.string() + companion;
    if (::chmod(path.c_str(), 0600) == 0 || errno == ENOENT) continue;
    return Error{"cannot restrict " + path +
                 " to its owner: " + std::generic_category().message(errno)};
  }
  return done();
}

}  // namespace

EventStore::EventStore(SqliteDatabase writer, std::int64_t maxEvents, std::int64_t maxBytes)
    : maxEvents_(std::max<std::int64_t>(1, maxEvents)),
      maxBytes_(maxBytes),
      writer_(std::move(writer)) {}

Result<std::unique_ptr<EventStore>> EventStore::open(const std::filesystem::path& file,
                                                     std::int64_t maxEvents,
                                                     std::int64_t maxBytes) {
  if (const Done restricted = restrictToOwner(file); !restricted) return restricted.error();
  Result<SqliteDatabase> writer = SqliteDatabase::open(file);
  if (!writer) return writer.error();
  std::unique_ptr<EventStore> store(new EventStore(std::move(*writer), maxEvents, maxBytes));
  for (const auto step : {&EventStore::migrate, &EventStore::revalidate, &EventStore::prepare,
                          &EventStore::countRows}) {
    const Done did = (store.get()->*step)();
    if (!did) return Error{file.string() + ": " + did.error().text};
  }
  Result<std::unique_ptr<EventReading>> reading = EventReading::open(file);
  if (!reading) return reading.error();
  store->reading_ = std::move(*reading);
  return store;
}

Done EventStore::migrate() {
  // Writes do not call fsync: a process crash loses nothing; a power loss may lose the last
  // seconds.
  // After a burst, the write-ahead log shrinks to 64 MiB.
  const Done set = writer_.execute(
      "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; "
      "PRAGMA journal_size_limit = 67108864");
  return set ? migrateEvents(writer_) : set;
}

Done EventStore::revalidate() { return revalidateWhereNeeded(writer_); }

Done EventStore::prepare() {
  struct Text {
    SqliteStatement& statement;
    std::string_view sql;
  };
  const Text texts[] = {
      {begin_, "BEGIN IMMEDIATE"},
      {commit_, "COMMIT"},
      {rollBack_, "ROLLBACK"},
      {repeat_,
       "UPDATE events SET repeats = repeats + 1, last_seen_ms = ?2 WHERE event_id = ?1 "
       "RETURNING id, repeats"},
      {find_, "SELECT 1 FROM events WHERE event_id = ?1"},
      {insert_,
       "INSERT INTO events (received_ms, last_seen_ms, repeats, event_id, bytes, name, class, "
       "good, errors, notes, session, video_session, event_timestamp, site, token, problem, line) "
       "VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, ?10, ?11, ?12, ?13, ?14, ?15, ?16, ?17)"},
      {insertRequest_, "INSERT INTO requests VALUES (?1, ?2, ?3, ?4, ?5, ?6)"},
      {evictRequests_,
       "DELETE FROM requests WHERE id IN (SELECT id FROM events ORDER BY id LIMIT ?1)"},
      {evict_, "DELETE FROM events WHERE id IN (SELECT id FROM events ORDER BY id LIMIT ?1)"},
      {countEvicted_, "UPDATE counters SET value = value + ?1 WHERE name = 'evicted'"},
      {pages_, "PRAGMA page_count"},
      {freePages_, "PRAGMA freelist_count"},
  };
  for (const Text& text : texts) {
    Result<SqliteStatement> statement = writer_.prepare(text.sql);
    if (!statement) return statement.error();
    text.statement = std::move(*statement);
  }
  const Result<std::int64_t> pageBytes = writer_.oneInteger("PRAGMA page_size");
  if (!pageBytes) return pageBytes.error();
  pageBytes_ = *pageBytes;
  return done();
}

Done EventStore::countRows() {
  const Result<std::int64_t> count = writer_.oneInteger("SELECT COUNT(*) FROM events");
  if (!count) return count.error();
  rows_ = *count;
  const Result<std::int64_t> last = writer_.oneInteger(
      "SELECT COALESCE((SELECT seq FROM sqlite_sequence "
      "WHERE name = 'events'), 0)");
  if (!last) return last.error();
  broadcaster_.publishArrival(*last);
  // The limit may be smaller than at the last start.
  return inTransaction([this] { return makeRoom(); });
}

Done EventStore::begin() {
  const SqliteUse use(begin_);
  return begin_.step() == SQLITE_DONE ? done() : writer_.lastFailure("cannot store events");
}

Done EventStore::commit() {
  const SqliteUse use(commit_);
  return commit_.step() == SQLITE_DONE ? done() : writer_.lastFailure("cannot store events");
}

void EventStore::rollBack() {
  const SqliteUse use(rollBack_);
  rollBack_.step();
}

template <typename Write>
Done EventStore::inTransaction(const Write& write) {
  if (const Done began = begin(); !began) return began;
  const std::int64_t rowsBefore = rows_;
  Done did = write();
  if (did) did = commit();
  if (did) return did;
  rollBack();
  rows_ = rowsBefore;
  return did;
}

Result<std::int64_t> EventStore::add(const ReceivedRequest& request) {
  return add(request, ValidationResult::of(request.query, request.body));
}

Result<std::int64_t> EventStore::add(const ReceivedRequest& request,
                                     const ValidationResult& validation) {
  const std::lock_guard<std::mutex> lock(writing_);
  std::int64_t id = 0;
  std::optional<Repeat> repeat;
  const Done added = inTransaction([&]() -> Done {
    const Result<std::optional<Repeat>> repeated = countRepeat(request, validation.metadata);
    if (!repeated) return repeated.error();
    repeat = *repeated;
    if (repeat) return done();
    const Result<std::int64_t> inserted = insert(request, validation, request.receivedMs, 0);
    if (!inserted) return inserted.error();
    id = *inserted;
    return makeRoom();
  });
  if (!added) return added.error();
  // Publish under the lock, so that row IDs are published in order.
  if (repeat) {
    broadcaster_.publish({EventBroadcaster::Signal::Kind::Repeat, repeat->id, repeat->repeats, {}});
    return repeat->id;
  }
  broadcaster_.publishArrival(id);
  return id;
}

Result<bool> EventStore::restore(const StoredEvent& event) {
  const ValidationResult validation = ValidationResult::of(event.request.query, event.request.body);
  const std::lock_guard<std::mutex> lock(writing_);
  std::int64_t id = 0;
  const Done restored = inTransaction([&]() -> Done {
    const Result<bool> kept = isKept(validation.metadata);
    if (!kept) return kept.error();
    if (*kept) return done();
    const Result<std::int64_t> inserted =
        insert(event.request, validation, event.lastSeenMs, event.repeats);
    if (!inserted) return inserted.error();
    id = *inserted;
    return makeRoom();
  });
  if (!restored) return restored.error();
  if (id != 0) broadcaster_.publishArrival(id);
  return id != 0;
}

Result<std::int64_t> EventStore::removeAll() {
  const std::lock_guard<std::mutex> lock(writing_);
  const std::int64_t removed = rows_;
  const Result<std::int64_t> last = writer_.oneInteger("SELECT COALESCE(MAX(id), 0) FROM events");
  if (!last) return last.error();
  const Done did = inTransaction([this]() -> Done {
    rows_ = 0;
    return writer_.execute(
        "DELETE FROM requests; DELETE FROM events; "
        "UPDATE counters SET value = 0 WHERE name = 'evicted'");
  });
  if (!did) return did.error();
  broadcaster_.publish({EventBroadcaster::Signal::Kind::Reset, *last, 0, {}});
  return removed;
}

Result<std::optional<EventStore::Repeat>> EventStore::countRepeat(const ReceivedRequest& request,
                                                                  const EventMetadata& metadata) {
  if (!metadata.eventID) return std::optional<Repeat>();
  const SqliteUse use(repeat_);
  repeat_.bindText(1, *metadata.eventID);
  repeat_.bind(2, request.receivedMs);
  const int status = repeat_.step();
  if (status == SQLITE_DONE) return std::optional<Repeat>();
  if (status != SQLITE_ROW) return writer_.lastFailure(kCannotStore);
  const Repeat repeat{repeat_.integer(0), repeat_.integer(1)};
  if (repeat_.step() != SQLITE_DONE) return writer_.lastFailure(kCannotStore);
  return std::optional<Repeat>(repeat);
}

Result<bool> EventStore::isKept(const EventMetadata& metadata) {
  if (!metadata.eventID) return false;
  const SqliteUse use(find_);
  find_.bindText(1, *metadata.eventID);
  const int status = find_.step();
  if (status != SQLITE_ROW && status != SQLITE_DONE) return writer_.lastFailure(kCannotStore);
  return status == SQLITE_ROW;
}

Result<std::int64_t> EventStore::insert(const ReceivedRequest& request,
                                        const ValidationResult& validation, std::int64_t lastSeenMs,
                                        std::int64_t repeats) {
  {
    const SqliteUse use(insert_);
    insert_.bind(1, request.receivedMs);
    insert_.bind(2, lastSeenMs);
    insert_.bind(3, repeats);
    insert_.bind(4, validation.metadata.eventID);
    insert_.bind(5, static_cast<std::int64_t>(request.body.size()));
    bindValidationResult(insert_, 6, validation);
    if (insert_.step() != SQLITE_DONE) return writer_.lastFailure(kCannotStore);
  }
  const std::int64_t id = writer_.lastInsertedRow();
  const std::string headers = headersToJson(request.headers);
  const SqliteUse use(insertRequest_);
  insertRequest_.bind(1, id);
  insertRequest_.bindText(2, request.method);
  insertRequest_.bindText(3, request.path);
  insertRequest_.bindText(4, request.query);
  insertRequest_.bindText(5, headers);
  insertRequest_.bindBytes(6, request.body);
  if (insertRequest_.step() != SQLITE_DONE) return writer_.lastFailure(kCannotStore);
  ++rows_;
  return id;
}

Done EventStore::makeRoom() {
  if (rows_ > maxEvents_) {
    if (const Done evicted = evictOldest(rows_ - maxEvents_); !evicted) return evicted;
  }
  for (;;) {
    const Result<std::int64_t> used = usedBytes();
    if (!used) return used.error();
    if (*used <= maxBytes_ || rows_ <= 1) return done();
    if (const Done evicted = evictOldest(1); !evicted) return evicted;
  }
}

Done EventStore::evictOldest(std::int64_t count) {
  for (SqliteStatement* const statement : {&evictRequests_, &evict_, &countEvicted_}) {
    const SqliteUse use(*statement);
    statement->bind(1, count);
    if (statement->step() != SQLITE_DONE) return writer_.lastFailure("cannot evict old events");
  }
  rows_ -= count;
  return done();
}

Result<std::int64_t> EventStore::usedBytes() {
  const SqliteUse usePages(pages_);
  const SqliteUse useFreePages(freePages_);
  if (pages_.step() != SQLITE_ROW || freePages_.step() != SQLITE_ROW) {
    return writer_.lastFailure("cannot read the size of the events");
  }
  return (pages_.integer(0) - freePages_.integer(0)) * pageBytes_;
}

}  // namespace jx
