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

// A connection has one thread while it is open, and cpp-httplib does not hand the connection to
// its handlers: they say here that it must not be used further.
thread_local bool closeAfterAnswer = false;
thread_local ConnectionStream* connectionOfThread = nullptr;

void closeAfter(httplib::Response& response) {
  closeAfterAnswer = true;
  response.set_header("Connection", "close");
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
    : tls_(std::move(tls)), limits_(limits), workers_(limits.threads) {
  set_keep_alive_timeout(std::chrono::duration_cast<std::chrono::seconds>(limits.idle).count());
  set_keep_alive_max_count(std::numeric_limits<int>::max());
  // The reader of bodies counts for itself, because this limit does not hold for chunked ones.
  set_payload_max_length(limits.uploadBytes);
  set_pre_routing_handler([this](const httplib::Request& request, httplib::Response& response) {
    return refuseOrPass(request, response);
  });
  set_expect_100_continue_handler(
      [this](const httplib::Request& request, httplib::Response& response) {
        return refuseOrPass(request, response) == HandlerResponse::Handled ? response.status : 100;
      });
  set_exception_handler(
      // The type is the library's.
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
        handler(request, std::string(), response);
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
  // With a reader that is not used: without one, cpp-httplib would wait for a body until the client
  // closes the connection.
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

void HttpServer::onEveryRequest(
    std::function<bool(const httplib::Request&, httplib::Response&)> guard) {
  guard_ = std::move(guard);
}

int HttpServer::refusal(const httplib::Request& request, httplib::Response& response) const {
  // cpp-httplib matches paths by regular expressions, which recurse once per character.
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
  return framingRefusal(request, maxBody);
}

httplib::Server::HandlerResponse HttpServer::refuseOrPass(const httplib::Request& request,
                                                          httplib::Response& response) {
  const bool isAnswered = guard_ && guard_(request, response);
  const int status = isAnswered ? response.status : refusal(request, response);
  if (status == 0) return HandlerResponse::Unhandled;
  response.status = status;
  // The body that was announced stays unread.
  if (announcesBody(request)) closeAfter(response);
  return HandlerResponse::Handled;
}

void HttpServer::readBodyThenCall(const RouteHandler& handler, const httplib::Request& request,
                                  httplib::Response& response,
                                  const httplib::ContentReader& reader) const {
  std::string body;
  bool fits = true;
  const bool isWhole = reader([&](const char* data, std::size_t size) {
    fits = body.size() + size <= limits_.bodyBytes;
    if (fits) body.append(data, size);
    return fits;
  });
  if (isWhole) {
    handler(request, body, response);
    return;
  }
  response.status = fits ? 400 : 413;
  closeAfter(response);
}

Done HttpServer::start(const std::string& address, int port) {
  Result<ListeningSocket> socket = ListeningSocket::open(address, port);
  if (!socket) return socket.error();
  port_ = socket->port();
  // What cpp-httplib looks at to see that it is not being stopped.
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
    // While it is full, further clients wait in the backlog.
    ::poll(states.data(), isFull ? 1 : 2, isFull ? kAcceptPauseMs : -1);
    if (!isFull && states[1].revents != 0) acceptOne();
  }
}

void HttpServer::acceptOne() {
  const int fd = ::accept4(listening_.front().fd(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (fd < 0) {
    // Out of descriptors or memory: connections that end give some back.
    const bool isScarce = errno == EMFILE || errno == ENFILE || errno == ENOBUFS || errno == ENOMEM;
    pollfd stop{stop_.fd(), POLLIN, 0};
    if (isScarce) ::poll(&stop, 1, kAcceptPauseMs);
    return;
  }
  const int on = 1;
  ::setsockopt(fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  ++connections_;
  if (workers_.run([this, fd] { serve(fd); })) return;
  --connections_;
  ::close(fd);
}

void HttpServer::serve(int fd) {
  try {
    ConnectionStream stream(fd, tls_.get(), limits_, stop_);
    if (stream.open()) serveRequests(stream);
  } catch (const std::exception&) {
    // Out of memory: this connection ends, the others go on.
  }
  --connections_;
}

void HttpServer::serveRequests(ConnectionStream& stream) {
  bool isInStep = true;
  bool closesAnyway = false;
  connectionOfThread = &stream;
  while (isInStep && !closesAnyway && stream.awaitRequest()) {
    bool isParsed = false;
    closeAfterAnswer = false;
    const bool isAnswered =
        process_request(stream, stop_.isRaised(), closesAnyway, [&](httplib::Request& request) {
          isParsed = true;
          request.headers = headersAsSent(stream.head());
          // cpp-httplib compresses for whoever takes Brotli, at its slowest level: a second for
          // what a browser on this machine reads in a millisecond.
          if (tls_ == nullptr) request.headers.erase("Accept-Encoding");
          stream.endHead();
        });
    // After a head that was not understood nobody knows where the next request begins.
    isInStep = isAnswered && isParsed && !closeAfterAnswer;
  }
  stream.sendCloseNotify();
  if (!isInStep) stream.drain();
}

}  // namespace jx
