// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxSegment.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cinttypes>
#include <cstdio>

#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXQuarantine.h"
#include "jx/core/storage/JXSendFilter.h"

namespace jx {
namespace {

constexpr std::string_view kPrefix = "segment-";
constexpr std::size_t kDigits = 16;
// Two numbers of up to twenty digits, a space and a newline.
constexpr std::size_t kMaxMarkSize = 42;

template <typename Request, typename Condition>
void removeIf(std::vector<Request>& requests, const Condition& condition) {
  requests.erase(std::remove_if(requests.begin(), requests.end(), condition), requests.end());
}

// Calls `read` with a function to be called for each frame. Returns what `make` returns for each
// request that is not acknowledged. `failures`, if not null, receives those of the requests, by
// offset.
template <typename Request, typename Read, typename Make>
std::vector<Request> unacknowledged(
    const Read& read, const Make& make,
    std::map<std::uint32_t, JXRequestFailures>* failures = nullptr) {
  std::vector<Request> requests;
  std::vector<std::uint32_t> acknowledged;
  read([&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind == JXRecordKind::Request) requests.push_back(make(frame, record));
    if (record.kind == JXRecordKind::Failures && failures != nullptr &&
        record.failed < frame.offset) {
      (*failures)[record.failed] = record.failures;
    }
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

std::string markPath(const std::string& segmentPath) {
  return std::string(segmentPath).append(kJXPurgeMarkSuffix);
}

struct PurgeMark {
  std::uint64_t inode = 0;
  std::uint64_t size = 0;  // of the segment's file when the mark was written
};

int currentMark(const std::string& segmentPath, PurgeMark& mark) {
  struct stat status {};
  if (::stat(segmentPath.c_str(), &status) != 0) return errno;
  mark.inode = status.st_ino;
  mark.size = static_cast<std::uint64_t>(status.st_size);
  return 0;
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

std::vector<std::uint64_t> JXOutboxSegment::numbersIn(const std::string& folder, int& error) {
  std::vector<std::string> names;
  error = listFolder(folder, names);
  std::vector<std::uint64_t> numbers;
  for (const std::string& name : names) {
    if (const std::uint64_t number = numberOf(name)) numbers.push_back(number);
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

std::shared_ptr<JXOutboxSegment> JXOutboxSegment::create(const std::string& folder,
                                                         std::uint64_t number, int& error) {
  const std::string path = folder + "/" + nameOf(number);
  JXFile file = JXFile::open(path, JXFile::Access::AppendCreateNew, error);
  if (error != 0) return nullptr;
  // A process that starts at the same time may have adopted, or even deleted, the empty file.
  if (!file.tryLock(JXFile::Lock::Exclusive) || !file.isAt(path)) {
    error = EEXIST;
    return nullptr;
  }
  // A mark left over from an earlier file of this name.
  removePurgeMark(path);
  return std::shared_ptr<JXOutboxSegment>(new JXOutboxSegment(JXJournal(std::move(file), path)));
}

std::shared_ptr<JXOutboxSegment> JXOutboxSegment::adopt(const std::string& folder,
                                                        std::uint64_t number, JXOutboxHosts& hosts,
                                                        std::vector<JXOutboxEntry>& requests,
                                                        JXJournal::Recovery& recovery) {
  const std::string path = folder + "/" + nameOf(number);
  recovery = {};
  JXFile file = JXFile::open(path, JXFile::Access::AppendExisting, recovery.error);
  if (recovery.error == ENOENT) recovery.error = 0;
  if (!file.isOpen()) return nullptr;
  if (!file.tryLock(JXFile::Lock::Exclusive) || !file.isAt(path)) return nullptr;

  std::shared_ptr<JXOutboxSegment> segment(new JXOutboxSegment(JXJournal(std::move(file), path)));
  const auto read = [&](const JXJournal::Visit& visit) {
    recovery = segment->journal_.recover(JXJournal::Writers::One, visit);
  };
  const auto makeEntry = [&](const JXFrame& frame, const JXOutboxRecord& record) {
    JXOutboxEntry entry;
    entry.createdMs = record.createdMs;
    entry.segment = segment.get();
    entry.offset = static_cast<std::uint32_t>(frame.offset);
    entry.bytes = static_cast<std::uint32_t>(record.url.size() + record.body.size());
    entry.source = JXSendFilter::sourceOf(record.url);
    entry.origin = record.origin;
    entry.host = hosts.slotOf(record.url);
    entry.hasWaitingMarker = JXSendFilter::hasWaitingMarker(record.body);
    entry.awaitsDecision = true;
    return entry;
  };
  requests = unacknowledged<JXOutboxEntry>(read, makeEntry, &segment->failures_);
  for (JXOutboxEntry& entry : requests)
    entry.hasFailed = segment->failures_.count(entry.offset) != 0;
  segment->live_ = requests.size();
  segment->dropPurged(requests);
  // The process that wrote it may have been killed before the sync.
  segment->dirty = true;
  return segment;
}

// Applies a purge mark that the previous owner exited without processing.
void JXOutboxSegment::dropPurged(std::vector<JXOutboxEntry>& requests) {
  const std::uint64_t purged = readPurgeMark(path());
  if (purged == 0) return;
  removeIf(requests, [&](const JXOutboxEntry& request) {
    if (request.offset < purged) acknowledge(request.offset);
    return request.offset < purged;
  });
  if (requests.empty() || writeAcknowledgements() == 0) removePurgeMark(path());
}

int JXOutboxSegment::append(std::string_view url, std::string_view body, std::int64_t createdMs,
                            const JXRequestOrigin& origin, std::uint32_t& offset) {
  const JXRequestHead head = encodeRequestHead(url, createdMs, origin);
  std::uint64_t place = 0;
  const int error = journal_.append({{head.data(), head.size()}, url, body}, &place);
  if (error != 0) return error;
  offset = static_cast<std::uint32_t>(place);
  ++live_;
  dirty = true;
  return 0;
}

int JXOutboxSegment::writeFailures(std::uint32_t offset, const JXRequestFailures& failures) {
  const int error = journal_.append({encodeFailures(offset, failures)}, nullptr);
  if (error == 0) dirty = true;
  return error;
}

const JXRequestFailures& JXOutboxSegment::adoptedFailures(std::uint32_t offset) const {
  static const JXRequestFailures none;
  const auto found = failures_.find(offset);
  return found != failures_.end() ? found->second : none;
}

int JXOutboxSegment::read(std::uint32_t offset, std::uint32_t bytes, std::string& payload) const {
  return journal_.read(offset, kJXRequestHeadSize + bytes, payload);
}

void JXOutboxSegment::acknowledge(std::uint32_t offset) {
  unwritten_.push_back(offset);
  --live_;
}

int JXOutboxSegment::writeAcknowledgements() {
  if (unwritten_.empty()) return 0;
  const int error = journal_.append({encodeAcknowledgement(unwritten_)}, nullptr);
  if (error != 0) return error;
  unwritten_.clear();
  dirty = true;
  return 0;
}

int JXOutboxSegment::quarantineRequest(std::uint32_t offset, std::uint32_t bytes,
                                       bool& copied) const {
  const std::uint64_t length = kJXFrameHeaderSize + kJXRequestHeadSize + std::uint64_t{bytes};
  return quarantine(journal_.file(), path(), {{offset, length}}, false, copied);
}

int JXOutboxSegment::remove() {
  // If the file was deleted, its name may now belong to a file of another process.
  if (!isLinked()) return 0;
  const int error = removeFile(path());
  if (error != 0) return error;
  removePurgeMark(path());
  return 0;
}

std::vector<JXOutboxListing> listSegment(const std::string& path, int& error) {
  const auto read = [&](const JXJournal::Visit& visit) { error = JXJournal::scan(path, visit); };
  auto requests =
      unacknowledged<JXOutboxListing>(read, [](const JXFrame& frame, const JXOutboxRecord& record) {
        return JXOutboxListing{record.createdMs, std::string(record.url), std::string(record.body),
                               0, frame.offset};
      });
  const std::uint64_t purged = readPurgeMark(path);
  removeIf(requests, [purged](const JXOutboxListing& each) { return each.offset < purged; });
  return requests;
}

int writePurgeMark(const std::string& segmentPath) {
  PurgeMark mark;
  int error = currentMark(segmentPath, mark);
  if (error != 0) return error;
  const std::string text = std::to_string(mark.inode) + " " + std::to_string(mark.size) + "\n";
  // Renamed into place, so that no process reads a partial mark.
  const std::string fresh = markPath(segmentPath) + "." + std::to_string(::getpid());
  JXFile file = JXFile::open(fresh, JXFile::Access::AppendEmptied, error);
  if (error != 0) return error;
  const iovec part{const_cast<char*>(text.data()), text.size()};
  std::size_t written = 0;
  error = file.append(&part, 1, written);
  if (error == 0 && written < text.size()) error = ENOSPC;
  if (error == 0) error = file.synchronize();
  return replaceFile(fresh, markPath(segmentPath), error);
}

std::uint64_t readPurgeMark(const std::string& segmentPath) {
  PurgeMark now;
  int error = 0;
  const JXFile file = JXFile::open(markPath(segmentPath), JXFile::Access::Read, error);
  if (error != 0 || currentMark(segmentPath, now) != 0) return 0;
  char text[kMaxMarkSize + 1] = {};
  std::size_t got = 0;
  if (file.read(0, text, kMaxMarkSize, got) != 0) return 0;
  PurgeMark mark;
  const int fields = std::sscanf(text, "%" SCNu64 " %" SCNu64, &mark.inode, &mark.size);
  return fields == 2 && mark.inode == now.inode ? mark.size : 0;
}

void removePurgeMark(const std::string& segmentPath) { removeFile(markPath(segmentPath)); }

}  // namespace jx
