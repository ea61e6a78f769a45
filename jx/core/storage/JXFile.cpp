// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace jx {
namespace {

int openSystem(const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); }

int synchronizeSystem(int descriptor) {
#if defined(__APPLE__)
  // On Apple systems fsync leaves the bytes in the drive's cache, which a power loss clears. Not
  // every file system supports F_FULLFSYNC.
  const int result = ::fcntl(descriptor, F_FULLFSYNC);
  return result == 0 || errno == EINTR ? result : ::fsync(descriptor);
#else
  return ::fdatasync(descriptor);
#endif
}

template <typename Call>
auto repeatWhenInterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR)
    result = call();
  return result;
}

// Returns an errno value, 0 for success.
template <typename Call>
int errorOf(Call call) {
  return repeatWhenInterrupted(call) < 0 ? errno : 0;
}

}  // namespace

JXFileCalls JXFileCalls::system() {
  return {&openSystem, &::writev, &::ftruncate, &synchronizeSystem, &std::rename, &::unlink};
}

JXFileCalls& JXFileCalls::current() {
  static JXFileCalls calls = system();
  return calls;
}

int replaceFile(const std::string& from, const std::string& to, int error) {
  if (error == 0 && JXFileCalls::current().rename(from.c_str(), to.c_str()) != 0) error = errno;
  if (error != 0) removeFile(from);
  return error;
}

int removeFile(const std::string& path) {
  if (JXFileCalls::current().unlink(path.c_str()) == 0) return 0;
  return errno == ENOENT || errno == ENOTDIR ? 0 : errno;
}

JXFile::JXFile(JXFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

JXFile& JXFile::operator=(JXFile&& other) noexcept {
  if (this != &other) {
    close();
    descriptor_ = std::exchange(other.descriptor_, -1);
  }
  return *this;
}

JXFile JXFile::open(const std::string& path, Access access, int& error) {
  // Without O_NONBLOCK, opening a named pipe at this path would block until its other end opens.
  const int flags = static_cast<int>(access) | O_CLOEXEC | O_NONBLOCK;
  JXFile file(repeatWhenInterrupted(
      [&] { return JXFileCalls::current().open(path.c_str(), flags, 0600); }));
  error = file.isOpen() ? 0 : errno;
  struct stat status {};
  if (error == 0 && ::fstat(file.descriptor_, &status) != 0) error = errno;
  if (error == 0 && !S_ISREG(status.st_mode)) error = EINVAL;
  return error == 0 ? std::move(file) : JXFile();
}

void JXFile::close() noexcept {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
}

int JXFile::append(const iovec* parts, int count, std::size_t& written) {
  written = 0;
  const ssize_t result = repeatWhenInterrupted(
      [&] { return JXFileCalls::current().write(descriptor_, parts, count); });
  if (result < 0) return errno;
  written = static_cast<std::size_t>(result);
  return 0;
}

int JXFile::read(std::uint64_t offset, void* into, std::size_t size, std::size_t& got) const {
  got = 0;
  while (got < size) {
    const ssize_t result = repeatWhenInterrupted([&] {
      return ::pread(descriptor_, static_cast<char*>(into) + got, size - got,
                     static_cast<off_t>(offset + got));
    });
    if (result < 0) return errno;
    if (result == 0) break;
    got += static_cast<std::size_t>(result);
  }
  return 0;
}

int JXFile::truncate(std::uint64_t size) {
  return errorOf(
      [&] { return JXFileCalls::current().truncate(descriptor_, static_cast<off_t>(size)); });
}

int JXFile::synchronize() const {
  return errorOf([&] { return JXFileCalls::current().synchronize(descriptor_); });
}

int JXFile::size(std::uint64_t& size) const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) return errno;
  size = static_cast<std::uint64_t>(status.st_size);
  return 0;
}

bool JXFile::tryLock(Lock lock) {
  const int operation = (lock == Lock::Exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB;
  return errorOf([&] { return ::flock(descriptor_, operation); }) == 0;
}

void JXFile::unlock() { ::flock(descriptor_, LOCK_UN); }

bool JXFile::isLinked() const {
  struct stat status {};
  return ::fstat(descriptor_, &status) == 0 && status.st_nlink > 0;
}

bool JXFile::isAt(const std::string& path) const {
  struct stat mine {};
  struct stat named {};
  return ::fstat(descriptor_, &mine) == 0 && ::stat(path.c_str(), &named) == 0 &&
         mine.st_dev == named.st_dev && mine.st_ino == named.st_ino;
}

}  // namespace jx
