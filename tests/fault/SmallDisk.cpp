// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/fault/SmallDisk.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <utility>

namespace jx::test {
namespace {

constexpr uid_t kNobody = 65534;

// Moves this process to its own mount namespace.
bool enterOwnMountNamespace() {
  if (::unshare(CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
  return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

}  // namespace

SmallDisk::SmallDisk(std::string folder, int megabytes) : folder_(std::move(folder)) {
  const std::string size = "size=" + std::to_string(megabytes) + "m";
  isMounted_ = enterOwnMountNamespace() &&
               ::mount("tmpfs", folder_.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, size.c_str()) == 0;
}

SmallDisk::~SmallDisk() {
  if (isMounted_) ::umount2(folder_.c_str(), MNT_DETACH);
}

bool SmallDisk::fill() const {
  const std::string file = folder_ + "/filler";
  const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  const std::string block(4'096, 'x');
  while (::write(descriptor, block.data(), block.size()) > 0) {
  }
  const bool isFull = errno == ENOSPC;
  ::close(descriptor);
  return isFull;
}

void SmallDisk::empty() const { ::unlink((folder_ + "/filler").c_str()); }

OrdinaryUser::OrdinaryUser(const std::string& folder) : wasSuperuser_(::geteuid() == 0) {
  if (!wasSuperuser_) return;
  if (::chown(folder.c_str(), kNobody, kNobody) != 0 || ::seteuid(kNobody) != 0) {
    throw std::runtime_error("cannot become an ordinary user");
  }
}

OrdinaryUser::~OrdinaryUser() {
  if (wasSuperuser_ && ::seteuid(0) != 0) std::terminate();
}

}  // namespace jx::test
