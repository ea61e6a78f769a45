// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <ctime>
#include <utility>

#include "jx/core/JXForkedChild.h"
#include "jx/core/storage/JXFile.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

std::int64_t nanoseconds(const timespec& time) {
  return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

timespec changeTimeOf(const struct stat& status) {
#ifdef __APPLE__
  return status.st_mtimespec;
#else
  return status.st_mtim;
#endif
}

int makeFolder(int parent, const std::string& name) {
  if (JXForkedChild::isCurrent()) return EPERM;  // its files belong to the parent
  const JXFileCalls& calls = JXFileCalls::current();
  // An existing file that is not a folder is noticed when it is opened.
  if (calls.makeFolder(parent, name.c_str(), 0700) == 0 || errno == EEXIST) return 0;
  const int error = errno;
  const std::string above = folderOf(name);
  if (error != ENOENT || above == name || above == ".") return error;
  const int aboveError = makeFolder(parent, above);
  if (aboveError != 0) return aboveError;
  // Another process may have created the folder first.
  return calls.makeFolder(parent, name.c_str(), 0700) == 0 || errno == EEXIST ? 0 : errno;
}

}  // namespace

JXFolder::~JXFolder() {
  if (descriptor_ >= 0) closeDescriptor(descriptor_);
}

std::shared_ptr<const JXFolder> JXFolder::open(const std::string& path, const std::string& inner,
                                               Missing missing, int& error) {
  const auto outer = openIn(AT_FDCWD, path, path, missing, error);
  if (!outer || inner.empty()) return outer;
  return openIn(outer->descriptor_, inner, outer->pathOf(inner), missing, error);
}

std::shared_ptr<const JXFolder> JXFolder::openIn(int parent, const std::string& name,
                                                 const std::string& path, Missing missing,
                                                 int& error) {
  // Allocated first, so that no open descriptor is lost.
  const std::shared_ptr<JXFolder> folder(new JXFolder(path));
  const JXFileCalls& calls = JXFileCalls::current();
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  int descriptor = openDescriptor(parent, name.c_str(), kFlags);
  if (descriptor < 0 && errno == ENOENT && missing == Missing::Create) {
    error = makeFolder(parent, name);
    if (error != 0) return nullptr;
    descriptor = openDescriptor(parent, name.c_str(), kFlags);
  }
  struct stat status {};
  if (descriptor < 0) {
    error = errno;
    // Some systems report a link as a file that is not a folder.
    const bool isLink = calls.status(parent, name.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
    if (isLink) error = ELOOP;
    return nullptr;
  }
  error = calls.statusOf(descriptor, &status) == 0 ? checkAccess(status) : errno;
  if (error == 0) {
    folder->descriptor_ = descriptor;
    folder->identity_ = {status.st_dev, status.st_ino};
    return folder;
  }
  closeDescriptor(descriptor);
  return nullptr;
}

int JXFolder::list(std::vector<std::string>& names) const {
  return JXFileCalls::current().list(descriptor_, names) == 0 ? 0 : errno;
}

int JXFolder::synchronize() const {
  const int error = JXFileCalls::current().synchronizeFolder(descriptor_) == 0 ? 0 : errno;
  // Some file systems do not support, and do not need, syncing a folder.
  return error == EINVAL || error == ENOTSUP ? 0 : error;
}

std::string absolutePath(const std::string& path) {
  if (path.empty() || path.front() == '/') return path;
  std::string current(PATH_MAX, '\0');
  if (::getcwd(current.data(), current.size()) == nullptr) return path;
  current.resize(current.find('\0'));
  return concat({current, current == "/" ? "" : "/", path});
}

int makeFolder(const std::string& path) { return makeFolder(AT_FDCWD, path); }

int listFolder(const std::string& path, std::vector<std::string>& names) {
  int error = 0;
  const auto folder = JXFolder::open(path, JXFolder::Missing::Fail, error);
  return folder ? folder->list(names) : error;
}

int synchronizeFolder(const std::string& path) {
  int error = 0;
  const auto folder = JXFolder::open(path, JXFolder::Missing::Fail, error);
  return folder ? folder->synchronize() : error;
}

JXFolderWatch::Change JXFolderWatch::change() {
  // File times advance in steps of some milliseconds, so two changes in the same step have the same
  // time.
  constexpr std::int64_t kCoarseNs = 100'000'000;
  struct stat status {};
  if (JXFileCalls::current().status(AT_FDCWD, path_.c_str(), &status) != 0) return Change::New;
  const timespec changed = changeTimeOf(status);
  const std::int64_t changedNs = nanoseconds(changed);
  if (changedNs == seenNs_) return Change::None;
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const std::int64_t age = nanoseconds(now) - changedNs;
  seenNs_ = age > kCoarseNs ? changedNs : -1;
  const bool isKnown = std::exchange(lastNs_, changedNs) == changedNs;
  return isKnown && seenNs_ == -1 ? Change::Recent : Change::New;
}

std::string nameOf(const std::string& path) {
  const std::size_t end = path.find_last_not_of('/');
  if (end == std::string::npos) return path.empty() ? "" : "/";
  const std::size_t slash = path.find_last_of('/', end);
  const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
  return path.substr(begin, end + 1 - begin);
}

std::string folderOf(const std::string& path) {
  const std::size_t end = path.find_last_not_of('/');
  if (end == std::string::npos) return path.empty() ? "." : "/";
  const std::size_t slash = path.find_last_of('/', end);
  if (slash == std::string::npos) return ".";
  const std::size_t last = path.find_last_not_of('/', slash);
  return last == std::string::npos ? "/" : path.substr(0, last + 1);
}

}  // namespace jx
