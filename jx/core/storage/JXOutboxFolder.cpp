// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxFolder.h"

#include <algorithm>
#include <cerrno>
#include <iterator>
#include <memory>
#include <utility>

#include "jx/core/storage/JXDeadLetters.h"
#include "jx/core/storage/JXDefaultsFile.h"
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

// Deletes the segments that no process owns, and marks the others.
class SegmentPurge {
 public:
  SegmentPurge(const std::string& outbox, JXSegmentFolder folder, std::string& error)
      : folder_(std::move(folder)), error_(error) {
    // A killed process may have stored changes of the user defaults only in a segment. Without the
    // file, they do not apply.
    const std::string defaults = folderOf(outbox) + "/defaults";
    if (JXFile::identityAt(defaults).isValid()) {
      defaults_ = std::make_unique<JXDefaultsFile>(defaults);
    }
  }

  JXOutboxPurge run(const std::vector<std::uint64_t>& numbers) {
    for (const std::uint64_t number : numbers)
      adoptOrMark(number);
    if (defaults_) defaults_->applyStored();
    for (const Adopted& each : adopted_) {
      const std::string action = "delete " + each.segment->path();
      if (succeeded(each.segment->remove(), action, error_)) purge_.removed += each.requests;
    }
    return purge_;
  }

 private:
  struct Adopted {
    std::unique_ptr<JXOutboxSegment> segment;
    std::size_t requests;
  };

  void adoptOrMark(std::uint64_t number) {
    const std::string path = folder_.folder->pathOf(JXOutboxSegment::nameOf(number));
    std::vector<JXOutboxEntry> requests;
    JXJournal::Recovery recovery;
    auto segment = JXOutboxSegment::adopt(folder_, number, open_, hosts_, {}, requests, recovery,
                                          defaults_.get());
    if (segment) {
      adopted_.push_back({std::move(segment), requests.size()});
    } else {
      succeeded(recovery.error, "read " + path, error_);
      mark(path);
    }
  }

  void mark(const std::string& path) {
    int code = 0;
    const std::size_t queued = listSegment(path, code).size();
    succeeded(ignoringMissing(code), "read " + path, error_);
    if (queued == 0) return;
    code = writePurgeMark(path);
    if (code != 0) {
      succeeded(ignoringMissing(code), "mark " + path + " for purging", error_);
    } else {
      purge_.marked += queued;
    }
  }

  const JXSegmentFolder folder_;
  std::string& error_;
  std::unique_ptr<JXDefaultsFile> defaults_;
  JXOpenSegments open_;
  JXOutboxHosts hosts_;
  std::vector<Adopted> adopted_;
  JXOutboxPurge purge_;
};

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
  const std::vector<std::uint64_t> numbers = segmentsIn(folder, error);
  if (!error.empty()) return {};
  int code = 0;
  JXSegmentFolder opened =
      JXSegmentFolder::open(folderOf(folder), nameOf(folder), JXFolder::Missing::Fail, code);
  if (!succeeded(code, "lock " + folder, error)) return {};
  JXOutboxPurge purge = SegmentPurge(folder, std::move(opened), error).run(numbers);
  std::string ignored;
  const std::size_t dead = listDeadLetters(folder, ignored).size();
  if (succeeded(JXDeadLetters(folder, 0, 0).clear(), "delete the dead letters", error)) {
    purge.deadLetters = dead;
  }
  succeeded(removeQuarantinedFiles(folder), "delete the quarantined files", error);
  return purge;
}

}  // namespace jx
