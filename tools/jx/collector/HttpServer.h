// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/HttpLimits.h"
#include "tools/jx/collector/ListeningSocket.h"
#include "tools/jx/collector/OpenSslHandles.h"
#include "tools/jx/collector/StopSignal.h"
#include "tools/jx/collector/WorkerPool.h"

namespace jx {

class ConnectionStream;

/// An HTTP/1.1 server, plain or TLS, with a table of routes. The reading and writing of messages is
/// cpp-httplib's; connections, threads and limits are our own, because an inspector has to bound
/// what a client takes, to end at once, and to see headers as they were sent.
class HttpServer : private httplib::Server {
 public:
  /// `body` is whole and at most as long as the limits allow. Called on the thread of its
  /// connection, several at a time. Sets the answer; what it throws is answered with 500.
  using RouteHandler = std::function<void(const httplib::Request& request, const std::string& body,
                                          httplib::Response& response)>;

  /// `tls` is null for a plain server.
  explicit HttpServer(SslContextHandle tls = nullptr, HttpLimits limits = HttpLimits());
  /// Stops.
  ~HttpServer() override;

  /// GET, and HEAD with it. A path that ends with a slash and a star takes all paths under it.
  /// Routes are added before the start.
  void onGet(const std::string& path, RouteHandler handler);
  void onPost(const std::string& path, RouteHandler handler);
  void onDelete(const std::string& path, RouteHandler handler);
  /// A POST whose body is read in parts, up to the limit of an upload. `read` calls its argument
  /// with each part until that gives false; it gives false when the body broke off.
  using BodyReader = std::function<bool(const std::function<bool(std::string_view)>& take)>;
  using UploadHandler = std::function<void(const httplib::Request& request, const BodyReader& read,
                                           httplib::Response& response)>;
  void onUpload(const std::string& path, UploadHandler handler);
  /// The connection of the request that the calling thread answers: for handlers, and for what
  /// gives an answer in parts.
  static ConnectionStream& connection();
  /// Asked first, before the routes and before the body is read: true when it has set an answer.
  void onEveryRequest(std::function<bool(const httplib::Request&, httplib::Response&)> guard);

  /// Port 0 takes any that is free. Started once.
  Done start(const std::string& address, int port);
  /// The port that it listens on.
  int listeningPort() const { return port_; }
  /// Ends all connections: idle ones at once, the others after a moment's grace. May be repeated.
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
  HandlerResponse refuseOrPass(const httplib::Request& request, httplib::Response& response);
  int refusal(const httplib::Request& request, httplib::Response& response) const;
  void readBodyThenCall(const RouteHandler& handler, const httplib::Request& request,
                        httplib::Response& response, const httplib::ContentReader& reader) const;
  void acceptConnections();
  void acceptOne();
  void serve(int fd);
  void serveRequests(ConnectionStream& stream);

  SslContextHandle tls_;
  const HttpLimits limits_;
  std::vector<Route> routes_;
  std::function<bool(const httplib::Request&, httplib::Response&)> guard_;
  std::vector<ListeningSocket> listening_;
  int port_ = 0;
  StopSignal stop_;
  std::atomic<std::size_t> connections_{0};
  WorkerPool workers_;
  std::thread accepting_;
};

}  // namespace jx
