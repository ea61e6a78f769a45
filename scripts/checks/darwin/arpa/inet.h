// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that the library may use.
#pragma once

#include <netinet/in.h>

extern "C" {

int inet_pton(int, const char*, void*);
const char* inet_ntop(int, const void*, char*, socklen_t);
char* inet_ntoa(in_addr);

}  // extern "C"
