// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/HttpServer.h"

#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <limits>
#include <utility>

#include "tools/jx/collector/ConnectionStream.h"
#include "tools/jx/collector/RequestFraming.h"

namespace jx {
namespace {

constexpr int kAcceptPauseMs = 20;
constexpr const char* kRetryAfter = "5";

// A connection has one thread while it is open. cpp-httplib does not pass the connection to its
// handlers, so handlers set this to close the connection after the response.
thread_local bool closeAfterResponse = false;
thread_local ConnectionStream* connectionOfThread = nullptr;

void closeAfter(httplib::Response& response) {
  closeAfterResponse = true;
  response.set_header("Connection", "close");
}

void sendBusy(httplib::Response& response) {
  response = httplib::Response();
  response.status = 503;
  response.set_header("Retry-After", kRetryAfter);
  response.set_header("Cross-Origin-Resource-Policy", "same-origin");
}

// Calls the handler and counts the response, which is in memory until the client has read it.
void callCounted(const HttpServer::RouteHandler& handler, const httplib::Request& request,
                 const std::string& body, httplib::Response& response) {
  handler(request, body, response);
  if (!HttpServer::connection().memory().grow(response.body.size())) sendBusy(response);
}

std::string literalPattern(const std::string& path) {
  std::string pattern;
  for (const char c : path) {
    if (std::string_view("^$\\.*+?()[]{}|").find(c) != std::string_view::npos) pattern += '\\';
    pattern += c;
  }
  return pattern;
}

}  // namespace

HttpServer::HttpServer(SslContextHandle tls, HttpLimits limits)
    : tls_(std::move(tls)),
      limits_(limits),
      budget_(limits.memory, limits.uncounted),
      clients_(std::numeric_limits<std::size_t>::max(), limits.connectionsOfClient,
               limits.limitsLoopback),
      workers_(limits.threads) {
  set_keep_alive_timeout(std::chrono::duration_cast<std::chrono::seconds>(limits.idle).count());
  set_keep_alive_max_count(std::numeric_limits<int>::max());
  // This limit does not apply to chunked bodies, so readBodyThenCall() counts the bytes as well.
  set_payload_max_length(limits.uploadBytes);
  // Foreign web sites cannot embed a response, such as the list of events as a script.
  set_default_headers({{"Cross-Origin-Resource-Policy", "same-origin"}});
  set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
    return rejectOrPass(request, response);
  });
  set_expect_100_continue_handler(
      [this](const httplib::Request& request, httplib::Response& response) {
        return rejectOrPass(request, response) == HandlerResponse::Handled ? response.status : 100;
      });
  set_exception_handler(
      // cpp-httplib defines the parameter type.
      // NOLINTNEXTLINE(performance-unnecessary-value-param)
      [](const httplib::Request&, httplib::Response& response, std::exception_ptr) {
        response.status = 500;
        closeAfter(response);
      });
}

HttpServer::~HttpServer() { stopServing(); }

bool HttpServer::Route::matches(const std::string& requestPath) const {
  return isPrefix ? requestPath.compare(0, path.size(), path) == 0 : requestPath == path;
}

HttpServer::Route& HttpServer::addRoute(const std::string& method, const std::string& path) {
  const bool isPrefix = path.size() > 1 && path.ends_with("/*");
  routes_.push_back(
      Route{method, isPrefix ? path.substr(0, path.size() - 1) : path, isPrefix, false});
  return routes_.back();
}

void HttpServer::onGet(const std::string& path, RouteHandler handler) {
  const Route& route = addRoute("GET", path);
  Get(literalPattern(route.path) + (route.isPrefix ? ".*" : ""),
      [handler = std::move(handler)](const httplib::Request& request, httplib::Response& response) {
        callCounted(handler, request, std::string(), response);
      });
}

void HttpServer::onPost(const std::string& path, RouteHandler handler) {
  const Route& route = addRoute("POST", path);
  Post(literalPattern(route.path) + (route.isPrefix ? ".*" : ""),
       [this, handler = std::move(handler)](const httplib::Request& request,
                                            httplib::Response& response,
                                            const httplib::ContentReader& reader) {
         readBodyThenCall(handler, request, response, reader);
       });
}

