// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXTestConnection.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <utility>

namespace jx::test {
namespace {

std::string lowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return text;
}

}  // namespace

JXTestConnection::JXTestConnection(int descriptor, JXOpenSsl<SSL> tls)
    : descriptor_(descriptor), tls_(std::move(tls)) {}

bool JXTestConnection::handshake() {
  if (!tls_) return true;
  SSL_set_fd(tls_.get(), descriptor_);
  return SSL_accept(tls_.get()) == 1;
}

bool JXTestConnection::write(std::string_view bytes) {
  while (!bytes.empty()) {
    const long written =
        tls_ ? SSL_write(tls_.get(), bytes.data(), static_cast<int>(bytes.size()))
             : static_cast<long>(send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL));
    if (written <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::optional<JXTestRequest> JXTestConnection::readRequest() {
  std::optional<std::string> line = readLine();
  if (!line) return std::nullopt;
  JXTestRequest request;
  request.method = line->substr(0, line->find(' '));
  const std::size_t target = std::min(request.method.size() + 1, line->size());
  request.target = line->substr(target, line->rfind(' ') - target);
  while ((line = readLine()) && !line->empty()) {
    const std::size_t colon = std::min(line->find(':'), line->size());
    const std::size_t value = std::min(line->find_first_not_of(": ", colon), line->size());
    request.headers[lowerCase(line->substr(0, colon))] = line->substr(value);
  }
  if (!line) return std::nullopt;
  const auto length = request.headers.find("content-length");
  const std::size_t size = length == request.headers.end() ? 0 : std::stoul(length->second);
  while (buffer_.size() < size) {
    if (!readMore()) return std::nullopt;
  }
  request.body = buffer_.substr(0, size);
  buffer_.erase(0, size);
  return request;
}

void JXTestConnection::waitForEnd() {
  while (readMore())
    buffer_.clear();
}

void JXTestConnection::pace(int ms) const {
  pollfd waited{descriptor_, POLLIN, 0};
  poll(&waited, 1, ms);
}

void JXTestConnection::resetAtClose() const {
  const linger immediately{1, 0};
  setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &immediately, sizeof immediately);
}

bool JXTestConnection::readMore() {
  char bytes[16 * 1024];
  const long count = tls_ ? SSL_read(tls_.get(), bytes, sizeof bytes)
                          : static_cast<long>(recv(descriptor_, bytes, sizeof bytes, 0));
  if (count <= 0) return false;
  buffer_.append(bytes, static_cast<std::size_t>(count));
  return true;
}

std::optional<std::string> JXTestConnection::readLine() {
  std::size_t end = 0;
  while ((end = buffer_.find("\r\n")) == std::string::npos) {
    if (!readMore()) return std::nullopt;
  }
  std::string line = buffer_.substr(0, end);
  buffer_.erase(0, end + 2);
  return line;
}

}  // namespace jx::test
