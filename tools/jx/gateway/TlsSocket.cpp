// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/TlsSocket.h"

#include <openssl/err.h>
#include <sys/socket.h>

#include <cerrno>

namespace jx {
namespace {

TlsSocket::Outcome outcomeOfCall(ssize_t result, TlsSocket::Outcome wanted) {
  if (result > 0) return TlsSocket::Outcome::Moved;
  const bool wouldBlock = result < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR);
  return wouldBlock ? wanted : TlsSocket::Outcome::Closed;
}

}  // namespace

TlsSocket::TlsSocket(int fd, SSL_CTX* context)
    : fd_(fd), isPlain_(context == nullptr), ssl_(context == nullptr ? nullptr : SSL_new(context)) {
  if (!ssl_) return;
  SSL_set_fd(ssl_.get(), fd);
  SSL_set_accept_state(ssl_.get());
}

TlsSocket::Outcome TlsSocket::outcomeOf(int result) const {
  if (result > 0) return Outcome::Moved;
  switch (SSL_get_error(ssl_.get(), result)) {
    case SSL_ERROR_WANT_READ:
      return Outcome::WantsRead;
    case SSL_ERROR_WANT_WRITE:
      return Outcome::WantsWrite;
    default:
      return Outcome::Closed;
  }
}

TlsSocket::Outcome TlsSocket::shakeHands() {
  if (isPlain_) return Outcome::Moved;
  if (!ssl_) return Outcome::Closed;  // no memory
  ERR_clear_error();
  return outcomeOf(SSL_do_handshake(ssl_.get()));
}

TlsSocket::Outcome TlsSocket::read(std::span<char> buffer, std::size_t& count) {
  count = 0;
  if (isPlain_) return readRaw(buffer, count);
  ERR_clear_error();
  return outcomeOf(SSL_read_ex(ssl_.get(), buffer.data(), buffer.size(), &count));
}

TlsSocket::Outcome TlsSocket::readRaw(std::span<char> buffer, std::size_t& count) {
  const ssize_t result = ::recv(fd_, buffer.data(), buffer.size(), 0);
  count = result > 0 ? static_cast<std::size_t>(result) : 0;
  return outcomeOfCall(result, Outcome::WantsRead);
}

TlsSocket::Outcome TlsSocket::write(std::string_view bytes, std::size_t& count) {
  count = 0;
  if (isPlain_) {
    const ssize_t result = ::send(fd_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (result > 0) count = static_cast<std::size_t>(result);
    return outcomeOfCall(result, Outcome::WantsWrite);
  }
  ERR_clear_error();
  return outcomeOf(SSL_write_ex(ssl_.get(), bytes.data(), bytes.size(), &count));
}

void TlsSocket::sayGoodbye() {
  if (!ssl_ || SSL_in_init(ssl_.get())) return;
  ERR_clear_error();
  SSL_shutdown(ssl_.get());
}

}  // namespace jx
