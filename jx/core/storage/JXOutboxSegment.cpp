// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxSegment.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXPurgeMark.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/core/storage/JXRunningTime.h"
#include "jx/core/storage/JXSendFilter.h"

namespace jx {
namespace {

constexpr std::string_view kPrefix = "segment-";
constexpr std::size_t kDigits = 16;

template <typename Request, typename Condition>
void removeIf(std::vector<Request>& requests, const Condition& condition) {
  requests.erase(std::remove_if(requests.begin(), requests.end(), condition), requests.end());
}

// Calls `read` with a function to be called for each frame. Returns what `make` returns for each
// request that is not acknowledged. Calls `visit` for the other frames.
template <typename Request, typename Read, typename Make, typename Visit>
std::vector<Request> unacknowledged(const Read& read, const Make& make, const Visit& visit) {
  std::vector<Request> requests;
  std::vector<std::uint32_t> acknowledged;
  read([&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind == JXRecordKind::Request)
      requests.push_back(make(frame, record));
    else
      visit(frame, record);
    // An acknowledgement follows the requests that it names. Ignores later offsets: such a frame
    // was not written by this class and must not acknowledge a request that is appended there
    // later.
    for (const std::uint32_t offset : record.acknowledged) {
      if (offset < frame.offset) acknowledged.push_back(offset);
    }
  });
  std::sort(acknowledged.begin(), acknowledged.end());
  removeIf(requests, [&](const Request& request) {
    return std::binary_search(acknowledged.begin(), acknowledged.end(), request.offset);
  });
  return requests;
}

}  // namespace

std::string JXOutboxSegment::nameOf(std::uint64_t number) {
  char digits[kDigits + 1];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(number));
  return std::string(kPrefix) + digits;
}

std::uint64_t JXOutboxSegment::numberOf(const std::string& name) {
  if (name.size() != kPrefix.size() + kDigits || name.compare(0, kPrefix.size(), kPrefix) != 0) {
    return 0;
  }
  const std::string digits = name.substr(kPrefix.size());
  if (digits.find_first_not_of("0123456789abcdef") != std::string::npos) return 0;
  return std::stoull(digits, nullptr, 16);
}

