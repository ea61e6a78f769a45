// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/SilentHosts.h"

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
  const int made = socket(AF_INET, type | SOCK_CLOEXEC, 0);
  const sockaddr_in address = loopback(port);
  if (made < 0 || bind(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    fail("bind");
  }
  return made;
}

int listeningSocket(int backlog) {
  const int made = boundSocket(SOCK_STREAM, 0);
  if (listen(made, backlog) != 0) fail("listen");
  return made;
}

sockaddr_in addressOf(int listening) {
  sockaddr_in address{};
  socklen_t length = sizeof address;
  if (getsockname(listening, reinterpret_cast<sockaddr*>(&address), &length) != 0) fail("name");
  return address;
}

std::string hostOf(int listening) {
  return "https://127.0.0.1:" + std::to_string(ntohs(addressOf(listening).sin_port));
}

// A connection to `address` that is under way.
int connecting(const sockaddr_in& address) {
  const int made = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (connect(made, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 &&
      errno != EINPROGRESS) {
    fail("connect");
  }
  return made;
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

// An ordinary user may have namespaces only inside one in which it is the superuser.
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
  const int made = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq request{};
  std::strcpy(request.ifr_name, "lo");
  request.ifr_flags = IFF_UP | IFF_RUNNING;
  const bool isUp = made >= 0 && ioctl(made, SIOCSIFFLAGS, &request) == 0;
  if (made >= 0) close(made);
  return isUp;
}

}  // namespace

NeverSpeaks::NeverSpeaks() : socket_(listeningSocket(1'024)) {}
NeverSpeaks::~NeverSpeaks() { close(socket_); }
std::string NeverSpeaks::host() const { return hostOf(socket_); }

BlackHole::BlackHole() : socket_(listeningSocket(0)) {
  // The system takes one connection more than the backlog says, or two: until one hangs.
  do {
    fillers_.push_back(connecting(addressOf(socket_)));
    if (fillers_.size() > 64) throw std::runtime_error("a full backlog still takes connections");
  } while (connectsWithin(fillers_.back(), 300));
}

BlackHole::~BlackHole() {
  for (const int filler : fillers_)
    close(filler);
  close(socket_);
}

std::string BlackHole::host() const { return hostOf(socket_); }

CountingResets::CountingResets()
    : socket_(listeningSocket(64)), thread_([this] {
        for (int descriptor = 0;
             (descriptor = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
          ++count_;
          const linger immediately{1, 0};
          setsockopt(descriptor, SOL_SOCKET, SO_LINGER, &immediately, sizeof immediately);
          close(descriptor);
        }
      }) {}

CountingResets::~CountingResets() {
  stop();
  close(socket_);
}

std::string CountingResets::host() const { return hostOf(socket_); }

std::uint64_t CountingResets::stop() {
  shutdown(socket_, SHUT_RDWR);
  if (thread_.joinable()) thread_.join();
  return count_;
}

SilentNames::SilentNames() {
  try {
    error_ = setUp();
  } catch (const std::system_error& error) {
    error_ = error.code().value();
  }
}

SilentNames::~SilentNames() {
  if (socket_ >= 0) close(socket_);
}

int SilentNames::setUp() {
  if (!enterOwnNamespaces()) return errno;
  if (mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return errno;
  if (!raiseLoopback()) return errno;
  const test::TemporaryFolder folder;
  const std::string file = folder.write("resolv.conf", "nameserver 127.0.0.1\n");
  if (mount(file.c_str(), "/etc/resolv.conf", nullptr, MS_BIND, nullptr) != 0) return errno;
  socket_ = boundSocket(SOCK_DGRAM, 53);
  return 0;
}

bool SilentNames::waitForQuestion() const {
  pollfd waited{socket_, POLLIN, 0};
  return poll(&waited, 1, 20'000) == 1;
}

}  // namespace jx::soak
