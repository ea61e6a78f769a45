// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <exception>

#include "jx/core/JXLogger.h"
#include "jx/core/notifications/JXNotification.h"

namespace jx {

/// Calls one who hears the notification. What it throws becomes a log line, so that neither the
/// poster nor the others who hear it notice.
template <typename Call>
void deliverGuarded(const JXNotification& notification, Call&& call) {
  try {
    call();
  } catch (const std::exception& error) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "An observer of \"" + notification.name.toStdString() + "\" threw: " + error.what(), 3);
  } catch (...) {
    JXLogger::sharedInstance().logMessage_withLevel(
        "An observer of \"" + notification.name.toStdString() + "\" threw", 3);
  }
}

}  // namespace jx
