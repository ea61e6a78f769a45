// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXPurgeMark.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cinttypes>
#include <cstdio>

#include "jx/core/storage/JXFile.h"

namespace jx {
namespace {

// Two numbers of up to twenty digits, a space and a newline.
constexpr std::size_t kMaxTextSize = 42;

std::string markPath(const std::string& segmentPath) {
  return std::string(segmentPath).append(kJXPurgeMarkSuffix);
}

int currentMark(const std::string& segmentPath, JXPurgeMark& mark) {
  struct stat status {};
  if (::stat(segmentPath.c_str(), &status) != 0) return errno;
  mark.inode = status.st_ino;
  mark.size = static_cast<std::uint64_t>(status.st_size);
  return 0;
}

}  // namespace

bool isPurgeMarkName(const std::string& name) {
  constexpr std::string_view suffix = kJXPurgeMarkSuffix;
  return name.size() > suffix.size() &&
         name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0;
}

int writePurgeMark(const std::string& segmentPath) {
  JXPurgeMark mark;
  int error = currentMark(segmentPath, mark);
  if (error != 0) return error;
  const std::string text = std::to_string(mark.inode) + " " + std::to_string(mark.size) + "\n";
  // Renamed into place, so that no process reads a partial mark.
  const std::string fresh = markPath(segmentPath) + "." + std::to_string(::getpid());
  JXFile file = JXFile::open(fresh, JXFile::Access::AppendEmptied, error);
  if (error != 0) return error;
  const iovec part{const_cast<char*>(text.data()), text.size()};
  std::size_t written = 0;
  error = file.append(&part, 1, written);
  if (error == 0 && written < text.size()) error = ENOSPC;
  if (error == 0) error = file.synchronize();
  if (error == 0 &&
      JXFileCalls::current().rename(fresh.c_str(), markPath(segmentPath).c_str()) != 0) {
    error = errno;
  }
  if (error != 0) ::unlink(fresh.c_str());
  return error;
}

std::uint64_t readPurgeMark(const std::string& segmentPath) {
  JXPurgeMark now;
  int error = 0;
  const JXFile file = JXFile::open(markPath(segmentPath), JXFile::Access::Read, error);
  if (error != 0 || currentMark(segmentPath, now) != 0) return 0;
  char text[kMaxTextSize + 1] = {};
  std::size_t got = 0;
  if (file.read(0, text, kMaxTextSize, got) != 0) return 0;
  JXPurgeMark mark;
  const int fields = std::sscanf(text, "%" SCNu64 " %" SCNu64, &mark.inode, &mark.size);
  return fields == 2 && mark.inode == now.inode ? mark.size : 0;
}

void removePurgeMark(const std::string& segmentPath) { ::unlink(markPath(segmentPath).c_str()); }

}  // namespace jx
