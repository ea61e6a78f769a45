// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXEventSender.h"

#include "jx/core/JXForkedChild.h"
#include "jx/core/notifications/JXNotificationHub.h"

namespace jx {

std::shared_ptr<JXEventSender> JXEventSender::init() {
  return std::shared_ptr<JXEventSender>(new JXEventSender());
}

JXEventSender::JXEventSender() { setNotificationCenter(nullptr); }

void JXEventSender::setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center) {
  if (JXForkedChild::ignores("JXEventSender::setNotificationCenter()")) return;
  const std::shared_ptr<JXNotificationCenter> next =
      center ? center : JXNotificationCenter::defaultCenter();
  // Before anything is posted there, so that no notification misses the hub.
  JXNotificationHub::sharedInstance().observe(next);
  const std::lock_guard<std::mutex> lock(mutex_);
  center_ = next;
}

void JXEventSender::send(const JXNotification& notification) {
  if (JXForkedChild::ignores("JXEventSender::send()")) return;
  // Copied, because an observer may move this sender to another center during the call.
  std::shared_ptr<JXNotificationCenter> center;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    center = center_;
  }
  center->postNotification(notification);
}

}  // namespace jx
