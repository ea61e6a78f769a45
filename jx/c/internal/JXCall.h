// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <exception>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "jx/c/internal/JXHandles.h"
#include "jx/c/jx_status.h"
#include "jx/core/json/JXJsonValue.h"

namespace jx::c {

/// What a call from C came to: a status, and in words what was wrong.
struct Result {
  Result(jx_status code) : status(code) {}
  Result(jx_status code, std::string words) : status(code), detail(std::move(words)) {}

  jx_status status;
  std::string detail;  ///< empty: the status says all
};

/// Keeps the detail for `jx_error_detail` and logs it, unless the status is an answer rather than
/// a mistake. Returns the status.
jx_status report(const char* operation, const Result& result) noexcept;
/// The latest detail on this thread.
const char* latestDetail() noexcept;

/// Runs the body of an operation; the one place where what the library throws ends.
template <typename Body>
jx_status call(const char* operation, const Body& body) noexcept {
  try {
    return report(operation, body());
  } catch (const std::bad_alloc&) {
    return report(operation, JX_ERROR_OUT_OF_MEMORY);
  } catch (const std::exception& error) {
    try {
      return report(operation, {JX_ERROR_INTERNAL, error.what()});
    } catch (...) {
      return JX_ERROR_INTERNAL;
    }
  } catch (...) {
    return report(operation, JX_ERROR_INTERNAL);
  }
}

/// Runs `body` with the object behind a handle.
template <typename Object, typename Body>
Result with(const void* handle, JXHandleKind kind, const Body& body) {
  std::shared_ptr<void> found;
  const jx_status status = JXHandles::sharedInstance().find(handle, kind, found);
  if (status != JX_OK) return status;
  return body(*static_cast<Object*>(found.get()));
}

/// Gives a new object to the caller.
template <typename Handle>
Result give(JXHandleKind kind, std::shared_ptr<void> object, Handle** handle) {
  *handle = static_cast<Handle*>(JXHandles::sharedInstance().add(kind, std::move(object)));
  return *handle != nullptr ? JX_OK : JX_ERROR_OUT_OF_MEMORY;
}

/// Ends what a handle keeps; null is nothing to end.
Result end(void* handle, JXHandleKind kind);

/// Copies a text into a buffer of the caller's, by the rules of `jx_object_json`.
Result copyOut(const std::string& text, char* buffer, std::size_t capacity, std::size_t* length);

/// Reads JSON; null is the absent value. Returns what is wrong with it, JX_OK when nothing is.
Result readJson(const char* json, JXJsonValue& value);
/// Compact JSON text of any value.
std::string jsonText(const JXJsonValue& value);

/// A name that a host gave, for a message.
std::string quoted(const char* name);

}  // namespace jx::c
