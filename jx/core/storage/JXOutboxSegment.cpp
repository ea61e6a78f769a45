// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxSegment.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "jx/core/storage/JXPurgeMark.h"
#include "jx/core/storage/JXQuarantine.h"

namespace jx {
namespace {

constexpr std::uint64_t kSegmentSize = 1024 * 1024;
constexpr std::string_view kPrefix = "segment-";
constexpr std::size_t kDigits = 16;

// An acknowledgement follows the requests that it names. Ignores later offsets: such a frame was
// not written by this class and must not acknowledge a request that is appended there later.
void addAcknowledged(std::vector<std::uint32_t>& acknowledged, const JXOutboxRecord& record,
                     std::uint64_t frameOffset) {
  for (const std::uint32_t offset : record.acknowledged) {
    if (offset < frameOffset) acknowledged.push_back(offset);
  }
}

// Removes the requests at `offsets`.
template <typename Request>
void removeAcknowledged(std::vector<Request>& requests, std::vector<std::uint32_t>& offsets) {
  std::sort(offsets.begin(), offsets.end());
  const auto isAcknowledged = [&](const Request& request) {
    return std::binary_search(offsets.begin(), offsets.end(), request.offset);
  };
  requests.erase(std::remove_if(requests.begin(), requests.end(), isAcknowledged), requests.end());
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
                                                        std::uint64_t number,
                                                        std::vector<JXStoredRequest>& requests,
                                                        JXJournal::Recovery& recovery) {
  const std::string path = folder + "/" + nameOf(number);
  recovery = {};
  JXFile file = JXFile::open(path, JXFile::Access::AppendExisting, recovery.error);
  if (recovery.error == ENOENT) recovery.error = 0;
  if (!file.isOpen()) return nullptr;
  if (!file.tryLock(JXFile::Lock::Exclusive) || !file.isAt(path)) return nullptr;

  std::shared_ptr<JXOutboxSegment> segment(new JXOutboxSegment(JXJournal(std::move(file), path)));
  std::vector<std::uint32_t> acknowledged;
  recovery = segment->journal_.recover(JXJournal::Writers::One, [&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind == JXRecordKind::Request) {
      requests.push_back({static_cast<std::uint32_t>(frame.offset),
                          static_cast<std::uint32_t>(record.url.size() + record.body.size()),
                          record.createdMs});
    }
    addAcknowledged(acknowledged, record, frame.offset);
  });
  removeAcknowledged(requests, acknowledged);
  segment->live_ = requests.size();
  segment->dropPurged(requests);
  // The process that wrote it may have been killed before the sync.
  segment->dirty = true;
  return segment;
}

// Applies a purge mark that the previous owner exited without processing.
void JXOutboxSegment::dropPurged(std::vector<JXStoredRequest>& requests) {
  const std::uint64_t purged = readPurgeMark(path());
  if (purged == 0) return;
  const auto kept =
      std::find_if(requests.begin(), requests.end(),
                   [purged](const JXStoredRequest& request) { return request.offset >= purged; });
  for (auto request = requests.begin(); request != kept; ++request)
    acknowledge(request->offset);
  requests.erase(requests.begin(), kept);
  if (requests.empty() || writeAcknowledgements() == 0) removePurgeMark(path());
}

int JXOutboxSegment::append(std::string_view url, std::string_view body, std::int64_t createdMs,
                            std::uint32_t& offset) {
  unsigned char head[kJXRequestHeadSize];
  encodeRequestHead(head, url, createdMs);
  const std::string_view parts[] = {{reinterpret_cast<const char*>(head), sizeof head}, url, body};
  std::uint64_t place = 0;
  const int error = journal_.append(parts, 3, &place);
  if (error != 0) return error;
  offset = static_cast<std::uint32_t>(place);
  ++live_;
  dirty = true;
  return 0;
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
  const std::vector<unsigned char> payload = encodeAcknowledgement(unwritten_);
  const std::string_view part(reinterpret_cast<const char*>(payload.data()), payload.size());
  const int error = journal_.append(&part, 1, nullptr);
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
  if (::unlink(path().c_str()) != 0 && errno != ENOENT) return errno;
  removePurgeMark(path());
  return 0;
}

bool JXOutboxSegment::isFull() const { return journal_.size() >= kSegmentSize; }

int listSegment(const std::string& path, std::vector<JXListedRequest>& requests) {
  std::vector<std::uint32_t> acknowledged;
  const int error = JXJournal::scan(path, [&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind == JXRecordKind::Request) {
      requests.push_back(
          {frame.offset, record.createdMs, std::string(record.url), std::string(record.body)});
    }
    addAcknowledged(acknowledged, record, frame.offset);
  });
  removeAcknowledged(requests, acknowledged);
  const std::uint64_t purged = readPurgeMark(path);
  requests.erase(
      std::remove_if(requests.begin(), requests.end(),
                     [purged](const JXListedRequest& each) { return each.offset < purged; }),
      requests.end());
  return error;
}

}  // namespace jx
