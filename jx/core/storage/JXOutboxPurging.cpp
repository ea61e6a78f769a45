// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cerrno>
#include <system_error>

#include "jx/core/storage/JXDeadLetters.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxSegment.h"
#include "jx/core/storage/JXPurgeMark.h"
#include "jx/core/storage/JXQuarantine.h"

namespace jx {
namespace {

// Keeps the first error.
void recordError(int code, const std::string& action, std::string& error) {
  if (code == 0 || code == ENOENT || !error.empty()) return;
  error = "cannot " + action + ": " + std::error_code(code, std::generic_category()).message();
}

// Deletes a segment that no process owns. Writes a purge mark for the owner of any other.
void purgeSegment(const std::string& folder, std::uint64_t number, JXOutboxPurge& purge,
                  std::string& error) {
  const std::string path = folder + "/" + JXOutboxSegment::nameOf(number);
  std::vector<JXStoredRequest> requests;
  JXJournal::Recovery recovery;
  if (const auto segment = JXOutboxSegment::adopt(folder, number, requests, recovery)) {
    const int failure = segment->remove();
    recordError(failure, "delete " + path, error);
    if (failure == 0) purge.removed += requests.size();
    return;
  }
  recordError(recovery.error, "read " + path, error);
  std::vector<JXListedRequest> queued;
  recordError(listSegment(path, queued), "read " + path, error);
  if (queued.empty()) return;
  const int failure = writePurgeMark(path);
  recordError(failure, "mark " + path + " for purging", error);
  // A segment that was delivered and deleted in the meantime needs no mark.
  if (failure == 0) purge.marked += queued.size();
}

}  // namespace

JXOutboxPurge purgeOutbox(const std::string& folder, std::string& error) {
  JXOutboxPurge purge;
  error.clear();
  std::vector<std::string> names;
  const int unreadable = listFolder(folder, names);
  if (unreadable != 0) {
    error = "cannot read " + folder + ": " +
            std::error_code(unreadable, std::generic_category()).message();
    return purge;
  }
  for (const std::string& name : names) {
    if (const std::uint64_t number = JXOutboxSegment::numberOf(name)) {
      purgeSegment(folder, number, purge, error);
    }
  }
  std::string ignored;
  const std::size_t dead = listDeadLetters(folder, ignored).size();
  const int deadError = JXDeadLetters(folder, 0).clear();
  recordError(deadError, "delete the dead letters", error);
  if (deadError == 0) purge.deadLetters = dead;
  recordError(removeQuarantinedFiles(folder), "delete the quarantined files", error);
  return purge;
}

}  // namespace jx
