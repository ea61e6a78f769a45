// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that the library may use.
#pragma once

#include <sys/socket.h>

struct ifaddrs {
  ifaddrs* ifa_next;
  char* ifa_name;
  unsigned int ifa_flags;
  sockaddr* ifa_addr;
  sockaddr* ifa_netmask;
  sockaddr* ifa_dstaddr;
  void* ifa_data;
};

extern "C" {

int getifaddrs(ifaddrs**);
void freeifaddrs(ifaddrs*);

}  // extern "C"
