// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ConnectionStream.h"

#include <arpa/inet.h>
#include <openssl/err.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace jx {
namespace {

// True when `head` ends with the first letters of a header name that starts with "range".
bool endsWithRangeName(std::string_view head) {
  constexpr std::string_view kName = "\nrange";
  if (head.size() < kName.size()) return false;
  const std::string_view end = head.substr(head.size() - kName.size());
  return std::equal(end.begin(), end.end(), kName.begin(),
                    [](char a, char b) { return a == b || (a | 0x20) == b; });
}

}  // namespace

void addressText(const sockaddr_storage& address, std::string& ip, int& port) {
  std::array<char, INET6_ADDRSTRLEN> text{};
  if (address.ss_family == AF_INET) {
    sockaddr_in v4{};
    std::memcpy(&v4, &address, sizeof v4);
    ::inet_ntop(AF_INET, &v4.sin_addr, text.data(), text.size());
    port = ntohs(v4.sin_port);
  } else if (address.ss_family == AF_INET6) {
    sockaddr_in6 v6{};
    std::memcpy(&v6, &address, sizeof v6);
    ::inet_ntop(AF_INET6, &v6.sin6_addr, text.data(), text.size());
    port = ntohs(v6.sin6_port);
  }
  ip = text.data();
}

ConnectionStream::ConnectionStream(int fd, SSL_CTX* tls, const HttpLimits& limits,
                                   const StopSignal& stop, MemoryBudget& budget)
    : fd_(fd),
      limits_(limits),
      stop_(stop),
      memory_(budget),
      deadline_(Clock::now() + limits.handshake),
      silence_(limits.handshake) {
  if (tls == nullptr) return;
  tls_.reset(SSL_new(tls));
  broken_ = !tls_ || SSL_set_fd(tls_.get(), fd) != 1;
}

ConnectionStream::~ConnectionStream() {
  ERR_clear_error();
  ::close(fd_);
}

bool ConnectionStream::open() {
  if (!tls_ || broken_) return !broken_;
  for (;;) {
    ERR_clear_error();
    const int result = SSL_accept(tls_.get());
    if (result == 1) return true;
    if (!waitForTls(result)) break;
  }
  broken_ = true;
  return false;
}

bool ConnectionStream::awaitRequest() {
  head_.clear();
  head_.shrink_to_fit();
  memory_.release();
  received_ = 0;
  inHead_ = true;
  bodyWireBytes_ = limits_.bodyWireBytes();
  skipsStopGrace_ = false;
  if (broken_ || stop_.isRaised()) return false;
  deadline_ = Clock::now() + limits_.idle;
  silence_ = limits_.idle;
  const bool publishArrival = !isExhausted() || fill();
  deadline_ = Clock::now() + limits_.request;
  silence_ = limits_.silence;
  return publishArrival;
}

void ConnectionStream::sendCloseNotify() {
  if (broken_) return;
  if (tls_) {
    ERR_clear_error();
    SSL_shutdown(tls_.get());
  }
  ::shutdown(fd_, SHUT_WR);
}

void ConnectionStream::drain() {
  if (broken_) return;
  deadline_ = Clock::now() + limits_.lingering;
  silence_ = limits_.lingering;
  inHead_ = false;
  // Reads below TLS, because the bytes are discarded.
  while (!broken_ && Clock::now() < effectiveDeadline()) {
    if (transferPlain(::recv(fd_, buffer_.data(), buffer_.size(), 0), POLLIN) == 0) return;
  }
}

void ConnectionStream::endHead() {
  inHead_ = false;
  received_ = 0;
}

void ConnectionStream::allowBody(std::size_t wireBytes, std::chrono::milliseconds time) {
  bodyWireBytes_ = wireBytes;
  deadline_ = Clock::now() + time;
}

ConnectionStream::WakeReason ConnectionStream::waitInterruptibly(int fd,
                                                                 std::chrono::milliseconds time) {
  skipsStopGrace_ = true;
  const Clock::time_point ends = Clock::now() + time;
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(ends - Clock::now()).count();
    // POLLRDHUP counts as a disconnect: no supported client half-closes and keeps reading.
    std::array<pollfd, 3> states{pollfd{fd_, POLLRDHUP, 0}, pollfd{stop_.fd(), POLLIN, 0},
                                 pollfd{fd, POLLIN, 0}};
    const int ready =
        ::poll(states.data(), states.size(), static_cast<int>(std::max<decltype(left)>(0, left)));
    const bool isOver = broken_ || states[0].revents != 0 || states[1].revents != 0;
    if (isOver || (ready < 0 && errno != EINTR)) return WakeReason::Closed;
    if (ready > 0) return WakeReason::Readable;
    if (ready == 0 && left <= 0) return WakeReason::Timeout;
  }
}

