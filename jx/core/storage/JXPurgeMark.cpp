// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXPurgeMark.h"

#include <unistd.h>

#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <string_view>

#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

std::string markPath(const std::string& segmentPath) {
  return std::string(segmentPath).append(kJXPurgeMarkSuffix);
}

struct PurgeMark {
  std::uint64_t inode = 0;
  std::uint64_t size = 0;  // of the segment's file when the mark was written
};

std::string textOf(const PurgeMark& mark) {
  return concat({std::to_string(mark.inode), " ", std::to_string(mark.size), "\n"});
}

int currentMark(const std::string& segmentPath, PurgeMark& mark) {
  struct stat status {};
  if (JXFileCalls::current().status(AT_FDCWD, segmentPath.c_str(), &status) != 0) return errno;
  mark.inode = status.st_ino;
  mark.size = static_cast<std::uint64_t>(status.st_size);
  return 0;
}

}  // namespace

int writePurgeMark(const std::string& segmentPath) {
  PurgeMark mark;
  int error = currentMark(segmentPath, mark);
  if (error != 0) return error;
  const std::string text = textOf(mark);
  // Renamed into place, so that no process reads a partial mark.
  const std::string fresh = concat({markPath(segmentPath), ".", std::to_string(::getpid())});
  JXFile file = JXFile::open(fresh, JXFile::Access::AppendEmptied, error);
  if (error != 0) return error;
  const iovec part{const_cast<char*>(text.data()), text.size()};
  std::size_t written = 0;
  error = file.append(&part, 1, written);
  if (error == 0 && written < text.size()) error = ENOSPC;
  if (error == 0) error = file.synchronize();
  return replaceFile(fresh, markPath(segmentPath), error);
}

bool mayHavePurgeMark(const std::string& segmentPath) {
  struct stat status {};
  const std::string path = markPath(segmentPath);
  if (JXFileCalls::current().status(AT_FDCWD, path.c_str(), &status) == 0) return true;
  return errno != ENOENT && errno != ENOTDIR;
}

std::uint64_t readPurgeMark(const std::string& segmentPath, const JXFileIdentity& segment,
                            int& error) {
  const JXFile file = JXFile::open(markPath(segmentPath), JXFile::Access::Read, error);
  // Two numbers of up to twenty digits, a space and a newline.
  constexpr std::size_t kMaxMarkSize = 42;
  char text[kMaxMarkSize + 2] = {};
  std::size_t got = 0;
  if (error == 0) error = file.read(0, text, kMaxMarkSize + 1, got);
  if (error == ENOENT || error == ENOTDIR) error = 0;
  PurgeMark mark;
  const int fields = std::sscanf(text, "%" SCNu64 " %" SCNu64, &mark.inode, &mark.size);
  // A damaged number would discard requests that nobody purged.
  const bool isWhole = fields == 2 && std::string_view(text, got) == textOf(mark);
  return isWhole && segment.isValid() && mark.inode == segment.number ? mark.size : 0;
}

int removePurgeMark(const std::string& segmentPath) { return removeFile(markPath(segmentPath)); }

}  // namespace jx
