// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_status.h"

#include <array>

#include "jx/JXVersion.h"
#include "jx/c/internal/JXCall.h"
#include "jx/session/JXServerSideVersion.h"

const char* jx_status_string(uint32_t status) {
  static constexpr std::array<const char*, 22> kDescriptions{
      "success",
      "handle is null",
      "handle was freed or is invalid",
      "handle has another type",
      "required pointer argument is null",
      "unknown class",
      "object belongs to another class",
      "unknown field",
      "field has another type",
      "invalid number",
      "unknown enumerator",
      "invalid JSON",
      "buffer is too small",
      "library has already started",
      "timed out",
      "no value is set",
      "required field is not set",
      "unsupported struct_size",
      "out of memory or handles",
      "internal error",
      "index is out of range",
      "some stored data could not be erased",
  };
  return status < kDescriptions.size() ? kDescriptions[status] : "unknown status";
}

const char* jx_error_detail(void) { return jx::c::latestDetail(); }

const char* jx_version(void) { return JX_VERSION_STRING; }

// The constant is NUL-terminated.
const char* jx_sdk_version(void) { return jx::kJXServerSideVersion.data(); }

size_t jx_handle_count(void) { return jx::JXHandles::sharedInstance().count(); }
