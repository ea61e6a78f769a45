// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayHandler.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <random>

namespace jx {
namespace {

constexpr std::size_t kMaxRequestId = 64;

std::string randomPart() {
  std::random_device device;
  const std::uint64_t number = (std::uint64_t{device()} << 32) | device();
  std::array<char, 18> text{};
  std::snprintf(text.data(), text.size(), "%016llx-", static_cast<unsigned long long>(number));
  return text.data();
}

}  // namespace

std::string_view nameOf(Refusal refusal) {
  constexpr std::array<std::string_view, kRefusals> kNames = {"",
                                                              "broker_unavailable",
                                                              "broker_timeout",
                                                              "broker_refused",
                                                              "too_many_pending",
                                                              "memory",
                                                              "rate_limited",
                                                              "unknown_source",
                                                              "bad_request",
                                                              "length_required",
                                                              "body_too_large",
                                                              "head_too_large",
                                                              "unsupported_version",
                                                              "not_found",
                                                              "wrong_method"};
  return kNames[static_cast<std::size_t>(refusal)];
}

std::string newRequestId() {
  static const std::string process = randomPart();
  static std::atomic<std::uint64_t> count{0};
  return process + std::to_string(++count);
}

bool isRequestId(std::string_view text) {
  const auto isAllowed = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' ||
           c == '_' || c == '-';
  };
  return !text.empty() && text.size() <= kMaxRequestId &&
         std::all_of(text.begin(), text.end(), isAllowed);
}

}  // namespace jx
