// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#ifndef TESTS_C_PLAINC_H
#define TESTS_C_PLAINC_H

#include "jx/c/jx.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Creates a purchase of two items with every field of its class, in C. Returns null if a call
/// failed.
jx_object* plain_purchase(void);

/// Returns constants of each kind, as C sees them, up to a null pointer.
const char* const* plain_names(void);

#ifdef __cplusplus
}
#endif

#endif
