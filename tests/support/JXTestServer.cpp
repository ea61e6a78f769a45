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

namespace jx::test {
namespace {

using Manner = JXTestAnswer::Manner;

constexpr std::chrono::seconds kPatience{20};
constexpr int kSlowByteMs = 20;

[[noreturn]] void fail(const char* what) {
  throw std::runtime_error(std::string("test server: ") + what);
}

// A client that goes must end a write, not the process.
void blockBrokenPipes() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

std::string lowerCase(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return text;
}

std::string headOf(const JXTestAnswer& answer, std::size_t announcedLength) {
  std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " Told\r\n";
  for (const auto& [name, value] : answer.headers)
    head.append(name + ": " + value + "\r\n");
  return head + "Content-Length: " + std::to_string(announcedLength) + "\r\n\r\n";
}

// Manners without an answer's head tell none.
int statusTold(const JXTestAnswer& answer) {
  switch (answer.manner) {
    case Manner::StallBeforeHead:
    case Manner::Reset:
    case Manner::EndlessHead:
    case Manner::Rubbish:
      return 0;
    default:
      return answer.status;
  }
}

}  // namespace

// One accepted connection, with or without TLS. Belongs to the thread that serves it.
class JXTestServer::Connection {
 public:
  Connection(int descriptor, JXOpenSsl<SSL> tls) : descriptor_(descriptor), tls_(std::move(tls)) {}

  bool handshake() {
    if (!tls_) return true;
    SSL_set_fd(tls_.get(), descriptor_);
    return SSL_accept(tls_.get()) == 1;
  }

  bool write(std::string_view bytes) {
    while (!bytes.empty()) {
      const long written =
          tls_ ? SSL_write(tls_.get(), bytes.data(), static_cast<int>(bytes.size()))
               : static_cast<long>(send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL));
      if (written <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }

  // Nothing when the client has gone.
  std::optional<JXTestRequest> readRequest() {
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

  // Returns when the client has gone.
  void waitForEnd() {
    while (readMore())
      buffer_.clear();
  }

  // Waits for `ms`, shorter when the client sends or goes.
  void pace(int ms) const {
    pollfd waited{descriptor_, POLLIN, 0};
    poll(&waited, 1, ms);
  }

  void resetAtClose() const {
    const linger immediately{1, 0};
    setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &immediately, sizeof immediately);
  }

 private:
  bool readMore() {
    char bytes[16 * 1024];
    const long count = tls_ ? SSL_read(tls_.get(), bytes, sizeof bytes)
                            : static_cast<long>(recv(descriptor_, bytes, sizeof bytes, 0));
    if (count <= 0) return false;
    buffer_.append(bytes, static_cast<std::size_t>(count));
    return true;
  }

  std::optional<std::string> readLine() {
    std::size_t end = 0;
    while ((end = buffer_.find("\r\n")) == std::string::npos) {
      if (!readMore()) return std::nullopt;
    }
    std::string line = buffer_.substr(0, end);
    buffer_.erase(0, end + 2);
    return line;
  }

  const int descriptor_;
  const JXOpenSsl<SSL> tls_;
  std::string buffer_;
};

JXTestServer::JXTestServer(JXTestServerOptions options) : options_(std::move(options)) {
  if (options_.tls) {
    const JXTestIdentity identity = authority_.issue(options_.certificateNames);
    context_.reset(SSL_CTX_new(TLS_server_method()));
    if (!context_ || SSL_CTX_use_certificate(context_.get(), identity.certificate.get()) != 1 ||
        SSL_CTX_use_PrivateKey(context_.get(), identity.key.get()) != 1) {
      fail("TLS");
    }
    SSL_CTX_set_alpn_select_cb(context_.get(), chooseProtocol, this);
    if (options_.newestTlsVersion != 0) {
      SSL_CTX_set_max_proto_version(context_.get(), options_.newestTlsVersion);
      SSL_CTX_set_security_level(context_.get(), 0);
    }
  }
  if (pipe2(wakePipe_, O_CLOEXEC) != 0) fail("pipe");
  openSocket(0);
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
  for (std::thread& thread : threads_)
    thread.join();
  close(wakePipe_[0]);
  close(socket_);
}

std::string JXTestServer::url(const std::string& target) const {
  return std::string(options_.tls ? "https" : "http") + "://127.0.0.1:" + std::to_string(port_) +
         target;
}

std::string JXTestServer::publicKeyPin() const {
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
  // While a poll holds the old socket, it keeps the port from the new one.
  changed_.wait(lock, [this] { return !pollsSocket_; });
  close(socket_);
  endConnections();
  // Bound but not listening: connections are refused, and nobody else gets the port.
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
    const int number = ++connections_;
    open_.push_back(descriptor);
    threads_.emplace_back([this, descriptor, number] { serve(descriptor, number); });
    changed_.notify_all();
  }
}

void JXTestServer::serve(int descriptor, int number) {
  blockBrokenPipes();
  {
    Connection connection(descriptor, JXOpenSsl<SSL>(context_ ? SSL_new(context_.get()) : nullptr));
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

void JXTestServer::answer(Connection& connection, const JXTestAnswer& answer) {
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
