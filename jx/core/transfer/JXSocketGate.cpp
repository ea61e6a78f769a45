// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXSocketGate.h"

#include <fcntl.h>
#include <netinet/in.h>
#if defined(__linux__)
#include <netinet/tcp.h>
#endif
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <utility>

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

// Returns whether a further socket, with its duplicate, would leave too few descriptors for the
// files of the storage. Descriptors have the lowest free numbers, so the highest ones suffice.
bool areDescriptorsScarce() {
  constexpr int kNeeded = 2 + 3;
  constexpr rlim_t kInspected = 16;
  rlimit limit{};
  if (::getrlimit(RLIMIT_NOFILE, &limit) != 0) return false;
  const rlim_t end = std::min<rlim_t>(limit.rlim_cur, INT_MAX);
  const rlim_t first = end - std::min(end, kInspected);
  int free = 0;
  for (rlim_t each = end; each > first && free < kNeeded; --each)
    free += ::fcntl(static_cast<int>(each - 1), F_GETFD) == -1 ? 1 : 0;
  return free < kNeeded;
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
  if (isShut_ || (!sockets_.empty() && areDescriptorsScarce())) {
    errno = isShut_ ? ECONNABORTED : EMFILE;
    return -1;
  }
  // A child that inherited a connection would keep it open when this process closes it.
  const JXOwnedDescriptors::Change change;
  const int descriptor = openSocket(family, type, protocol);
  if (descriptor < 0) return -1;
  const int duplicate = ::fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
  const int error = errno;
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
  errno = error;
  return -1;
}

std::size_t JXSocketGate::count() const noexcept {
  const std::lock_guard<std::mutex> lock(mutex_);
  return sockets_.size();
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

void JXSocketGate::holdBack() noexcept { setHoldingBack(true); }
void JXSocketGate::sendHeldBack() noexcept { setHoldingBack(false); }

void JXSocketGate::setHoldingBack([[maybe_unused]] bool holdsBack) noexcept {
#ifdef TCP_CORK
  const std::lock_guard<std::mutex> lock(mutex_);
  if (std::exchange(holdsBack_, holdsBack) == holdsBack) return;
  const int value = holdsBack ? 1 : 0;
  for (const Socket& each : sockets_)
    ::setsockopt(each.duplicate, IPPROTO_TCP, TCP_CORK, &value, sizeof value);
#endif
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
