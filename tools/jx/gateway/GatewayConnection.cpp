// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayConnection.h"

#include <array>
#include <boost/asio/post.hpp>
#include <exception>
#include <utility>

namespace jx {
namespace {

constexpr int kServiceUnavailable = 503;
constexpr int kMaxSteps = 16;

const char* reasonOf(int status) {
  switch (status) {
    case 100:
      return "Continue";
    case 200:
      return "OK";
    case 204:
      return "No Content";
    case 400:
      return "Bad Request";
    case 401:
      return "Unauthorized";
    case 403:
      return "Forbidden";
    case 404:
      return "Not Found";
    case 405:
      return "Method Not Allowed";
    case 411:
      return "Length Required";
    case 413:
      return "Content Too Large";
    case 429:
      return "Too Many Requests";
    case 431:
      return "Request Header Fields Too Large";
    case 503:
      return "Service Unavailable";
    case 505:
      return "HTTP Version Not Supported";
    default:
      return "";
  }
}

Refusal refusalOf(int status) {
  switch (status) {
    case 411:
      return Refusal::LengthRequired;
    case 413:
      return Refusal::BodyTooLarge;
    case 431:
      return Refusal::HeadTooLarge;
    case 505:
      return Refusal::UnsupportedVersion;
    default:
      return Refusal::BadRequest;
  }
}

}  // namespace

GatewayConnection::GatewayConnection(boost::asio::ip::tcp::socket socket, SSL_CTX* tls,
                                     const GatewayLimits& limits, const GatewayHandler& handler,
                                     const GatewayObserver& observer, GatewayUsage& usage)
    : socket_(std::move(socket)),
      tls_(socket_.native_handle(), tls),
      limits_(limits),
      handler_(handler),
      observer_(observer),
      usage_(usage),
      reader_(limits.headBytes, limits.bodyBytes) {
  ++usage_.connections;
}

GatewayConnection::~GatewayConnection() {
  reserve(0);
  if (state_ == State::Waiting) --usage_.requestsInFlight;
  --usage_.connections;
}

void GatewayConnection::start() {
  limitTime(limits_.handshake);
  proceed();
}

// A client that sends faster than the thread reads must not keep it from the other connections and
// from the time limits, so that it goes on after them.
void GatewayConnection::proceed() {
  try {
    for (int step = 0; step < kMaxSteps; ++step) {
      if (!isOpen() || !proceedOnce()) return;
    }
  } catch (const std::exception&) {
    // Without memory.
    return close();
  }
  isScheduled_ = true;
  boost::asio::post(socket_.get_executor(), [self = shared_from_this()] {
    self->isScheduled_ = false;
    self->proceed();
  });
}

// Returns false when the connection waits or is closed.
bool GatewayConnection::proceedOnce() {
  switch (state_) {
    case State::Handshake:
      return shakeHands();
    case State::Reading:
      return read();
    case State::Writing:
      return write();
    case State::Lingering:
      return linger();
    case State::Waiting:
      break;
  }
  return false;
}

bool GatewayConnection::continueAfter(TlsSocket::Outcome outcome) {
  using Socket = boost::asio::ip::tcp::socket;
  if (outcome == TlsSocket::Outcome::Moved) return true;
  if (outcome == TlsSocket::Outcome::Closed) {
    close();
    return false;
  }
  const auto direction =
      outcome == TlsSocket::Outcome::WantsRead ? Socket::wait_read : Socket::wait_write;
  socket_.async_wait(direction,
                     [self = shared_from_this()](const boost::system::error_code& error) {
                       if (!error) self->proceed();
                     });
  return false;
}

bool GatewayConnection::shakeHands() {
  if (!continueAfter(tls_.shakeHands())) return false;
  state_ = State::Reading;
  limitTime(limits_.idle);
  return true;
}

bool GatewayConnection::read() {
  if (reader_.progress() == HttpReader::Progress::Head && advance(reader_.read(""))) return true;
  static thread_local std::array<char, 16'384> buffer;
  std::size_t count = 0;
  if (!continueAfter(tls_.read(buffer, count))) return false;
  const bool isNew = reader_.progress() == HttpReader::Progress::Idle;
  const HttpReader::Progress progress = reader_.read({buffer.data(), count});
  if (isNew && progress != HttpReader::Progress::Idle) limitTime(limits_.request);
  advance(progress);
  return true;
}

// Returns whether the state has changed.
bool GatewayConnection::advance(HttpReader::Progress progress) {
  reserve(reader_.heldBytes());
  if (progress == HttpReader::Progress::Rejected) {
    refuse(reader_.status(), refusalOf(reader_.status()));
    return true;
  }
  if (progress == HttpReader::Progress::Complete) {
    handle();
    return true;
  }
  if (progress != HttpReader::Progress::Body) return false;
  if (usage_.bytesInFlight > limits_.bytesInFlight) {
    refuse(kServiceUnavailable, Refusal::Memory);
    return true;
  }
  if (!reader_.takeExpectation()) return false;
  out_ = "HTTP/1.1 100 Continue\r\n\r\n";
  state_ = State::Writing;
  return true;
}

void GatewayConnection::handle() {
  HttpRequest request = reader_.take();
  received_ = Clock::now();
  if (!isRequestId(request.requestId)) request.requestId = newRequestId();
  requestId_ = request.requestId;
  isHead_ = request.method == "HEAD";
  keepsAlive_ = request.keepsAlive;
  state_ = State::Waiting;
  ++usage_.requestsInFlight;
  // The time limit of the broker is that of the handler.
  deadline_ = Clock::time_point::max();
  const unsigned number = ++request_;
  std::weak_ptr<GatewayConnection> weak = weak_from_this();
  handler_(std::move(request), [weak = std::move(weak), number,
                                executor = socket_.get_executor()](GatewayResponse response) {
    boost::asio::post(executor, [weak, number, response = std::move(response)] {
      if (const auto self = weak.lock()) self->send(response, number);
    });
  });
}

void GatewayConnection::send(const GatewayResponse& response, unsigned request) {
  if (state_ != State::Waiting || request != request_ || !isOpen()) return;
  --usage_.requestsInFlight;
  reserve(0);
  prepare(response, keepsAlive_ && !isDraining_);
  if (!isScheduled_) proceed();
}

// The rest of the request is not read, so the connection ends.
void GatewayConnection::refuse(int status, Refusal refusal) {
  received_ = Clock::now();
  requestId_ = isRequestId(reader_.requestId()) ? reader_.requestId() : newRequestId();
  GatewayResponse response;
  response.status = status;
  response.refusal = refusal;
  if (status == kServiceUnavailable) response.headers = {{"Retry-After", "5"}};
  prepare(response, false);
}

void GatewayConnection::prepare(const GatewayResponse& response, bool keepsAlive) {
  keepsAlive_ = keepsAlive;
  const auto time = std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - received_);
  observer_({requestId_, response.status, response.refusal, response.site, response.error, time});
  out_ = "HTTP/1.1 " + std::to_string(response.status) + " " + reasonOf(response.status) + "\r\n";
  out_ += "X-Request-ID: " + requestId_ + "\r\n";
  for (const auto& [name, value] : response.headers)
    out_ += name + ": " + value + "\r\n";
  if (!response.contentType.empty()) out_ += "Content-Type: " + response.contentType + "\r\n";
  // 204 has no length.
  if (response.status != 204) {
    out_ += "Content-Length: " + std::to_string(response.body.size()) + "\r\n";
  }
  if (!keepsAlive) out_ += "Connection: close\r\n";
  out_ += "\r\n";
  if (!isHead_) out_ += response.body;
  state_ = State::Writing;
  limitTime(limits_.response);
}

