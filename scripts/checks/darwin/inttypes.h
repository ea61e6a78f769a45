// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: musl's header with the format macros of a
// 64-bit integer that is a `long long`.
#pragma once

#include_next <inttypes.h>

#undef PRId64
#undef PRIi64
#undef PRIu64
#undef PRIx64
#undef PRIX64
#undef SCNd64
#undef SCNi64
#undef SCNu64
#undef SCNx64
#define PRId64 "lld"
#define PRIi64 "lli"
#define PRIu64 "llu"
#define PRIx64 "llx"
#define PRIX64 "llX"
#define SCNd64 "lld"
#define SCNi64 "lli"
#define SCNu64 "llu"
#define SCNx64 "llx"
