// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>

#include "jx/core/JXStartGuard.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

class JXJsonSink;

/// The execution of an event, on one thread, and its claim of the new-session mark. An event that
/// is executed while the stored data is erased is dropped, because it contains erased identifiers.
class JXNewSessionClaim {
 public:
  JXNewSessionClaim();
  /// Gives the mark back, unless the event was posted.
  ~JXNewSessionClaim();
  JXNewSessionClaim(const JXNewSessionClaim&) = delete;
  JXNewSessionClaim& operator=(const JXNewSessionClaim&) = delete;

  /// Claims the mark if there is one. Returns whether the event carries it.
  bool take();
  /// Clears the mark, because the event was posted.
  void keep();

 private:
  const JXErasureScope erasures_;
  std::optional<std::uint64_t> session_;  ///< the session whose mark is claimed
};

/// The state behind an event: the predefined variables, the context blocks that are written from
/// them, and the one mutex that guards all of it. The shared objects of the public classes are its
/// parts. Thread-safe; never destroyed.
class JXSession {
 public:
  static JXSession& sharedInstance();

  // The first call of each operation runs the start-up of the part.
  JXPredefinedVariables& variables();
  JXDevice& device();
  JXApp& app();
  JXLifecycle& lifecycle();

  /// Writes the device block, the application block and the timestamp of an event, as of one
  /// moment. With a claim, that moment is an execution: the variables advance first, and the event
  /// claims the new-session mark.
  void writeContext(JXJsonSink& sink, JXNewSessionClaim* claim);
  /// Advances the variables and claims the mark for an event that is executed without a context.
  void advance(JXNewSessionClaim& claim);

  /// Begins the first visit again if the stored data was erased since the variables were set.
  /// Called by every operation that returns a part.
  /// Returns whether it did.
  bool renewIfErased();
  /// Removes erased values from memory. The next use of the session begins the first visit.
  void forgetErased();

 private:
  friend class JXSessionLock;

  JXSession();
  void advance(JXPredefinedVariables& variables);
  void forget();

  std::recursive_mutex mutex_;
  bool hasBegunLater_ = false;  ///< the identifiers that could be created later were seen
  std::atomic<std::uint64_t> seenBeginnings_{
      0};  ///< the number of beginnings when the variables were set
  JXPredefinedVariables variables_;
  JXDevice device_;
  JXApp app_;
  JXLifecycle lifecycle_;
  JXOnce<JXPredefinedVariables, JXSessionLock> variablesStart_;
  JXOnce<JXDevice, JXSessionLock> deviceStart_;
  JXOnce<JXApp, JXSessionLock> appStart_;
  JXOnce<JXLifecycle, JXSessionLock> lifecycleStart_;
};

}  // namespace jx
