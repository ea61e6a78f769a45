// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

#include "jx/core/storage/JXFile.h"

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

}  // namespace

int makeFolder(const std::string& path) {
  if (::mkdir(path.c_str(), 0700) == 0) return 0;
  const int error = errno;
  if (error == EEXIST) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) return errno;
    return S_ISDIR(status.st_mode) ? 0 : ENOTDIR;
  }
  const std::string above = folderOf(path);
  if (error != ENOENT || above == path || above == ".") return error;
  const int aboveError = makeFolder(above);
  if (aboveError != 0) return aboveError;
  // Another process may have created the folder first.
  return ::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST ? 0 : errno;
}

int listFolder(const std::string& path, std::vector<std::string>& names) {
  DIR* const folder = ::opendir(path.c_str());
  if (folder == nullptr) return errno;
  errno = 0;
  // Unsafe only when threads share the stream.
  while (const dirent* entry = ::readdir(folder)) {  // NOLINT(concurrency-mt-unsafe)
    const std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(name);
    errno = 0;
  }
  const int error = errno;
  ::closedir(folder);
  return error;
}

bool mayContainFileWithSuffix(const std::string& path, std::string_view suffix) {
  std::vector<std::string> names;
  if (listFolder(path, names) != 0) return true;
  return std::any_of(names.begin(), names.end(), [suffix](const std::string_view name) {
    return name.size() >= suffix.size() && name.substr(name.size() - suffix.size()) == suffix;
  });
}

int synchronizeFolder(const std::string& path) {
  const int descriptor =
      JXFileCalls::current().open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0);
  if (descriptor < 0) return errno;
  // Not fdatasync: some file systems treat the entries of a folder as metadata.
  const int error = ::fsync(descriptor) == 0 ? 0 : errno;
  ::close(descriptor);
  // Some file systems do not support, and do not need, syncing a folder.
  return error == EINVAL || error == ENOTSUP ? 0 : error;
}

bool JXFolderWatch::mayHaveChanged() {
  // File times advance in steps of some milliseconds, so two changes in the same step have the same
  // time.
  constexpr std::int64_t kCoarseNs = 100'000'000;
  struct stat status {};
  if (::stat(path_.c_str(), &status) != 0) return true;
  const timespec changed = changeTimeOf(status);
  const std::int64_t changedNs = nanoseconds(changed);
  if (changedNs == seenNs_) return false;
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  const std::int64_t age = nanoseconds(now) - changedNs;
  seenNs_ = age > kCoarseNs ? changedNs : -1;
  return true;
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
