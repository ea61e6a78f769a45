// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXEventSender;

/// An object that owns a sender.
class JX_API IJXEventSenderDelegate {
 public:
  virtual ~IJXEventSenderDelegate() = default;
  /// The sender that this object owns; null when it has none.
  virtual std::shared_ptr<JXEventSender> senderDelegate() const = 0;
};

/// Posts its owner's notifications on a centre that the hub observes, so that they reach the core
/// whichever centre it is.
class JX_API JXEventSender {
 public:
  /// A new sender on the default centre, without an owner.
  static std::shared_ptr<JXEventSender> init();

  /// The owner; not owned by the sender and never called.
  void setParent(IJXEventSenderDelegate* parent) { parent_ = parent; }
  /// The owner, null when there is none.
  IJXEventSenderDelegate* parent() const { return parent_; }
  /// The centre to post on; null is the default one.
  void setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Posts on the caller's thread; all who hear it have been called when it returns.
  void send(const JXNotification& notification);

 private:
  JXEventSender();

  IJXEventSenderDelegate* parent_ = nullptr;
  std::shared_ptr<JXNotificationCenter> center_;
};

}  // namespace jx
