// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXTestServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "tests/support/JXTestConnection.h"

namespace jx::test {
namespace {

using Manner = JXTestAnswer::Manner;

constexpr std::chrono::seconds kPatience{20};
constexpr int kSlowByteMs = 20;

[[noreturn]] void fail(const char* what) {
  throw std::runtime_error(std::string("test server: ") + what);
}

// A client that closes the connection must fail a write, not end the process with SIGPIPE.
void blockBrokenPipes() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

std::string headOf(const JXTestAnswer& answer, std::size_t announcedLength) {
  std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " Told\r\n";
  for (const auto& [name, value] : answer.headers)
    head.append(name + ": " + value + "\r\n");
  return head + "Content-Length: " + std::to_string(announcedLength) + "\r\n\r\n";
}

// Returns 0 for manners that send no complete header section.
int statusTold(const JXTestAnswer& answer) {
  switch (answer.manner) {
    case Manner::StallBeforeHead:
    case Manner::Reset:
    case Manner::CloseInHead:
    case Manner::EndlessHead:
    case Manner::Rubbish:
      return 0;
    default:
      return answer.status;
  }
}

}  // namespace

JXTestServer::JXTestServer(const JXTestServerOptions& options) : tls_(options.tls) {
  present(options);
  if (pipe2(wakePipe_, O_CLOEXEC) != 0) fail("pipe");
  openSocket(options.port);
  listenOnSocket();
  acceptor_ = std::thread([this] { acceptConnections(); });
}

JXTestServer::~JXTestServer() {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    stopping_ = true;
    endConnections();
  }
  close(wakePipe_[1]);
  acceptor_.join();
  for (auto& [number, thread] : threads_)
    thread.join();
  close(wakePipe_[0]);
  close(socket_);
}

void JXTestServer::present(const JXTestServerOptions& options) {
  if (!tls_) return;
  const bool isExpired = options.certificate == JXTestServerOptions::Certificate::Expired;
  const bool isForeign =
      options.certificate == JXTestServerOptions::Certificate::OfAnotherAuthority;
  const JXTestIdentity identity =
      (isForeign ? stranger_ : authority_)
          .issue(options.certificateNames, isExpired ? JXTestValidity::Past : JXTestValidity::Now);
  JXOpenSsl<SSL_CTX> context(SSL_CTX_new(TLS_server_method()));
  if (!context || SSL_CTX_use_certificate(context.get(), identity.certificate.get()) != 1 ||
      SSL_CTX_use_PrivateKey(context.get(), identity.key.get()) != 1) {
    fail("TLS");
  }
  SSL_CTX_set_alpn_select_cb(context.get(), chooseProtocol, this);
  if (options.newestTlsVersion != 0) {
    SSL_CTX_set_max_proto_version(context.get(), options.newestTlsVersion);
    SSL_CTX_set_security_level(context.get(), 0);
  }
  const std::lock_guard<std::mutex> lock(mutex_);
  context_ = std::move(context);
}

JXOpenSsl<SSL> JXTestServer::newTls() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return JXOpenSsl<SSL>(context_ ? SSL_new(context_.get()) : nullptr);
}

std::string JXTestServer::url(const std::string& target) const {
  return std::string(tls_ ? "https" : "http") + "://127.0.0.1:" + std::to_string(port_) + target;
}

std::string JXTestServer::publicKeyPin() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return publicKeyPinOf(SSL_CTX_get0_certificate(context_.get()));
}

void JXTestServer::answerAll(JXTestAnswer answer) {
  const std::lock_guard<std::mutex> lock(mutex_);
  standing_ = std::move(answer);
}

void JXTestServer::answerNext(JXTestAnswer answer) {
  const std::lock_guard<std::mutex> lock(mutex_);
  next_.push_back(std::move(answer));
}

void JXTestServer::forgetNext() {
  const std::lock_guard<std::mutex> lock(mutex_);
  next_.clear();
}

void JXTestServer::refuse() {
  std::unique_lock<std::mutex> lock(mutex_);
  listens_ = false;
  wakeAcceptor();
  // While a poll uses the old socket, the port is not available to the new one.
  changed_.wait(lock, [this] { return !pollsSocket_; });
  close(socket_);
  endConnections();
  // Bound but not listening: refuses connections and keeps the port reserved.
  openSocket(port_);
}

void JXTestServer::accept() {
  const std::lock_guard<std::mutex> lock(mutex_);
  listenOnSocket();
  wakeAcceptor();
}

void JXTestServer::dropConnections() {
  const std::lock_guard<std::mutex> lock(mutex_);
  endConnections();
}

std::vector<JXTestRequest> JXTestServer::requests() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return requests_;
}

std::vector<std::string> JXTestServer::bodies() const {
  std::vector<std::string> bodies;
  for (const JXTestRequest& request : requests())
    bodies.push_back(request.body);
  return bodies;
}

int JXTestServer::connections() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return connections_;
}

int JXTestServer::abandoned() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return abandoned_;
}

bool JXTestServer::wasOfferedHttp2() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return offeredHttp2_;
}

template <class Condition>
bool JXTestServer::waitFor(Condition condition) {
  std::unique_lock<std::mutex> lock(mutex_);
  return changed_.wait_for(lock, kPatience, condition);
}

bool JXTestServer::waitForRequests(std::size_t count) {
  return waitFor([&] { return requests_.size() >= count; });
}

bool JXTestServer::waitForConnections(int count) {
  return waitFor([&] { return connections_ >= count; });
}

bool JXTestServer::waitForAbandoned(int count) {
  return waitFor([&] { return abandoned_ >= count; });
}

