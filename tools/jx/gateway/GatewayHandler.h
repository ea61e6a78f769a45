// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/jx/gateway/HttpReader.h"

namespace jx {

/// Why a request was not accepted.
enum class Refusal {
  None,
  BrokerUnavailable,
  BrokerTimeout,
  BrokerRefused,
  TooManyPending,
  Memory,
  RateLimited,
  UnknownSource,
  BadRequest,
  LengthRequired,
  BodyTooLarge,
  HeadTooLarge,
  UnsupportedVersion,
  NotFound,
  WrongMethod,
};
inline constexpr std::size_t kRefusals = static_cast<std::size_t>(Refusal::WrongMethod) + 1;
/// Returns the name in logs and metrics: "broker_timeout".
std::string_view nameOf(Refusal refusal);

struct GatewayResponse {
  int status = 204;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
  std::string contentType;  ///< of a body
  Refusal refusal = Refusal::None;
  std::string site;   ///< site ID, for the log
  std::string error;  ///< of the broker, for the log
};

/// Sends the response. Any thread may call it, once; later calls, and a call after the client has
/// gone, do nothing.
using Respond = std::function<void(GatewayResponse response)>;

/// Decides about each request. Called on the thread of the connection, several at once: it must not
/// block. The response may be sent during the call or later.
using GatewayHandler = std::function<void(HttpRequest request, Respond respond)>;

/// A response that is being sent.
struct GatewayExchange {
  std::string_view requestId;
  int status = 0;
  Refusal refusal = Refusal::None;
  std::string_view site;
  std::string_view error;
  std::chrono::microseconds time{0};  ///< from the complete request to its response
};

/// Notified of each response, on the thread of the connection. It must not block.
using GatewayObserver = std::function<void(const GatewayExchange& exchange)>;

/// Returns an ID for a request: 16 random hexadecimal digits of the process, and a number.
std::string newRequestId();
/// Returns whether an ID that a client sent can be used: up to 64 letters, digits, ".", "_", "-".
bool isRequestId(std::string_view text);

}  // namespace jx
