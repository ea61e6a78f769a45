// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that the library may use.
#pragma once

#include <stddef.h>
#include <sys/types.h>

#define SEEK_SET 0
#define SEEK_CUR 1
#define SEEK_END 2

#define F_OK 0
#define X_OK 1
#define W_OK 2
#define R_OK 4

extern "C" {

int access(const char*, int);
int close(int);
int dup(int);
int dup2(int, int);
void _exit(int) __attribute__((noreturn));
int fsync(int);
int ftruncate(int, off_t);
char* getcwd(char*, size_t);
gid_t getegid();
uid_t geteuid();
pid_t getpid();
pid_t getppid();
uid_t getuid();
int isatty(int);
int link(const char*, const char*);
off_t lseek(int, off_t, int);
int pipe(int[2]);
ssize_t pread(int, void*, size_t, off_t);
ssize_t pwrite(int, const void*, size_t, off_t);
ssize_t read(int, void*, size_t);
ssize_t readlink(const char*, char*, size_t);
int rmdir(const char*);
int symlink(const char*, const char*);
long sysconf(int);
int truncate(const char*, off_t);
int unlink(const char*);
int unlinkat(int, const char*, int);
ssize_t write(int, const void*, size_t);

}  // extern "C"
