// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cerrno>
#include <system_error>

#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXJournal.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxRecord.h"
#include "jx/core/storage/JXOutboxSegment.h"

namespace jx {
namespace {

// Lists the names in the folder. Returns false and sets `error` when it cannot be read.
bool listNames(const std::string& folder, std::vector<std::string>& names, std::string& error) {
  const int code = listFolder(folder, names);
  error = code == 0 ? std::string()
                    : "cannot read " + folder + ": " +
                          std::error_code(code, std::generic_category()).message();
  return code == 0;
}

}  // namespace

std::vector<JXOutboxListing> listOutbox(const std::string& folder, std::string& error) {
  std::vector<JXOutboxListing> listing;
  std::vector<std::string> names;
  if (!listNames(folder, names, error)) return listing;
  // Names sort in the order of their numbers.
  std::sort(names.begin(), names.end());
  for (const std::string& name : names) {
    if (JXOutboxSegment::numberOf(name) == 0) continue;
    std::vector<JXListedRequest> requests;
    const int failure = listSegment(folder + "/" + name, requests);
    // A segment that was delivered and deleted in the meantime is not an error.
    if (failure != 0 && failure != ENOENT) {
      error = "cannot read " + name + ": " +
              std::error_code(failure, std::generic_category()).message();
    }
    for (JXListedRequest& request : requests) {
      listing.push_back({request.createdMs, std::move(request.url), std::move(request.body), 0});
    }
  }
  return listing;
}

std::vector<JXOutboxListing> listDeadLetters(const std::string& folder, std::string& error) {
  std::vector<JXOutboxListing> listing;
  std::vector<std::string> names;
  if (!listNames(folder, names, error)) return listing;
  std::size_t keep = 0;
  const int failure = JXJournal::scan(folder + "/dead", [&](const JXFrame& frame) {
    const JXOutboxRecord record = decodeRecord(frame.payload);
    if (record.kind != JXRecordKind::DeadLetter) return;
    keep = record.keep;
    listing.push_back(
        {record.createdMs, std::string(record.url), std::string(record.body), record.status});
  });
  if (failure != 0 && failure != ENOENT) {
    error = "cannot read dead: " + std::error_code(failure, std::generic_category()).message();
  }
  // Older dead letters stay in the file until it is compacted.
  if (listing.size() > keep) {
    listing.erase(listing.begin(),
                  listing.end() - static_cast<std::vector<JXOutboxListing>::difference_type>(keep));
  }
  return listing;
}

}  // namespace jx
