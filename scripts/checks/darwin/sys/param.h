// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: what GNUstep's headers want of it.
#pragma once

#include <limits.h>
#include <sys/types.h>

#define MAXPATHLEN 1024
