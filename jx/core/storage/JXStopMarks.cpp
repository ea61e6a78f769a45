// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStopMarks.h"

#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <string_view>
#include <system_error>
#include <thread>

#include "jx/core/JXLogger.h"
#include "jx/core/JXSignalsBlocked.h"
#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

constexpr int kMaxTextSize = 16;

// Returns whether the name is that of a mark.
bool readName(const std::string& name, std::uint32_t& source) {
  if (std::sscanf(name.c_str(), "stopped-%8" SCNx32, &source) != 1) return false;
  return name == JXStopMarks::nameOf(source);
}

// Returns kAllStops for a damaged file.
std::uint16_t readStops(const JXFile& file) {
  char text[kMaxTextSize + 1] = {};
  std::size_t got = 0;
  if (!file.isOpen() || file.read(0, text, kMaxTextSize, got) != 0) return JXStopMarks::kAllStops;
  unsigned stops = 0;
  // The line break shows that the text is complete.
  const bool isWhole = std::sscanf(text, "%5u", &stops) == 1 && stops > 0 &&
                       stops <= JXStopMarks::kAllStops &&
                       std::string_view(text, got) == std::to_string(stops) + "\n";
  return isWhole ? static_cast<std::uint16_t>(stops) : JXStopMarks::kAllStops;
}

}  // namespace

std::string JXStopMarks::nameOf(std::uint32_t source) {
  constexpr char kPrefix[] = "stopped-";
  char name[sizeof kPrefix + 8];
  std::snprintf(name, sizeof name, "%s%08" PRIx32, kPrefix, source);
  return name;
}

std::vector<JXStopMark> JXStopMarks::read(bool& isComplete) const {
  std::vector<JXStopMark> marks;
  std::vector<std::string> names;
  isComplete = true;
  if (!mayStore_) return marks;
  const int error = listFolder(folder_, names);
  isComplete = error == 0 || error == ENOENT || error == ENOTDIR;
  for (const std::string& name : names) {
    JXStopMark mark;
    if (!readName(name, mark.source)) continue;
    int ignored = 0;
    mark.stops =
        readStops(JXFile::open(concat({folder_, "/", name}), JXFile::Access::Read, ignored));
    marks.push_back(mark);
  }
  return marks;
}

void JXStopMarks::set(const JXStopMark& mark) {
  if (!mayStore_) return;
  int error = 0;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    pending_[mark.source] = mark.stops;
    if (hasThread_) return;
    try {
      const JXSignalsBlocked blockedInTheNewThread;
      std::thread([self = shared_from_this()] { self->run(); }).detach();
      hasThread_ = true;
    } catch (const std::system_error& failure) {
      // The next change of a mark sets this one too.
      error = failure.code().value();
    } catch (...) {
      error = ENOMEM;
    }
  }
  if (error != 0) report(mark, error);
}

void JXStopMarks::wait(std::chrono::milliseconds limit) {
  std::unique_lock<std::mutex> lock(mutex_);
  changed_.wait_for(lock, limit, [this] { return !hasThread_; });
}

void JXStopMarks::run() noexcept {
  try {
    setAndSync();
  } catch (...) {
    // Out of memory: the next change of a mark sets these too.
    const std::lock_guard<std::mutex> lock(mutex_);
    hasThread_ = isSyncing_ = false;
    changed_.notify_all();
  }
}

// Sets all marks before it makes them durable, and another thread may set marks in the meantime: a
// slow disk must not delay a mark that a killed process needs.
void JXStopMarks::setAndSync() {
  std::unique_lock<std::mutex> lock(mutex_);
  while (!pending_.empty())
    setNext(lock);
  hasThread_ = false;
  changed_.notify_all();
  if (isSyncing_) return;
  isSyncing_ = true;
  while (!unsynced_.empty())
    syncAll(lock);
  isSyncing_ = false;
}

void JXStopMarks::setNext(std::unique_lock<std::mutex>& lock) {
  auto next = pending_.extract(pending_.begin());
  const JXStopMark mark{next.key(), next.mapped()};
  lock.unlock();
  try {
    const int error = mark.stops != 0 ? write(mark) : removeFile(pathOf(mark.source));
    report(mark, error);
    lock.lock();
    if (error == 0) unsynced_.insert(mark.source);
  } catch (...) {
    if (!lock.owns_lock()) lock.lock();
    pending_.insert(std::move(next));
    throw;
  }
}

void JXStopMarks::syncAll(std::unique_lock<std::mutex>& lock) {
  const std::set<std::uint32_t> sources = std::exchange(unsynced_, {});
  lock.unlock();
  for (const std::uint32_t source : sources) {
    int error = sync(source);
    if (error == 0) error = synchronizeFolder(folder_);
    if (error != 0 && error != ENOENT) report({source, 1}, error);
  }
  lock.lock();
}

int JXStopMarks::write(const JXStopMark& mark) const {
  int error = makeFolder(folder_);
  if (error != 0) return error;
  JXFile file = JXFile::open(pathOf(mark.source), JXFile::Access::Append, error);
  if (error != 0) return error;
  // Another process may have recorded a later stop.
  const std::uint16_t recorded = readStops(file);
  const bool isLater = recorded != kAllStops && recorded > mark.stops;
  const std::string text = std::to_string(isLater ? recorded : mark.stops) + "\n";
  const iovec part{const_cast<char*>(text.data()), text.size()};
  std::size_t written = 0;
  // Not deleted first: a file without content counts as a stop, a missing one does not.
  error = file.truncate(0);
  if (error == 0) error = file.append(&part, 1, written);
  // What was written counts as a stop, too.
  return error == 0 && written < text.size() ? ENOSPC : error;
}

int JXStopMarks::sync(std::uint32_t source) const {
  int error = 0;
  const JXFile file = JXFile::open(pathOf(source), JXFile::Access::Read, error);
  if (error == ENOENT) return 0;
  return error != 0 ? error : file.synchronize();
}

// Called without the lock, because the log sink belongs to the application.
void JXStopMarks::report(const JXStopMark& mark, int error) {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (std::exchange(loggedError_, error) == error || error == 0) return;
  }
  const std::string reason = describeStorageError(error);
  JXLogger::sharedInstance().logMessage_withLevel(
      concat({mark.stops != 0 ? "Cannot record the stop in "
                              : "Cannot remove the record of a stop in ",
              pathOf(mark.source), ": ", reason, "; the decision holds in this process only"}),
      3);
}

}  // namespace jx
