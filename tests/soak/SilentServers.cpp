// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/SilentServers.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <net/if.h>
#include <netinet/in.h>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

sockaddr_in loopback(std::uint16_t port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

[[noreturn]] void fail(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

int boundSocket(int type, std::uint16_t port) {
  const int descriptor = socket(AF_INET, type | SOCK_CLOEXEC, 0);
  const sockaddr_in address = loopback(port);
  if (descriptor < 0 ||
      bind(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    fail("bind");
  }
  return descriptor;
}

int listeningSocket(int backlog) {
  const int descriptor = boundSocket(SOCK_STREAM, 0);
  if (listen(descriptor, backlog) != 0) fail("listen");
  return descriptor;
}

sockaddr_in addressOf(int listening) {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  if (getsockname(listening, reinterpret_cast<sockaddr*>(&address), &length) != 0) fail("name");
  return address;
}

std::string urlOf(int listening) {
  return "https://127.0.0.1:" + std::to_string(ntohs(addressOf(listening).sin_port));
}

// Starts a connection to `address`.
int connecting(const sockaddr_in& address) {
  const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
      errno != EINPROGRESS) {
    fail("connect");
  }
  return descriptor;
}

bool connectsWithin(int descriptor, int ms) {
  pollfd waited{descriptor, POLLOUT, 0};
  return poll(&waited, 1, ms) == 1;
}

bool writeFile(const char* path, const std::string& text) {
  std::ofstream file(path);
  file << text << std::flush;
  return file.good();
}

// An ordinary user may create namespaces only inside a user namespace.
bool enterOwnNamespaces() {
  constexpr int kOwn = CLONE_NEWNS | CLONE_NEWNET;
  if (unshare(kOwn) == 0) return true;
  const std::string user = std::to_string(geteuid());
  const std::string group = std::to_string(getegid());
  return unshare(kOwn | CLONE_NEWUSER) == 0 && writeFile("/proc/self/setgroups", "deny") &&
         writeFile("/proc/self/uid_map", "0 " + user + " 1") &&
         writeFile("/proc/self/gid_map", "0 " + group + " 1");
}

// The loopback interface of a new network namespace is down.
bool raiseLoopback() {
  const int descriptor = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq request{};
  std::strcpy(request.ifr_name, "lo");
  request.ifr_flags = IFF_UP | IFF_RUNNING;
  const bool isUp = descriptor >= 0 && ioctl(descriptor, SIOCSIFFLAGS, &request) == 0;
  if (descriptor >= 0) close(descriptor);
  return isUp;
}

}  // namespace

SilentServer::SilentServer() : socket_(listeningSocket(1'024)) {}
SilentServer::~SilentServer() { close(socket_); }
std::string SilentServer::url() const { return urlOf(socket_); }

BlackHole::BlackHole() : socket_(listeningSocket(0)) {
  // The system accepts one or two connections more than the backlog: connect until one hangs.
  do {
    fillers_.push_back(connecting(addressOf(socket_)));
    if (fillers_.size() > 64) throw std::runtime_error("a full backlog still accepts connections");
  } while (connectsWithin(fillers_.back(), 300));
}

BlackHole::~BlackHole() {
  for (const int filler : fillers_)
    close(filler);
  close(socket_);
}

std::string BlackHole::url() const { return urlOf(socket_); }

ResettingServer::ResettingServer()
    : socket_(listeningSocket(64)), thread_([this] {
        for (int descriptor = 0;
             (descriptor = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
          ++count_;
          const linger immediately{1, 0};
          setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &immediately, sizeof immediately);
          close(descriptor);
        }
      }) {}

ResettingServer::~ResettingServer() {
  stop();
  close(socket_);
}

std::string ResettingServer::url() const { return urlOf(socket_); }

std::uint64_t ResettingServer::stop() {
  shutdown(socket_, SHUT_RDWR);
  if (thread_.joinable()) thread_.join();
  return count_;
}

SilentNameServer::SilentNameServer() {
  try {
    error_ = setUp();
  } catch (const std::system_error& error) {
    error_ = error.code().value();
  }
}

SilentNameServer::~SilentNameServer() {
  if (socket_ >= 0) close(socket_);
}

int SilentNameServer::setUp() {
  if (!enterOwnNamespaces()) return errno;
  if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return errno;
  if (!raiseLoopback()) return errno;
  const test::TemporaryFolder folder;
  const std::string file = folder.write("resolv.conf", "nameserver 127.0.0.1\n");
  if (mount(file.c_str(), "/etc/resolv.conf", nullptr, MS_BIND, nullptr) != 0) return errno;
  socket_ = boundSocket(SOCK_DGRAM, 53);
  return 0;
}

bool SilentNameServer::waitForQuery() const {
  pollfd waited{socket_, POLLIN, 0};
  return poll(&waited, 1, 20'000) == 1;
}

}  // namespace jx::soak
