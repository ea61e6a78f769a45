// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/StateFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>
#include <utility>

namespace jx {
namespace {

constexpr mode_t kOwnerOnly = 0700;

}  // namespace

StateFolder::StateFolder(std::filesystem::path path, int lock)
    : path_(std::move(path)), lock_(lock) {}

StateFolder::StateFolder(StateFolder&& other) noexcept
    : path_(std::move(other.path_)), lock_(std::exchange(other.lock_, -1)) {}

StateFolder& StateFolder::operator=(StateFolder&& other) noexcept {
  std::swap(path_, other.path_);
  std::swap(lock_, other.lock_);
  return *this;
}

StateFolder::~StateFolder() {
  if (lock_ >= 0) ::close(lock_);
}

Result<StateFolder> StateFolder::open(const std::filesystem::path& path, const std::string& user) {
  const std::string text = path.string();
  std::error_code error;
  if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path(), error);
  if (!error && ::mkdir(path.c_str(), kOwnerOnly) != 0 && errno != EEXIST) {
    error.assign(errno, std::generic_category());
  }
  if (error) return Error{"cannot create the state folder " + text + ": " + error.message()};
  const std::string lockFile = (path / "lock").string();
  const int lock = ::open(lockFile.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
  if (lock < 0) {
    return Error{"cannot write to the state folder " + text + ": " +
                 std::generic_category().message(errno)};
  }
  if (::flock(lock, LOCK_EX | LOCK_NB) == 0) return StateFolder(path, lock);
  ::close(lock);
  return Error{"the state folder " + text + " is in use by another " + user};
}

Result<std::filesystem::path> StateFolder::defaultPath() {
  // The program is still single-threaded here.
  const char* const state = std::getenv("XDG_STATE_HOME");  // NOLINT(concurrency-mt-unsafe)
  // The XDG Base Directory rules require relative paths to be ignored.
  if (state != nullptr && state[0] == '/') return std::filesystem::path(state) / "jx-collector";
  const char* const home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe)
  if (home == nullptr || home[0] != '/') {
    return Error{"HOME must be an absolute path; alternatively set the state folder with --state"};
  }
  return std::filesystem::path(home) / ".local/state/jx-collector";
}

}  // namespace jx
