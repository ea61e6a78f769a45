// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXQuarantine.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <tuple>

#include "jx/core/storage/JXAge.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

constexpr const char* kSuffix = ".damaged-";

// 2025-01-01T00:00:00Z. A TV without a battery-backed clock starts in 1970 and gets the time later:
// the age of a file dated before this is unknown.
constexpr std::int64_t kFirstPlausibleMs = 1'735'689'600'000;

// Deletes the oldest quarantine files of the folder until so many more files and bytes are within
// the limits. Returns the number of deleted files.
std::size_t makeRoom(const JXFolder& folder, std::size_t files, std::uint64_t bytes) {
  constexpr std::uint64_t kBlock = 512;
  std::vector<std::string> names;
  if (folder.list(names) != 0) return 0;
  std::vector<std::tuple<std::time_t, std::string, std::uint64_t>> kept;
  for (const std::string& name : names) {
    struct stat status {};
    if (!isQuarantinedName(name) || JXFile::statusIn(folder, name, status) != 0) continue;
    kept.emplace_back(status.st_mtime, name, static_cast<std::uint64_t>(status.st_blocks) * kBlock);
    bytes += std::get<2>(kept.back());
  }
  std::sort(kept.begin(), kept.end());
  files += kept.size();
  std::size_t deleted = 0;
  for (const auto& [time, name, size] : kept) {
    if (files <= kJXMaxQuarantinedFiles && bytes <= kJXMaxQuarantinedBytes) break;
    if (removeFile(folder, name) == 0) ++deleted;
    --files;
    bytes -= size;
  }
  return deleted;
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

// Deletes the quarantine files of the folder for whose path `matches` returns true, and counts
// them.
template <typename Matches>
int removeFiles(const std::string& folder, std::size_t& deleted, Matches matches) {
  std::vector<std::string> names;
  const int unreadable = listFolder(folder, names);
  int error = unreadable == ENOENT || unreadable == ENOTDIR ? 0 : unreadable;
  for (const std::string& name : names) {
    const std::string path = concat({folder, "/", name});
    if (!isQuarantinedName(name) || !matches(path)) continue;
    const int failure = removeFile(path);
    if (failure != 0) error = failure;
    if (failure == 0) ++deleted;
  }
  return error;
}

}  // namespace

bool isQuarantinedName(const std::string& name) {
  const std::size_t suffix = name.rfind(kSuffix);
  if (suffix == 0 || suffix == std::string::npos) return false;
  const std::string number = name.substr(suffix + std::strlen(kSuffix));
  return !number.empty() && number.find_first_not_of("0123456789") == std::string::npos;
}

int removeQuarantinedFiles(const std::string& folder) {
  std::size_t deleted = 0;
  return removeFiles(folder, deleted, [](const std::string&) { return true; });
}

int removeExpiredQuarantinedFiles(const std::string& folder, std::int64_t nowMs,
                                  std::chrono::milliseconds maxAge, std::size_t& deleted) {
  deleted = 0;
  return removeFiles(folder, deleted, [&](const std::string& path) {
    struct stat status {};
    if (JXFileCalls::current().status(AT_FDCWD, path.c_str(), &status) != 0) return false;
    const std::int64_t modifiedMs = std::int64_t{status.st_mtime} * 1'000;
    return modifiedMs >= kFirstPlausibleMs && isExpired(modifiedMs, nowMs, maxAge);
  });
}

bool hasQuarantinedFiles(const std::string& folder) {
  std::vector<std::string> names;
  return listFolder(folder, names) == 0 &&
         std::any_of(names.begin(), names.end(), isQuarantinedName);
}

int quarantineFile(const JXFolder& folder, const std::string& name, std::size_t& deleted) {
  const int error = renameFile(folder, name, folder, concat({name, kSuffix, "0"}));
  deleted = error == 0 ? makeRoom(folder, 0, 0) : 0;
  return error;
}

int quarantine(const JXFile& file, const std::string& path, const std::vector<JXDamage>& damages,
               bool replaces, JXQuarantined& quarantined) {
  quarantined = {};
  int error = 0;
  const auto folder = JXFolder::open(folderOf(path), JXFolder::Missing::Fail, error);
  if (!folder) return error;
  const std::string target =
      concat({nameOf(path), kSuffix, std::to_string(damages.front().offset)});
  const bool exists = JXFile::identityIn(*folder, target).isValid();
  if (exists && !replaces) return 0;
  std::uint64_t bytes = 0;
  for (const JXDamage& damage : damages)
    bytes += damage.length;
  quarantined.deleted = makeRoom(*folder, exists ? 0 : 1, std::min(bytes, kJXMaxQuarantinedBytes));
  JXFile to = JXFile::open(*folder, target, JXFile::Access::AppendEmptied, error);
  std::uint64_t left = kJXMaxQuarantinedBytes;
  for (std::size_t i = 0; error == 0 && i < damages.size() && left != 0; ++i) {
    const std::uint64_t length = std::min(damages[i].length, left);
    error = copy(file, {damages[i].offset, length}, to);
    left -= length;
  }
  // A partial copy would be taken for a complete one the next time the file is opened.
  if (error != 0 && to.isOpen()) removeFile(*folder, target);
  quarantined.copied = error == 0;
  return error;
}

}  // namespace jx
