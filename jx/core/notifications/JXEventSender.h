// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <memory>
#include <mutex>

#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXEventSender;

/// An object that owns a sender.
class JX_API IJXEventSenderDelegate {
 public:
  virtual ~IJXEventSenderDelegate() = default;
  /// Returns the sender that this object owns; null when it has none.
  virtual std::shared_ptr<JXEventSender> senderDelegate() const = 0;
};

/// Posts its owner's notifications on a center that the hub observes, so that they reach the core
/// from any center. Thread-safe.
class JX_API JXEventSender {
 public:
  /// Returns a new sender on the default center, without an owner. Never null.
  static std::shared_ptr<JXEventSender> init();

  /// Sets the owner; the sender does not own it and never calls it.
  void setParent(IJXEventSenderDelegate* parent) { parent_.store(parent); }
  /// Returns the owner; null when there is none.
  IJXEventSenderDelegate* parent() const { return parent_.load(); }
  /// Sets the center to post on; null selects the default center.
  void setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Posts the notification and calls all observers on the caller's thread before it returns.
  void send(const JXNotification& notification);

 private:
  JXEventSender();

  std::atomic<IJXEventSenderDelegate*> parent_{nullptr};
  std::mutex mutex_;
  std::shared_ptr<JXNotificationCenter> center_;
};

}  // namespace jx
