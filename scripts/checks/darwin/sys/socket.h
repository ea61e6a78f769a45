// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that the library may use.
#pragma once

#include <stdint.h>
#include <sys/types.h>
#include <sys/uio.h>

typedef uint32_t socklen_t;

struct sockaddr {
  uint8_t sa_len;
  sa_family_t sa_family;
  char sa_data[14];
};

struct sockaddr_storage {
  uint8_t ss_len;
  sa_family_t ss_family;
  char ss_data[126];
};

#define AF_UNSPEC 0
#define AF_UNIX 1
#define AF_INET 2
#define AF_LINK 18
#define AF_INET6 30
#define SOCK_STREAM 1
#define SOCK_DGRAM 2
#define SOL_SOCKET 0xffff
#define SO_LINGER 0x0080
#define SO_NOSIGPIPE 0x1022
#define SHUT_RDWR 2

struct linger {
  int l_onoff;
  int l_linger;
};

extern "C" {

int socket(int, int, int);
int connect(int, const sockaddr*, socklen_t);
int setsockopt(int, int, int, const void*, socklen_t);
int getsockopt(int, int, int, void*, socklen_t*);
int shutdown(int, int);
int getpeername(int, sockaddr*, socklen_t*);
ssize_t send(int, const void*, size_t, int);
ssize_t recv(int, void*, size_t, int);

}  // extern "C"
