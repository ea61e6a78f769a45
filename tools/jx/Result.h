// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace jx {

/// The cause of a failure: one line for the user, without a full stop.
struct Error {
  std::string text;
};

/// A value or an error.
template <typename Value>
class [[nodiscard]] Result {
 public:
  Result(Value value) : state_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : state_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return state_.index() == 0; }
  Value& operator*() { return std::get<0>(state_); }
  const Value& operator*() const { return std::get<0>(state_); }
  Value* operator->() { return &std::get<0>(state_); }
  const Value* operator->() const { return &std::get<0>(state_); }
  /// Requires that there is no value.
  const Error& error() const { return std::get<1>(state_); }

 private:
  std::variant<Value, Error> state_;
};

/// The result of an operation without a return value.
using Done = Result<std::monostate>;
inline Done done() { return std::monostate{}; }

}  // namespace jx
