// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/NdjsonFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

namespace jx {
namespace {

// Without permissions for others: events contain personal data. The group may load the files.
constexpr mode_t kMode = 0640;

Error failureOf(const std::string& action, const std::filesystem::path& path) {
  const int error = errno;
  return Error{"cannot " + action + " " + path.string() + ": " +
               std::generic_category().message(error)};
}

// Makes the names in a folder durable.
Done syncFolder(const std::filesystem::path& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return failureOf("open", folder);
  const bool isSynced = ::fsync(fd) == 0;
  Done result = isSynced ? done() : failureOf("sync", folder);
  ::close(fd);
  return result;
}

}  // namespace

std::filesystem::path NdjsonFile::partPath(const std::filesystem::path& folder,
                                           const std::string& name) {
  return folder / (name + ".part");
}

Result<NdjsonFile> NdjsonFile::create(const std::filesystem::path& folder,
                                      const std::string& name) {
  const std::filesystem::path path = partPath(folder, name);
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kMode);
  if (fd < 0) return failureOf("create", path);
  NdjsonFile file(path, fd);
  if (Done synced = syncFolder(folder); !synced) {
    ::unlink(path.c_str());
    return synced.error();
  }
  return file;
}

Result<NdjsonFile> NdjsonFile::open(const std::filesystem::path& folder, const std::string& name) {
  const std::filesystem::path path = partPath(folder, name);
  const int fd = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (fd < 0) return failureOf("open", path);
  return NdjsonFile(path, fd);
}

NdjsonFile::NdjsonFile(NdjsonFile&& other) noexcept
    : path_(std::move(other.path_)), fd_(std::exchange(other.fd_, -1)) {}

NdjsonFile& NdjsonFile::operator=(NdjsonFile&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(fd_, other.fd_);
  return *this;
}

NdjsonFile::~NdjsonFile() {
  if (fd_ >= 0) ::close(fd_);
}

Result<std::int64_t> NdjsonFile::length() const {
  struct stat status {};
  if (::fstat(fd_, &status) != 0) return failureOf("read", path_);
  return std::int64_t{status.st_size};
}

Done NdjsonFile::write(std::int64_t offset, std::string_view bytes) const {
  while (!bytes.empty()) {
    const ssize_t written = ::pwrite(fd_, bytes.data(), bytes.size(), offset);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return failureOf("write", path_);
    bytes.remove_prefix(static_cast<std::size_t>(written));
    offset += written;
  }
  return ::fdatasync(fd_) == 0 ? done() : failureOf("sync", path_);
}

Done NdjsonFile::truncate(std::int64_t length) const {
  const bool isTruncated = ::ftruncate(fd_, length) == 0 && ::fdatasync(fd_) == 0;
  return isTruncated ? done() : failureOf("truncate", path_);
}

Done NdjsonFile::finish(const std::filesystem::path& folder, const std::string& name) {
  const std::filesystem::path part = partPath(folder, name);
  if (::rename(part.c_str(), (folder / name).c_str()) != 0 && errno != ENOENT) {
    return failureOf("rename", part);
  }
  return syncFolder(folder);
}

}  // namespace jx
