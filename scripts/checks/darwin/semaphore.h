// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: that of musl, without
// what Darwin only seems to have.
#pragma once

#include_next <semaphore.h>

#include "lacking.h"

JX_LACKING(sem_init, "Darwin declares it, and it always fails");
JX_LACKING(sem_timedwait, "Darwin has none");
