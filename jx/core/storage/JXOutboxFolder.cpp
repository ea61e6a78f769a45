// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxFolder.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include "jx/core/storage/JXDeadLetters.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXPurgeMark.h"
#include "jx/core/storage/JXQuarantine.h"

namespace jx {
namespace {

// Returns whether `action` succeeded; keeps the first error message.
bool succeeded(int code, const std::string& action, std::string& error) {
  if (code != 0 && error.empty()) {
    error = "cannot " + action + ": " + describeStorageError(code);
  }
  return code == 0;
}

// A segment that was delivered and deleted in the meantime is not an error.
int ignoringMissing(int code) { return code == ENOENT ? 0 : code; }

// Also checks the storage folder, which contains the outbox.
std::vector<std::uint64_t> segmentsIn(const std::string& path, std::string& error) {
  error.clear();
  int code = 0;
  std::vector<std::uint64_t> numbers;
  const auto folder = JXFolder::open(folderOf(path), nameOf(path), JXFolder::Missing::Fail, code);
  if (folder) numbers = JXOutboxSegment::numbersIn(*folder, code);
  if (!succeeded(code, "read " + path, error)) numbers.clear();
  return numbers;
}

void purgeSegment(const JXSegmentFolder& folder, std::uint64_t number, JXOutboxPurge& purge,
                  std::string& error) {
  const std::string path = folder.folder->pathOf(JXOutboxSegment::nameOf(number));
  JXOpenSegments open;
  JXOutboxHosts hosts;
  std::vector<JXOutboxEntry> requests;
  JXJournal::Recovery recovery;
  if (const auto segment =
          JXOutboxSegment::adopt(folder, number, open, hosts, {}, requests, recovery)) {
    if (succeeded(segment->remove(), "delete " + path, error)) purge.removed += requests.size();
    return;
  }
  succeeded(recovery.error, "read " + path, error);
  int code = 0;
  const std::size_t queued = listSegment(path, code).size();
  succeeded(ignoringMissing(code), "read " + path, error);
  if (queued == 0) return;
  code = writePurgeMark(path);
  if (code != 0) {
    succeeded(ignoringMissing(code), "mark " + path + " for purging", error);
  } else {
    purge.marked += queued;
  }
}

}  // namespace

std::vector<JXOutboxListing> listOutbox(const std::string& folder, std::string& error) {
  std::vector<JXOutboxListing> listing;
  for (const std::uint64_t number : segmentsIn(folder, error)) {
    const std::string name = JXOutboxSegment::nameOf(number);
    int code = 0;
    std::vector<JXOutboxListing> requests = listSegment(folder + "/" + name, code);
    succeeded(ignoringMissing(code), "read " + name, error);
    std::move(requests.begin(), requests.end(), std::back_inserter(listing));
  }
  return listing;
}

std::vector<JXOutboxListing> listDeadLetters(const std::string& folder, std::string& error) {
  std::vector<JXOutboxListing> listing;
  segmentsIn(folder, error);
  if (!error.empty()) return listing;
  std::size_t keep = 0;
  const int code = JXJournal::scan(folder + "/dead", [&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind != JXRecordKind::DeadLetter) return;
    keep = record.keep;
    listing.push_back({record.createdMs, std::string(record.url), std::string(record.body),
                       record.status, frame.offset});
  });
  succeeded(ignoringMissing(code), "read dead", error);
  // Older dead letters stay in the file until it is compacted.
  const auto old = static_cast<std::ptrdiff_t>(listing.size() - std::min(listing.size(), keep));
  listing.erase(listing.begin(), listing.begin() + old);
  return listing;
}

JXOutboxPurge purgeOutbox(const std::string& folder, std::string& error) {
  JXOutboxPurge purge;
  const std::vector<std::uint64_t> numbers = segmentsIn(folder, error);
  if (!error.empty()) return purge;
  int code = 0;
  const JXSegmentFolder opened =
      JXSegmentFolder::open(folderOf(folder), nameOf(folder), JXFolder::Missing::Fail, code);
  if (!succeeded(code, "lock " + folder, error)) return purge;
  for (const std::uint64_t number : numbers)
    purgeSegment(opened, number, purge, error);
  std::string ignored;
  const std::size_t dead = listDeadLetters(folder, ignored).size();
  if (succeeded(JXDeadLetters(folder, 0, 0).clear(), "delete the dead letters", error)) {
    purge.deadLetters = dead;
  }
  succeeded(removeQuarantinedFiles(folder), "delete the quarantined files", error);
  return purge;
}

}  // namespace jx
