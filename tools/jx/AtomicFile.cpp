// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <system_error>

namespace jx {
namespace {

Error failureOf(const std::string& action, const std::filesystem::path& path) {
  const int error = errno;
  return Error{"cannot " + action + " " + path.string() + ": " +
               std::generic_category().message(error)};
}

bool writeAll(int fd, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(fd, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

Done writeFileAtomically(const std::filesystem::path& path, std::string_view content, mode_t mode) {
  std::string temporary = path.string() + ".XXXXXX";
  const int fd = ::mkostemp(temporary.data(), O_CLOEXEC);
  if (fd < 0) return failureOf("write", path);
  const bool complete = ::fchmod(fd, mode) == 0 && writeAll(fd, content) && ::fdatasync(fd) == 0;
  if (complete && ::rename(temporary.c_str(), path.c_str()) == 0) {
    ::close(fd);
    return done();
  }
  const Error failure = failureOf("write", path);
  ::close(fd);
  ::unlink(temporary.c_str());
  return failure;
}

Result<std::string> readWholeFile(const std::filesystem::path& path) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0) return failureOf("read", path);
  std::string content;
  std::array<char, 4096> part{};
  for (;;) {
    const ssize_t got = ::read(fd, part.data(), part.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) {
      const Error failure = failureOf("read", path);
      ::close(fd);
      return failure;
    }
    if (got == 0) break;
    content.append(part.data(), static_cast<std::size_t>(got));
  }
  ::close(fd);
  return content;
}

}  // namespace jx