void HttpServer::onDelete(const std::string& path, RouteHandler handler) {
  const Route& route = addRoute("DELETE", path);
  // The content reader is required although it is unused: without it, cpp-httplib would wait for a
  // body until the client closes the connection.
  Delete(literalPattern(route.path) + (route.isPrefix ? ".*" : ""),
         [handler = std::move(handler)](
             const httplib::Request& request, httplib::Response& response,
             const httplib::ContentReader&) { handler(request, std::string(), response); });
}

void HttpServer::onUpload(const std::string& path, UploadHandler handler) {
  Route& route = addRoute("POST", path);
  route.isUpload = true;
  Post(literalPattern(route.path), [this, handler = std::move(handler)](
                                       const httplib::Request& request, httplib::Response& response,
                                       const httplib::ContentReader& reader) {
    connection().allowBody(2 * limits_.uploadBytes, limits_.upload);
    bool isWhole = false;
    handler(
        request,
        [&](const std::function<bool(std::string_view)>& take) {
          isWhole = reader([&take](const char* data, std::size_t size) {
            return take(std::string_view(data, size));
          });
          return isWhole;
        },
        response);
    if (!isWhole) closeAfter(response);
  });
}

ConnectionStream& HttpServer::connection() { return *connectionOfThread; }

void HttpServer::setRequestGuard(
    std::function<bool(const httplib::Request&, httplib::Response&)> guard) {
  guard_ = std::move(guard);
}

int HttpServer::routingError(const httplib::Request& request, httplib::Response& response) const {
  // cpp-httplib matches paths with regular expressions, which recurse once per character.
  if (request.path.size() > limits_.pathBytes) return 404;
  std::string allowed;
  bool isAllowed = false;
  std::size_t maxBody = limits_.bodyBytes;
  for (const Route& route : routes_) {
    if (!route.matches(request.path)) continue;
    const bool isGet = route.method == "GET";
    if (!allowed.empty()) allowed += ", ";
    allowed += isGet ? "GET, HEAD" : route.method;
    if (request.method == route.method || (isGet && request.method == "HEAD")) isAllowed = true;
    if (route.isUpload) maxBody = limits_.uploadBytes;
  }
  if (allowed.empty()) return 404;
  if (!isAllowed) {
    response.set_header("Allow", allowed);
    return 405;
  }
  if (request.get_header_value("Upgrade") == "websocket") return 400;
  return framingError(request, maxBody);
}

httplib::Server::HandlerResponse HttpServer::rejectOrPass(const httplib::Request& request,
                                                          httplib::Response& response) {
  const bool hasResponse = guard_ && guard_(request, response);
  const int status = hasResponse ? response.status : routingError(request, response);
  if (status == 0) return HandlerResponse::Unhandled;
  response.status = status;
  // The declared body stays unread, so the connection cannot be reused.
  if (declaresBody(request)) closeAfter(response);
  return HandlerResponse::Handled;
}

void HttpServer::readBodyThenCall(const RouteHandler& handler, const httplib::Request& request,
                                  httplib::Response& response,
                                  const httplib::ContentReader& reader) const {
  std::string body;
  int status = 400;
  const bool isWhole = reader([&](const char* data, std::size_t size) {
    if (body.size() + size > limits_.bodyBytes) {
      status = 413;
    } else if (!connection().memory().grow(size)) {
      status = 503;
    } else {
      body.append(data, size);
      return true;
    }
    return false;
  });
  if (isWhole) {
    callCounted(handler, request, body, response);
    return;
  }
  if (status == 503) sendBusy(response);
  response.status = status;
  closeAfter(response);
}

