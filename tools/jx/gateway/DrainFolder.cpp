// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/DrainFolder.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "tools/jx/gateway/UtcTime.h"

namespace jx {
namespace {

constexpr std::string_view kPartEnding = ".ndjson.part";

}  // namespace

DrainFolder::DrainFolder(StateFolder folder, DrainDatabase database, const DrainLimits& limits,
                         Clock clock)
    : folder_(std::move(folder)),
      database_(std::move(database)),
      limits_(limits),
      clock_(std::move(clock)) {}

Result<std::unique_ptr<DrainFolder>> DrainFolder::open(const std::filesystem::path& path,
                                                       const std::string& stream,
                                                       const DrainLimits& limits, Clock clock) {
  Result<StateFolder> folder = StateFolder::open(path, "drain");
  if (!folder) return folder.error();
  Result<DrainDatabase> database = DrainDatabase::open(path / "drain.db");
  if (!database) return database.error();
  std::unique_ptr<DrainFolder> opened(
      new DrainFolder(std::move(*folder), std::move(*database), limits, std::move(clock)));
  if (const Done recovered = opened->recover(stream); !recovered) return recovered.error();
  return opened;
}

Done DrainFolder::recover(const std::string& stream) {
  Result<std::optional<DrainPosition>> recorded = database_.position();
  if (!recorded) return recorded.error();
  position_ = recorded->value_or(DrainPosition());
  if (position_.stream.empty()) position_.stream = stream;
  if (position_.stream != stream) {
    return Error{folder_.path().string() + " contains the events of stream " + position_.stream};
  }
  if (const Done removed = removeUnrecordedFiles(); !removed) return removed;
  if (position_.file.empty()) return done();
  // A file that is being finished may have its final name already.
  const bool hasPart =
      std::filesystem::exists(NdjsonFile::partPath(folder_.path(), position_.file));
  if (position_.isFinishing && !hasPart) return done();
  Result<NdjsonFile> file = NdjsonFile::open(folder_.path(), position_.file);
  if (!file) return file.error();
  const Result<std::int64_t> length = file->length();
  if (!length) return length.error();
  if (*length < position_.length) {
    return Error{NdjsonFile::partPath(folder_.path(), position_.file).string() +
                 " is shorter than its committed length"};
  }
  file_ = std::move(*file);
  return file_->truncate(position_.length);
}

// Files of a batch that was interrupted before it was committed.
Done DrainFolder::removeUnrecordedFiles() const {
  std::error_code error;
  for (std::filesystem::directory_iterator entries(folder_.path(), error), end;
       !error && entries != end; entries.increment(error)) {
    const std::string name = entries->path().filename().string();
    const bool isPart =
        name.rfind("events-", 0) == 0 && name.size() > kPartEnding.size() &&
        name.compare(name.size() - kPartEnding.size(), std::string::npos, kPartEnding) == 0;
    if (isPart && name != position_.file + ".part") std::filesystem::remove(entries->path(), error);
  }
  if (error) return Error{"cannot clean " + folder_.path().string() + ": " + error.message()};
  return done();
}

void DrainFolder::useStream(std::int64_t created) {
  if (position_.created == created) return;
  position_.created = created;
  position_.sequence = 0;
  position_.storedAtMs = 0;
}

Result<DrainFolder::Tally> DrainFolder::append(const std::vector<StreamMessage>& messages) {
  if (position_.isFinishing) {
    if (const Done finished = finishFile(); !finished) return finished.error();
  }
  DrainPosition next = position_;
  Result<Tally> tally = write(messages, next);
  if (tally) {
    position_ = std::move(next);
    if (std::exchange(hasUnrecordedFile_, false)) (void)removeUnrecordedFiles();
  } else {
    database_.rollBack();
    discardUncommitted();
  }
  return tally;
}

Result<DrainFolder::Tally> DrainFolder::write(const std::vector<StreamMessage>& messages,
                                              DrainPosition& next) {
  if (const Done begun = database_.begin(); !begun) return begun.error();
  Tally tally;
  std::string lines;
  std::int64_t firstSequence = 0;
  for (const StreamMessage& message : messages) {
    // Delivered again. A broker that lost its last messages gives their sequence numbers to later
    // ones.
    if (message.sequence <= next.sequence && message.storedAtMs <= next.storedAtMs) continue;
    next.sequence = message.sequence;
    next.storedAtMs = message.storedAtMs;
    const EventLine line = eventLineOf(message);
    if (!line.eventId.empty()) {
      const Result<bool> isNew = database_.addEventId(line.eventId, message.storedAtMs);
      if (!isNew) return isNew.error();
      if (!*isNew) {
        ++tally.repeats;
        continue;
      }
    }
    if (lines.empty()) firstSequence = message.sequence;
    lines += line.text;
    ++tally.written;
  }
  const std::chrono::milliseconds window = limits_.repeats;
  Done result = database_.removeEventIds(next.storedAtMs - window.count());
  if (result && !lines.empty()) result = writeLines(lines, firstSequence, next);
  if (result) result = database_.savePosition(next);
  isUncertain_ = static_cast<bool>(result);
  if (result) result = database_.commit();
  if (!result) return result.error();
  isUncertain_ = false;
  return tally;
}

Done DrainFolder::writeLines(const std::string& lines, std::int64_t firstSequence,
                             DrainPosition& next) {
  if (next.file.empty()) {
    next.file = newFileName(firstSequence);
    next.openedMs = clock_();
    Result<NdjsonFile> created = NdjsonFile::create(folder_.path(), next.file);
    if (!created) return created.error();
    file_ = std::move(*created);
  }
  const Done written = file_->write(next.length, lines);
  next.length += static_cast<std::int64_t>(lines.size());
  return written;
}

// Gives the space back; the next batch overwrites what stays. A commit that failed may have written
// everything, so that it is valid at the next start: the lines stay for it.
void DrainFolder::discardUncommitted() {
  if (!file_) return;
  if (isUncertain_) {
    if (position_.file.empty()) file_.reset();
    hasUnrecordedFile_ = position_.file.empty();
    return;
  }
  (void)file_->truncate(position_.length);
  if (!position_.file.empty()) return;
  file_.reset();
  (void)removeUnrecordedFiles();
}

Done DrainFolder::rotateWhenDue() {
  if (position_.file.empty()) return done();
  const std::int64_t age = clock_() - position_.openedMs;
  const std::chrono::milliseconds maxAge = limits_.fileAge;
  // The clock of the system may be set back.
  const bool isDue = position_.isFinishing || position_.length >= limits_.fileBytes ||
                     age >= maxAge.count() || age < 0;
  return isDue ? finishFile() : done();
}

// Recorded before and after the file gets its final name: after a crash between the two, it is
// known that a missing part file is finished, though the finished file may have been moved away.
Done DrainFolder::finishFile() {
  if (position_.file.empty()) return done();
  DrainPosition next = position_;
  if (!position_.isFinishing) {
    if (Done truncated = file_->truncate(position_.length); !truncated) return truncated;
    next.isFinishing = true;
    if (Done recorded = record(next); !recorded) return recorded;
  }
  file_.reset();
  if (Done finished = NdjsonFile::finish(folder_.path(), position_.file); !finished) {
    return finished;
  }
  next.isFinishing = false;
  next.file.clear();
  next.length = 0;
  next.openedMs = 0;
  return record(next);
}

Done DrainFolder::record(const DrainPosition& next) {
  Done result = database_.begin();
  if (result) result = database_.savePosition(next);
  if (result) result = database_.commit();
  if (result) {
    position_ = next;
  } else {
    database_.rollBack();
  }
  return result;
}

std::string DrainFolder::newFileName(std::int64_t firstSequence) const {
  for (std::int64_t time = clock_();; ++time) {
    std::string text = utcTime(time);
    text.erase(
        std::remove_if(text.begin(), text.end(), [](char c) { return c == '-' || c == ':'; }),
        text.end());
    std::string name = "events-" + text + "-" + std::to_string(firstSequence) + ".ndjson";
    const bool isUsed = std::filesystem::exists(folder_.path() / name) ||
                        std::filesystem::exists(NdjsonFile::partPath(folder_.path(), name));
    if (!isUsed) return name;
  }
}

}  // namespace jx
