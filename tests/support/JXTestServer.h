// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/JXTestAuthority.h"
#include "tests/support/JXTestConnection.h"

namespace jx::test {

/// Behaviour of the server after it has read a request.
struct JXTestAnswer {
  enum class Manner {
    Whole,            ///< sends the response
    StallBeforeHead,  ///< sends nothing until the client disconnects
    StallInBody,      ///< sends a body one byte shorter than announced, then stalls
    Reset,            ///< resets the connection without a response
    CloseInBody,      ///< like StallInBody, but closes
    CloseInHead,      ///< sends half of a valid header section and closes
    EndlessBody,      ///< sends the header, then bytes until the client disconnects
    EndlessHead,      ///< sends header lines until the client disconnects
    SlowBytes,        ///< sends the response byte by byte, one every 20 ms
    Rubbish,          ///< sends bytes that are not HTTP and closes
  };
  int status = 200;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
  Manner manner = Manner::Whole;
};

/// Options of a server.
struct JXTestServerOptions {
  enum class Certificate { Good, Expired, OfAnotherAuthority };

  bool tls = true;
  int port = 0;  ///< a port of a ReservedPort; 0: any free port
  Certificate certificate = Certificate::Good;
  std::vector<std::string> certificateNames{"IP:127.0.0.1", "DNS:localhost"};
  int newestTlsVersion = 0;  ///< such as TLS1_1_VERSION; 0: all
};

/// An HTTP/1.1 server on 127.0.0.1 with its own certificate authority. Sends configured responses,
/// invalid ones included, and records the requests. Runs on its own threads, which the destructor
/// stops. Thread-safe; `waitFor...` block until the condition is true and return false after 20
/// seconds.
class JXTestServer {
 public:
  explicit JXTestServer(const JXTestServerOptions& options = {});
  ~JXTestServer();
  JXTestServer(const JXTestServer&) = delete;
  JXTestServer& operator=(const JXTestServer&) = delete;

  /// Returns "https://127.0.0.1:PORT" plus `target`.
  std::string url(const std::string& target = "/events?jx_s=1&token=key") const;
  int port() const { return port_; }
  const std::string& caFile() const { return authority_.caFile(); }
  /// Returns the SHA-256 of the server's public key in Base64.
  std::string publicKeyPin() const;

  /// Uses the certificate and the TLS versions of `options` for new connections.
  void present(const JXTestServerOptions& options);

  /// Sets the default response; initially 200 with an empty body.
  void answerAll(JXTestAnswer answer);
  /// Sets the response to the next request; further calls set those of the following requests.
  void answerNext(JXTestAnswer answer);
  /// Removes the responses set for next requests that were not sent yet.
  void forgetNext();

  /// Refuses new connections and closes existing ones; the port stays reserved.
  void refuse();
  /// Accepts connections again.
  void accept();
  /// Closes the existing connections, as a server does with idle ones.
  void dropConnections();

  std::vector<JXTestRequest> requests() const;
  /// Returns the bodies of the requests, in the order in which they were read.
  std::vector<std::string> bodies() const;
  /// Returns the number of accepted connections, failed TLS handshakes included.
  int connections() const;
  /// Returns the number of requests that the client abandoned while they stalled.
  int abandoned() const;
  /// Returns whether a client offered HTTP/2 in its TLS handshake.
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
  void joinEnded();
  template <class Condition>
  bool waitFor(Condition condition);
  static int chooseProtocol(SSL* connection, const unsigned char** chosen, unsigned char* length,
                            const unsigned char* offered, unsigned int offeredLength, void* server);

  JXOpenSsl<SSL> newTls() const;

  const bool tls_;
  JXTestAuthority authority_;
  JXTestAuthority stranger_{"unknown authority"};  // not trusted by any client
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
  std::vector<int> open_;               // descriptors of the open connections
  std::map<int, std::thread> threads_;  // by the number of their connection
  std::vector<int> ended_;              // connections whose threads only have to be joined
  std::thread acceptor_;
};

}  // namespace jx::test
