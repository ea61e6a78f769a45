// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace jx {

/// Why something could not be done: one line for a person, without a full stop.
struct Error {
  std::string text;
};

/// A value, or the reason why there is none.
template <typename Value>
class [[nodiscard]] Result {
 public:
  Result(Value value) : held_(std::in_place_index<0>, std::move(value)) {}
  Result(Error error) : held_(std::in_place_index<1>, std::move(error)) {}

  explicit operator bool() const { return held_.index() == 0; }
  Value& operator*() { return std::get<0>(held_); }
  const Value& operator*() const { return std::get<0>(held_); }
  Value* operator->() { return &std::get<0>(held_); }
  const Value* operator->() const { return &std::get<0>(held_); }
  /// Only when there is no value.
  const Error& error() const { return std::get<1>(held_); }

 private:
  std::variant<Value, Error> held_;
};

/// The outcome of an action that yields nothing.
using Done = Result<std::monostate>;
inline Done done() { return std::monostate{}; }

}  // namespace jx
