// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXEventSender.h"

#include "jx/core/notifications/JXNotificationHub.h"

namespace jx {

std::shared_ptr<JXEventSender> JXEventSender::init() {
  return std::shared_ptr<JXEventSender>(new JXEventSender());
}

JXEventSender::JXEventSender() { setNotificationCenter(nullptr); }

void JXEventSender::setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center) {
  center_ = center ? center : JXNotificationCenter::defaultCenter();
  JXNotificationHub::sharedInstance().observe(center_);
}

void JXEventSender::send(const JXNotification& notification) {
  // Copied, because an observer may move this sender to another center during the call.
  const std::shared_ptr<JXNotificationCenter> center = center_;
  center->postNotification(notification);
}

}  // namespace jx
