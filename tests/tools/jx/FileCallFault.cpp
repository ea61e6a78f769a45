// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/jx/FileCallFault.h"

#include <dlfcn.h>
#include <stdio.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace jx::test {
namespace {

// Set and used on one thread; other tests of the program leave them unchanged.
FileCallFault fault = FileCallFault::None;
int callsBefore = 0;
int faultyCalls = 0;

template <class Function>
Function real(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool isFaulty() { return fault != FileCallFault::None && --callsBefore < 0; }

int apply() {
  if (fault == FileCallFault::Kill) ::raise(SIGKILL);
  if (fault == FileCallFault::FailThenKill) {
    fault = FileCallFault::Kill;
    callsBefore = faultyCalls - 1;
  } else if (--faultyCalls == 0) {
    fault = FileCallFault::None;
  }
  errno = ENOSPC;
  return -1;
}

template <class Function, class... Arguments>
int call(const char* name, Arguments... arguments) {
  if (isFaulty()) return apply();
  return real<Function>(name)(arguments...);
}

ssize_t writeAt(const char* name, int descriptor, const void* data, size_t size, off_t offset) {
  using Function = ssize_t (*)(int, const void*, size_t, off_t);
  if (!isFaulty()) return real<Function>(name)(descriptor, data, size, offset);
  (void)real<Function>(name)(descriptor, data, size / 2, offset);
  return apply();
}

}  // namespace

void injectFileCallFault(FileCallFault injected, int call, int calls) {
  fault = injected;
  callsBefore = call - 1;
  faultyCalls = calls;
}

bool isFileCallFaultOver() { return fault == FileCallFault::None; }

}  // namespace jx::test

// The definitions of the program take precedence over those of the C library in all libraries.
extern "C" {

using namespace jx::test;

ssize_t pwrite(int descriptor, const void* data, size_t size, off_t offset) {
  return writeAt("pwrite", descriptor, data, size, offset);
}
ssize_t pwrite64(int descriptor, const void* data, size_t size, off_t offset) {
  return writeAt("pwrite64", descriptor, data, size, offset);
}
int fsync(int descriptor) { return call<int (*)(int)>("fsync", descriptor); }
int fdatasync(int descriptor) { return call<int (*)(int)>("fdatasync", descriptor); }
int ftruncate(int descriptor, off_t length) noexcept {
  return call<int (*)(int, off_t)>("ftruncate", descriptor, length);
}
int ftruncate64(int descriptor, off_t length) noexcept {
  return call<int (*)(int, off_t)>("ftruncate64", descriptor, length);
}
int rename(const char* from, const char* to) noexcept {
  return call<int (*)(const char*, const char*)>("rename", from, to);
}
int remove(const char* path) noexcept { return call<int (*)(const char*)>("remove", path); }
int unlink(const char* path) noexcept { return call<int (*)(const char*)>("unlink", path); }
}
