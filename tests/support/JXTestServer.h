// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/JXTestAuthority.h"
#include "tests/support/JXTestConnection.h"

namespace jx::test {

/// What the server does once it has read a request.
struct JXTestAnswer {
  enum class Manner {
    Whole,            ///< sends the answer
    StallBeforeHead,  ///< sends nothing until the client goes
    StallInBody,      ///< sends the head, which announces one byte more than comes, and no more
    Reset,            ///< closes the connection with a reset, without an answer
    CloseInBody,      ///< like StallInBody, but closes
    CloseInHead,      ///< sends half of a good head, and closes
    EndlessBody,      ///< sends the head, then bytes until the client goes
    EndlessHead,      ///< sends header lines until the client goes
    SlowBytes,        ///< sends the answer byte by byte, one every 20 ms
    Rubbish,          ///< sends bytes that are no HTTP, and closes
  };
  int status = 200;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
  Manner manner = Manner::Whole;
};

/// How a server is made.
struct JXTestServerOptions {
  enum class Certificate { Good, Expired, OfAnotherAuthority };

  bool tls = true;
  int port = 0;  ///< one that a ReservedPort keeps; 0: the system chooses
  Certificate certificate = Certificate::Good;
  std::vector<std::string> certificateNames{"IP:127.0.0.1", "DNS:localhost"};
  int newestTlsVersion = 0;  ///< such as TLS1_1_VERSION; 0: all
};

/// An HTTP/1.1 server on 127.0.0.1, with a certificate authority of its own. It answers as it is
/// told, badly if need be, keeps what it received, and runs on threads of its own that end with it
/// at once. Every operation is thread-safe; `waitFor...` block until the condition holds and return
/// false when it does not after 20 seconds.
class JXTestServer {
 public:
  explicit JXTestServer(const JXTestServerOptions& options = {});
  ~JXTestServer();
  JXTestServer(const JXTestServer&) = delete;
  JXTestServer& operator=(const JXTestServer&) = delete;

  /// "https://127.0.0.1:PORT" and `target`.
  std::string url(const std::string& target = "/events?jx_s=1&token=key") const;
  int port() const { return port_; }
  const std::string& caFile() const { return authority_.caFile(); }
  /// The SHA-256 of the server's public key in Base64.
  std::string publicKeyPin() const;

  /// New connections get the certificate and the TLS versions of `options` from now on.
  void present(const JXTestServerOptions& options);

  /// What every request gets for which nothing else was said; at first 200 with an empty body.
  void answerAll(JXTestAnswer answer);
  /// What the next request gets; told several times, the requests after it.
  void answerNext(JXTestAnswer answer);
  /// Takes back what was told for next requests and not given yet.
  void forgetNext();

  /// Refuses new connections from now on, and ends those there are; the port stays taken.
  void refuse();
  /// Accepts connections again.
  void accept();
  /// Ends the connections there are, as a server does with idle ones.
  void dropConnections();

  std::vector<JXTestRequest> requests() const;
  /// The bodies of the requests, in the order in which they were read.
  std::vector<std::string> bodies() const;
  /// Connections accepted so far, those included whose TLS handshake failed.
  int connections() const;
  /// Requests that the client left while they stalled.
  int abandoned() const;
  /// True when a client offered HTTP/2 in its TLS handshake.
  bool wasOfferedHttp2() const;

  bool waitForRequests(std::size_t count);
  bool waitForConnections(int count);
  bool waitForAbandoned(int count);

 private:
  void openSocket(int port);
  void listenOnSocket();
  void wakeAcceptor();
  void acceptConnections();
  void serve(int descriptor, int number);
  void answer(JXTestConnection& connection, const JXTestAnswer& answer);
  JXTestAnswer nextAnswer(JXTestRequest request);
  void endConnections();
  template <class Condition>
  bool waitFor(Condition condition);
  static int chooseProtocol(SSL* connection, const unsigned char** chosen, unsigned char* length,
                            const unsigned char* offered, unsigned int offeredLength, void* server);

  JXOpenSsl<SSL> newTls() const;

  const bool tls_;
  JXTestAuthority authority_;
  JXTestAuthority stranger_{"unknown authority"};  // whom no client trusts
  JXOpenSsl<SSL_CTX> context_;
  int port_ = 0;

  mutable std::mutex mutex_;
  std::condition_variable changed_;
  int socket_ = -1;
  int wakePipe_[2] = {-1, -1};
  bool listens_ = false;
  bool pollsSocket_ = false;
  bool stopping_ = false;
  bool offeredHttp2_ = false;
  int connections_ = 0;
  int abandoned_ = 0;
  JXTestAnswer standing_;
  std::deque<JXTestAnswer> next_;
  std::vector<JXTestRequest> requests_;
  std::vector<int> open_;  // descriptors of the connections there are
  std::vector<std::thread> threads_;
  std::thread acceptor_;
};

}  // namespace jx::test
