// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that GNUstep uses.
#pragma once

#include <limits.h>
#include <sys/types.h>

#define MAXPATHLEN 1024
