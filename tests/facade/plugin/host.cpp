// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Loads a plugin, lets it send an event, unloads it, and goes on until its input ends.
//
//   host PLUGIN FOLDER HOST CA_FILE
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int main(int count, char** arguments) {
  if (count != 5) return 2;
  void* const plugin = ::dlopen(arguments[1], RTLD_NOW | RTLD_LOCAL);
  if (plugin == nullptr) {
    std::fprintf(stderr, "%s\n", ::dlerror());
    return 3;
  }
  using Execute = void(const char*, const char*, const char*);
  auto* const execute = reinterpret_cast<Execute*>(::dlsym(plugin, "executeOne"));
  if (execute == nullptr) return 4;
  execute(arguments[2], arguments[3], arguments[4]);
  if (::dlclose(plugin) != 0) return 5;
  // The handlers of the library run.
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  if (::waitpid(child, nullptr, 0) != child) return 6;
  std::puts("unloaded");
  std::fflush(stdout);
  while (std::getchar() != EOF) {
  }
  return 0;
}
