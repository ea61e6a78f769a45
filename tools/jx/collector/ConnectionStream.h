// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <array>
#include <chrono>
#include <string>
#include <string_view>

#include "tools/jx/collector/HttpLimits.h"
#include "tools/jx/collector/MemoryBudget.h"
#include "tools/jx/collector/OpenSslHandles.h"
#include "tools/jx/collector/StopSignal.h"

namespace jx {

/// Sets the IP address, as text, and the port of a socket address.
void addressText(const sockaddr_storage& address, std::string& ip, int& port);

/// The server side of one connection, plain or TLS. Every operation that waits for the client has a
/// time limit. Used by one thread. The destructor closes the socket.
class ConnectionStream final : public httplib::Stream {
 public:
  /// Takes ownership of the non-blocking socket `fd`. A null `tls` selects a plain connection.
  /// `limits`, `stop` and `budget` must outlive the stream.
  ConnectionStream(int fd, SSL_CTX* tls, const HttpLimits& limits, const StopSignal& stop,
                   MemoryBudget& budget);
  ~ConnectionStream() override;
  ConnectionStream(const ConnectionStream&) = delete;
  ConnectionStream& operator=(const ConnectionStream&) = delete;

  /// Performs the TLS handshake, if any. Returns false when the connection is unusable.
  bool open();
  /// Waits for the first byte of the next request. Returns false when the client closed the
  /// connection or exceeded the idle limit, or when the server stops.
  bool awaitRequest();
  /// Returns the bytes of the request head: everything read since awaitRequest(), up to the limit.
  const std::string& head() const { return head_; }
  /// The memory that the current request and its response use. awaitRequest() releases it.
  MemoryBudget::Share& memory() { return memory_; }
  /// Marks the end of the head. Bytes read after this call belong to the body.
  void endHead();
  /// Sets the maximum size on the wire and the maximum duration of the body, for this request only.
  void allowBody(std::size_t wireBytes, std::chrono::milliseconds time);
  /// Why a wait ended.
  enum class WakeReason {
    Readable,  ///< the descriptor became readable
    Timeout,
    Closed,  ///< the client disconnected, or the server stops
  };
  /// Waits before a response, or between two parts of one, until `fd` is readable; -1 for none.
  /// From then on, stopping the server closes this connection without a grace period.
  WakeReason waitInterruptibly(int fd, std::chrono::milliseconds time);
  /// Resets the connection without a response, like a crash of the server.
  void abort();
  /// True when reading or writing failed. A broken connection cannot be used again.
  bool isBroken() const { return broken_; }
  /// Signals the end of the response stream to the client: TLS close_notify and TCP FIN.
  void sendCloseNotify();
  /// Call after sendCloseNotify(). Reads and discards input for a short time: closing a socket with
  /// unread bytes would reset the connection before the client has read the response.
  void drain();

  bool is_readable() const override;
  bool is_writable() const override;
  /// Returns the number of bytes read, 0 at the end of the stream, or -1 on failure.
  ssize_t read(char* ptr, size_t size) override;
  /// Writes all bytes and returns their number, or -1 on failure.
  ssize_t write(const char* ptr, size_t size) override;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  socket_t socket() const override { return fd_; }

 private:
  using Clock = std::chrono::steady_clock;

  bool fill();
  ssize_t readSome(char* data, std::size_t size);
  ssize_t writeSome(const char* data, std::size_t size);
  ssize_t transferPlain(ssize_t result, short events);
  /// Waits until the TLS operation that returned `result` can be repeated. Returns false when it
  /// cannot.
  bool waitForTls(int result);
  bool waitFor(short events) const;
  Clock::time_point effectiveDeadline() const;
  bool isExhausted() const { return position_ == filled_; }

  const int fd_;
  const HttpLimits& limits_;
  const StopSignal& stop_;
  SslHandle tls_;
  std::array<char, 16 * 1024> buffer_{};
  std::size_t position_ = 0;
  std::size_t filled_ = 0;
  std::string head_;
  MemoryBudget::Share memory_;
  std::size_t received_ = 0;  // bytes of the head, or of the body
  std::size_t bodyWireBytes_ = 0;
  bool inHead_ = false;
  bool skipsStopGrace_ = false;
  bool broken_ = false;
  Clock::time_point deadline_;
  std::chrono::milliseconds silence_;
};

}  // namespace jx
