// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXQuarantine.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

#include "jx/core/storage/JXAge.h"
#include "jx/core/storage/JXFolder.h"

namespace jx {
namespace {

constexpr const char* kSuffix = ".damaged-";

// Removes the oldest quarantine files of the folder until one more is within the limit.
void makeRoom(const std::string& folder) {
  std::vector<std::string> names;
  if (listFolder(folder, names) != 0) return;
  std::vector<std::pair<std::time_t, std::string>> kept;
  for (const std::string& name : names) {
    struct stat status {};
    const std::string path = folder + "/" + name;
    if (isQuarantinedName(name) &&
        JXFileCalls::current().status(AT_FDCWD, path.c_str(), &status) == 0) {
      kept.emplace_back(status.st_mtime, path);
    }
  }
  std::sort(kept.begin(), kept.end());
  for (std::size_t i = 0; i + kJXMaxQuarantinedFiles <= kept.size(); ++i)
    removeFile(kept[i].second);
}

int copy(const JXFile& from, const JXDamage& damage, JXFile& to) {
  constexpr std::size_t kChunk = 64 * 1024;
  std::vector<char> buffer(
      static_cast<std::size_t>(std::min<std::uint64_t>(kChunk, damage.length)));
  for (std::uint64_t done = 0; done < damage.length;) {
    const std::size_t wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), damage.length - done));
    std::size_t got = 0;
    int error = from.read(damage.offset + done, buffer.data(), wanted, got);
    if (error != 0) return error;
    if (got == 0) return 0;
    const iovec part{buffer.data(), got};
    std::size_t written = 0;
    error = to.append(&part, 1, written);
    if (error == 0 && written < got) error = ENOSPC;
    if (error != 0) return error;
    done += got;
  }
  return 0;
}

// Deletes the quarantine files of the folder for whose path `matches` returns true.
template <typename Matches>
int removeFiles(const std::string& folder, Matches matches) {
  std::vector<std::string> names;
  const int unreadable = listFolder(folder, names);
  int error = unreadable == ENOENT || unreadable == ENOTDIR ? 0 : unreadable;
  for (const std::string& name : names) {
    const std::string path = folder + "/" + name;
    if (!isQuarantinedName(name) || !matches(path)) continue;
    const int failure = removeFile(path);
    if (failure != 0) error = failure;
  }
  return error;
}

}  // namespace

bool isQuarantinedName(const std::string& name) { return name.find(kSuffix) != std::string::npos; }

int removeQuarantinedFiles(const std::string& folder) {
  return removeFiles(folder, [](const std::string&) { return true; });
}

int removeExpiredQuarantinedFiles(const std::string& folder, std::int64_t nowMs,
                                  std::chrono::milliseconds maxAge) {
  return removeFiles(folder, [&](const std::string& path) {
    struct stat status {};
    return JXFileCalls::current().status(AT_FDCWD, path.c_str(), &status) == 0 &&
           isExpired(std::int64_t{status.st_mtime} * 1'000, nowMs, maxAge);
  });
}

bool hasQuarantinedFiles(const std::string& folder) {
  std::vector<std::string> names;
  return listFolder(folder, names) == 0 &&
         std::any_of(names.begin(), names.end(), isQuarantinedName);
}

int quarantine(const JXFile& file, const std::string& path, const std::vector<JXDamage>& damages,
               bool replaces, bool& copied) {
  copied = false;
  const std::string target = path + kSuffix + std::to_string(damages.front().offset);
  struct stat status {};
  const bool exists = JXFileCalls::current().status(AT_FDCWD, target.c_str(), &status) == 0;
  if (exists && !replaces) return 0;
  if (exists) {
    removeFile(target);
  } else {
    makeRoom(folderOf(path));
  }
  int error = 0;
  JXFile to = JXFile::open(target, JXFile::Access::AppendCreateNew, error);
  for (std::size_t i = 0; error == 0 && i < damages.size(); ++i) {
    error = copy(file, damages[i], to);
  }
  // A partial copy would be taken for a complete one the next time the file is opened.
  if (error != 0 && to.isOpen()) removeFile(target);
  copied = error == 0;
  return error;
}

}  // namespace jx
