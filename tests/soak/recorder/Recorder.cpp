// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
//
// A library to preload (LD_PRELOAD): it writes one line to the file JX_OPENS_LOG for each call of a
// function that opens a descriptor or creates a folder:
//
//   program <tab> calling module <tab> function <tab> path <tab> flags <tab> files
//
// The flags are names that are separated by "|". "files" is the number of descriptors, without
// sockets, that the program itself has open after the call. Only calls between modules are seen,
// not those within the C library.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <limits.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/auxv.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>

#include "tests/soak/RealFunction.h"

// The parameter names of the C library's headers say nothing, and these definitions need none.
namespace {

using jx::soak::RealFunction;

struct Name {
  long bits;
  const char* text;
};

constexpr Name kOpenFlags[] = {
    {O_WRONLY, "WRONLY"},     {O_RDWR, "RDWR"},      {O_APPEND, "APPEND"},
    {O_CREAT, "CREAT"},       {O_EXCL, "EXCL"},      {O_TRUNC, "TRUNC"},
    {O_NONBLOCK, "NONBLOCK"}, {O_NOCTTY, "NOCTTY"},  {O_DIRECTORY, "DIRECTORY"},
    {O_NOFOLLOW, "NOFOLLOW"}, {O_CLOEXEC, "CLOEXEC"}};
constexpr Name kCloseOnExec[] = {{O_CLOEXEC, "CLOEXEC"}};
static_assert(SOCK_CLOEXEC == O_CLOEXEC && EFD_CLOEXEC == O_CLOEXEC && EPOLL_CLOEXEC == O_CLOEXEC);

// Opened, written and closed by system calls that no sanitizer sees.
int logDescriptor() {
  const char* const path = getenv("JX_OPENS_LOG");
  if (path == nullptr) return -1;
  constexpr int kFlags = O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, kFlags, 0600));
}

template <size_t count>
void describe(const Name (&names)[count], long flags, char* into, size_t size) {
  into[0] = '\0';
  for (const Name& name : names) {
    if ((flags & name.bits) == 0) continue;
    if (into[0] != '\0') strncat(into, "|", size - strlen(into) - 1);
    strncat(into, name.text, size - strlen(into) - 1);
  }
}

// Writes the path of `name` relative to the folder.
void resolve(int folder, const char* name, char* into, size_t size) {
  size_t length = 0;
  if (name[0] != '/' && folder != AT_FDCWD) {
    char link[64];
    snprintf(link, sizeof link, "/proc/self/fd/%d", folder);
    const ssize_t got = readlink(link, into, size - 1);
    length = got < 0 ? 0 : static_cast<size_t>(got);
    into[length++] = '/';
  }
  snprintf(into + length, size - length, "%s", name);
}

// The descriptors that the program itself has opened, and that are not sockets.
constexpr int kMaxDescriptor = 4096;
std::atomic<bool> isFile[kMaxDescriptor];
std::atomic<int> files{0};

bool isProgram(const Dl_info& module) {
  Dl_info program{};
  return dladdr(reinterpret_cast<const void*>(getauxval(AT_ENTRY)), &program) != 0 &&
         program.dli_fbase == module.dli_fbase;
}

void closed(int descriptor) {
  if (descriptor < 0 || descriptor >= kMaxDescriptor) return;
  if (isFile[descriptor].exchange(false)) --files;
}

void opened(const Dl_info& module, int descriptor) {
  struct stat status;
  if (descriptor < 0 || descriptor >= kMaxDescriptor || !isProgram(module)) return;
  if (fstat(descriptor, &status) != 0 || S_ISSOCK(status.st_mode)) return;
  if (!isFile[descriptor].exchange(true)) ++files;
}

class ErrnoKeeper {
 public:
  ~ErrnoKeeper() { errno = before_; }

 private:
  const int before_ = errno;
};

// Returns the descriptor.
int record(const void* caller, const char* function, const char* path, const char* flags,
           int descriptor) {
  const ErrnoKeeper keeper;
  Dl_info module{};
  const bool isKnown = dladdr(caller, &module) != 0 && module.dli_fname != nullptr;
  if (isKnown) opened(module, descriptor);
  char line[2 * PATH_MAX];
  const int length =
      snprintf(line, sizeof line, "%s\t%s\t%s\t%s\t%s\t%d\n", program_invocation_short_name,
               isKnown ? module.dli_fname : "?", function, path, flags, files.load());
  const int log = logDescriptor();
  if (log >= 0 && syscall(SYS_write, log, line, length) != length) abort();
  if (log >= 0) syscall(SYS_close, log);
  return descriptor;
}