void JXTestServer::openSocket(int port) {
  socket_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const int yes = 1;
  setsockopt(socket_, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  auto* const generic = reinterpret_cast<sockaddr*>(&address);
  if (bind(socket_, generic, length) != 0 || getsockname(socket_, generic, &length) != 0) {
    fail("bind");
  }
  port_ = ntohs(address.sin_port);
}

void JXTestServer::listenOnSocket() {
  if (listen(socket_, 64) != 0) fail("listen");
  listens_ = true;
}

void JXTestServer::wakeAcceptor() {
  if (write(wakePipe_[1], "w", 1) != 1) fail("wake");
}

void JXTestServer::acceptConnections() {
  blockBrokenPipes();
  while (true) {
    pollfd waited[2] = {{wakePipe_[0], POLLIN, 0}, {-1, POLLIN, 0}};
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      if (stopping_) return;
      pollsSocket_ = listens_;
      if (listens_) waited[1].fd = socket_;
    }
    poll(waited, 2, -1);
    char byte = 0;
    if (waited[0].revents != 0 && read(wakePipe_[0], &byte, 1) != 1) return;
    const std::lock_guard<std::mutex> lock(mutex_);
    pollsSocket_ = false;
    changed_.notify_all();
    if (!listens_ || stopping_ || (waited[1].revents & POLLIN) == 0) continue;
    const int descriptor = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
    if (descriptor < 0) continue;
    joinEnded();
    const int number = ++connections_;
    open_.push_back(descriptor);
    threads_.emplace(number,
                     std::thread([this, descriptor, number] { serve(descriptor, number); }));
    changed_.notify_all();
  }
}

void JXTestServer::serve(int descriptor, int number) {
  blockBrokenPipes();
  {
    JXTestConnection connection(descriptor, newTls());
    bool goesOn = connection.handshake();
    while (goesOn) {
      std::optional<JXTestRequest> request = connection.readRequest();
      if (!request) break;
      request->connection = number;
      const JXTestAnswer told = nextAnswer(std::move(*request));
      answer(connection, told);
      goesOn = told.manner == Manner::Whole || told.manner == Manner::SlowBytes;
    }
  }
  const std::lock_guard<std::mutex> lock(mutex_);
  std::erase(open_, descriptor);
  close(descriptor);
  ended_.push_back(number);
}

// Otherwise thousands of connections would keep the stacks of their threads. The mutex is locked;
// an ended thread does not lock it again.
void JXTestServer::joinEnded() {
  for (const int number : ended_) {
    threads_.at(number).join();
    threads_.erase(number);
  }
  ended_.clear();
}

JXTestAnswer JXTestServer::nextAnswer(JXTestRequest request) {
  const std::lock_guard<std::mutex> lock(mutex_);
  JXTestAnswer told = standing_;
  if (!next_.empty()) {
    told = std::move(next_.front());
    next_.pop_front();
  }
  request.status = statusTold(told);
  requests_.push_back(std::move(request));
  changed_.notify_all();
  return told;
}

void JXTestServer::answer(JXTestConnection& connection, const JXTestAnswer& answer) {
  const std::string whole = headOf(answer, answer.body.size()) + answer.body;
  const std::string cut = headOf(answer, answer.body.size() + 1) + answer.body;
  switch (answer.manner) {
    case Manner::Whole:
      connection.write(whole);
      break;
    case Manner::Rubbish:
      connection.write(std::string("\x16\0rubbish\xFF\r\n\r\nmore of it", 24));
      break;
    case Manner::Reset:
      connection.resetAtClose();
      break;
    case Manner::CloseInBody:
      connection.write(cut);
      break;
    case Manner::CloseInHead:
      connection.write("HTTP/1.1 200 Told\r\nContent-Le");
      break;
    case Manner::StallInBody:
      connection.write(cut);
      [[fallthrough]];
    case Manner::StallBeforeHead:
      connection.waitForEnd();
      break;
    case Manner::EndlessBody:
      connection.write(headOf(answer, std::size_t{1} << 50));
      while (connection.write(std::string(16 * 1024, 'x'))) {
      }
      break;
    case Manner::EndlessHead:
      connection.write("HTTP/1.1 200 Told\r\n");
      while (connection.write("X-Line: " + std::string(1024, 'x') + "\r\n")) {
      }
      break;
    case Manner::SlowBytes:
      for (const char byte : whole) {
        if (!connection.write(std::string_view(&byte, 1))) break;
        connection.pace(kSlowByteMs);
      }
      break;
  }
  if (answer.manner != Manner::StallInBody && answer.manner != Manner::StallBeforeHead) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  ++abandoned_;
  changed_.notify_all();
}

void JXTestServer::endConnections() {
  for (const int descriptor : open_)
    shutdown(descriptor, SHUT_RDWR);
}

int JXTestServer::chooseProtocol(SSL*, const unsigned char** chosen, unsigned char* length,
                                 const unsigned char* offered, unsigned int offeredLength,
                                 void* server) {
  static const unsigned char kHttp11[] = "\x08http/1.1";
  auto* const self = static_cast<JXTestServer*>(server);
  const std::string_view offer(reinterpret_cast<const char*>(offered), offeredLength);
  if (offer.find(std::string_view("\x02h2", 3)) != std::string_view::npos) {
    const std::lock_guard<std::mutex> lock(self->mutex_);
    self->offeredHttp2_ = true;
  }
  unsigned char* picked = nullptr;
  const int result =
      SSL_select_next_proto(&picked, length, kHttp11, sizeof kHttp11 - 1, offered, offeredLength);
  *chosen = picked;
  return result == OPENSSL_NPN_NEGOTIATED ? SSL_TLSEXT_ERR_OK : SSL_TLSEXT_ERR_NOACK;
}

}  // namespace jx::test
