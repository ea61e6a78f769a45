// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/SocketWrites.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <thread>

#include "tests/soak/RealFunction.h"

namespace jx::soak::socketwrites {
namespace {

enum Function { kSend, kSendTo, kSendMessage, kWrite, kWriteVector, kFunctions };

// Constant-initialised, because these functions are called before `main`.
std::atomic<int> watchedPort{0};
std::atomic<bool> isForbidden{false};
std::atomic<std::int64_t> sendDelayUs{0};
std::atomic<std::int64_t> syncDelayMs{0};
std::array<std::atomic<std::uint64_t>, kFunctions> callsOf{};
std::atomic<std::uint64_t> entered{0};
std::atomic<std::uint64_t> lateCalls{0};
std::atomic<std::uint64_t> lateBytes{0};
std::atomic<std::uint64_t> crossing{0};
std::atomic<std::uint64_t> rejected{0};
std::atomic<std::uint64_t> syncsBegun{0};
std::atomic<std::uint64_t> syncsEnded{0};

// A TCP connection to the server. A file, a pipe or a socket that is not connected has no peer.
bool isWatched(int descriptor) {
  const int port = watchedPort.load();
  if (port == 0) return false;
  const int before = errno;
  sockaddr_in peer{};
  socklen_t length = sizeof peer;
  const bool found = ::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &length) == 0 &&
                     peer.sin_family == AF_INET && ntohs(peer.sin_port) == port;
  errno = before;
  return found;
}

void delay() {
  const std::int64_t delayUs = sendDelayUs.load();
  if (delayUs == 0 || entered.fetch_add(1) % 8 != 0) return;
  const int before = errno;
  std::this_thread::sleep_for(std::chrono::microseconds(delayUs));
  errno = before;
}

template <class Call>
ssize_t counted(Function function, int descriptor, const Call& call) {
  if (!isWatched(descriptor)) return call();
  delay();
  // Read last, so that a caller that was suspended before the system call counts as late.
  const bool isLate = isForbidden.load();
  const ssize_t written = call();
  if (written > 0) {
    callsOf[function].fetch_add(1);
    if (isLate) {
      lateCalls.fetch_add(1);
      lateBytes.fetch_add(static_cast<std::uint64_t>(written));
    } else if (isForbidden.load()) {
      crossing.fetch_add(1);
    }
  } else if (isLate) {
    rejected.fetch_add(1);
  }
  return written;
}

RealFunction<ssize_t, int, const void*, size_t, int> realSend("send");
RealFunction<ssize_t, int, const void*, size_t, int, const sockaddr*, socklen_t> realSendTo(
    "sendto");
RealFunction<ssize_t, int, const msghdr*, int> realSendMessage("sendmsg");
RealFunction<ssize_t, int, const void*, size_t> realWrite("write");
RealFunction<ssize_t, int, const iovec*, int> realWriteVector("writev");
RealFunction<int, int> realSync("fsync");
RealFunction<int, int> realDataSync("fdatasync");

template <class Call>
int delayed(const Call& call) {
  syncsBegun.fetch_add(1);
  const std::int64_t delayMs = syncDelayMs.load();
  if (delayMs != 0) std::this_thread::sleep_for(std::chrono::milliseconds(delayMs));
  const int result = call();
  syncsEnded.fetch_add(1);
  return result;
}

}  // namespace

void watchPort(int port) { watchedPort.store(port); }

Counts counts() {
  Counts all;
  for (const std::atomic<std::uint64_t>& calls : callsOf)
    all.calls += calls.load();
  all.lateCalls = lateCalls.load();
  all.lateBytes = lateBytes.load();
  all.crossing = crossing.load();
  all.rejected = rejected.load();
  return all;
}

std::string describeCalls() {
  static constexpr std::array<const char*, kFunctions> kNames{"send", "sendto", "sendmsg", "write",
                                                              "writev"};
  std::string text;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (i != 0) text += ", ";
    text.append(kNames[i]).append(" ").append(std::to_string(callsOf[i].load()));
  }
  return text;
}

void forbid() { isForbidden.store(true); }
void allow() { isForbidden.store(false); }
void delaySends(std::chrono::microseconds delay) { sendDelayUs.store(delay.count()); }
void delaySyncs(std::chrono::milliseconds delay) { syncDelayMs.store(delay.count()); }

void waitForSyncsInProgress() {
  const std::uint64_t begun = syncsBegun.load();
  while (syncsEnded.load() < begun)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

std::uint64_t syncs() { return syncsEnded.load(); }

}  // namespace jx::soak::socketwrites

// The definitions of the program take precedence over those of the C library in all libraries.
extern "C" {

using namespace jx::soak::socketwrites;

ssize_t send(int descriptor, const void* data, size_t size, int flags) {
  return counted(kSend, descriptor, [&] { return realSend(descriptor, data, size, flags); });
}

ssize_t sendto(int descriptor, const void* data, size_t size, int flags, const sockaddr* address,
               socklen_t length) {
  return counted(kSendTo, descriptor,
                 [&] { return realSendTo(descriptor, data, size, flags, address, length); });
}

ssize_t sendmsg(int descriptor, const msghdr* message, int flags) {
  return counted(kSendMessage, descriptor,
                 [&] { return realSendMessage(descriptor, message, flags); });
}

ssize_t write(int descriptor, const void* data, size_t size) {
  return counted(kWrite, descriptor, [&] { return realWrite(descriptor, data, size); });
}

ssize_t writev(int descriptor, const iovec* pieces, int count) {
  return counted(kWriteVector, descriptor,
                 [&] { return realWriteVector(descriptor, pieces, count); });
}

int fsync(int descriptor) {
  return delayed([&] { return realSync(descriptor); });
}

int fdatasync(int descriptor) {
  return delayed([&] { return realDataSync(descriptor); });
}

}  // extern "C"
