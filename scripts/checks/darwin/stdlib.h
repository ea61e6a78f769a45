// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: musl's header without the functions that
// tvOS 12 does not have, and with Darwin's additions.
#pragma once

#include_next <stdlib.h>

#include "unavailable.h"

JX_UNAVAILABLE(aligned_alloc, "introduced in tvOS 13.0");
JX_UNAVAILABLE(quick_exit, "not available on Darwin");
JX_UNAVAILABLE(at_quick_exit, "not available on Darwin");

#include <stdint.h>

extern "C" uint32_t arc4random();
