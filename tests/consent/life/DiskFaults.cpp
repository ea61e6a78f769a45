// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/consent/life/DiskFaults.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>

namespace jx::test {
namespace {

std::atomic<DiskFault> current{DiskFault::None};

template <class Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Returns whether the call must fail, after having waited while the disk hangs.
bool isRefused() {
  while (current.load() == DiskFault::Hanging)
    ::usleep(1'000);
  if (current.load() != DiskFault::ReadOnly) return false;
  errno = EROFS;
  return true;
}

bool isFile(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool isChange(int flags) { return (flags & (O_CREAT | O_WRONLY | O_RDWR | O_TRUNC)) != 0; }

mode_t modeOf(int flags, va_list& arguments) {
  return (flags & O_CREAT) != 0 ? static_cast<mode_t>(va_arg(arguments, unsigned)) : 0;
}

}  // namespace

void setDiskFault(DiskFault fault) { current.store(fault); }

}  // namespace jx::test

// The definitions of the program take precedence over those of the C library in all libraries.
extern "C" {

using namespace jx::test;

int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  if (isChange(flags) && isRefused()) return -1;
  return real<int (*)(const char*, int, ...)>("open")(path, flags, mode);
}

int openat(int folder, const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const mode_t mode = modeOf(flags, arguments);
  va_end(arguments);
  if (isChange(flags) && isRefused()) return -1;
  return real<int (*)(int, const char*, int, ...)>("openat")(folder, path, flags, mode);
}

ssize_t write(int descriptor, const void* data, size_t size) {
  if (isFile(descriptor) && isRefused()) return -1;
  return real<ssize_t (*)(int, const void*, size_t)>("write")(descriptor, data, size);
}

ssize_t writev(int descriptor, const iovec* pieces, int count) {
  if (isFile(descriptor) && isRefused()) return -1;
  return real<ssize_t (*)(int, const iovec*, int)>("writev")(descriptor, pieces, count);
}

int fsync(int descriptor) {
  if (isRefused()) return -1;
  return real<int (*)(int)>("fsync")(descriptor);
}

int fdatasync(int descriptor) {
  if (isRefused()) return -1;
  return real<int (*)(int)>("fdatasync")(descriptor);
}

int unlink(const char* path) noexcept {
  if (isRefused()) return -1;
  return real<int (*)(const char*)>("unlink")(path);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
  if (isRefused()) return -1;
  return real<int (*)(int, const char*, int)>("unlinkat")(folder, path, flags);
}

int rename(const char* from, const char* to) noexcept {
  if (isRefused()) return -1;
  return real<int (*)(const char*, const char*)>("rename")(from, to);
}

}  // extern "C"