std::vector<std::uint64_t> JXOutboxSegment::numbersIn(const JXFolder& folder, int& error) {
  std::vector<std::string> names;
  error = folder.list(names);
  std::vector<std::uint64_t> numbers;
  for (const std::string& name : names) {
    if (const std::uint64_t number = numberOf(name)) numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

JXOutboxSegment::JXOutboxSegment(const JXSegmentFolder& folder, std::uint64_t number,
                                 JXOpenSegments& open)
    : folder_(folder),
      number_(number),
      open_(open),
      journal_(JXFile(), folder.folder->pathOf(nameOf(number))) {}

JXOutboxSegment::~JXOutboxSegment() {
  open_.remove(*this);
  unmap();
  if (ownsLock_) folder_.locks->unlockByte(number_);
}

void JXOutboxSegment::setFile(JXFile file) noexcept {
  identity_ = file.identity();
  journal_.setFile(std::move(file));
  open_.use(*this);
}

std::unique_ptr<JXOutboxSegment> JXOutboxSegment::create(const JXSegmentFolder& folder,
                                                         std::uint64_t number, JXOpenSegments& open,
                                                         int& error) {
  std::unique_ptr<JXOutboxSegment> segment(new JXOutboxSegment(folder, number, open));
  error = folder.locks->lockByte(number);
  // A process that starts at the same time may be adopting a file of this number.
  if (error == EWOULDBLOCK) error = EEXIST;
  if (error != 0) return nullptr;
  segment->ownsLock_ = true;
  JXFile file =
      JXFile::open(*folder.folder, nameOf(number), JXFile::Access::AppendCreateNew, error);
  if (error != 0) return nullptr;
  segment->setFile(std::move(file));
  // A mark left over from an earlier file of this name.
  removePurgeMark(segment->path());
  return segment;
}

std::unique_ptr<JXOutboxSegment> JXOutboxSegment::adopt(
    const JXSegmentFolder& folder, std::uint64_t number, JXOpenSegments& open, JXOutboxHosts& hosts,
    const JXStoredTime& now, std::vector<JXOutboxEntry>& requests, JXJournal::Recovery& recovery,
    JXDefaultsFile* defaults) {
  recovery = {};
  std::unique_ptr<JXOutboxSegment> segment(new JXOutboxSegment(folder, number, open));
  const int lockError = folder.locks->lockByte(number);
  if (lockError != 0) {
    if (lockError != EWOULDBLOCK) recovery.error = lockError;
    return nullptr;
  }
  segment->ownsLock_ = true;
  JXFile file =
      JXFile::open(*folder.folder, nameOf(number), JXFile::Access::AppendExisting, recovery.error);
  if (recovery.error == ENOENT) recovery.error = 0;
  // A process of an earlier version locks the file itself.
  if (!file.isOpen() || !file.tryLock(JXFile::Lock::Exclusive)) return nullptr;
  file.unlock();
  segment->setFile(std::move(file));
  recovery = segment->recover(hosts, now, requests, defaults);
  return segment;
}

JXJournal::Recovery JXOutboxSegment::recover(JXOutboxHosts& hosts, const JXStoredTime& now,
                                             std::vector<JXOutboxEntry>& requests,
                                             JXDefaultsFile* defaults) {
  JXJournal::Recovery recovery;
  const auto read = [&](const JXJournal::Visit& visit) {
    recovery = journal_.recover(JXJournal::Writers::One, visit);
  };
  JXRecordTimes times(now);
  const auto makeEntry = [&](const JXFrame& frame, const JXOutboxRecord& record) {
    ++requests_;
    JXOutboxEntry entry;
    entry.bornMs = times.runningMs(record.createdMs);
    entry.segment = this;
    entry.offset = static_cast<std::uint32_t>(frame.offset);
    entry.bytes = static_cast<std::uint32_t>(record.url.size() + record.body.size());
    entry.source = JXSendFilter::sourceOf(record.url);
    entry.origin = record.origin;
    entry.host = hosts.slotOf(record.url);
    entry.hasWaitingMarker = JXSendFilter::hasWaitingMarker(record.body);
    entry.awaitsDecision = true;
    return entry;
  };
  const auto visit = [&](const JXFrame& frame, const JXOutboxRecord& record) {
    if (record.kind == JXRecordKind::Time) times.add(record.time);
    if (record.kind == JXRecordKind::Changes && defaults != nullptr) {
      defaults->addStored(frame.payload);
    }
    if (record.kind == JXRecordKind::Failures && record.failed < frame.offset) {
      failures_[record.failed] = times.known(record.failures);
    }
  };
  requests = unacknowledged<JXOutboxEntry>(read, makeEntry, visit);
  for (JXOutboxEntry& entry : requests) {
    entry.hasFailed = failures_.count(entry.offset) != 0;
    if (entry.bornMs != JXRecordTimes::kUnknown) continue;
    entry.bornMs = times.unknownMs();
    needsTime_ = !times.hasFirst();
  }
  timeOffset_ = times.offset();
  live_ = requests.size();
  unwritten_.reserve(live_);
  dropPurged(requests);
  modified = false;
  // The process that wrote it may have been killed before the sync.
  dirty = true;
  return recovery;
}

int JXOutboxSegment::ensureOpen() {
  open_.use(*this);
  if (journal_.isOpen()) return 0;
  int error = 0;
  JXFile file =
      JXFile::open(*folder_.folder, nameOf(number_), JXFile::Access::AppendExisting, error);
  if (error == 0 && file.identity() != identity_) error = ESTALE;
  if (error == 0) journal_.reopen(std::move(file), path());
  return error;
}

void JXOutboxSegment::close() {
  if (live_ != 0) map();
  journal_.close();
}

// A file that was mapped before may have grown.
void JXOutboxSegment::map() {
  const auto size = static_cast<std::size_t>(journal_.size());
  if (size == mappedSize_ || !journal_.isOpen()) return;
  unmap();
  mapped_ = journal_.file().map(size);
  if (mapped_ != nullptr) mappedSize_ = size;
}

void JXOutboxSegment::unmap() {
  if (mapped_ != nullptr) JXFileCalls::current().unmap(mapped_, mappedSize_);
  mapped_ = nullptr;
  mappedSize_ = 0;
}

int JXOutboxSegment::moveTo(const JXSegmentFolder& folder, std::uint64_t number) {
  const std::string name = nameOf(number);
  const std::string oldName = nameOf(number_);
  std::string newPath = folder.folder->pathOf(name);
  // From here on, nothing is allocated.
  int error = folder.locks->lockByte(number);
  if (error == 0 && JXFile::identityIn(*folder.folder, name).isValid()) error = EEXIST;
  const bool isMine = folder.locks == folder_.locks && number == number_;
  if (error == 0) error = moveFile(*folder.folder, oldName, name, std::move(newPath));
  if (error != 0) {
    if (!isMine) folder.locks->unlockByte(number);
    return error == EWOULDBLOCK ? EEXIST : error;
  }
  if (!isMine) folder_.locks->unlockByte(number_);
  folder_ = folder;
  number_ = number;
  lost = false;
  dirty = true;
  seenAtPath_.forget();
  open_.use(*this);
  return 0;
}

// Renames the file if it still has its name in its folder.
int JXOutboxSegment::moveFile(const JXFolder& folder, const std::string& oldName,
                              const std::string& name, std::string path) {
  const JXFolder& old = *folder_.folder;
  const bool isThere = JXFile::identityIn(old, oldName) == identity_;
  if (isThere && renameFile(old, oldName, folder, name) == 0) {
    journal_.setPath(std::move(path));
    return 0;
  }
  int error = 0;
  JXFile file = JXFile::open(folder, name, JXFile::Access::AppendCreateNew, error);
  if (error == 0) error = copyTo(file);
  if (error != 0 && file.isOpen()) removeFile(folder, name);
  if (error != 0) return error;
  if (isThere) removeFile(old, oldName);
  identity_ = file.identity();
  journal_.reopen(std::move(file), std::move(path));
  unmap();
  return 0;
}

// Copies the content without reading it in this process, because reading a mapped file that another
// process has truncated raises a signal; the system call fails.
int JXOutboxSegment::copyTo(JXFile& file) {
  map();
  if (mapped_ == nullptr) return journal_.size() == 0 ? 0 : ENOENT;
  std::size_t done = 0;
  while (done < mappedSize_) {
    const iovec part{static_cast<char*>(mapped_) + done, mappedSize_ - done};
    std::size_t written = 0;
    const int error = file.append(&part, 1, written);
    if (error != 0) return error;
    if (written == 0) return ENOSPC;
    done += written;
  }
  return 0;
}

// Applies a purge mark that the previous owner exited without processing.
void JXOutboxSegment::dropPurged(std::vector<JXOutboxEntry>& requests) {
  int error = 0;
  const std::uint64_t purged = readPurgeMark(path(), identity_, error);
  mayBeMarked_ = error != 0 || purged != 0;
  if (purged == 0) return;
  removeIf(requests, [&](const JXOutboxEntry& request) {
    if (request.offset < purged) acknowledge(request.offset);
    return request.offset < purged;
  });
  const bool isApplied = requests.empty() || writeAcknowledgements() == 0;
  if (isApplied && removePurgeMark(path()) == 0) mayBeMarked_ = false;
}

int JXOutboxSegment::writeTime(const JXStoredTime& time) {
  if (time.series == 0 || !needsStoredTime(timeOffset_, time)) return 0;
  int error = ensureOpen();
  if (error == 0) error = journal_.append({encodeTime(time)}, nullptr);
  if (error != 0) return error;
  timeOffset_ = offsetOf(time);
  needsTime_ = false;
  dirty = true;
  return 0;
}

int JXOutboxSegment::append(std::string_view url, std::string_view body, const JXStoredTime& time,
                            const JXRequestOrigin& origin, std::uint32_t& offset,
                            std::string_view changes) {
  const JXRequestHead head = encodeRequestHead(url, time.dayMs, origin);
  const std::size_t acknowledgements = unwritten_.size() + live_ + 1;
  if (unwritten_.capacity() < acknowledgements) unwritten_.reserve(2 * acknowledgements);
  std::uint64_t place = 0;
  int error = writeTime(time);
  if (error == 0) error = ensureOpen();
  if (error == 0) error = journal_.append({{head.data(), head.size()}, url, body}, &place, changes);
  if (error != 0) return error;
  offset = static_cast<std::uint32_t>(place);
  ++live_;
  ++requests_;
  dirty = true;
  return 0;
}

int JXOutboxSegment::writeFailures(std::uint32_t offset, const JXRequestFailures& failures,
                                   const JXStoredTime& now) {
  int error = writeTime(now);
  if (error == 0) error = ensureOpen();
  if (error == 0) error = journal_.append({encodeFailures(offset, failures)}, nullptr);
  if (error == 0) dirty = true;
  return error;
}

const JXRequestFailures& JXOutboxSegment::adoptedFailures(std::uint32_t offset) const {
  static const JXRequestFailures none;
  const auto found = failures_.find(offset);
  return found != failures_.end() ? found->second : none;
}

int JXOutboxSegment::read(std::uint32_t offset, std::uint32_t bytes, std::string& payload) {
  const int error = ensureOpen();
  return error != 0 ? error : journal_.read(offset, kJXRequestHeadSize + bytes, payload);
}

std::size_t JXOutboxSegment::readRun(std::uint32_t offset, char* into, std::size_t size) {
  std::size_t got = 0;
  if (ensureOpen() != 0 || offset >= journal_.size()) return 0;
  size = static_cast<std::size_t>(std::min<std::uint64_t>(size, journal_.size() - offset));
  return journal_.file().read(offset, into, size, got) == 0 ? got : 0;
}

void JXOutboxSegment::acknowledge(std::uint32_t offset) noexcept {
  unwritten_.push_back(offset);
  --live_;
  modified = true;
}

int JXOutboxSegment::writeAcknowledgements() {
  if (unwritten_.empty()) return 0;
  int error = ensureOpen();
  if (error == 0) error = journal_.append({encodeAcknowledgement(unwritten_)}, nullptr);
  if (error != 0) return error;
  unwritten_.clear();
  dirty = true;
  return 0;
}

int JXOutboxSegment::quarantineRequest(std::uint32_t offset, std::uint32_t bytes,
                                       JXQuarantined& quarantined) {
  const int error = ensureOpen();
  if (error != 0) return error;
  const std::uint64_t length = kJXFrameHeaderSize + kJXRequestHeadSize + std::uint64_t{bytes};
  return quarantine(journal_.file(), path(), {{offset, length}}, false, quarantined);
}

int JXOutboxSegment::remove() {
  const int error = removeFile(*folder_.folder, nameOf(number_));
  if (error == 0 && !lost) removePurgeMark(path());
  return error;
}

std::vector<JXOutboxListing> listSegment(const std::string& path, int& error) {
  const auto read = [&](const JXJournal::Visit& visit) { error = JXJournal::scan(path, visit); };
  auto requests = unacknowledged<JXOutboxListing>(
      read,
      [](const JXFrame& frame, const JXOutboxRecord& record) {
        return JXOutboxListing{record.createdMs, std::string(record.url), std::string(record.body),
                               0, frame.offset};
      },
      [](const JXFrame&, const JXOutboxRecord&) {});
  int ignored = 0;
  const std::uint64_t purged = readPurgeMark(path, JXFile::identityAt(path), ignored);
  removeIf(requests, [purged](const JXOutboxListing& each) { return each.offset < purged; });
  return requests;
}

}  // namespace jx
