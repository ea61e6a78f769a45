// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "BlockingHttpClient.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <strings.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

using Clock = std::chrono::steady_clock;

struct Target {
  std::uint16_t port = 80;
  std::string host;
  std::string path;
};

class Socket {
 public:
  explicit Socket(int descriptor) : descriptor_(descriptor) {}
  ~Socket() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;
  int descriptor() const { return descriptor_; }

 private:
  const int descriptor_;
};

// The source key in the URL may contain spaces and other characters that HTTP does not allow.
std::string percentEncoded(const std::string& text) {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string encoded;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte > 0x20 && byte < 0x7F) {
      encoded += c;
    } else {
      encoded.append({'%', kHex[byte >> 4], kHex[byte & 15]});
    }
  }
  return encoded;
}

bool parse(const std::string& url, Target& target) {
  const std::string scheme = "http://";
  if (url.compare(0, scheme.size(), scheme) != 0) return false;
  const std::size_t slash = std::min(url.find('/', scheme.size()), url.size());
  target.host = url.substr(scheme.size(), slash - scheme.size());
  target.path = slash == url.size() ? "/" : percentEncoded(url.substr(slash));
  const std::size_t colon = target.host.find(':');
  if (colon != std::string::npos) {
    const int port = std::atoi(target.host.c_str() + colon + 1);
    if (port < 1 || port > 65'535) return false;
    target.port = static_cast<std::uint16_t>(port);
  }
  const std::string name = target.host.substr(0, colon);
  return name == "127.0.0.1" || name == "localhost";
}

// Waits until the socket is ready for `events`. Returns false when the time is up.
bool waitFor(const Socket& socket, short events, Clock::time_point deadline) {
  while (true) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    pollfd entry{socket.descriptor(), events, 0};
    const int ready = poll(&entry, 1, static_cast<int>(std::max<long long>(left.count(), 0)));
    if (ready < 0 && errno == EINTR) continue;
    if (ready == 0) errno = ETIMEDOUT;
    return ready > 0;
  }
}

bool connectTo(const Target& target, const Socket& socket, Clock::time_point deadline) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(target.port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  if (connect(socket.descriptor(), reinterpret_cast<const sockaddr*>(&address), sizeof address) ==
      0) {
    return true;
  }
  if (errno != EINPROGRESS || !waitFor(socket, POLLOUT, deadline)) return false;
  int error = 0;
  socklen_t size = sizeof error;
  getsockopt(socket.descriptor(), SOL_SOCKET, SO_ERROR, &error, &size);
  errno = error;
  return error == 0;
}

bool sendAll(const Socket& socket, const std::string& data, Clock::time_point deadline) {
  std::size_t sent = 0;
  while (sent < data.size()) {
    if (!waitFor(socket, POLLOUT, deadline)) return false;
    const ssize_t count =
        send(socket.descriptor(), data.data() + sent, data.size() - sent, MSG_NOSIGNAL);
    if (count < 0 && errno != EINTR && errno != EAGAIN) return false;
    if (count > 0) sent += static_cast<std::size_t>(count);
  }
  return true;
}

// Returns the header section of the response; empty on failure.
std::string receiveHeader(const Socket& socket, Clock::time_point deadline) {
  constexpr std::size_t kMaxSize = 65'536;
  std::string received;
  char buffer[4'096];
  while (received.size() < kMaxSize && waitFor(socket, POLLIN, deadline)) {
    const ssize_t count = recv(socket.descriptor(), buffer, sizeof buffer, 0);
    if (count < 0 && (errno == EINTR || errno == EAGAIN)) continue;
    if (count == 0) errno = ECONNRESET;
    if (count <= 0) break;
    received.append(buffer, static_cast<std::size_t>(count));
    const std::size_t end = received.find("\r\n\r\n");
    if (end != std::string::npos) return received.substr(0, end + 2);
  }
  return {};
}

std::string headerValue(const std::string& header, const char* name) {
  for (std::size_t at = header.find("\r\n"); at != std::string::npos && at + 2 < header.size();
       at = header.find("\r\n", at + 2)) {
    const std::size_t start = at + 2;
    const std::size_t size = std::strlen(name);
    if (strncasecmp(header.c_str() + start, name, size) != 0 || header[start + size] != ':') {
      continue;
    }
    const std::size_t value = header.find_first_not_of(" \t", start + size + 1);
    return header.substr(value, header.find("\r\n", value) - value);
  }
  return {};
}

HttpResponse failed(const char* step) {
  HttpResponse response;
  response.error = std::string(step) + ": " + std::strerror(errno);
  return response;
}

}  // namespace

HttpResponse postJson(const std::string& url, const std::string& body,
                      std::chrono::milliseconds timeout) {
  HttpResponse response;
  Target target;
  if (!parse(url, target)) {
    response.invalidUrl = true;
    response.error = "URL must start with http://127.0.0.1 or http://localhost";
    return response;
  }
  const Clock::time_point deadline = Clock::now() + timeout;
  const Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (socket.descriptor() < 0 || !connectTo(target, socket, deadline)) {
    return failed("connection failed");
  }
  const std::string request = "POST " + target.path + " HTTP/1.1\r\nHost: " + target.host +
                              "\r\nContent-Type: application/json; charset=utf-8" +
                              "\r\nContent-Length: " + std::to_string(body.size()) +
                              "\r\nConnection: close\r\n\r\n" + body;
  if (!sendAll(socket, request, deadline)) return failed("sending failed");
  const std::string header = receiveHeader(socket, deadline);
  if (header.empty()) return failed("receiving failed");
  // "HTTP/1.1 200 OK"
  if (header.compare(0, 7, "HTTP/1.") != 0 || header.size() < 12) {
    response.error = "response is not HTTP";
    return response;
  }
  response.status = std::atoi(header.c_str() + 9);
  response.retryAfter = headerValue(header, "Retry-After");
  response.date = headerValue(header, "Date");
  return response;
}
