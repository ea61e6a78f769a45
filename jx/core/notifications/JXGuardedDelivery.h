// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>

#include "jx/core/JXLogger.h"
#include "jx/core/notifications/JXNotification.h"
#include "jx/platform/JXConcat.h"

namespace jx {

/// Calls an observer of the notification. Logs its exceptions at level 3, so that they affect
/// neither the poster nor the other observers.
template <typename Call>
void deliverGuarded(const JXNotification& notification, Call&& call) noexcept {
  JXLogger& logger = JXLogger::sharedInstance();
  try {
    try {
      call();
    } catch (const std::exception& error) {
      logger.logMessage_withLevel(concat({"Observer of \"", notification.name.view(),
                                          "\" threw an exception: ", error.what(), "; ignored"}),
                                  3);
    } catch (...) {
      logger.logMessage_withLevel(
          concat({"Observer of \"", notification.name.view(), "\" threw an exception; ignored"}),
          3);
    }
  } catch (...) {
    // Out of memory for the message.
  }
}

}  // namespace jx
