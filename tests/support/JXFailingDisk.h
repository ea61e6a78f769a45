// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <limits>

#include "jx/core/storage/JXFile.h"

namespace jx {

/// Replaces the storage's system calls with failing ones for one test. Counts the calls; those with
/// indexes from `first` up to, not including, `end` fail with `error`. Create and destroy it while
/// no other thread uses storage; several threads may use storage in between.
class FailingDisk {
 public:
  /// The way in which a failing write fails.
  enum class Write { Nothing, Half };

  FailingDisk(long first, long end, Write write, int error = ENOSPC) {
    plan().calls = 0;
    plan().failed = 0;
    plan().first = first;
    plan().end = end;
    plan().write = write;
    plan().error = error;
    plan().includesDeletions = false;
    JXFileCalls& calls = JXFileCalls::current();
    calls.open = &open;
    calls.write = &writeParts;
    calls.truncate = &truncate;
    calls.synchronize = &synchronize;
    calls.synchronizeFolder = &synchronizeFolder;
    calls.rename = &rename;
    calls.unlink = &unlink;
  }
  ~FailingDisk() { JXFileCalls::current() = JXFileCalls::system(); }
  FailingDisk(const FailingDisk&) = delete;
  FailingDisk& operator=(const FailingDisk&) = delete;

  long calls() const { return plan().calls; }
  /// Returns the number of failed calls.
  long failed() const { return plan().failed; }
  /// Stops failing.
  void heal() { plan().end = 0; }
  /// Deletions are counted and fail like the other calls from now on; initially they succeed.
  void includeDeletions() { plan().includesDeletions = true; }
  /// Starts failing every call from index `first`.
  void fail() { plan().end = std::numeric_limits<long>::max(); }

 private:
  struct Plan {
    std::atomic<long> calls;
    std::atomic<long> failed;
    long first;
    std::atomic<long> end;
    Write write;
    int error;
    bool includesDeletions;
  };
  static Plan& plan() {
    static Plan plan{};
    return plan;
  }
  static bool fails() {
    const long call = plan().calls++;
    if (call < plan().first || call >= plan().end) return false;
    ++plan().failed;
    errno = plan().error;
    return true;
  }

  static int open(int folder, const char* name, int flags, mode_t mode) {
    // Folders are only opened for reading.
    if ((flags & O_DIRECTORY) == 0 && fails()) return -1;
    return JXFileCalls::system().open(folder, name, flags, mode);
  }
  static ssize_t writeParts(int descriptor, const iovec* parts, int count) {
    if (!fails()) return JXFileCalls::system().write(descriptor, parts, count);
    if (plan().write == Write::Nothing) return -1;
    // Writes the first part and half of the second: an incomplete frame.
    iovec half[2] = {parts[0], count > 1 ? parts[1] : iovec{parts[0].iov_base, 0}};
    half[1].iov_len /= 2;
    return JXFileCalls::system().write(descriptor, half, 2);
  }
  static int truncate(int descriptor, off_t size) {
    return fails() ? -1 : JXFileCalls::system().truncate(descriptor, size);
  }
  static int synchronize(int descriptor) {
    return fails() ? -1 : JXFileCalls::system().synchronize(descriptor);
  }
  static int synchronizeFolder(int descriptor) {
    return fails() ? -1 : JXFileCalls::system().synchronizeFolder(descriptor);
  }
  static int rename(int fromFolder, const char* from, int toFolder, const char* to) {
    return fails() ? -1 : JXFileCalls::system().rename(fromFolder, from, toFolder, to);
  }
  static int unlink(int folder, const char* name) {
    return plan().includesDeletions && fails() ? -1 : JXFileCalls::system().unlink(folder, name);
  }
};

}  // namespace jx
