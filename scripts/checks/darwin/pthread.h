// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: musl's header without the functions that
// Darwin does not have.
#pragma once

#include_next <pthread.h>

#include "unavailable.h"

JX_UNAVAILABLE(pthread_condattr_setclock, "condition variables of Darwin support one clock only");
JX_UNAVAILABLE(pthread_mutex_timedlock, "not available on Darwin");
JX_UNAVAILABLE(pthread_spin_lock, "not available on Darwin");
JX_UNAVAILABLE(pthread_barrier_wait, "not available on Darwin");
JX_UNAVAILABLE(pthread_getcpuclockid, "not available on Darwin");