void ConnectionStream::abort() {
  const linger atOnce{1, 0};
  ::setsockopt(fd_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
  broken_ = true;
}

bool ConnectionStream::is_readable() const { return !broken_ && !isExhausted(); }

// Waits as long as a write does, because a client that is briefly slow is still connected.
bool ConnectionStream::is_writable() const { return !broken_ && waitFor(POLLOUT); }

ssize_t ConnectionStream::read(char* ptr, size_t size) {
  if (broken_) return -1;
  if (isExhausted() && !fill()) return broken_ ? -1 : 0;
  // cpp-httplib reads the head byte by byte, which the search for a range relies on.
  const std::size_t count = std::min(inHead_ ? 1 : size, filled_ - position_);
  std::memcpy(ptr, buffer_.data() + position_, count);
  position_ += count;
  received_ += count;
  broken_ = received_ > (inHead_ ? limits_.headBytes : bodyWireBytes_);
  if (broken_) return -1;
  if (inHead_) {
    // The parsed headers and the stored request are further copies of the head.
    constexpr std::size_t kCopies = 4;
    constexpr std::size_t kStep = 4096;
    if (head_.size() % kStep == 0 && !memory_.grow(kCopies * kStep)) broken_ = true;
    if (broken_) return -1;
    head_.append(ptr, count);
    // cpp-httplib copies the body once for each requested range, and compares the ranges with a
    // regular expression that recurses once per character. It must not see the header.
    if (endsWithRangeName(head_)) *ptr = '_';
  }
  return static_cast<ssize_t>(count);
}

ssize_t ConnectionStream::write(const char* ptr, size_t size) {
  std::size_t written = 0;
  while (written < size) {
    const ssize_t count = broken_ ? -1 : writeSome(ptr + written, size - written);
    if (count <= 0) {
      broken_ = true;
      return -1;
    }
    written += static_cast<std::size_t>(count);
    // A response may take as long as the client keeps reading it.
    deadline_ = std::max(deadline_, Clock::now() + limits_.silence);
  }
  return static_cast<ssize_t>(size);
}

void ConnectionStream::get_remote_ip_and_port(std::string& ip, int& port) const {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  if (::getpeername(fd_, reinterpret_cast<sockaddr*>(&address), &size) == 0) {
    addressText(address, ip, port);
  }
}

void ConnectionStream::get_local_ip_and_port(std::string& ip, int& port) const {
  sockaddr_storage address{};
  socklen_t size = sizeof address;
  if (::getsockname(fd_, reinterpret_cast<sockaddr*>(&address), &size) == 0) {
    addressText(address, ip, port);
  }
}

bool ConnectionStream::fill() {
  position_ = 0;
  filled_ = 0;
  // Also checked here: the time limit applies even to a client that never makes the server wait.
  const bool isLate = Clock::now() > effectiveDeadline();
  const ssize_t count = isLate ? -1 : readSome(buffer_.data(), buffer_.size());
  if (count < 0) broken_ = true;
  if (count <= 0) return false;
  filled_ = static_cast<std::size_t>(count);
  return true;
}

ssize_t ConnectionStream::readSome(char* data, std::size_t size) {
  while (!broken_) {
    if (!tls_) {
      const ssize_t count = transferPlain(::recv(fd_, data, size, 0), POLLIN);
      if (count >= 0) return count;
      continue;
    }
    ERR_clear_error();
    std::size_t count = 0;
    const int result = SSL_read_ex(tls_.get(), data, size, &count);
    if (result == 1) return static_cast<ssize_t>(count);
    if (SSL_get_error(tls_.get(), result) == SSL_ERROR_ZERO_RETURN) return 0;
    if (!waitForTls(result)) return -1;
  }
  return -1;
}

ssize_t ConnectionStream::writeSome(const char* data, std::size_t size) {
  while (!broken_) {
    if (!tls_) {
      const ssize_t count = transferPlain(::send(fd_, data, size, MSG_NOSIGNAL), POLLOUT);
      if (count >= 0) return count;
      continue;
    }
    ERR_clear_error();
    std::size_t count = 0;
    const int result = SSL_write_ex(tls_.get(), data, size, &count);
    if (result == 1) return static_cast<ssize_t>(count);
    if (!waitForTls(result)) return -1;
  }
  return -1;
}

// Returns the byte count, or -1 when the caller must repeat the operation or the connection broke.
ssize_t ConnectionStream::transferPlain(ssize_t result, short events) {
  if (result >= 0 || errno == EINTR) return result;
  const bool again = errno == EAGAIN || errno == EWOULDBLOCK;
  if (!again || !waitFor(events)) broken_ = true;
  return -1;
}

bool ConnectionStream::waitForTls(int result) {
  switch (SSL_get_error(tls_.get(), result)) {
    case SSL_ERROR_WANT_READ:
      return waitFor(POLLIN);
    case SSL_ERROR_WANT_WRITE:
      return waitFor(POLLOUT);
    default:
      return false;
  }
}

ConnectionStream::Clock::time_point ConnectionStream::effectiveDeadline() const {
  if (!stop_.isRaised()) return deadline_;
  // An idle connection has no request in flight.
  if (skipsStopGrace_ || (inHead_ && head_.empty())) return stop_.raisedAt();
  return std::min(deadline_, stop_.raisedAt() + limits_.stopGrace);
}

bool ConnectionStream::waitFor(short events) const {
  const Clock::time_point silenceEnds = Clock::now() + silence_;
  for (;;) {
    const bool stopping = stop_.isRaised();
    const Clock::time_point deadline = std::min(effectiveDeadline(), silenceEnds);
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    std::array<pollfd, 2> states{pollfd{fd_, events, 0}, pollfd{stop_.fd(), POLLIN, 0}};
    const int ready = ::poll(states.data(), stopping ? 1 : 2,
                             static_cast<int>(std::max<decltype(left)>(0, left)));
    if (ready < 0 && errno != EINTR) return false;
    if (ready > 0 && states[0].revents != 0) return true;
    if (ready == 0 && left <= 0) return false;
  }
}

}  // namespace jx
