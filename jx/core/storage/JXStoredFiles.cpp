// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXStoredFiles.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXRunningTime.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

using NameTest = bool (*)(std::string_view name);

// Removes `prefix` and returns true if `name` starts with it.
bool skip(std::string_view& name, std::string_view prefix) {
  if (name.substr(0, prefix.size()) != prefix) return false;
  name.remove_prefix(prefix.size());
  return true;
}

// Removes a lower-case hexadecimal number of so many digits.
bool skipHex(std::string_view& name, std::size_t digits) {
  if (name.size() < digits) return false;
  const bool isHex =
      name.substr(0, digits).find_first_not_of("0123456789abcdef") == std::string_view::npos;
  if (isHex) name.remove_prefix(digits);
  return isHex;
}

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Returns true for the end of a file's name: none, or that of a rewritten file, of a purge mark, of
// quarantined data, or of a file to be renamed, which ends with the ID of a process.
bool isEnding(std::string_view name) {
  if (name.empty() || name == ".new" || name == ".purge") return true;
  skip(name, ".purge");
  return (skip(name, ".damaged-") || skip(name, ".")) && isNumber(name);
}

bool isDirectory(const struct stat& status) { return S_ISDIR(status.st_mode); }

// Returns an errno value, 0 for success. With a `failure`, the file stays for that reason.
int removeOne(const std::string& path, int failure, std::vector<std::string>& left) {
  struct stat status {};
  const bool exists = JXFileCalls::current().status(AT_FDCWD, path.c_str(), &status) == 0;
  // The library writes no folder of such a name.
  if (!exists || isDirectory(status)) return 0;
  const int error = failure != 0 ? failure : removeFile(path);
  if (error != 0) addLeft(path, error, left);
  return error;
}

int synchronize(const std::string& folder, std::vector<std::string>& left) {
  const int error = synchronizeFolder(folder);
  // A read-only disk has no changes.
  if (error == 0 || error == EROFS) return 0;
  addLeft(folder, error, left);
  return error;
}

// Deletes the files that `isOurs` accepts. `last` is a file that another process may be replacing
// with `last`.new. The order of the two deletions does not miss it: either the new file is deleted
// before it replaces the other, or the other is deleted after it was replaced.
void removeIn(const std::string& folder, NameTest isOurs, const std::string& last,
              std::vector<std::string>& left) {
  std::vector<std::string> names;
  const int error = listFolder(folder, names);
  if (error == ENOENT || error == ENOTDIR) return;
  if (error != 0) addLeft(folder, error, left);
  const auto isOther = [&](const std::string& name) {
    return name == last || name == last + ".new" || !isOurs(name);
  };
  names.erase(std::remove_if(names.begin(), names.end(), isOther), names.end());
  std::sort(names.begin(), names.end());
  names.push_back(last + ".new");
  names.push_back(last);
  // The records of stops last, and only when the rest is certainly gone: they hold the events that
  // are left, also those that a power loss brings back.
  const auto isStop = [](const std::string& name) { return name.rfind("stopped-", 0) == 0; };
  const auto stops = std::stable_partition(names.begin(), names.end(),
                                           [&](const auto& name) { return !isStop(name); });
  int failure = error;
  for (auto name = names.begin(); name != stops; ++name) {
    const int failed = removeOne(concat({folder, "/", *name}), 0, left);
    if (failed != 0) failure = failed;
  }
  // Also without a deletion: a power loss could undo an earlier one that was not durable yet.
  const int failed = synchronize(folder, left);
  if (failed != 0) failure = failed;
  for (auto name = stops; name != names.end(); ++name)
    removeOne(concat({folder, "/", *name}), failure, left);
  if (stops != names.end() && failure == 0) synchronize(folder, left);
}

}  // namespace

bool isStoredFileName(std::string_view name) {
  // The mark of an erase that a killed process had not renamed into place.
  if (skip(name, "erased.")) return isNumber(name);
  return skip(name, "defaults") && isEnding(name);
}

bool isOutboxFileName(std::string_view name) {
  if (name == JXRunningTime::kFileName) return true;
  const bool isOurs = skip(name, "dead") || (skip(name, "segment-") && skipHex(name, 16)) ||
                      (skip(name, "stopped-") && skipHex(name, 8));
  return isOurs && isEnding(name);
}

void addLeft(const std::string& path, int error, std::vector<std::string>& left) {
  left.push_back(concat({path, ": ", describeStorageError(error)}));
}

void removeStoredFiles(const std::string& folder, std::vector<std::string>& left) {
  removeIn(folder + "/outbox", &isOutboxFileName, "dead", left);
  removeIn(folder, &isStoredFileName, "defaults", left);
}

}  // namespace jx
