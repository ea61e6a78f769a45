// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ListeningSocket.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <system_error>
#include <utility>

namespace jx {
namespace {

// Many devices may connect at the same time.
constexpr int kBacklog = 4096;

struct FreeAddresses {
  void operator()(addrinfo* list) const { ::freeaddrinfo(list); }
};

int boundPort(int fd) {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  if (::getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) != 0) return 0;
  sockaddr_in v4{};
  sockaddr_in6 v6{};
  std::memcpy(&v4, &address, sizeof v4);
  std::memcpy(&v6, &address, sizeof v6);
  return ntohs(address.ss_family == AF_INET6 ? v6.sin6_port : v4.sin_port);
}

bool bindAndListen(int fd, const addrinfo& address) {
  const int on = 1;
  // Not SO_REUSEPORT, which would let a second collector share the port.
  ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
  return ::bind(fd, address.ai_addr, address.ai_addrlen) == 0 && ::listen(fd, kBacklog) == 0;
}

}  // namespace

Result<ListeningSocket> ListeningSocket::open(const std::string& address, int port) {
  const std::string where = address + " port " + std::to_string(port);
  addrinfo hints{};
  hints.ai_socktype = SOCK_STREAM;
  hints.ai_flags = AI_PASSIVE | AI_NUMERICSERV;
  addrinfo* found = nullptr;
  const int status = ::getaddrinfo(address.c_str(), std::to_string(port).c_str(), &hints, &found);
  const std::unique_ptr<addrinfo, FreeAddresses> addresses(found);
  if (status != 0) return Error{"cannot listen on " + where + ": " + ::gai_strerror(status)};
  const int fd = ::socket(addresses->ai_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (fd >= 0 && bindAndListen(fd, *addresses)) return ListeningSocket(fd, boundPort(fd));
  const int error = errno;
  if (fd >= 0) ::close(fd);
  if (error == EADDRINUSE)
    return Error{"cannot listen on " + where + ": the port is already in use"};
  return Error{"cannot listen on " + where + ": " + std::generic_category().message(error)};
}

ListeningSocket::ListeningSocket(ListeningSocket&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)), port_(other.port_) {}

ListeningSocket& ListeningSocket::operator=(ListeningSocket&& other) noexcept {
  std::swap(fd_, other.fd_);
  std::swap(port_, other.port_);
  return *this;
}

ListeningSocket::~ListeningSocket() {
  if (fd_ >= 0) ::close(fd_);
}

}  // namespace jx
