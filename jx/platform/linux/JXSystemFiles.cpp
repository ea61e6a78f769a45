// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXSystemFiles.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <iterator>

namespace jx {
namespace {

constexpr std::size_t kMaxSize = 64 * 1024;

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F;
}

std::string readDescriptor(int descriptor) {
  std::string text;
  char block[4096];
  while (text.size() < kMaxSize) {
    const ssize_t count = ::read(descriptor, block, sizeof block);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    text.append(block, static_cast<std::size_t>(count));
  }
  if (text.size() > kMaxSize) text.resize(kMaxSize);
  return text;
}

}  // namespace

JXString readSystemFile(const std::string& path) {
  const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (descriptor < 0) return nullptr;
  struct stat status {};
  JXString text;
  if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
    text = readDescriptor(descriptor);
  }
  ::close(descriptor);
  return text;
}

JXString readSystemLine(const std::string& path) {
  const JXString text = readSystemFile(path);
  const std::string_view line = text.view().substr(0, text.view().find('\n'));
  std::string printable;
  std::copy_if(line.begin(), line.end(), std::back_inserter(printable),
               [](char c) { return !isControl(c); });
  const std::string_view trimmed = trimBlanks(printable);
  return trimmed.empty() ? JXString() : JXString(trimmed);
}

JXString readSystemLink(const std::string& path) {
  char target[4096];
  const ssize_t length = ::readlink(path.c_str(), target, sizeof target);
  if (length <= 0) return nullptr;
  return JXString(std::string_view(target, static_cast<std::size_t>(length)));
}

std::vector<std::string> listSystemFolder(const std::string& path) {
  std::vector<std::string> names;
  DIR* folder = ::opendir(path.c_str());
  if (folder == nullptr) return names;
  // Unsafe only if threads share the stream.
  while (const dirent* entry = ::readdir(folder)) {  // NOLINT(concurrency-mt-unsafe)
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  ::closedir(folder);
  std::sort(names.begin(), names.end());
  return names;
}

bool systemPathExists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

std::string_view trimBlanks(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || isControl(c); };
  while (!text.empty() && isBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

}  // namespace jx
