// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: what the library may use of it.
#pragma once

#include <netinet/in.h>

extern "C" {

int inet_pton(int, const char*, void*);
const char* inet_ntop(int, const void*, char*, socklen_t);
char* inet_ntoa(in_addr);

}  // extern "C"
