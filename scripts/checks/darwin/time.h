// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: musl's header without the functions that
// tvOS 12 does not have.
#pragma once

#include_next <time.h>

#include "unavailable.h"

JX_UNAVAILABLE(clock_nanosleep, "not available on Darwin; wait on a condition variable");
JX_UNAVAILABLE(timer_create, "Darwin has no POSIX timers");
JX_UNAVAILABLE(timespec_get, "introduced in tvOS 13.0");
#undef CLOCK_MONOTONIC_COARSE
#undef CLOCK_REALTIME_COARSE
#undef CLOCK_BOOTTIME
