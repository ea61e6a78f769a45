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

void note(int number, const std::string& what, std::string& error) {
  if (number == 0 || number == ENOENT || !error.empty()) return;
  error = "cannot " + what + ": " + std::error_code(number, std::generic_category()).message();
}

// A segment that nobody holds is deleted; the holder of another is told by a mark.
void purgeSegment(const std::string& folder, std::uint64_t number, JXOutboxPurge& purge,
                  std::string& error) {
  const std::string path = folder + "/" + JXOutboxSegment::nameOf(number);
  std::vector<JXStoredRequest> requests;
  JXJournal::Recovery recovery;
  if (const auto segment = JXOutboxSegment::adopt(folder, number, requests, recovery)) {
    const int failure = segment->remove();
    note(failure, "delete " + path, error);
    if (failure == 0) purge.removed += requests.size();
    return;
  }
  note(recovery.error, "read " + path, error);
  std::vector<JXListedRequest> held;
  note(listSegment(path, held), "read " + path, error);
  if (held.empty()) return;
  const int failure = writePurgeMark(path);
  note(failure, "mark " + path, error);
  // One that was delivered and deleted in this instant needs no mark.
  if (failure == 0) purge.marked += held.size();
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
  note(deadError, "delete the dead letters", error);
  if (deadError == 0) purge.deadLetters = dead;
  note(removeQuarantinedFiles(folder), "delete what was set aside", error);
  return purge;
}

}  // namespace jx
