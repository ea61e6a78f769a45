// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/RequestLog.h"

namespace jx {
namespace {

constexpr std::uint64_t kMaxErrors = 20;

}  // namespace

void RequestLog::add(const GatewayExchange& exchange) {
  const bool isError = exchange.refusal != Refusal::None;
  if (isError) ++metrics_.refused[static_cast<std::size_t>(exchange.refusal)];
  if (selection_ == AccessLog::None || (selection_ == AccessLog::Errors && !isError)) return;
  if (isError && selection_ == AccessLog::Errors && ++errors_ > kMaxErrors) return;
  const auto level = isError ? JsonLog::Level::Warning : JsonLog::Level::Info;
  log_.write(level, "request",
             {{"request_id", exchange.requestId},
              {"status", exchange.status},
              {"reason", nameOf(exchange.refusal)},
              {"site", exchange.site},
              {"error", exchange.error},
              {"microseconds", exchange.time.count()}});
}

void RequestLog::renew() {
  const std::uint64_t errors = errors_.exchange(0);
  if (errors <= kMaxErrors) return;
  log_.write(JsonLog::Level::Warning, "requests_not_logged", {{"count", errors - kMaxErrors}});
}

}  // namespace jx
