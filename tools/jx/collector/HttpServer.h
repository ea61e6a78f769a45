// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/ClientSlots.h"
#include "tools/jx/collector/HttpLimits.h"
#include "tools/jx/collector/ListeningSocket.h"
#include "tools/jx/collector/MemoryBudget.h"
#include "tools/jx/collector/OpenSslHandles.h"
#include "tools/jx/collector/StopSignal.h"
#include "tools/jx/collector/WorkerPool.h"

namespace jx {

class ConnectionStream;

/// An HTTP/1.1 server, plain or TLS, with a route table. cpp-httplib reads and writes the messages.
/// This class manages connections, threads and limits, because the collector must limit the
/// resources of clients, stop immediately, and see headers exactly as sent.
class HttpServer : private httplib::Server {
 public:
  /// Sets the response to a request. `body` is complete and within the limits. Called on the thread
  /// of the connection, concurrently for several connections. An exception results in status 500.
  using RouteHandler = std::function<void(const httplib::Request& request, const std::string& body,
                                          httplib::Response& response)>;

  /// A null `tls` creates a plain HTTP server.
  explicit HttpServer(SslContextHandle tls = nullptr, HttpLimits limits = HttpLimits());
  /// Calls stopServing().
  ~HttpServer() override;

  /// Adds a route for GET and HEAD. A path that ends with a slash and a star matches all paths
  /// below it. Add all routes before start().
  void onGet(const std::string& path, RouteHandler handler);
  /// Adds a route for POST. The body is read before the handler is called.
  void onPost(const std::string& path, RouteHandler handler);
  /// Adds a route for DELETE.
  void onDelete(const std::string& path, RouteHandler handler);
  /// Calls `take` with each part of the body until it returns false. Returns false when the body is
  /// incomplete.
  using BodyReader = std::function<bool(const std::function<bool(std::string_view)>& take)>;
  using UploadHandler = std::function<void(const httplib::Request& request, const BodyReader& read,
                                           httplib::Response& response)>;
  /// Adds a route for POST whose handler reads the body in parts, up to the upload limit.
  void onUpload(const std::string& path, UploadHandler handler);
  /// Returns the connection that the calling thread serves. Call only from handlers and from
  /// content providers of chunked responses.
  static ConnectionStream& connection();
  /// Sets a function that is called for every request, before routing and before the body is read.
  /// It returns true when it has set the response.
  void setRequestGuard(std::function<bool(const httplib::Request&, httplib::Response&)> guard);

  /// Starts listening. Port 0 selects a free port. Call once.
  Done start(const std::string& address, int port);
  /// Returns the port on which the server listens.
  int listeningPort() const { return port_; }
  /// Closes all connections: idle ones immediately, the others after the grace period. Returns when
  /// all threads have ended. Can be called again.
  void stopServing();

 private:
  struct Route {
    std::string method;
    std::string path;
    bool isPrefix = false;
    bool isUpload = false;
    bool matches(const std::string& requestPath) const;
  };

  Route& addRoute(const std::string& method, const std::string& path);
  HandlerResponse rejectOrPass(const httplib::Request& request, httplib::Response& response);
  int routingError(const httplib::Request& request, httplib::Response& response) const;
  void readBodyThenCall(const RouteHandler& handler, const httplib::Request& request,
                        httplib::Response& response, const httplib::ContentReader& reader) const;
  void refuse(int fd) const;
  void acceptConnections();
  void acceptOne();
  void serve(int fd, const std::shared_ptr<ClientSlots::Slot>& slot);
  void serveRequests(ConnectionStream& stream);

  SslContextHandle tls_;
  const HttpLimits limits_;
  std::vector<Route> routes_;
  std::function<bool(const httplib::Request&, httplib::Response&)> guard_;
  std::vector<ListeningSocket> listening_;
  int port_ = 0;
  StopSignal stop_;
  std::atomic<std::size_t> connections_{0};
  MemoryBudget budget_;
  ClientSlots clients_;
  WorkerPool workers_;
  std::thread accepting_;
};

}  // namespace jx
