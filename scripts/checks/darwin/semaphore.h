// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: musl's header without the functions that
// Darwin does not have or that always fail there.
#pragma once

#include_next <semaphore.h>

#include "unavailable.h"

JX_UNAVAILABLE(sem_init, "it always fails on Darwin");
JX_UNAVAILABLE(sem_timedwait, "not available on Darwin");
