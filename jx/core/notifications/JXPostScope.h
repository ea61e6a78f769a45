// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/core/notifications/JXNotification.h"

namespace jx {

/// Exists on the posting thread while a notification is posted, and passes the number of the
/// decision that the network manager made because of it to the observers that follow. Two threads
/// may post a stop and an enabling at once; observers apply the one that the manager applied last.
class JXPostScope {
 public:
  explicit JXPostScope(const JXNotification& notification);
  ~JXPostScope();
  JXPostScope(const JXPostScope&) = delete;
  JXPostScope& operator=(const JXPostScope&) = delete;

  /// Sets the number for this notification; ignored when this thread is not posting it.
  static void setDecision(const JXNotification& notification, std::uint64_t decision);
  /// Returns the number for this notification; 0 when this thread is not posting it, or when the
  /// manager made no decision because of it.
  static std::uint64_t decisionOf(const JXNotification& notification);

 private:
  const JXNotification& notification_;
  JXPostScope* const outer_;
  std::uint64_t decision_ = 0;
};

}  // namespace jx
