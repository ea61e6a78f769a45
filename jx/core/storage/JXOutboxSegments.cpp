// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxSegments.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXPurgeMark.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

// At a start, no more is read than this many times the largest queue.
constexpr std::uint64_t kMaxRead = 4;

bool wasMovedAway(int error) { return error == ENOENT || error == ESTALE; }

}  // namespace

JXOutboxSegments::JXOutboxSegments(const std::string& folder, std::string inner,
                                   std::uint64_t maxBytes, std::shared_ptr<const JXClock> clock,
                                   JXStorageReport& report, JXErasures* erasures,
                                   std::shared_ptr<JXPathWatch> watch)
    : folder_(absolutePath(folder)),
      inner_(std::move(inner)),
      path_(concat({folder_, inner_.empty() ? "" : "/", inner_})),
      maxBytes_(maxBytes),
      time_(std::move(clock)),
      watch_(path_),
      report_(report),
      erasures_(erasures),
      pathWatch_(std::move(watch)) {}

JXOutboxSegments::~JXOutboxSegments() { finishCurrent(); }

// Opens the folder that is at the path now.
int JXOutboxSegments::ensureFolder() {
  if (opened_.folder && opened_.folder->isAtPath()) return 0;
  int error = 0;
  JXSegmentFolder opened = JXSegmentFolder::open(folder_, inner_, JXFolder::Missing::Create, error);
  if (error != 0) return error;
  const bool wasReplaced = opened_.folder != nullptr;
  opened_ = std::move(opened);
  if (pathWatch_) pathWatch_->renew();
  if (wasReplaced) detectLostSegments();
  time_.setMissing();
  // Without it, what is stored counts as new: nothing expires too early.
  error = time_.read(*opened_.folder);
  if (error != 0) report_.failed("read the running time", error);
  return 0;
}

void JXOutboxSegments::adoptAll(
    JXOutboxHosts& hosts, const std::function<void(const std::vector<JXOutboxEntry>&)>& adopted) {
  const std::vector<std::uint64_t> numbers = numbersToAdopt();
  std::vector<JXOutboxSegment*> empty;
  for (const std::uint64_t number : numbers) {
    std::vector<JXOutboxEntry> requests;
    JXJournal::Recovery recovery;
    auto segment = JXOutboxSegment::adopt(opened_, number, open_, hosts, time_.now(), requests,
                                          recovery, defaults);
    if (recovery.error != 0) report_.failed("read a segment", recovery.error);
    if (segment == nullptr) continue;
    report_.quarantined(segment->path(), recovery.quarantined);
    segments_.reserve(segments_.size() + 1);
    adopted(requests);
    segments_.push_back(std::move(segment));
    JXOutboxSegment& last = *segments_.back();
    if (requests.empty() && recovery.error == 0) {
      empty.push_back(&last);
      continue;
    }
    // Of an earlier version, or after the file of the running time was lost.
    if (last.needsTime()) writeTimeTo(last);
    // New requests go to the newest segment, so that frequent starts do not create many files.
    if (current_ == nullptr || current_->number() < number) current_ = &last;
  }
  if (defaults != nullptr) defaults->applyStored();
  for (JXOutboxSegment* const segment : empty)
    drop(*segment);
}

// Returns the numbers in ascending order.
std::vector<std::uint64_t> JXOutboxSegments::numbersToAdopt() {
  std::vector<std::uint64_t> numbers;
  // A process that was killed may have created or deleted files without a sync.
  folderDirty = JXFile::identityAt(concat({path_, "/", JXSegmentFolder::kLockName})).isValid();
  int error = ensureFolder();
  if (error == 0) numbers = JXOutboxSegment::numbersIn(*opened_.folder, error);
  if (error != 0) {
    report_.failed("open the folder", error);
    return {};
  }
  folderDirty = folderDirty || !numbers.empty();
  renumber(numbers);
  if (!numbers.empty()) lastNumber_ = numbers.back();
  const std::uint64_t limit = std::max(kMaxRead * maxBytes_, JXOutboxSegment::kMaxFileSize);
  std::uint64_t read = 0;
  std::vector<std::uint64_t> toAdopt;
  toAdopt.reserve(numbers.size());
  for (auto number = numbers.rbegin(); number != numbers.rend(); ++number) {
    struct stat status {};
    const int gone = JXFile::statusIn(*opened_.folder, JXOutboxSegment::nameOf(*number), status);
    if (gone != 0) continue;
    const auto size = static_cast<std::uint64_t>(status.st_size);
    const bool fits = size <= JXOutboxSegment::kMaxFileSize && size <= limit - read;
    // A process that owns the segment, which may be this one, is responsible for it.
    if (find(*number) != nullptr) continue;
    if (opened_.locks->lockByte(*number) != 0) continue;
    if (fits) {
      read += size;
      toAdopt.push_back(*number);
    } else {
      quarantineUnread(*number);
    }
    opened_.locks->unlockByte(*number);
  }
  std::reverse(toAdopt.begin(), toAdopt.end());
  return toAdopt;
}

