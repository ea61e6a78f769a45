// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// The types of tvOS on arm64, for scripts/checks/tvos. They are defined before those of musl, which
// defines only missing types. A 64-bit integer is a `long long` here and a `long` on Linux, so
// overloads and templates resolve differently on the two systems.

#ifndef JX_DARWIN_TYPES
#define JX_DARWIN_TYPES

typedef long long int64_t;
typedef unsigned long long uint64_t;
typedef unsigned long long u_int64_t;
typedef long intmax_t;
typedef unsigned long uintmax_t;
typedef long long off_t;
typedef unsigned long long ino_t;
typedef int dev_t;
typedef unsigned short mode_t;
typedef unsigned short nlink_t;
typedef long long blkcnt_t;
typedef int blksize_t;
typedef long time_t;
typedef int suseconds_t;
typedef unsigned long clock_t;
typedef unsigned char sa_family_t;
typedef int wint_t;
typedef unsigned int wctype_t;
typedef unsigned int __uint32_t;

#define __DEFINED_int64_t
#define __DEFINED_uint64_t
#define __DEFINED_u_int64_t
#define __DEFINED_intmax_t
#define __DEFINED_uintmax_t
#define __DEFINED_off_t
#define __DEFINED_ino_t
#define __DEFINED_dev_t
#define __DEFINED_mode_t
#define __DEFINED_nlink_t
#define __DEFINED_blkcnt_t
#define __DEFINED_blksize_t
#define __DEFINED_time_t
#define __DEFINED_suseconds_t
#define __DEFINED_clock_t
#define __DEFINED_sa_family_t
#define __DEFINED_wint_t
#define __DEFINED_wctype_t

#endif

#include_next <bits/alltypes.h>
