// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/RawConnection.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace jx {
namespace {

constexpr time_t kPatienceSeconds = 30;

}  // namespace

RawConnection::RawConnection(int port) : fd_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<in_port_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const timeval patience{kPatienceSeconds, 0};
  ::setsockopt(fd_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
  ::setsockopt(fd_, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
  if (::connect(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    ::close(fd_);
    fd_ = -1;
  }
}

RawConnection::~RawConnection() {
  if (fd_ >= 0) ::close(fd_);
}

bool RawConnection::send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

std::string RawConnection::readUntil(std::string_view mark) {
  std::string text;
  std::array<char, 4096> part{};
  while (mark.empty() || text.find(mark) == std::string::npos) {
    const ssize_t count = ::recv(fd_, part.data(), part.size(), 0);
    if (count < 0 && errno == EINTR) continue;
    sawEnd_ = count == 0 || (count < 0 && errno == ECONNRESET);
    if (count <= 0) break;
    text.append(part.data(), static_cast<std::size_t>(count));
  }
  return text;
}

std::string RawConnection::readToEnd() { return readUntil({}); }

}  // namespace jx
