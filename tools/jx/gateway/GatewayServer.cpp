// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayServer.h"

#include <sys/socket.h>

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <exception>
#include <thread>
#include <unordered_set>
#include <utility>

#include "tools/jx/gateway/GatewayConnection.h"

namespace jx {
namespace {

namespace asio = boost::asio;
using asio::ip::tcp;
using boost::system::error_code;

constexpr int kWaiting = 4096;  // connections that the system accepts in advance
constexpr std::chrono::milliseconds kTick{200};
constexpr std::chrono::milliseconds kAcceptPause{50};
constexpr std::chrono::milliseconds kDrainPoll{20};

}  // namespace

/// One thread with its connections.
class GatewayServer::Worker {
 public:
  explicit Worker(GatewayServer& server) : server_(server) {}
  ~Worker() { stop(); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

  Done listen(const tcp::endpoint& endpoint) {
    error_code error;
    acceptor_.open(endpoint.protocol(), error);
    if (!error) acceptor_.set_option(asio::socket_base::reuse_address(true), error);
    using ReusePort = asio::detail::socket_option::boolean<SOL_SOCKET, SO_REUSEPORT>;
    if (!error) acceptor_.set_option(ReusePort(true), error);
    if (!error) acceptor_.bind(endpoint, error);
    if (!error) acceptor_.listen(kWaiting, error);
    if (error) {
      return Error{"cannot listen on " + endpoint.address().to_string() + " port " +
                   std::to_string(endpoint.port()) + ": " + error.message()};
    }
    port_ = acceptor_.local_endpoint().port();
    return done();
  }
  int port() const { return port_; }
  void run() {
    accept();
    tick();
    thread_ = std::thread([this] { serve(); });
  }
  void drain() {
    asio::post(context_, [this] {
      isDraining_ = true;
      error_code ignored;
      acceptor_.close(ignored);
      // A copy, because a connection that closes is removed.
      const auto connections = connections_;
      for (const auto& connection : connections)
        connection->drain();
    });
  }
  void stop() {
    context_.stop();
    if (thread_.joinable()) thread_.join();
  }

 private:
  // An allocation that fails ends what it was for, not the process.
  void serve() {
    while (true) {
      try {
        context_.run();
        return;
      } catch (const std::exception&) {
        // The context goes on with the next handler.
      }
    }
  }
  void accept() {
    acceptor_.async_accept([this](const error_code& error, tcp::socket socket) {
      if (isDraining_) return;
      // Without descriptors, accepting again at once would use the processor fully.
      if (error) return pauseAccepting();
      try {
        add(std::move(socket));
      } catch (const std::exception&) {
        return pauseAccepting();
      }
      accept();
    });
  }
  void pauseAccepting() {
    pause_.expires_after(kAcceptPause);
    pause_.async_wait([this](const error_code& error) {
      if (!error && !isDraining_) accept();
    });
  }
  void add(tcp::socket socket) {
    if (server_.usage_.connections >= server_.limits_.connections) {
      ++server_.usage_.refusedConnections;
      return;
    }
    error_code ignored;
    socket.set_option(tcp::no_delay(true), ignored);
    socket.native_non_blocking(true, ignored);
    const auto connection =
        std::make_shared<GatewayConnection>(std::move(socket), server_.tls_.get(), server_.limits_,
                                            server_.handler_, server_.observer_, server_.usage_);
    connections_.insert(connection);
    connection->start();
  }
  // Closed connections are removed here too, so that nothing else needs to know about the list.
  void tick() {
    timer_.expires_after(isDraining_ ? std::chrono::steady_clock::duration(kDrainPoll) : kTick);
    timer_.async_wait([this](const error_code& error) {
      if (error) return;
      const auto now = GatewayConnection::Clock::now();
      std::erase_if(connections_, [&](const auto& connection) {
        connection->expire(now);
        return !connection->isOpen();
      });
      tick();
    });
  }

  GatewayServer& server_;
  asio::io_context context_{1};
  tcp::acceptor acceptor_{context_};
  asio::steady_timer timer_{context_};
  asio::steady_timer pause_{context_};
  std::unordered_set<std::shared_ptr<GatewayConnection>> connections_;
  bool isDraining_ = false;
  int port_ = 0;
  std::thread thread_;
};

GatewayServer::GatewayServer(SslContextHandle tls, const GatewayLimits& limits,
                             GatewayHandler handler, GatewayObserver observer)
    : tls_(std::move(tls)),
      limits_(limits),
      handler_(std::move(handler)),
      observer_(std::move(observer)) {
  if (!tls_) return;
  // Clients resume sessions with tickets, which need no memory of the server.
  SSL_CTX_set_session_cache_mode(tls_.get(), SSL_SESS_CACHE_OFF);
  SSL_CTX_set_mode(tls_.get(), SSL_MODE_RELEASE_BUFFERS | SSL_MODE_ENABLE_PARTIAL_WRITE |
                                   SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
}

GatewayServer::~GatewayServer() { stop(); }

void GatewayServer::stop() {
  for (const auto& worker : workers_)
    worker->stop();
}

Result<std::unique_ptr<GatewayServer>> GatewayServer::start(const std::string& address, int port,
                                                            unsigned threads, SslContextHandle tls,
                                                            const GatewayLimits& limits,
                                                            GatewayHandler handler,
                                                            GatewayObserver observer) {
  error_code error;
  const asio::ip::address ip = asio::ip::make_address(address, error);
  if (error) return Error{"not an IP address: " + address};
  std::unique_ptr<GatewayServer> server(
      new GatewayServer(std::move(tls), limits, std::move(handler), std::move(observer)));
  auto chosen = static_cast<unsigned short>(port);
  for (unsigned i = 0; i < threads; ++i) {
    auto worker = std::make_unique<Worker>(*server);
    const Done listening = worker->listen({ip, chosen});
    if (!listening) return listening.error();
    chosen = static_cast<unsigned short>(worker->port());
    server->workers_.push_back(std::move(worker));
  }
  for (const auto& worker : server->workers_)
    worker->run();
  return server;
}

int GatewayServer::port() const { return workers_.front()->port(); }

bool GatewayServer::drain() {
  for (const auto& worker : workers_)
    worker->drain();
  const auto end = std::chrono::steady_clock::now() + limits_.drain;
  while (usage_.connections != 0 && std::chrono::steady_clock::now() < end)
    std::this_thread::sleep_for(kDrainPoll);
  return usage_.requestsInFlight == 0;
}

}  // namespace jx