bool GatewayConnection::write() {
  while (written_ < out_.size()) {
    std::size_t count = 0;
    if (!continueAfter(tls_.write(std::string_view(out_).substr(written_), count))) return false;
    written_ += count;
  }
  out_ = std::string();
  written_ = 0;
  if (!keepsAlive_) {
    sayGoodbye();
    return true;
  }
  const bool isInsideRequest = reader_.progress() != HttpReader::Progress::Idle;
  state_ = State::Reading;
  limitTime(isInsideRequest ? limits_.request : limits_.idle);
  return true;
}

// Closing a socket with unread bytes would reset the connection, and the client would lose the
// response.
void GatewayConnection::sayGoodbye() {
  tls_.sayGoodbye();
  boost::system::error_code ignored;
  socket_.shutdown(boost::asio::ip::tcp::socket::shutdown_send, ignored);
  state_ = State::Lingering;
  limitTime(limits_.lingering);
}

bool GatewayConnection::linger() {
  static thread_local std::array<char, 16'384> discarded;
  std::size_t count = 0;
  return continueAfter(tls_.readRaw(discarded, count));
}

void GatewayConnection::reserve(std::size_t bytes) {
  usage_.bytesInFlight += bytes;
  usage_.bytesInFlight -= std::exchange(reserved_, bytes);
}

void GatewayConnection::expire(Clock::time_point now) {
  if (now > deadline_) close();
}

void GatewayConnection::drain() {
  // The descriptor of a closed connection may belong to another one.
  if (!isOpen()) return;
  isDraining_ = true;
  const bool isIdle = state_ == State::Reading && reader_.progress() == HttpReader::Progress::Idle;
  if (state_ == State::Handshake) {
    close();
  } else if (isIdle) {
    sayGoodbye();
    proceed();
  } else if (state_ == State::Writing && reader_.progress() != HttpReader::Progress::Body) {
    keepsAlive_ = false;
  }
}

void GatewayConnection::close() {
  boost::system::error_code ignored;
  socket_.close(ignored);
}

}  // namespace jx
