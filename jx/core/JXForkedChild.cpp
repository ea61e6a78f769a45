// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXForkedChild.h"

#include <dlfcn.h>
#include <pthread.h>

#include <ctime>
#include <mutex>
#include <new>
#include <string>
#include <utility>

#include "jx/core/JXLogger.h"
#include "jx/core/JXOwnedDescriptors.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

std::atomic<std::recursive_mutex*> consistent{nullptr};
// Set while this thread forks and has locked the mutex for it.
thread_local bool isLockedByFork = false;

bool tryLock(std::recursive_mutex& mutex) {
  constexpr timespec kPause{0, 100'000};
  for (int pauses = 0; pauses < 1'000; ++pauses) {
    if (mutex.try_lock()) return true;
    ::nanosleep(&kPause, nullptr);
  }
  return false;
}

// Keeps the module that contains this code in memory after its application has unloaded it: the
// handlers and threads of the library run until the process exits. Has no effect in a program.
void keepModuleLoaded() {
  Dl_info module{};
  if (::dladdr(&consistent, &module) == 0 || module.dli_fname == nullptr) return;
  ::dlopen(module.dli_fname, RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
}

}  // namespace

std::atomic<bool> JXForkedChild::isCurrent_{false};

void JXForkedChild::watch() {
  static std::once_flag once;
  std::call_once(once, [] {
    keepModuleLoaded();
    pthread_atfork(&beforeFork, &afterForkInParent, &afterForkInChild);
  });
}

void JXForkedChild::keepConsistent(std::recursive_mutex& mutex) {
  watch();
  consistent = &mutex;
}

// Locks the mutex first: its owner may be opening a file.
void JXForkedChild::beforeFork() noexcept {
  std::recursive_mutex* const mutex = consistent;
  isLockedByFork = mutex != nullptr && tryLock(*mutex);
  JXOwnedDescriptors::beforeFork();
}

void JXForkedChild::afterForkInParent() noexcept {
  JXOwnedDescriptors::afterForkInParent();
  if (std::exchange(isLockedByFork, false)) consistent.load()->unlock();
}

// Runs between `fork` and its return in the child: only async-signal-safe functions are allowed.
// Creates the mutex again, because a thread that does not exist in the child may have locked it,
// and a recursive mutex that the parent has locked cannot be unlocked by another process.
void JXForkedChild::afterForkInChild() noexcept {
  isCurrent_ = true;
  isLockedByFork = false;
  JXOwnedDescriptors::closeInForkedChild();
  if (consistent != nullptr) new (consistent.load()) std::recursive_mutex();
}

bool JXForkedChild::logOnce(const char* operation) noexcept {
  static std::atomic<bool> isLogged{false};
  JXLogger& logger = JXLogger::sharedInstance();
  if (isLogged.exchange(true) || !logger.printsLevel(3)) return true;
  try {
    logger.logInForkedChild(concat({operation, " called in a forked child process; ignored"}), 3);
  } catch (...) {
    // Out of memory: the call is ignored without a message.
  }
  return true;
}

}  // namespace jx
