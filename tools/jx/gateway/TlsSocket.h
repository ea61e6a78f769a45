// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "tools/jx/collector/OpenSslHandles.h"

namespace jx {

/// A connected, non-blocking socket, plain or TLS. It does not own the descriptor. OpenSSL reads
/// and writes the socket itself: with its buffers released, an idle connection needs less memory
/// than with a stream of Boost.Asio, which has buffers of its own.
class TlsSocket {
 public:
  /// Without a context, the socket is plain.
  TlsSocket(int fd, SSL_CTX* context);

  enum class Outcome { Moved, WantsRead, WantsWrite, Closed };

  /// Continues the handshake of a server.
  Outcome shakeHands();
  /// Reads up to the size of `buffer` and sets `count`.
  Outcome read(std::span<char> buffer, std::size_t& count);
  /// Reads bytes of the socket without decrypting them.
  Outcome readRaw(std::span<char> buffer, std::size_t& count);
  /// Writes a part of `bytes` and sets `count`.
  Outcome write(std::string_view bytes, std::size_t& count);
  /// Announces the end of the connection to the peer, if this does not block.
  void sayGoodbye();

 private:
  Outcome outcomeOf(int result) const;

  const int fd_;
  const bool isPlain_;
  SslHandle ssl_;
};

}  // namespace jx
