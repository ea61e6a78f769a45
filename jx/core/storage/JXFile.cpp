// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#if defined(__linux__)
#include <sys/inotify.h>
#endif
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXOwnedDescriptors.h"
#include "jx/core/storage/JXFileSizeSignal.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXThrottledCheck.h"

namespace jx {
namespace {

// In a forked child, the files belong to the parent.
bool isForbidden() {
  if (!JXForkedChild::isCurrent()) return false;
  errno = EPERM;
  return true;
}

int openSystem(int folder, const char* name, int flags, mode_t mode) {
  return ::openat(folder, name, flags, mode);
}

int statusSystem(int folder, const char* name, struct stat* status) {
  return ::fstatat(folder, name, status, AT_SYMLINK_NOFOLLOW);
}

// Not a function on every system, so that its address cannot be taken.
int fstatSystem(int descriptor, struct stat* status) { return ::fstat(descriptor, status); }

int unlinkSystem(int folder, const char* name) { return ::unlinkat(folder, name, 0); }

int listSystem(int folder, std::vector<std::string>& names) {
  // Not a duplicate of the descriptor, which would share the position in the folder.
  const int descriptor = ::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  if (descriptor < 0) return -1;
  DIR* const entries = ::fdopendir(descriptor);
  if (entries == nullptr) {
    ::close(descriptor);
    return -1;
  }
  errno = 0;
  // Unsafe only when threads share the stream.
  try {
    while (const dirent* entry = ::readdir(entries)) {  // NOLINT(concurrency-mt-unsafe)
      const std::string_view name = entry->d_name;
      if (name != "." && name != "..") names.emplace_back(name);
      errno = 0;
    }
  } catch (...) {
    ::closedir(entries);
    throw;
  }
  const int error = errno;
  ::closedir(entries);
  errno = error;
  return error == 0 ? 0 : -1;
}

int lockByteSystem(int descriptor, off_t offset, short type) {
  struct flock lock {};
  lock.l_type = type;
  lock.l_whence = SEEK_SET;
  lock.l_start = offset;
  lock.l_len = 1;
#if defined(F_OFD_SETLK)
  return ::fcntl(descriptor, F_OFD_SETLK, &lock);
#else
  // The lock of the process. One process opens the file once there.
  return ::fcntl(descriptor, F_SETLK, &lock);
#endif
}

void* mapSystem(int descriptor, std::size_t size) {
  void* const address = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor, 0);
  return address == MAP_FAILED ? nullptr : address;
}

void unmapSystem(void* address, std::size_t size) { ::munmap(address, size); }

int openWatchSystem() {
#if defined(__linux__)
  return ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
#else
  errno = ENOSYS;
  return -1;
#endif
}

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

// Called before each write, because the application may set a limit at any time, and then a write
// ends it.
bool hasFileSizeLimit() {
  static JXThrottledCheck check;
  return !check.succeeds([] {
    rlimit limit{};
    return ::getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY;
  });
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
  return {&openSystem,        &::close,     &::pread,        &::writev,       &::ftruncate,
          &synchronizeSystem, &::fsync,     &::renameat,     &unlinkSystem,   &::mkdirat,
          &statusSystem,      &fstatSystem, &::flock,        &lockByteSystem, &listSystem,
          &mapSystem,         &unmapSystem, &openWatchSystem};
}

JXFileCalls& JXFileCalls::current() {
  static JXFileCalls calls = system();
  return calls;
}

int openDescriptor(int folder, const char* name, int flags) {
  if (isForbidden()) return -1;
  const JXOwnedDescriptors::Change change;
  const int descriptor =
      repeatWhenInterrupted([&] { return JXFileCalls::current().open(folder, name, flags, 0600); });
  if (descriptor >= 0) JXOwnedDescriptors::add(descriptor);
  return descriptor;
}

void closeDescriptor(int descriptor) noexcept {
  if (JXForkedChild::isCurrent()) return;
  const JXOwnedDescriptors::Change change;
  JXOwnedDescriptors::remove(descriptor);
  JXFileCalls::current().close(descriptor);
}

std::string describeStorageError(int error) {
  switch (error) {
    case kJXErrorForeign:
      return "It belongs to another user";
    case kJXErrorWritable:
      return "Other users can write to it";
    case kJXErrorLinked:
      return "It is a hard link";
    case ELOOP:
      return "It is a symbolic link";
    default:
      return std::error_code(error, std::generic_category()).message();
  }
}

int replaceFile(const std::string& from, const std::string& to, int error) {
  if (isForbidden()) return EPERM;
  int folderError = 0;
  const auto folder = JXFolder::open(folderOf(to), JXFolder::Missing::Fail, folderError);
  if (!folder) return error != 0 ? error : folderError;
  const std::string fromName = nameOf(from);
  if (error == 0) error = renameFile(*folder, fromName, *folder, nameOf(to));
  if (error != 0) removeFile(*folder, fromName);
  return error;
}

int renameFile(const JXFolder& fromFolder, const std::string& from, const JXFolder& toFolder,
               const std::string& to) {
  if (isForbidden()) return EPERM;
  const int result = JXFileCalls::current().rename(fromFolder.descriptor(), from.c_str(),
                                                   toFolder.descriptor(), to.c_str());
  return result == 0 ? 0 : errno;
}

int removeFile(const JXFolder& folder, const std::string& name) {
  if (isForbidden()) return EPERM;
  if (JXFileCalls::current().unlink(folder.descriptor(), name.c_str()) == 0) return 0;
  return errno == ENOENT || errno == ENOTDIR ? 0 : errno;
}

int removeFile(const std::string& path) {
  int error = 0;
  const auto folder = JXFolder::open(folderOf(path), JXFolder::Missing::Fail, error);
  if (folder) return removeFile(*folder, nameOf(path));
  return error == ENOENT || error == ENOTDIR ? 0 : error;
}

int checkAccess(const struct stat& status) {
  // The superuser can change the files of every user anyway.
  if (status.st_uid != ::geteuid() && status.st_uid != 0) return kJXErrorForeign;
  // Many systems give each user a group of its own, and new folders the permission to write for it.
  const bool groupMayWrite = (status.st_mode & S_IWGRP) != 0 && status.st_gid != ::getegid();
  return groupMayWrite || (status.st_mode & S_IWOTH) != 0 ? kJXErrorWritable : 0;
}

int JXFile::descriptor() const noexcept { return JXForkedChild::isCurrent() ? -1 : descriptor_; }

JXFile::JXFile(JXFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

JXFile& JXFile::operator=(JXFile&& other) noexcept {
  if (this != &other) {
    close();
    descriptor_ = std::exchange(other.descriptor_, -1);
  }
  return *this;
}

JXFile JXFile::open(const JXFolder& folder, const std::string& name, Access access, int& error) {
  int flags = static_cast<int>(access);
  // A file that exists is not truncated: it may be a link.
  if (access == Access::AppendEmptied) {
    error = removeFile(folder, name);
    if (error != 0) return {};
    flags = static_cast<int>(Access::AppendCreateNew);
  }
  // Without O_NONBLOCK, opening a named pipe would block until its other end opens.
  flags |= O_CLOEXEC | O_NONBLOCK | O_NOFOLLOW;
  JXFile file(openDescriptor(folder.descriptor(), name.c_str(), flags));
  error = file.isOpen() ? 0 : errno;
  struct stat status {};
  if (error == 0) error = file.status(status);
  if (error == 0 && !S_ISREG(status.st_mode)) error = EINVAL;
  if (error == 0) error = checkAccess(status);
  // Without a name it was deleted just now, which the callers notice.
  if (error == 0 && status.st_nlink > 1) error = kJXErrorLinked;
  return error == 0 ? std::move(file) : JXFile();
}

JXFile JXFile::open(const std::string& path, Access access, int& error) {
  const auto folder = JXFolder::open(folderOf(path), JXFolder::Missing::Fail, error);
  return folder ? open(*folder, nameOf(path), access, error) : JXFile();
}

void JXFile::close() noexcept {
  if (descriptor_ >= 0) closeDescriptor(descriptor_);
  descriptor_ = -1;
}

int JXFile::append(const iovec* parts, int count, std::size_t& written) {
  written = 0;
  std::optional<JXFileSizeSignal> blocked;
  if (hasFileSizeLimit()) blocked.emplace();
  const ssize_t result = repeatWhenInterrupted(
      [&] { return JXFileCalls::current().write(descriptor(), parts, count); });
  if (result < 0) return errno;
  written = static_cast<std::size_t>(result);
  return 0;
}

int JXFile::read(std::uint64_t offset, void* into, std::size_t size, std::size_t& got) const {
  got = 0;
  while (got < size) {
    const ssize_t result = repeatWhenInterrupted([&] {
      return JXFileCalls::current().read(descriptor(), static_cast<char*>(into) + got, size - got,
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
      [&] { return JXFileCalls::current().truncate(descriptor(), static_cast<off_t>(size)); });
}

int JXFile::synchronize() const {
  return errorOf([&] { return JXFileCalls::current().synchronize(descriptor()); });
}

int JXFile::status(struct stat& status) const {
  return errorOf([&] { return JXFileCalls::current().statusOf(descriptor(), &status); });
}

int JXFile::size(std::uint64_t& size) const {
  struct stat now {};
  const int error = status(now);
  if (error == 0) size = static_cast<std::uint64_t>(now.st_size);
  return error;
}

bool JXFile::tryLock(Lock lock) {
  const int operation = (lock == Lock::Exclusive ? LOCK_EX : LOCK_SH) | LOCK_NB;
  return errorOf([&] { return JXFileCalls::current().lock(descriptor(), operation); }) == 0;
}

int JXFile::lockByte(std::uint64_t offset) {
  const int error = errorOf([&] {
    return JXFileCalls::current().lockByte(descriptor(), static_cast<off_t>(offset), F_WRLCK);
  });
  return error == EACCES ? EWOULDBLOCK : error;
}

void JXFile::unlockByte(std::uint64_t offset) {
  JXFileCalls::current().lockByte(descriptor(), static_cast<off_t>(offset), F_UNLCK);
}

void JXFile::unlock() { JXFileCalls::current().lock(descriptor(), LOCK_UN); }

bool JXFile::isLinked() const {
  struct stat now {};
  return status(now) == 0 && now.st_nlink > 0;
}

bool JXFile::isAt(const std::string& path) const { return identity() == identityAt(path); }

JXFileIdentity JXFile::identity() const {
  struct stat now {};
  return status(now) == 0 ? JXFileIdentity{now.st_dev, now.st_ino} : JXFileIdentity();
}

JXFileIdentity JXFile::identityAt(const std::string& path) {
  struct stat named {};
  const int result = JXFileCalls::current().status(AT_FDCWD, path.c_str(), &named);
  return result == 0 ? JXFileIdentity{named.st_dev, named.st_ino} : JXFileIdentity();
}

JXFileIdentity JXFile::identityIn(const JXFolder& folder, const std::string& name) {
  struct stat named {};
  return statusIn(folder, name, named) == 0 ? JXFileIdentity{named.st_dev, named.st_ino}
                                            : JXFileIdentity();
}

int JXFile::statusIn(const JXFolder& folder, const std::string& name, struct stat& status) {
  const int result = JXFileCalls::current().status(folder.descriptor(), name.c_str(), &status);
  return result == 0 ? 0 : errno;
}

}  // namespace jx
