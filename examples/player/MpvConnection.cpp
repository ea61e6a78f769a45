// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "MpvConnection.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <stdexcept>
#include <system_error>
#include <thread>

namespace {

sockaddr_un addressOf(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    throw std::runtime_error("socket path is too long: " + path);
  }
  path.copy(static_cast<char*>(address.sun_path), path.size());
  return address;
}

}  // namespace

MpvConnection::MpvConnection(const std::string& socketPath, std::chrono::milliseconds timeout)
    : fd_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "socket");
  const sockaddr_un address = addressOf(socketPath);
  const auto deadline = std::chrono::steady_clock::now() + timeout;
  while (::connect(fd_, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    if (std::chrono::steady_clock::now() >= deadline) {
      ::close(fd_);
      throw std::runtime_error("cannot connect to mpv at " + socketPath);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
}

MpvConnection::~MpvConnection() { ::close(fd_); }

void MpvConnection::send(const std::string& line) {
  if (::send(fd_, line.data(), line.size(), MSG_NOSIGNAL) < 0 && errno != EINTR) open_ = false;
}

std::vector<std::string> MpvConnection::readLines() {
  char bytes[4096];
  const ssize_t count = ::read(fd_, bytes, sizeof bytes);
  if (count == 0 || (count < 0 && errno != EINTR)) open_ = false;
  if (count > 0) unfinished_.append(bytes, static_cast<std::size_t>(count));
  std::vector<std::string> lines;
  std::size_t begin = 0;
  for (std::size_t end = unfinished_.find('\n'); end != std::string::npos;
       end = unfinished_.find('\n', begin)) {
    lines.push_back(unfinished_.substr(begin, end - begin));
    begin = end + 1;
  }
  unfinished_.erase(0, begin);
  return lines;
}
