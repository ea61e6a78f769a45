// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: that of musl, without
// what tvOS 12 lacks, and with what Darwin adds.
#pragma once

#include_next <stdlib.h>

#include "lacking.h"

JX_LACKING(aligned_alloc, "introduced in tvOS 13.0");
JX_LACKING(quick_exit, "Darwin has none");
JX_LACKING(at_quick_exit, "Darwin has none");

#include <stdint.h>

extern "C" uint32_t arc4random();
