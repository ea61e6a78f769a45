// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <thread>

namespace jx {

/// Locks a mutex that other threads hold for a few microseconds only, while they write to a file or
/// serialise a context. A waiter that sleeps at once needs longer to wake up than the owner to
/// unlock, and each `unlock` then calls the kernel: several threads together would execute fewer
/// events than one. So the waiter first tries for about as long as the owner needs.
template <typename Mutex>
void lockSpinning(Mutex& mutex) {
  if (mutex.try_lock()) return;
  // With one processor, the owner cannot run while this thread does.
  static const int tries = std::thread::hardware_concurrency() > 1 ? 500 : 0;
  for (int i = 0; i < tries; ++i) {
#if defined(__x86_64__) || defined(__i386__)
    __builtin_ia32_pause();
#elif defined(__aarch64__) || defined(__ARM_ARCH_7A__)
    __asm__ __volatile__("yield");
#endif
    if (mutex.try_lock()) return;
  }
  mutex.lock();
}

}  // namespace jx
