// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ReservedPort.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace jx::test {

ReservedPort::ReservedPort() : socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const int yes = 1;
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  if (socket_ < 0 || ::setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes) != 0 ||
      ::bind(socket_, general, length) != 0 || ::getsockname(socket_, general, &length) != 0) {
    throw std::system_error(errno, std::generic_category(), "reserving a port");
  }
  number_ = ntohs(address.sin_port);
}

ReservedPort::~ReservedPort() { ::close(socket_); }

}  // namespace jx::test
