// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that the library may use.
#pragma once

#include <sys/types.h>
#include <time.h>

struct stat {
  dev_t st_dev;
  mode_t st_mode;
  nlink_t st_nlink;
  ino_t st_ino;
  uid_t st_uid;
  gid_t st_gid;
  dev_t st_rdev;
  timespec st_atimespec;
  timespec st_mtimespec;
  timespec st_ctimespec;
  timespec st_birthtimespec;
  off_t st_size;
  blkcnt_t st_blocks;
  blksize_t st_blksize;
};

#define st_atime st_atimespec.tv_sec
#define st_mtime st_mtimespec.tv_sec
#define st_ctime st_ctimespec.tv_sec

#define S_IRUSR 0000400
#define S_IWUSR 0000200
#define S_IXUSR 0000100
#define S_IWGRP 0000020
#define S_IWOTH 0000002
#define S_IFMT 0170000
#define S_IFIFO 0010000
#define S_IFDIR 0040000
#define S_IFREG 0100000
#define S_IFLNK 0120000
#define S_IFSOCK 0140000
#define S_ISFIFO(mode) (((mode)&S_IFMT) == S_IFIFO)
#define S_ISDIR(mode) (((mode)&S_IFMT) == S_IFDIR)
#define S_ISREG(mode) (((mode)&S_IFMT) == S_IFREG)
#define S_ISLNK(mode) (((mode)&S_IFMT) == S_IFLNK)
#define S_ISSOCK(mode) (((mode)&S_IFMT) == S_IFSOCK)

extern "C" {

int chmod(const char*, mode_t);
int fstat(int, struct stat*);
int fstatat(int, const char*, struct stat*, int);
int lstat(const char*, struct stat*);
int mkdir(const char*, mode_t);
int mkdirat(int, const char*, mode_t);
int stat(const char*, struct stat*);

}  // extern "C"
