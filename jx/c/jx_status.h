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

/// Result of a function. The values never change their meaning; later versions may add values.
typedef enum jx_status {
  JX_OK = 0,
  /// The handle is null.
  JX_ERROR_NULL_HANDLE = 1,
  /// The handle was freed, or the pointer is not a handle.
  JX_ERROR_DEAD_HANDLE = 2,
  /// The handle has another type, such as an observer where an event is required.
  JX_ERROR_WRONG_HANDLE = 3,
  /// A required pointer argument is null.
  JX_ERROR_NULL_ARGUMENT = 4,
  /// No class has this name.
  JX_ERROR_UNKNOWN_CLASS = 5,
  /// The object belongs to another class: an item where an event is required, or a field of
  /// JXSearchEvent that is set on a JXPurchaseEvent.
  JX_ERROR_WRONG_CLASS = 6,
  /// The object's class has no such field.
  JX_ERROR_UNKNOWN_FIELD = 7,
  /// The field has another type.
  JX_ERROR_WRONG_TYPE = 8,
  /// The string is not a decimal number, or the double is infinite or NaN.
  JX_ERROR_INVALID_NUMBER = 9,
  /// The number is not a value of the enumeration; also for a mode.
  JX_ERROR_UNKNOWN_ENUMERATOR = 10,
  /// The string is not JSON, or the JSON value has another type than the function requires.
  JX_ERROR_INVALID_JSON = 11,
  /// The buffer is too small; `*length` contains the required length.
  JX_ERROR_TOO_SMALL = 12,
  /// The library has already started and can no longer be configured.
  JX_ERROR_TOO_LATE = 13,
  /// The deadline expired before the queue was empty.
  JX_ERROR_TIMED_OUT = 14,
  /// The value is null: no value is set for the key, the field or the element of a list. Also for a
  /// change of a list that is null, which is ignored as in C++.
  JX_ERROR_NOT_SET = 15,
  /// A required field of the event, item or product is not set.
  JX_ERROR_INCOMPLETE = 16,
  /// This library does not support the `struct_size` of the struct.
  JX_ERROR_STRUCT_SIZE = 17,
  /// Out of memory, or out of handles.
  JX_ERROR_OUT_OF_MEMORY = 18,
  /// An internal error; the detail describes it.
  JX_ERROR_INTERNAL = 19,
  /// The list has no element at this index.
  JX_ERROR_OUT_OF_RANGE = 20,
  /// Some of the stored data could not be erased.
  JX_ERROR_NOT_ERASED = 21
} jx_status;

/// Returns a description of a `jx_status`, a constant. Never null, even for an unknown value.
JX_API const char* jx_status_string(uint32_t status);

/// Returns a human-readable description of the latest call on this thread that did not return
/// JX_OK: "\"coupn\" is not a field of JXPurchaseEvent". Never null; "" if no call has failed. At
/// most 255 bytes. Valid until the next failed call on this thread.
JX_API const char* jx_error_detail(void);

/// Returns the version of the library, "1.2.3" in semantic versioning. A constant.
JX_API const char* jx_version(void);
/// Returns the version that events contain as "serverside_version". A constant.
JX_API const char* jx_sdk_version(void);

/// Returns the number of handles in this process that were not freed. For leak tests.
JX_API size_t jx_handle_count(void);

#ifdef __cplusplus
}
#endif

#endif
