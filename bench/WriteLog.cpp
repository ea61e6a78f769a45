// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/WriteLog.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

thread_local std::vector<jx::bench::Write>* recording = nullptr;

bool isFile(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

ssize_t record(int descriptor, ssize_t written) {
  if (recording != nullptr && written > 0 && isFile(descriptor)) {
    recording->push_back({descriptor, static_cast<std::size_t>(written)});
  }
  return written;
}

// Returns the C library's function of that name.
template <typename Function>
Function* next(Function*, const char* name) {
  return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

}  // namespace

// The C library's headers use other parameter names.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name)
extern "C" {

ssize_t write(int descriptor, const void* data, std::size_t bytes) {
  static const auto original = next(&::write, "write");
  return record(descriptor, original(descriptor, data, bytes));
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
  static const auto original = next(&::writev, "writev");
  return record(descriptor, original(descriptor, parts, count));
}

ssize_t pwrite(int descriptor, const void* data, std::size_t bytes, off_t offset) {
  static const auto original = next(&::pwrite, "pwrite");
  return record(descriptor, original(descriptor, data, bytes, offset));
}

// The same function of programs that were compiled with large files.
ssize_t pwrite64(int descriptor, const void* data, std::size_t bytes, off64_t offset) {
  static const auto original = next(&::pwrite64, "pwrite64");
  return record(descriptor, original(descriptor, data, bytes, offset));
}

ssize_t pwritev(int descriptor, const iovec* parts, int count, off_t offset) {
  static const auto original = next(&::pwritev, "pwritev");
  return record(descriptor, original(descriptor, parts, count, offset));
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

namespace jx::bench {

WriteLog::WriteLog() {
  // Before the allocations of a call are counted, so that they do not include those of the log.
  constexpr std::size_t kUsualWrites = 16;
  writes_.reserve(kUsualWrites);
  recording = &writes_;
}

WriteLog::~WriteLog() { recording = nullptr; }

}  // namespace jx::bench
