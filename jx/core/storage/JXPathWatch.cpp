// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXPathWatch.h"

#if defined(__linux__)
#include <poll.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <iterator>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXOwnedDescriptors.h"
#include "jx/core/storage/JXFile.h"
#include "jx/platform/linux/JXWatchableFolder.h"

namespace jx {
namespace {

// A process that may open only few files needs them for other purposes.
constexpr rlim_t kMinDescriptors = 64;

constexpr std::uint32_t kMoved =
    IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR | IN_DONT_FOLLOW | IN_MASK_ADD;
// A folder can only be deleted when it is empty, so each deletion begins with that of a file.
constexpr std::uint32_t kEntries = kMoved | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO;
constexpr std::size_t kFoldersWithFiles = 2;

}  // namespace

JXPathWatch::JXPathWatch(const std::string& folder, const std::string& inner, Now now) : now_(now) {
  const std::string path = folder + "/" + inner;
  for (std::size_t end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1))
    folders_.push_back(path.substr(0, end));
  folders_.push_back(path);
  watches_.assign(folders_.size(), -1);
  replaced_ = watches_;
}

// The kernel may need some milliseconds to release the watches, also when the process exits.
JXPathWatch::~JXPathWatch() {
  if (events_ >= 0) closeDescriptor(events_);
}

std::uint64_t JXPathWatch::changes() noexcept {
  if (JXForkedChild::isCurrent()) return changes_;
  const std::lock_guard<std::mutex> lock(mutex_);
  if (!isWatching_) return ++changes_;
  const std::chrono::milliseconds now = now_();
  pollfd events{events_, POLLIN, 0};
  const bool hasEvents = ::poll(&events, 1, 0) != 0;
  if (!hasEvents && now - changedAt_ < kMaxAge) return changes_;
  // Without parsing the events, which may be incomplete.
  if (hasEvents) isWatching_ = watchAll();
  changedAt_ = now;
  return ++changes_;
}

void JXPathWatch::renew() noexcept {
  if (JXForkedChild::isCurrent()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  isWatching_ = watchAll();
  ++changes_;
}

std::chrono::milliseconds JXPathWatch::systemNow() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);  // without a system call
  return std::chrono::milliseconds(std::int64_t{now.tv_sec} * 1'000 + now.tv_nsec / 1'000'000);
}

// Not closed before the end, because this may take milliseconds.
bool JXPathWatch::open() noexcept {
  rlimit limit{};
  const bool hasFew = ::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur < kMinDescriptors;
  if (events_ >= 0 || hasFew) return events_ >= 0;
  const JXOwnedDescriptors::Change change;
  events_ = JXFileCalls::current().openWatch();
  if (events_ >= 0) JXOwnedDescriptors::add(events_);
  return events_ >= 0;
}

// Follows no symbolic link: the folder that contains it could be changed.
bool JXPathWatch::watchAll() noexcept {
  const auto isWatchable = [](const std::string& folder) {
    return isWatchableFolder(folder.c_str());
  };
  if (!std::all_of(folders_.begin(), folders_.end(), isWatchable) || !open()) return false;
  drain();
  watches_.swap(replaced_);
  bool succeeded = true;
  for (std::size_t i = 0; i < folders_.size(); ++i) {
    const bool hasFiles = i + kFoldersWithFiles >= folders_.size();
    watches_[i] = ::inotify_add_watch(events_, folders_[i].c_str(), hasFiles ? kEntries : kMoved);
    succeeded = succeeded && watches_[i] >= 0 && isWatchable(folders_[i]);
  }
  // Those of folders that are no longer part of the path.
  for (const int watch : replaced_) {
    const bool isUsed = std::find(watches_.begin(), watches_.end(), watch) != watches_.end();
    if (watch >= 0 && !isUsed) ::inotify_rm_watch(events_, watch);
  }
  return succeeded;
}

// What is left after this many reads is reported by the next call of `changes`.
void JXPathWatch::drain() const noexcept {
  constexpr int kMaxReads = 256;
  alignas(inotify_event) char events[4096];
  for (int reads = 0; reads < kMaxReads; ++reads) {
    if (::read(events_, events, sizeof events) <= 0) return;
  }
}

}  // namespace jx

#else

namespace jx {

JXPathWatch::JXPathWatch(const std::string&, const std::string&, Now now) : now_(now) {}
JXPathWatch::~JXPathWatch() = default;

std::uint64_t JXPathWatch::changes() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  return ++changes_;
}

void JXPathWatch::renew() noexcept {}

// Not used.
std::chrono::milliseconds JXPathWatch::systemNow() { return {}; }

}  // namespace jx

#endif
