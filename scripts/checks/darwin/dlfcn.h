// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Replaces tvOS's header in scripts/checks/tvos: the declarations that the library may use.
#pragma once

#define RTLD_LAZY 0x1
#define RTLD_NOW 0x2
#define RTLD_LOCAL 0x4
#define RTLD_GLOBAL 0x8
#define RTLD_NOLOAD 0x10
#define RTLD_NODELETE 0x80
#define RTLD_DEFAULT ((void*)-2)

extern "C" {

struct Dl_info {
  const char* dli_fname;
  void* dli_fbase;
  const char* dli_sname;
  void* dli_saddr;
};

int dladdr(const void*, Dl_info*);
int dlclose(void*);
char* dlerror();
void* dlopen(const char*, int);
void* dlsym(void*, const char*);

}  // extern "C"
