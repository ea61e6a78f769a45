// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <variant>

namespace jx {

/// Why something could not be done: one line for a person, without a full stop.
struct Failure {
  std::string text;
};

/// A value, or the reason why there is none.
template <typename Value>
class [[nodiscard]] Outcome {
 public:
  Outcome(Value value) : held_(std::in_place_index<0>, std::move(value)) {}
  Outcome(Failure failure) : held_(std::in_place_index<1>, std::move(failure)) {}

  explicit operator bool() const { return held_.index() == 0; }
  Value& operator*() { return std::get<0>(held_); }
  const Value& operator*() const { return std::get<0>(held_); }
  Value* operator->() { return &std::get<0>(held_); }
  const Value* operator->() const { return &std::get<0>(held_); }
  /// Only when there is no value.
  const Failure& failure() const { return std::get<1>(held_); }

 private:
  std::variant<Value, Failure> held_;
};

/// The outcome of an action that yields nothing.
using Done = Outcome<std::monostate>;
inline Done done() { return std::monostate{}; }

}  // namespace jx
