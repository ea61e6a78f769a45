// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <memory>

#include "jx/core/JXSingleton.h"
#include "jx/core/notifications/JXEventSender.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Watches the application go to the background and come back, and tells the core. Runs on the
/// thread that delivers the system's notifications. Made once per process and never destroyed.
class JX_API JXState : public JXSingleton, public IJXEventSenderDelegate {
 public:
  /// The one watch of this process.
  static JXState& sharedInstance();

  /// An object that is not initialised; hosts use `sharedInstance`.
  JXState() = default;
  ~JXState() override;
  /// Starts the watch once per process, and returns this object; see `tryBeginInit` for a call
  /// while another runs. Null when the base could not be initialised.
  JXState* init();
  /// Runs `init` again: each change of state is then told once more than before.
  JXState* reinit();

  /// The centre that this object posts on; null is the default one. It keeps hearing the system on
  /// the default centre.
  void changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Calls `didEnterBackground`, then tells the core.
  void applicationDidEnterBackground(const JXNotification& notification);
  /// Calls `willEnterForeground`, then tells the core.
  void applicationWillEnterForeground(const JXNotification& notification);
  /// For subclasses: called first, with the notification's object. Does nothing here.
  virtual void didEnterBackground(const void* application);
  /// The same for the way back.
  virtual void willEnterForeground(const void* application);

  /// The current date and time, by the core's clock.
  std::chrono::system_clock::time_point date() const;

  /// The sender that the core is told through; null before `init`.
  std::shared_ptr<JXEventSender> senderDelegate() const override { return senderDelegate_; }
  void setSenderDelegate(std::shared_ptr<JXEventSender> sender) {
    senderDelegate_ = std::move(sender);
  }

 private:
  void tellCore(std::string_view notificationName);

  std::shared_ptr<JXEventSender> senderDelegate_;
};

}  // namespace jx
