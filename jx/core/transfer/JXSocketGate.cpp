// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXSocketGate.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace jx {
namespace {

ino_t inodeOf(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 ? status.st_ino : 0;
}

void setCloseOnExec(int descriptor) { ::fcntl(descriptor, F_SETFD, FD_CLOEXEC); }

// Replaces a socket that is not connected yet by one on which `connect` and `send` fail: some
// systems cannot shut it down.
void replaceByEndedSocket(int descriptor) {
  int pair[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM, 0, pair) != 0) return;
  ::shutdown(pair[0], SHUT_RDWR);
  ::dup2(pair[0], descriptor);
  setCloseOnExec(descriptor);
  ::close(pair[0]);
  ::close(pair[1]);
}

void endWriting(int descriptor) {
  // Discards unsent data when the socket is closed.
  const linger discarding{1, 0};
  ::setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &discarding, sizeof discarding);
  if (::shutdown(descriptor, SHUT_RDWR) != 0 && errno == ENOTCONN) replaceByEndedSocket(descriptor);
}

}  // namespace

int JXSocketGate::open(int family, int type, int protocol) noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (isShut_) return -1;
  const int descriptor = ::socket(family, type, protocol);
  if (descriptor < 0) return -1;
  setCloseOnExec(descriptor);
  try {
    sockets_.push_back({descriptor, inodeOf(descriptor)});
  } catch (...) {
    ::close(descriptor);
    return -1;
  }
  return descriptor;
}

void JXSocketGate::close(int socket) noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  sockets_.erase(std::remove_if(sockets_.begin(), sockets_.end(),
                                [socket](const Socket& each) { return each.descriptor == socket; }),
                 sockets_.end());
  ::close(socket);
}

void JXSocketGate::shut() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  isShut_ = true;
  for (const Socket& each : sockets_) {
    // The descriptor could belong to the application if libcurl had closed it by itself.
    if (inodeOf(each.descriptor) == each.inode) endWriting(each.descriptor);
  }
}

void JXSocketGate::reopen() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  isShut_ = false;
}

}  // namespace jx
