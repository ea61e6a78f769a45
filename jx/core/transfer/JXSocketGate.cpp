// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXSocketGate.h"

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "jx/core/JXOwnedDescriptors.h"

namespace jx {
namespace {

bool isConnected(int descriptor) {
  sockaddr_storage peer{};
  socklen_t size = sizeof peer;
  return ::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
}

int openSocket(int family, int type, int protocol) {
#ifdef SOCK_CLOEXEC
  return ::socket(family, type | SOCK_CLOEXEC, protocol);
#else
  const int descriptor = ::socket(family, type, protocol);
  if (descriptor >= 0) ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
  return descriptor;
#endif
}

void endWriting(int descriptor) {
  // Discards unsent data when the socket is closed.
  const linger discarding{1, 0};
  ::setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &discarding, sizeof discarding);
  ::shutdown(descriptor, SHUT_RDWR);
}

}  // namespace

JXSocketGate::~JXSocketGate() {
  forgetIf([](const Socket&) { return true; });
}

template <class Predicate>
void JXSocketGate::forgetIf(Predicate predicate) noexcept {
  const auto end = std::remove_if(sockets_.begin(), sockets_.end(), [&](const Socket& each) {
    const bool forgets = predicate(each);
    if (forgets) {
      const JXOwnedDescriptors::Change change;
      JXOwnedDescriptors::remove(each.duplicate);
      ::close(each.duplicate);
    }
    return forgets;
  });
  sockets_.erase(end, sockets_.end());
}

int JXSocketGate::open(int family, int type, int protocol) noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  if (isShut_) return -1;
  // A child that inherited a connection would keep it open when this process closes it.
  const JXOwnedDescriptors::Change change;
  const int descriptor = openSocket(family, type, protocol);
  if (descriptor < 0) return -1;
  const int duplicate = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  try {
    if (duplicate >= 0) sockets_.push_back({descriptor, duplicate});
  } catch (...) {
    ::close(duplicate);
    ::close(descriptor);
    return -1;
  }
  if (duplicate >= 0) {
    JXOwnedDescriptors::add(duplicate, descriptor);
    return descriptor;
  }
  ::close(descriptor);
  return -1;
}

void JXSocketGate::close(int socket) noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  forgetIf([socket](const Socket& each) { return each.descriptor == socket; });
  ::close(socket);
}

void JXSocketGate::forgetUnconnected() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  forgetIf([](const Socket& each) { return !isConnected(each.duplicate); });
}

void JXSocketGate::shut() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  isShut_ = true;
  for (const Socket& each : sockets_)
    endWriting(each.duplicate);
}

void JXSocketGate::reopen() noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  isShut_ = false;
}

}  // namespace jx
