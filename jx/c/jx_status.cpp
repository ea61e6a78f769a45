// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_status.h"

#include <array>

#include "jx/JXVersion.h"
#include "jx/c/internal/JXCall.h"
#include "jx/variables/JXServerSideVersion.h"

const char* jx_status_string(uint32_t status) {
  static constexpr std::array<const char*, 20> kTexts{
      "all well",
      "the handle is null",
      "the handle was freed or never was one",
      "the handle is of another type",
      "a pointer is null that must not be",
      "no class has this name",
      "the object is of another class",
      "the class has no such field",
      "the field holds values of another type",
      "not a decimal number",
      "not a member of the enumeration",
      "not JSON of the kind that is wanted",
      "the buffer is too small",
      "the library has started already",
      "the time was up",
      "there is nothing under this key",
      "something is missing that the class asks for",
      "the size of the struct is not known",
      "no memory or no handle is left",
      "something failed inside the library",
  };
  return status < kTexts.size() ? kTexts[status] : "no status";
}

const char* jx_error_detail(void) { return jx::c::latestDetail(); }

const char* jx_version(void) { return JX_VERSION_STRING; }

// A constant with a NUL behind it.
const char* jx_sdk_version(void) { return jx::kJXServerSideVersion.data(); }

size_t jx_handle_count(void) { return jx::JXHandles::sharedInstance().count(); }
