// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <mutex>
#include <thread>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogDeferral.h"
#include "jx/core/JXLogger.h"

namespace jx {

/// Start state of a process-wide object, so that `init` runs once and `reinit` can request another
/// run: 0 never initialised, 1 `init` is running, 2 initialised, 3 `reinit` requested a run.
enum JXInitState : int {
  kJXInitNever = 0,
  kJXInitRunning = 1,
  kJXInitDone = 2,
  kJXInitAgain = 3,
};

/// Returns true when `init` has to run; `state` is then 1. Returns false when the object is
/// initialised. Blocks forever while an `init` is running: a second one inside it or on another
/// thread is a misuse that must never yield a half-initialised object. Logs one message then.
bool tryBeginInit(std::atomic<int>& state, const char* className);

/// Creates the one object of a class at the first call, on the calling thread, while other threads
/// wait. The object is never destroyed. Messages that are logged during the creation are logged
/// after it, so a log sink may use the object. Creating it again from within the creation, which
/// only a platform of the application can do, blocks for ever. A `Lock` that the creation needs is
/// taken before it, so that a thread that has the lock already does not wait for the creator.
template <typename Object, typename Lock = JXLogDeferral>
class JXOnce {
 public:
  template <typename Create>
  Object& get(const Create& create) {
    if (Object* const object = object_.load(std::memory_order_acquire)) return *object;
    if (creator_.load() == std::this_thread::get_id()) {
      neverReturn("The SDK was called by a JXPlatform during its start; the call never returns");
    }
    if (JXForkedChild::isCurrent()) return getInForkedChild(create);
    const JXLogDeferral deferral;
    const Lock lock;
    std::call_once(once_, [&] {
      creator_ = std::this_thread::get_id();
      Object* const object = create();
      creator_ = std::thread::id();
      object_.store(object, std::memory_order_release);
    });
    return *object_.load(std::memory_order_acquire);
  }

 private:
  // The thread that was creating the object may not exist in this process.
  template <typename Create>
  Object& getInForkedChild(const Create& create) {
    Object* const object = create();
    object_.store(object, std::memory_order_release);
    return *object;
  }

  std::atomic<Object*> object_{nullptr};
  std::atomic<std::thread::id> creator_{};
  std::once_flag once_;
};

}  // namespace jx
