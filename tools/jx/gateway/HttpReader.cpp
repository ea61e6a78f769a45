// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/HttpReader.h"

#include <algorithm>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>
#include <limits>
#include <utility>

namespace jx {
namespace {

namespace http = boost::beast::http;
namespace asio = boost::asio;

constexpr int kBadRequest = 400;
constexpr int kLengthRequired = 411;
constexpr int kPayloadTooLarge = 413;
constexpr int kHeadersTooLarge = 431;
constexpr int kUnsupportedVersion = 505;
constexpr std::size_t kMaxHeadLines = 128;

std::string_view view(boost::beast::string_view text) { return {text.data(), text.size()}; }

int statusOf(const boost::system::error_code& error) {
  if (error == http::error::body_limit) return kPayloadTooLarge;
  if (error == http::error::header_limit) return kHeadersTooLarge;
  if (error == http::error::bad_version) return kUnsupportedVersion;
  return kBadRequest;
}

}  // namespace

class HttpReader::Parser : public http::request_parser<http::string_body> {
 public:
  Parser(std::size_t maxHead, std::size_t maxBody) {
    header_limit(static_cast<std::uint32_t>(
        std::min<std::size_t>(maxHead, std::numeric_limits<std::uint32_t>::max())));
    body_limit(maxBody);
  }

  /// Returns the status for a head whose request cannot be served, or 0.
  int headError() const {
    const auto& head = get();
    if (head.count(http::field::transfer_encoding) != 0) return kLengthRequired;
    if (head.version() >= 11 && head.count(http::field::host) != 1) return kBadRequest;
    return 0;
  }
  bool waitsForContinue() const {
    return boost::beast::iequals(get()[http::field::expect], "100-continue");
  }
  HttpRequest request() {
    auto& message = get();
    const std::string_view target = view(message.target());
    const std::size_t mark = target.find('?');
    HttpRequest result;
    result.method = view(message.method_string());
    result.path = target.substr(0, mark);
    if (mark != std::string_view::npos) result.query = target.substr(mark + 1);
    result.body = std::move(message.body());
    result.contentType = view(message[http::field::content_type]);
    result.userAgent = view(message[http::field::user_agent]);
    result.requestId = requestId();
    // A client of an older version that wants to keep the connection expects a header in response.
    result.keepsAlive = keep_alive() && message.version() >= 11;
    return result;
  }

  std::string requestId() const { return std::string(view(get()["X-Request-ID"])); }

  bool isExpectationTaken = false;
  std::size_t headBytes = 0;
  std::size_t headLines = 0;
};

HttpReader::HttpReader(std::size_t maxHead, std::size_t maxBody)
    : maxHead_(maxHead), maxBody_(maxBody) {}

HttpReader::~HttpReader() = default;

HttpReader::Progress HttpReader::reject(int status) {
  status_ = status;
  parser_.reset();
  kept_ = std::string();
  return progress_ = Progress::Rejected;
}

HttpReader::Progress HttpReader::read(std::string_view bytes) {
  if (progress_ == Progress::Rejected) return progress_;
  if (progress_ == Progress::Complete || !kept_.empty()) {
    kept_.append(bytes);
    if (progress_ == Progress::Complete) return progress_;
    // Parses from a copy, because what is not parsed is kept again.
    const std::string all = std::exchange(kept_, std::string());
    return parse(all);
  }
  return parse(bytes);
}

HttpReader::Progress HttpReader::parse(std::string_view bytes) {
  if (!parser_) {
    // Some clients end a body with a line that does not belong to it.
    while (!bytes.empty() && (bytes.front() == '\r' || bytes.front() == '\n'))
      bytes.remove_prefix(1);
    if (bytes.empty()) return progress_ = Progress::Idle;
    parser_ = std::make_unique<Parser>(maxHead_, maxBody_);
    requestId_.clear();
  }
  if (!parser_->is_header_done() && !readHead(bytes)) return progress_;
  boost::system::error_code error;
  while (!bytes.empty() && parser_->is_header_done() && !parser_->is_done()) {
    const std::size_t used = parser_->put(asio::const_buffer(bytes.data(), bytes.size()), error);
    bytes.remove_prefix(used);
    if (error == http::error::need_more) break;
    if (error) return reject(statusOf(error));
  }
  kept_.assign(bytes);
  if (parser_->is_done()) return progress_ = Progress::Complete;
  return progress_ = parser_->is_header_done() ? Progress::Body : Progress::Head;
}

// Returns false when the request is rejected. The parser limits only what it has not parsed yet, so
// the head is limited here: many short headers would need any amount of memory.
bool HttpReader::readHead(std::string_view& bytes) {
  boost::system::error_code error;
  while (!bytes.empty() && !parser_->is_header_done() && !error) {
    const std::size_t used = parser_->put(asio::const_buffer(bytes.data(), bytes.size()), error);
    const std::string_view read = bytes.substr(0, used);
    parser_->headBytes += used;
    parser_->headLines += static_cast<std::size_t>(std::count(read.begin(), read.end(), '\n'));
    bytes.remove_prefix(used);
  }
  const bool isDone = parser_->is_header_done();
  const std::size_t pending = isDone ? 0 : bytes.size();
  if (parser_->headBytes + pending > maxHead_ || parser_->headLines > kMaxHeadLines) {
    reject(kHeadersTooLarge);
    return false;
  }
  if (error && error != http::error::need_more) {
    reject(statusOf(error));
    return false;
  }
  if (!isDone) return true;
  requestId_ = parser_->requestId();
  if (const int status = parser_->headError(); status != 0) {
    reject(status);
    return false;
  }
  parser_->eager(true);
  return true;
}

HttpRequest HttpReader::take() {
  HttpRequest request = parser_->request();
  parser_.reset();
  progress_ = kept_.empty() ? Progress::Idle : Progress::Head;
  return request;
}

bool HttpReader::takeExpectation() {
  return progress_ == Progress::Body && !parser_->isExpectationTaken &&
         (parser_->isExpectationTaken = true) && parser_->waitsForContinue();
}

std::size_t HttpReader::heldBytes() const {
  if (!parser_) return kept_.capacity();
  return kept_.capacity() + sizeof(Parser) + parser_->headBytes + parser_->get().body().capacity();
}

}  // namespace jx
