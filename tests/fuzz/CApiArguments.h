// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "jx/c/jx.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {

/// Checks the rules that apply to the result of each call, and returns it.
jx_status checked(jx_status status);

/// Arguments for calls of the C API, chosen by the input: strings, fields, buffers, and handles
/// that are live, freed, of another kind, null or wild.
class CApiArguments {
 public:
  enum class Kind { Object, ServerSide, Observer };

 protected:
  struct Handle {
    void* token = nullptr;
    Kind kind = Kind::Object;
    bool isLive = false;
  };

  explicit CApiArguments(Input input) : input_(input), handlesBefore_(jx_handle_count()) {}

  /// Returns a string: null, a name that has a meaning, or any bytes.
  const char* text();
  /// Returns the name of a field of any class, or any string.
  const char* field();

  Handle pick();
  jx_object* object() { return static_cast<jx_object*>(used(pick(Kind::Object))); }
  jx_server_side* serverSide() {
    return static_cast<jx_server_side*>(used(pick(Kind::ServerSide)));
  }
  void* used(const Handle& handle) {
    last_ = handle;
    return handle.token;
  }
  /// Expects the status of a call with the handle that was picked last to be that of the handle,
  /// unless it is a live one of this kind.
  jx_status on(Kind kind, jx_status status);

  /// Stores a new handle. `created` is read after the call that returns the status.
  template <typename Pointer>
  void keep(jx_status status, Pointer* const& created, Kind kind) {
    checked(status);
    require((status == JX_OK) == (created != nullptr), "exactly a success creates a handle");
    if (created != nullptr) handles_.push_back({created, kind, true});
  }
  /// Frees a handle with the function of its kind, or of another one.
  void free(const Handle& handle);
  void freeAll();
  void requireCount() const;

  /// Calls `get` with a buffer of any size and checks the rules of buffers. Returns its content.
  template <typename Get>
  std::optional<std::string> read(const Get& get) {
    constexpr char kUnused = '\x5A';
    std::array<char, 512> buffer;
    buffer.fill(kUnused);
    const std::uint8_t form = input_.byte();
    const std::size_t capacity = form < 128 ? form : buffer.size() - 1;
    std::size_t length = SIZE_MAX;
    const bool isNull = form == 255;
    const jx_status status =
        get(isNull ? nullptr : buffer.data(), isNull && (input_.byte() & 1) != 0 ? 0 : capacity,
            form % 2 == 0 ? nullptr : &length);
    if (isNull) return std::nullopt;
    std::size_t written = 0;
    if ((status == JX_OK || status == JX_ERROR_NOT_ERASED) && capacity != 0) {
      written = std::strlen(buffer.data()) + 1;
      if (form % 2 != 0) written = std::max(written, std::min(length + 1, capacity));
    } else if (status == JX_ERROR_TOO_SMALL && capacity != 0) {
      require(buffer[0] == '\0', "a string that does not fit is empty");
      require(length >= capacity, "the required length is larger");
      written = 1;
    }
    require(written <= capacity, "a string fits into its buffer");
    require(std::all_of(buffer.begin() + static_cast<std::ptrdiff_t>(written), buffer.end(),
                        [](char c) { return c == kUnused; }),
            "nothing else is written");
    if (status != JX_OK || written == 0) return std::nullopt;
    return std::string(buffer.data());
  }

  Input input_;
  Handle last_;

 private:
  /// Prefers a live handle of this kind.
  Handle pick(Kind kind);

  const std::size_t handlesBefore_;
  std::deque<std::string> texts_;
  std::vector<Handle> handles_;
};

}  // namespace jx::fuzz