// Gives files whose numbers are too large the next numbers: further ones could not follow them.
void JXOutboxSegments::renumber(std::vector<std::uint64_t>& numbers) {
  const auto large = std::upper_bound(numbers.begin(), numbers.end(), JXOutboxSegment::kMaxNumber);
  const std::vector<std::uint64_t> tooLarge(large, numbers.end());
  numbers.erase(large, numbers.end());
  for (const std::uint64_t number : tooLarge) {
    const std::uint64_t next = nextNumber(numbers);
    const int error = renameFile(*opened_.folder, JXOutboxSegment::nameOf(number), *opened_.folder,
                                 JXOutboxSegment::nameOf(next));
    if (error != 0) {
      report_.failed("rename a segment", error);
      continue;
    }
    numbers.insert(std::upper_bound(numbers.begin(), numbers.end(), next), next);
  }
}

void JXOutboxSegments::quarantineUnread(std::uint64_t number) {
  const std::string name = JXOutboxSegment::nameOf(number);
  JXQuarantined quarantined;
  const int error = quarantineFile(*opened_.folder, name, quarantined.deleted);
  quarantined.copied = error == 0;
  if (error != 0) report_.failed("quarantine a segment that is too large", error);
  report_.quarantined(opened_.folder->pathOf(name), quarantined);
}

// Returns the number after the largest one; after the very largest, the first that is free. Not a
// number that was used before, because its purge mark may still exist.
std::uint64_t JXOutboxSegments::nextNumber(const std::vector<std::uint64_t>& numbers) {
  if (!numbers.empty()) {
    const auto end = std::upper_bound(numbers.begin(), numbers.end(), JXOutboxSegment::kMaxNumber);
    if (end != numbers.begin()) lastNumber_ = std::max(lastNumber_, *(end - 1));
  }
  if (lastNumber_ < JXOutboxSegment::kMaxNumber) return ++lastNumber_;
  std::uint64_t free = 1;
  while (std::binary_search(numbers.begin(), numbers.end(), free))
    ++free;
  return free;
}

JXOutboxSegment* JXOutboxSegments::append(std::string_view url, std::string_view body,
                                          const JXStoredTime& time, const JXRequestOrigin& origin,
                                          std::uint32_t& offset, JXDeferredChanges* changes) {
  if (!isOpen) return nullptr;
  if (current_ != nullptr && current_->lost) restoreLost();
  if (current_ != nullptr && (current_->isFull() || current_->lost)) {
    JXOutboxSegment& last = *current_;
    current_ = nullptr;
    if (last.live() == 0) drop(last);
  }
  if (current_ == nullptr && !startSegment()) return nullptr;
  changes_.clear();
  if (changes != nullptr) changes->encode(changes_);
  int error = appendToCurrent(url, body, time, origin, offset);
  if (wasMovedAway(error)) {
    detectLostSegments();
    if (restoreLost()) error = appendToCurrent(url, body, time, origin, offset);
  }
  if (error != 0) {
    report_.failed("append a request", error);
    return nullptr;
  }
  if (!changes_.empty()) changes->stored();
  JXOutboxSegment* const segment = current_;
  // Checked after the write, so that the next start at this path finds the request.
  restoreReplaced(*segment);
  return segment;
}

// A failure to write the running time delays no request: its age then counts from the next start.
int JXOutboxSegments::appendToCurrent(std::string_view url, std::string_view body,
                                      JXStoredTime time, const JXRequestOrigin& origin,
                                      std::uint32_t& offset) {
  if (time_.isMissing()) writeTime();
  time.series = time_.now().series;
  return current_->append(url, body, time, origin, offset, changes_);
}

void JXOutboxSegments::writeTime() {
  const int error = time_.write(*opened_.folder);
  if (error != 0) report_.failed("store the running time", error);
  timeDirty = timeDirty || error == 0;
}

void JXOutboxSegments::writeTimeTo(JXOutboxSegment& segment) noexcept {
  try {
    if (time_.isMissing()) writeTime();
    const int error = segment.writeTime(time_.now());
    if (error != 0) report_.failed("append the running time", error);
  } catch (...) {
    // Out of memory: the age counts from the next start.
  }
}

void JXOutboxSegments::storeTime(bool isNeeded) {
  if (isOpen && opened_.folder && (isNeeded || !segments_.empty()) && time_.isDue()) writeTime();
}

