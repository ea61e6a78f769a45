// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <boost/asio/ip/tcp.hpp>
#include <chrono>
#include <memory>
#include <string>

#include "tools/jx/gateway/GatewayHandler.h"
#include "tools/jx/gateway/GatewayLimits.h"
#include "tools/jx/gateway/GatewayUsage.h"
#include "tools/jx/gateway/HttpReader.h"
#include "tools/jx/gateway/TlsSocket.h"

namespace jx {

/// One connection of a client. It serves one request at a time and does not read the next one
/// before the response is sent, so that a client that never reads costs one response. All functions
/// run on the thread of its io_context, except the `Respond` that it passes to the handler.
class GatewayConnection : public std::enable_shared_from_this<GatewayConnection> {
 public:
  using Clock = std::chrono::steady_clock;

  GatewayConnection(boost::asio::ip::tcp::socket socket, SSL_CTX* tls, const GatewayLimits& limits,
                    const GatewayHandler& handler, const GatewayObserver& observer,
                    GatewayUsage& usage);
  ~GatewayConnection();

  void start();
  /// Closes the connection if a time limit has passed.
  void expire(Clock::time_point now);
  /// Closes the connection: at once if it is idle, otherwise after the response.
  void drain();
  void close();
  bool isOpen() const { return socket_.is_open(); }

 private:
  enum class State { Handshake, Reading, Waiting, Writing, Lingering };

  void proceed();
  bool proceedOnce();
  bool shakeHands();
  bool read();
  bool write();
  bool linger();
  void sayGoodbye();
  bool continueAfter(TlsSocket::Outcome outcome);
  void limitTime(std::chrono::milliseconds time) { deadline_ = Clock::now() + time; }
  bool advance(HttpReader::Progress progress);
  void handle();
  void send(const GatewayResponse& response, unsigned request);
  void refuse(int status, Refusal refusal);
  void prepare(const GatewayResponse& response, bool keepsAlive);
  void reserve(std::size_t bytes);

  boost::asio::ip::tcp::socket socket_;
  TlsSocket tls_;
  const GatewayLimits& limits_;
  const GatewayHandler& handler_;
  const GatewayObserver& observer_;
  GatewayUsage& usage_;
  HttpReader reader_;
  State state_ = State::Handshake;
  std::string requestId_;
  Clock::time_point received_;  // when the request was complete
  Clock::time_point deadline_;
  std::string out_;
  std::size_t written_ = 0;
  std::size_t reserved_ = 0;
  unsigned request_ = 0;  // number of the request that is being handled
  bool keepsAlive_ = true;
  bool isHead_ = false;
  bool isDraining_ = false;
  bool isScheduled_ = false;  // `proceed` will be called
};

}  // namespace jx
