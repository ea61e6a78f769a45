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

/// Result of a call from C: a status and an error message.
struct Result {
  Result(jx_status code) : status(code) {}
  Result(jx_status code, std::string message) : status(code), detail(std::move(message)) {}

  jx_status status;
  std::string detail;  ///< empty: the description of the status is sufficient
};

/// Returns whether the call must be ignored because this is a forked child process, and stores the
/// detail.
bool isIgnored(const char* operation) noexcept;
/// Stores the detail for `jx_error_detail`. Logs it, unless the status is an expected result such
/// as JX_ERROR_NOT_SET. Returns the status.
jx_status report(const char* operation, const Result& result) noexcept;
/// Returns the latest detail of this thread.
const char* latestDetail() noexcept;

/// Runs the body of a C function and converts exceptions of the library to a status.
template <typename Body>
jx_status call(const char* operation, const Body& body) noexcept {
  if (isIgnored(operation)) return JX_ERROR_INTERNAL;
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

/// Runs `body` with the object of a handle.
template <typename Object, typename Body>
Result with(const void* handle, JXHandleKind kind, const Body& body) {
  std::shared_ptr<void> found;
  const jx_status status = JXHandles::sharedInstance().find(handle, kind, found);
  if (status != JX_OK) return status;
  return body(*static_cast<Object*>(found.get()));
}

/// Creates a handle for a new object.
template <typename Handle>
Result give(JXHandleKind kind, std::shared_ptr<void> object, Handle** handle) {
  *handle = static_cast<Handle*>(JXHandles::sharedInstance().add(kind, std::move(object)));
  return *handle != nullptr ? JX_OK : JX_ERROR_OUT_OF_MEMORY;
}

/// Frees a handle; null does nothing.
Result end(void* handle, JXHandleKind kind);

/// Copies a string to the caller's buffer, by the rules of `jx_object_json`.
Result copyOut(const std::string& text, char* buffer, std::size_t capacity, std::size_t* length);

/// Returns whether `size`, the `struct_size` of the caller, is the size of `Struct` in this version
/// of the library or in an earlier one. Compilers round sizes up to the alignment, so that no
/// member of an accepted struct is cut.
template <typename Struct>
bool isKnownSize(std::size_t size) {
  return size > sizeof(std::size_t) && size <= sizeof(Struct) && size % alignof(Struct) == 0;
}

/// Parses JSON; a null pointer yields the null value. Returns JX_ERROR_INVALID_JSON on an error.
Result readJson(const char* json, JXJsonValue& value);
/// The form in which the caller passes a value.
enum class Form { String, Json };

/// Reads a value that the caller passes with its key, and passes it to `use`: absent for null.
template <typename Use>
Result readEntry(const char* key, const char* value, Form form, const Use& use) {
  if (key == nullptr) return {JX_ERROR_NULL_ARGUMENT, "key must not be null"};
  JXJsonValue read = form == Form::String ? value : JXJsonValue();
  Result result = form == Form::Json ? readJson(value, read) : JX_OK;
  if (result.status == JX_OK) use(read);
  return result;
}

/// Returns any value as compact JSON.
std::string jsonText(const JXJsonValue& value);

/// Returns a name from the caller in quotation marks, for a message.
std::string quoted(const char* name);

}  // namespace jx::c
