// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXTestProxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <system_error>
#include <vector>

namespace jx::test {
namespace {

void check(bool good, const char* what) {
  if (!good) throw std::system_error(errno, std::generic_category(), what);
}

sockaddr_in loopback(int port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

// Forwards available data; returns false when either side has closed.
bool passOn(int from, int to) {
  char bytes[16 * 1024];
  const ssize_t count = ::recv(from, bytes, sizeof bytes, 0);
  if (count <= 0) return false;
  std::string_view left(bytes, static_cast<std::size_t>(count));
  while (!left.empty()) {
    const ssize_t sent = ::send(to, left.data(), left.size(), MSG_NOSIGNAL);
    if (sent <= 0) return false;
    left.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

}  // namespace

JXTestProxy::JXTestProxy(int targetPort, int port)
    : targetPort_(targetPort), socket_(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  const int yes = 1;
  sockaddr_in address = loopback(port);
  socklen_t length = sizeof address;
  auto* const general = reinterpret_cast<sockaddr*>(&address);
  check(socket_ >= 0, "proxy");
  check(::setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes) == 0, "proxy");
  check(::bind(socket_, general, length) == 0, "proxy");
  check(::getsockname(socket_, general, &length) == 0, "proxy");
  check(::listen(socket_, 64) == 0 && ::pipe(wakePipe_) == 0, "proxy");
  port_ = ntohs(address.sin_port);
  acceptor_ = std::thread([this] { acceptConnections(); });
}

JXTestProxy::~JXTestProxy() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    stopping_ = true;
    for (const int descriptor : open_)
      ::shutdown(descriptor, SHUT_RDWR);
  }
  ::close(wakePipe_[1]);
  acceptor_.join();
  for (std::thread& thread : threads_)
    thread.join();
  ::close(wakePipe_[0]);
  ::close(socket_);
}

std::string JXTestProxy::url() const { return "http://127.0.0.1:" + std::to_string(port_); }

std::vector<JXTestRequest> JXTestProxy::requests() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return requests_;
}

void JXTestProxy::acceptConnections() {
  while (true) {
    pollfd waited[2] = {{wakePipe_[0], POLLIN, 0}, {socket_, POLLIN, 0}};
    ::poll(waited, 2, -1);
    if (waited[0].revents != 0) return;
    const int descriptor = ::accept(socket_, nullptr, nullptr);
    const std::lock_guard<std::mutex> lock(mutex_);
    if (descriptor < 0 || stopping_) continue;
    ++connections_;
    open_.push_back(descriptor);
    threads_.emplace_back([this, descriptor] { serve(descriptor); });
  }
}

void JXTestProxy::serve(int descriptor) {
  JXTestConnection connection(descriptor, nullptr);
  while (std::optional<JXTestRequest> request = connection.readRequest()) {
    const bool connects = request->method == "CONNECT" && status_ == 200;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      requests_.push_back(std::move(*request));
    }
    if (connects) {
      connection.write("HTTP/1.1 200 Connected\r\n\r\n");
      relay(descriptor);
      break;
    }
    connection.write("HTTP/1.1 " + std::to_string(status_) + " Told\r\nContent-Length: 0\r\n\r\n");
  }
  const std::lock_guard<std::mutex> lock(mutex_);
  std::erase(open_, descriptor);
  ::close(descriptor);
}

void JXTestProxy::relay(int client) {
  const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const sockaddr_in address = loopback(targetPort_);
  bool goesOn = ::connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
  while (goesOn) {
    pollfd waited[2] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
    ::poll(waited, 2, -1);
    if (waited[0].revents != 0) goesOn = passOn(client, server);
    if (goesOn && waited[1].revents != 0) goesOn = passOn(server, client);
  }
  ::close(server);
}

}  // namespace jx::test