Done HttpServer::start(const std::string& address, int port) {
  Result<ListeningSocket> socket = ListeningSocket::open(address, port);
  if (!socket) return socket.error();
  port_ = socket->port();
  // cpp-httplib considers itself running while this socket is valid.
  svr_sock_ = socket->fd();
  listening_.push_back(std::move(*socket));
  accepting_ = std::thread([this] { acceptConnections(); });
  return done();
}

void HttpServer::stopServing() {
  stop_.raise();
  svr_sock_ = INVALID_SOCKET;
  if (accepting_.joinable()) accepting_.join();
  listening_.clear();
  workers_.finish();
}

void HttpServer::acceptConnections() {
  while (!stop_.isRaised()) {
    const bool isFull = connections_.load() >= limits_.connections;
    std::array<pollfd, 2> states{pollfd{stop_.fd(), POLLIN, 0},
                                 pollfd{listening_.front().fd(), POLLIN, 0}};
    // At the connection limit, new clients wait in the backlog.
    ::poll(states.data(), isFull ? 1 : 2, isFull ? kAcceptPauseMs : -1);
    if (!isFull && states[1].revents != 0) acceptOne();
  }
}

void HttpServer::acceptOne() {
  sockaddr_storage peer{};
  socklen_t size = sizeof peer;
  const int fd = ::accept4(listening_.front().fd(), reinterpret_cast<sockaddr*>(&peer), &size,
                           SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (fd < 0) {
    // Out of descriptors or memory: wait, because connections that end release some.
    const bool isScarce = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
    pollfd stop{stop_.fd(), POLLIN, 0};
    if (isScarce) ::poll(&stop, 1, kAcceptPauseMs);
    return;
  }
  const int on = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  std::string address;
  int port = 0;
  addressText(peer, address, port);
  const ClientSlots::Acquired acquired = clients_.acquire(address);
  if (!acquired.slot) return refuse(fd);
  ++connections_;
  if (workers_.run([this, fd, slot = acquired.slot] { serve(fd, slot); })) return;
  --connections_;
  ::close(fd);
}

// Does not wait for the client: over TLS, a response would require a handshake, so none is sent.
void HttpServer::refuse(int fd) const {
  if (tls_ == nullptr) {
    const std::string response = std::string("HTTP/1.1 429 Too Many Requests\r\nRetry-After: ") +
                                 kRetryAfter + "\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
    static_cast<void>(::send(fd, response.data(), response.size(), MSG_NOSIGNAL | MSG_DONTWAIT));
    ::shutdown(fd, SHUT_WR);
    // Unread bytes would reset the connection before the client has read the response.
    std::array<char, 16 * 1024> ignored{};
    static_cast<void>(::recv(fd, ignored.data(), ignored.size(), MSG_DONTWAIT));
  }
  ::close(fd);
}

// `slot` is held until the connection ends.
void HttpServer::serve(int fd, const std::shared_ptr<ClientSlots::Slot>&) {
  try {
    ConnectionStream stream(fd, tls_.get(), limits_, stop_, budget_);
    if (stream.open()) serveRequests(stream);
  } catch (const std::exception&) {
    // Out of memory: only this connection ends.
  }
  --connections_;
}

void HttpServer::serveRequests(ConnectionStream& stream) {
  bool isSynchronised = true;
  bool closesConnection = false;
  connectionOfThread = &stream;
  while (isSynchronised && !closesConnection && stream.awaitRequest()) {
    bool isParsed = false;
    closeAfterResponse = false;
    const bool hasResponse =
        process_request(stream, stop_.isRaised(), closesConnection, [&](httplib::Request& request) {
          isParsed = true;
          request.headers = headersAsSent(stream.head());
          // cpp-httplib compresses for clients that accept Brotli, at its slowest level. That takes
          // a second for a response that a local browser reads in a millisecond.
          if (tls_ == nullptr) request.headers.erase("Accept-Encoding");
          stream.endHead();
        });
    // After an invalid head, the start of the next request is unknown.
    isSynchronised = hasResponse && isParsed && !closeAfterResponse;
  }
  stream.sendCloseNotify();
  if (!isSynchronised) stream.drain();
}

}  // namespace jx
