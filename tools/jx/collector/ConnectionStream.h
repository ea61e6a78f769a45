// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <array>
#include <chrono>
#include <string>
#include <string_view>

#include "tools/jx/collector/HttpLimits.h"
#include "tools/jx/collector/OpenSslHandles.h"
#include "tools/jx/collector/StopSignal.h"

namespace jx {

/// The server's end of one connection, plain or TLS: bytes in and out, with a time limit on
/// everything that waits for the client. Used by one thread. Closes the socket in the end.
class ConnectionStream final : public httplib::Stream {
 public:
  /// Takes over the socket, which does not block. `tls` may be null: then the connection is plain.
  /// The other two outlive the stream.
  ConnectionStream(int fd, SSL_CTX* tls, const HttpLimits& limits, const StopSignal& stop);
  ~ConnectionStream() override;
  ConnectionStream(const ConnectionStream&) = delete;
  ConnectionStream& operator=(const ConnectionStream&) = delete;

  /// Does the TLS handshake, if any. False when the connection is of no use.
  bool open();
  /// Waits for the first byte of the next request. False when the client closed the connection or
  /// was idle for too long, or the server stops.
  bool awaitRequest();
  /// From awaitRequest() on, what is read is kept as the request's head, within its limit.
  const std::string& head() const { return head_; }
  /// What is read from now on belongs to the body.
  void endHead();
  /// For this request only: its body may be that long as it travels, and take that long.
  void allowBody(std::size_t wireBytes, std::chrono::milliseconds time);
  /// What ended a wait.
  enum class Woken {
    ByCall,  ///< the descriptor became readable
    ByTime,
    ByEnd,  ///< the client has gone, or the server stops
  };
  /// Waits before an answer, or between two parts of one. `fd` may be -1 for none. From now on this
  /// connection does not outlive the server's stop by any grace.
  Woken waitBetween(int fd, std::chrono::milliseconds time);
  /// Ends the connection without an answer, as a crash of the server would.
  void abort();
  /// True when reading or writing failed: nothing more can be said on this connection.
  bool isBroken() const { return broken_; }
  /// Tells the client that nothing more will come.
  void sendCloseNotify();
  /// After that, reads on for a moment: closing with unread bytes would reset the connection before
  /// the client has read the answer.
  void drain();

  bool is_readable() const override;
  bool is_writable() const override;
  /// Some bytes; 0 at the end, -1 on failure.
  ssize_t read(char* ptr, size_t size) override;
  /// All of the bytes, or -1.
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
  /// Waits as the failed TLS operation demands. False when it cannot be repeated.
  bool waitAsTlsDemands(int result);
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
  std::size_t received_ = 0;  // of the head, or of the body
  std::size_t bodyWireBytes_ = 0;
  bool inHead_ = false;
  bool mayBeCutOff_ = false;
  bool broken_ = false;
  Clock::time_point deadline_;
  std::chrono::milliseconds silence_;
};

}  // namespace jx