bool JXOutboxSegments::startSegment() {
  int error = ensureFolder();
  std::unique_ptr<JXOutboxSegment> segment;
  for (int attempt = 0; error == 0 && segment == nullptr && attempt < kCreateAttempts; ++attempt) {
    // Follows the numbers of other processes too, so that numbers give the order of all segments.
    const std::vector<std::uint64_t> numbers = JXOutboxSegment::numbersIn(*opened_.folder, error);
    if (error != 0) break;
    segment = JXOutboxSegment::create(opened_, nextNumber(numbers), open_, error);
    if (error == EEXIST) error = 0;
  }
  if (segment == nullptr) {
    report_.failed("create a segment", error != 0 ? error : EEXIST);
    return false;
  }
  segments_.push_back(std::move(segment));
  current_ = segments_.back().get();
  folderDirty = true;
  if (erasures_ != nullptr) erasures_->check();
  return true;
}

void JXOutboxSegments::finishModified() noexcept {
  const auto isModified = [](const auto& each) { return each->modified; };
  for (;;) {
    const auto found = std::find_if(segments_.begin(), segments_.end(), isModified);
    if (found == segments_.end()) return;
    (*found)->modified = false;
    try {
      finish(**found);
    } catch (...) {
      // Out of memory.
    }
  }
}

void JXOutboxSegments::finish(JXOutboxSegment& segment) {
  if (segment.live() == 0 && &segment != current_) {
    drop(segment);
    return;
  }
  const int error = segment.writeAcknowledgements();
  if (wasMovedAway(error)) {
    segment.lost = true;
  } else if (error != 0) {
    report_.failed("append acknowledgements", error);
  }
}

void JXOutboxSegments::finishCurrent() noexcept {
  if (current_ == nullptr || current_->live() != 0) return;
  JXOutboxSegment& finished = *current_;
  current_ = nullptr;
  try {
    drop(finished);
  } catch (...) {
    // Out of memory: `retry` deletes the file.
  }
}

void JXOutboxSegments::drop(JXOutboxSegment& segment) {
  if (&segment == current_) current_ = nullptr;
  if (beforeRemoval) beforeRemoval(segment);
  const bool isSaved = saveChanges();
  const int error = segment.remove();
  // On a full disk, there is space now.
  if (!isSaved && error == 0) saveChanges();
  if (error != 0) {
    report_.failed("delete a segment", error);
    segment.writeAcknowledgements();
    return;
  }
  // Otherwise a power loss could bring back requests whose acknowledgements were never written.
  folderDirty = true;
  const auto isIt = [&](const auto& each) { return each.get() == &segment; };
  segments_.erase(std::find_if(segments_.begin(), segments_.end(), isIt));
}

// Writes the values to their file of which a segment may contain the only copy on disk.
bool JXOutboxSegments::saveChanges() { return defaults == nullptr || defaults->saveChanges(); }

std::vector<JXOutboxSegments::Purged> JXOutboxSegments::markedForPurge() {
  std::vector<Purged> marked;
  marked.reserve(segments_.size());
  // The deletion of segments also changes the folder, repeatedly while a long queue is delivered.
  std::vector<std::string> names;
  const auto isMark = [](const std::string& name) {
    const std::size_t end = kJXPurgeMarkSuffix.size();
    return name.size() >= end && name.compare(name.size() - end, end, kJXPurgeMarkSuffix) == 0;
  };
  // Not by its path, which needs a further descriptor.
  const bool isListed = opened_.folder && opened_.folder->list(names) == 0;
  if (isListed && std::none_of(names.begin(), names.end(), isMark)) return marked;
  for (const auto& segment : segments_) {
    int error = 0;
    const std::uint64_t end = readPurgeMark(segment->path(), segment->identity(), error);
    if (end != 0) marked.push_back({segment.get(), end});
    if (error != 0) {
      report_.failed("read a purge mark", error);
      watch_.reset();
    }
  }
  return marked;
}

void JXOutboxSegments::retry() {
  // A copy, because finish() may remove a segment from the list.
  std::vector<JXOutboxSegment*> all;
  for (const auto& segment : segments_)
    all.push_back(segment.get());
  for (JXOutboxSegment* const segment : all) {
    const bool toDelete = segment->live() == 0 && segment != current_;
    if (toDelete || segment->hasUnwrittenAcknowledgements()) finish(*segment);
  }
}

std::vector<std::uint64_t> JXOutboxSegments::takeDirty() {
  std::vector<std::uint64_t> dirty;
  dirty.reserve(segments_.size());
  for (const auto& segment : segments_) {
    if (segment->dirty && !segment->lost) dirty.push_back(segment->number());
    segment->dirty = false;
  }
  return dirty;
}

JXOutboxSegment* JXOutboxSegments::find(std::uint64_t number) {
  const auto found = std::find_if(segments_.begin(), segments_.end(),
                                  [&](const auto& each) { return each->number() == number; });
  return found == segments_.end() ? nullptr : found->get();
}

bool JXOutboxSegments::needsSync() const {
  const auto needs = [&](const std::unique_ptr<JXOutboxSegment>& each) {
    return each->dirty || each->lost || each->hasUnwrittenAcknowledgements() ||
           (each->live() == 0 && each.get() != current_);
  };
  return folderDirty || std::any_of(segments_.begin(), segments_.end(), needs);
}

}  // namespace jx
