// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/FaultPlan.h"

#include <charconv>

#include "tools/jx/collector/JsonOut.h"
#include "tools/jx/collector/validation/JsonTree.h"

namespace jx {
namespace {

using Kind = JsonNode::Kind;

constexpr std::int64_t kMaxNext = 1'000'000;
constexpr std::int64_t kMaxDelayMs = 600'000;
constexpr std::size_t kMaxRetryAfter = 64;
constexpr std::size_t kMaxShownKey = 64;

constexpr const char* nameOf(Fault::Action action) {
  switch (action) {
    case Fault::Action::Reset:
      return "reset";
    case Fault::Action::Hang:
      return "hang";
    case Fault::Action::Respond:
      break;
  }
  return "answer";
}

struct Request {
  Fault fault;
  std::int64_t next = 0;
  bool clears = false;
};

std::optional<std::int64_t> numberIn(const JsonNode& node, std::int64_t min, std::int64_t max) {
  std::int64_t value = 0;
  const char* const end = node.text.data() + node.text.size();
  if (node.kind != Kind::Number) return std::nullopt;
  const auto parsed = std::from_chars(node.text.data(), end, value);
  if (parsed.ec != std::errc() || parsed.ptr != end) return std::nullopt;
  return value >= min && value <= max ? std::optional<std::int64_t>(value) : std::nullopt;
}

// Each reader returns an error message, empty on success.
std::string readRetryAfter(const JsonNode& node, Request& request) {
  const bool isText = node.kind == Kind::String || node.kind == Kind::Number;
  bool isHeader = isText && !node.text.empty() && node.text.size() <= kMaxRetryAfter;
  for (const char c : node.text)
    isHeader = isHeader && c >= ' ' && c <= '~';
  if (!isHeader) return "retry_after must be 1 to 64 printable ASCII characters";
  request.fault.retryAfter = std::string(node.text);
  return {};
}

std::string readAction(const JsonNode& node, Request& request) {
  for (const Fault::Action action :
       {Fault::Action::Respond, Fault::Action::Reset, Fault::Action::Hang}) {
    if (node.kind != Kind::String || node.text != nameOf(action)) continue;
    request.fault.action = action;
    return {};
  }
  return "action must be answer, reset or hang";
}

std::string readMember(const JsonNode& node, Request& request) {
  if (node.key == "action") return readAction(node, request);
  if (node.key == "retry_after") return readRetryAfter(node, request);
  if (node.key == "clear") {
    request.clears = node.kind == Kind::Bool && node.text == "true";
    return node.kind == Kind::Bool ? "" : "clear must be true or false";
  }
  if (node.key == "next") {
    const auto next = numberIn(node, 0, kMaxNext);
    request.next = next.value_or(0);
    return next ? "" : "next must be an integer between 0 and 1000000";
  }
  if (node.key == "delay_ms") {
    const auto delay = numberIn(node, 0, kMaxDelayMs);
    request.fault.delay = std::chrono::milliseconds(delay.value_or(0));
    return delay ? "" : "delay_ms must be an integer between 0 and 600000";
  }
  if (node.key == "status") {
    const auto status = numberIn(node, 200, 599);
    request.fault.status = static_cast<int>(status.value_or(0));
    return status ? "" : "status must be an integer between 200 and 599";
  }
  return "unknown key: " + std::string(node.key.substr(0, kMaxShownKey));
}

Result<Request> readRequest(std::string_view json) {
  const JsonTree tree = JsonTree::read(json);
  if (tree.problem() != JsonTree::Problem::None || !tree.isObject(0)) {
    return Error{"the body must be a JSON object"};
  }
  Request request;
  std::string error;
  forEachIn(tree, 0, [&](std::uint32_t member) {
    // Clients that serialise a form write null for empty fields.
    if (!error.empty() || tree.node(member).kind == Kind::Null) return;
    error = readMember(tree.node(member), request);
  });
  const Fault& fault = request.fault;
  const bool doesNothing = fault.action == Fault::Action::Respond && !fault.status &&
                           !fault.retryAfter && fault.delay.count() == 0;
  if (error.empty() && !request.clears && doesNothing) {
    error = "one of delay_ms, status, retry_after or action is required";
  }
  if (!error.empty()) return Error{error};
  return request;
}

}  // namespace

Done FaultPlan::set(std::string_view json) {
  const Result<Request> request = readRequest(json);
  if (!request) return request.error();
  const std::lock_guard<std::mutex> lock(mutex_);
  armed_.reset();
  if (!request->clears) armed_ = request->fault;
  next_ = request->next;
  appliedCount_ = 0;
  publish();
  return done();
}

void FaultPlan::clear() {
  const std::lock_guard<std::mutex> lock(mutex_);
  armed_.reset();
  publish();
}

std::optional<Fault> FaultPlan::take() {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::optional<Fault> fault = armed_;
  if (!fault) return fault;
  ++appliedCount_;
  if (next_ > 0 && --next_ == 0) armed_.reset();
  publish();
  return fault;
}

std::string FaultPlan::toJson() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return asJson();
}

std::string FaultPlan::asJson() const {
  JsonOut out;
  out.beginObject().key("armed");
  if (armed_) {
    out.beginObject()
        .member("next", next_)
        .member("delay_ms", std::int64_t{armed_->delay.count()})
        .member("status", armed_->status ? std::optional<std::int64_t>(*armed_->status)
                                         : std::optional<std::int64_t>())
        .member("retry_after", armed_->retryAfter)
        .member("action", nameOf(armed_->action))
        .endObject();
  } else {
    out.value(std::optional<std::string>());
  }
  out.member("met", appliedCount_).endObject();
  return out.text();
}

void FaultPlan::publish() {
  broadcaster_.publish({EventBroadcaster::Signal::Kind::Faults, 0, 0, asJson()});
}

}  // namespace jx