int recordOpen(const void* caller, const char* function, int folder, const char* name, int flags,
               int descriptor) {
  const ErrnoKeeper keeper;
  char path[PATH_MAX + 64];
  char text[128];
  resolve(folder, name, path, sizeof path);
  describe(kOpenFlags, flags, text, sizeof text);
  return record(caller, function, path, text, descriptor);
}

int recordFlags(const void* caller, const char* function, long flags, int descriptor) {
  char text[32];
  describe(kCloseOnExec, flags, text, sizeof text);
  return record(caller, function, "", text, descriptor);
}

FILE* recordStream(const void* caller, const char* function, const char* path, const char* mode,
                   FILE* stream) {
  const char* const flags = strchr(mode, 'e') == nullptr ? "" : "CLOEXEC";
  record(caller, function, path, flags, stream == nullptr ? -1 : fileno(stream));
  return stream;
}

}  // namespace

#define CALLER __builtin_return_address(0)

extern "C" {

#define DEFINE_OPEN(function)                                                             \
  int function(const char* name, int flags, ...) {                                        \
    static RealFunction<int, const char*, int, mode_t> real(#function);                   \
    va_list rest;                                                                         \
    va_start(rest, flags);                                                                \
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;                \
    va_end(rest);                                                                         \
    return recordOpen(CALLER, #function, AT_FDCWD, name, flags, real(name, flags, mode)); \
  }
#define DEFINE_OPENAT(function)                                                                 \
  int function(int folder, const char* name, int flags, ...) {                                  \
    static RealFunction<int, int, const char*, int, mode_t> real(#function);                    \
    va_list rest;                                                                               \
    va_start(rest, flags);                                                                      \
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;                      \
    va_end(rest);                                                                               \
    return recordOpen(CALLER, #function, folder, name, flags, real(folder, name, flags, mode)); \
  }
DEFINE_OPEN(open)
DEFINE_OPEN(open64)
DEFINE_OPENAT(openat)
DEFINE_OPENAT(openat64)

// The forms that are called with _FORTIFY_SOURCE.
int __open_2(const char* name, int flags) {
  static RealFunction<int, const char*, int> real("__open_2");
  return recordOpen(CALLER, "open", AT_FDCWD, name, flags, real(name, flags));
}
int __open64_2(const char* name, int flags) {
  static RealFunction<int, const char*, int> real("__open64_2");
  return recordOpen(CALLER, "open64", AT_FDCWD, name, flags, real(name, flags));
}
int __openat_2(int folder, const char* name, int flags) {
  static RealFunction<int, int, const char*, int> real("__openat_2");
  return recordOpen(CALLER, "openat", folder, name, flags, real(folder, name, flags));
}
int __openat64_2(int folder, const char* name, int flags) {
  static RealFunction<int, int, const char*, int> real("__openat64_2");
  return recordOpen(CALLER, "openat64", folder, name, flags, real(folder, name, flags));
}

int creat(const char* name, mode_t mode) {
  static RealFunction<int, const char*, mode_t> real("creat");
  return recordOpen(CALLER, "creat", AT_FDCWD, name, O_WRONLY | O_CREAT | O_TRUNC,
                    real(name, mode));
}
FILE* fopen(const char* name, const char* mode) {
  static RealFunction<FILE*, const char*, const char*> real("fopen");
  return recordStream(CALLER, "fopen", name, mode, real(name, mode));
}
FILE* fopen64(const char* name, const char* mode) {
  static RealFunction<FILE*, const char*, const char*> real("fopen64");
  return recordStream(CALLER, "fopen64", name, mode, real(name, mode));
}
DIR* opendir(const char* name) {
  static RealFunction<DIR*, const char*> real("opendir");
  DIR* const folder = real(name);
  record(CALLER, "opendir", name, "DIRECTORY|CLOEXEC", folder == nullptr ? -1 : dirfd(folder));
  return folder;
}
int mkdir(const char* name, mode_t mode) {
  static RealFunction<int, const char*, mode_t> real("mkdir");
  record(CALLER, "mkdir", name, "", -1);
  return real(name, mode);
}
int mkdirat(int folder, const char* name, mode_t mode) {
  static RealFunction<int, int, const char*, mode_t> real("mkdirat");
  char path[PATH_MAX + 64];
  resolve(folder, name, path, sizeof path);
  record(CALLER, "mkdirat", path, "", -1);
  return real(folder, name, mode);
}

int socket(int family, int type, int protocol) {
  static RealFunction<int, int, int, int> real("socket");
  return recordFlags(CALLER, "socket", type, real(family, type, protocol));
}
int socketpair(int family, int type, int protocol, int ends[2]) {
  static RealFunction<int, int, int, int, int*> real("socketpair");
  return recordFlags(CALLER, "socketpair", type, real(family, type, protocol, ends));
}
int accept(int listening, sockaddr* address, socklen_t* length) {
  static RealFunction<int, int, sockaddr*, socklen_t*> real("accept");
  return recordFlags(CALLER, "accept", 0, real(listening, address, length));
}
int accept4(int listening, sockaddr* address, socklen_t* length, int flags) {
  static RealFunction<int, int, sockaddr*, socklen_t*, int> real("accept4");
  return recordFlags(CALLER, "accept4", flags, real(listening, address, length, flags));
}
int dup(int descriptor) {
  static RealFunction<int, int> real("dup");
  return recordFlags(CALLER, "dup", 0, real(descriptor));
}
int dup2(int descriptor, int number) {
  static RealFunction<int, int, int> real("dup2");
  return recordFlags(CALLER, "dup2", 0, real(descriptor, number));
}
int dup3(int descriptor, int number, int flags) {
  static RealFunction<int, int, int, int> real("dup3");
  return recordFlags(CALLER, "dup3", flags, real(descriptor, number, flags));
}
#define DEFINE_FCNTL(function)                                               \
  int function(int descriptor, int command, ...) {                           \
    static RealFunction<int, int, int, void*> real(#function);               \
    va_list rest;                                                            \
    va_start(rest, command);                                                 \
    void* const argument = va_arg(rest, void*);                              \
    va_end(rest);                                                            \
    const int result = real(descriptor, command, argument);                  \
    if (command == F_DUPFD) recordFlags(CALLER, "fcntl F_DUPFD", 0, result); \
    if (command == F_DUPFD_CLOEXEC)                                          \
      recordFlags(CALLER, "fcntl F_DUPFD_CLOEXEC", O_CLOEXEC, result);       \
    return result;                                                           \
  }
DEFINE_FCNTL(fcntl)
DEFINE_FCNTL(fcntl64)

int pipe(int ends[2]) {
  static RealFunction<int, int*> real("pipe");
  return recordFlags(CALLER, "pipe", 0, real(ends));
}
int pipe2(int ends[2], int flags) {
  static RealFunction<int, int*, int> real("pipe2");
  return recordFlags(CALLER, "pipe2", flags, real(ends, flags));
}

#define DEFINE_WITH_FLAGS(function, Parameter)                           \
  int function(Parameter argument, int flags) {                          \
    static RealFunction<int, Parameter, int> real(#function);            \
    return recordFlags(CALLER, #function, flags, real(argument, flags)); \
  }
#define DEFINE_ONLY_FLAGS(function)                            \
  int function(int flags) {                                    \
    static RealFunction<int, int> real(#function);             \
    return recordFlags(CALLER, #function, flags, real(flags)); \
  }
DEFINE_WITH_FLAGS(eventfd, unsigned)
DEFINE_WITH_FLAGS(timerfd_create, int)
DEFINE_ONLY_FLAGS(epoll_create1)
DEFINE_ONLY_FLAGS(inotify_init1)

int memfd_create(const char* name, unsigned flags) {
  static RealFunction<int, const char*, unsigned> real("memfd_create");
  // MFD_CLOEXEC has another value.
  return recordFlags(CALLER, "memfd_create", (flags & 1u) != 0 ? O_CLOEXEC : 0, real(name, flags));
}
int inotify_init() {
  static RealFunction<int> real("inotify_init");
  return recordFlags(CALLER, "inotify_init", 0, real());
}
int epoll_create(int size) {
  static RealFunction<int, int> real("epoll_create");
  return recordFlags(CALLER, "epoll_create", 0, real(size));
}

int close(int descriptor) {
  static RealFunction<int, int> real("close");
  closed(descriptor);
  return real(descriptor);
}
int closedir(DIR* folder) {
  static RealFunction<int, DIR*> real("closedir");
  closed(dirfd(folder));
  return real(folder);
}
int fclose(FILE* stream) {
  static RealFunction<int, FILE*> real("fclose");
  closed(fileno(stream));
  return real(stream);
}

}  // extern "C"
