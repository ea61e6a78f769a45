// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: that of musl, without
// what Darwin lacks.
#pragma once

#include_next <pthread.h>

#include "lacking.h"

JX_LACKING(pthread_condattr_setclock, "Darwin's condition variables know one clock");
JX_LACKING(pthread_mutex_timedlock, "Darwin has none");
JX_LACKING(pthread_spin_lock, "Darwin has none");
JX_LACKING(pthread_barrier_wait, "Darwin has none");
JX_LACKING(pthread_getcpuclockid, "Darwin has none");
