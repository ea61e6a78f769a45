// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <utility>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXSingleton.h"
#include "jx/core/notifications/JXEventSender.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Observes the application's background and foreground transitions and notifies the core. Runs on
/// the thread that delivers the system's notifications. The shared object is created once per
/// process and never destroyed.
class JX_API JXState : public JXSingleton, public IJXEventSenderDelegate {
 public:
  /// Returns the shared object of this process.
  static JXState& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXState() = default;
  ~JXState() override;
  /// Starts observing, once per process, and returns this object. Returns null if the base class
  /// cannot be initialised. Does not return while another `init` is running.
  JXState* init();
  /// Runs `init` again. Each transition is then posted once more often than before.
  JXState* reinit();

  /// Sets the notification centre that this object posts on; null means the default one. The
  /// system's notifications are still received on the default centre.
  void changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Calls `didEnterBackground`, then notifies the core.
  void applicationDidEnterBackground(const JXNotification& notification);
  /// Calls `willEnterForeground`, then notifies the core.
  void applicationWillEnterForeground(const JXNotification& notification);
  /// Hook for subclasses, called before the core is notified, with the notification's object. Does
  /// nothing by default.
  virtual void didEnterBackground(const void* application);
  /// The same hook for the foreground transition.
  virtual void willEnterForeground(const void* application);

  /// Returns the current date and time of the core's clock.
  std::chrono::system_clock::time_point date() const;

  /// Returns the sender that notifies the core; null before `init`.
  std::shared_ptr<JXEventSender> senderDelegate() const override {
    if (JXForkedChild::ignores("JXState")) return nullptr;
    const std::lock_guard<std::mutex> lock(mutex_);
    return senderDelegate_;
  }
  void setSenderDelegate(std::shared_ptr<JXEventSender> sender) {
    if (JXForkedChild::ignores("JXState")) return;
    const std::lock_guard<std::mutex> lock(mutex_);
    std::swap(senderDelegate_, sender);
  }

 private:
  static std::atomic<int> JX_INIT_STATE;
  void notifyCore(std::string_view notificationName);

  mutable std::mutex mutex_;
  std::shared_ptr<JXEventSender> senderDelegate_;
};

}  // namespace jx
