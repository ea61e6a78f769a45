// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: that of musl, without
// what tvOS 12 lacks.
#pragma once

#include_next <time.h>

#include "lacking.h"

JX_LACKING(clock_nanosleep, "Darwin has none; wait on a condition variable");
JX_LACKING(timer_create, "Darwin has no timers of POSIX");
JX_LACKING(timespec_get, "introduced in tvOS 13.0");
#undef CLOCK_MONOTONIC_COARSE
#undef CLOCK_REALTIME_COARSE
#undef CLOCK_BOOTTIME
