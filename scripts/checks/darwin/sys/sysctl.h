// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: musl has none. Declares what the library uses.
#pragma once

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif
int sysctlbyname(const char* name, void* value, size_t* size, void* newValue, size_t newSize);
#ifdef __cplusplus
}
#endif
