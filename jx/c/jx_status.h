// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef JX_C_JX_STATUS_H
#define JX_C_JX_STATUS_H

#include <stddef.h>
#include <stdint.h>

#include "jx/platform/JXApi.h"

#ifdef __cplusplus
extern "C" {
#endif

/// What an operation came to. Numbers never change their meaning; later versions may add some.
typedef enum jx_status {
  JX_OK = 0,
  /// The handle is null.
  JX_ERROR_NULL_HANDLE = 1,
  /// The handle was freed, or never was one.
  JX_ERROR_DEAD_HANDLE = 2,
  /// The handle is of another type, such as an observer where an event is wanted.
  JX_ERROR_WRONG_HANDLE = 3,
  /// A pointer is null that must not be.
  JX_ERROR_NULL_ARGUMENT = 4,
  /// No class has this name.
  JX_ERROR_UNKNOWN_CLASS = 5,
  /// The object is of another class: an item where an event is wanted, or a field of JXSearchEvent
  /// given to a JXPurchaseEvent.
  JX_ERROR_WRONG_CLASS = 6,
  /// The object's class has no such field.
  JX_ERROR_UNKNOWN_FIELD = 7,
  /// The field holds values of another type.
  JX_ERROR_WRONG_TYPE = 8,
  /// The text is no decimal number, or the double is infinite or not-a-number.
  JX_ERROR_INVALID_NUMBER = 9,
  /// The number is no member of the enumeration, a mode included.
  JX_ERROR_UNKNOWN_ENUMERATOR = 10,
  /// The text is no JSON, or JSON of another kind than the operation takes.
  JX_ERROR_INVALID_JSON = 11,
  /// The buffer is too small; the length that was reported tells what is needed.
  JX_ERROR_TOO_SMALL = 12,
  /// The library has started and takes no configuration any more.
  JX_ERROR_TOO_LATE = 13,
  /// The time was up before the queue was empty.
  JX_ERROR_TIMED_OUT = 14,
  /// There is nothing under this key.
  JX_ERROR_NOT_SET = 15,
  /// The event, item or product lacks something that its class asks for.
  JX_ERROR_INCOMPLETE = 16,
  /// The `struct_size` of a struct is none that this library knows.
  JX_ERROR_STRUCT_SIZE = 17,
  /// There is no memory left, or no more handles.
  JX_ERROR_OUT_OF_MEMORY = 18,
  /// Something failed inside the library; the detail tells what.
  JX_ERROR_INTERNAL = 19
} jx_status;

/// A `jx_status` in words: a constant, never null, also for a number that is no status.
JX_API const char* jx_status_string(uint32_t status);

/// What was wrong in the latest call on this thread that did not return JX_OK, for a person:
/// "coupn is no field of JXPurchaseEvent". Never null; "" when no call failed. At most 255
/// bytes. Valid until the next call on this thread that fails.
JX_API const char* jx_error_detail(void);

/// Version of the library: "1.2.3", by semantic versioning. A constant.
JX_API const char* jx_version(void);
/// Version that the events carry as "serverside_version". A constant.
JX_API const char* jx_sdk_version(void);

/// How many handles are alive in this process: for tests that look for what was never freed.
JX_API size_t jx_handle_count(void);

#ifdef __cplusplus
}
#endif

#endif
