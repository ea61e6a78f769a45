// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <utility>

#include "jx/core/notifications/JXEventListener.h"

namespace jx::test {

/// An object that owns a listener and records the notifications that it receives.
class JXListening : public IJXEventListenerDelegate {
 public:
  explicit JXListening(std::shared_ptr<JXNotificationCenter> center = nullptr) {
    listener_->setParent(this);
    if (center) listener_->setNotificationCenter(std::move(center));
  }

  void onNotificationReceived(const JXNotification& notification) override {
    received_ += notification.name.toStdString() + ";";
    thread_ = std::this_thread::get_id();
    if (reaction) reaction(notification);
  }
  std::shared_ptr<JXEventListener> listenerDelegate() const override { return listener_; }

  JXListening& listen(const char* name) {
    listener_->listen(name);
    return *this;
  }
  void endListener() { listener_.reset(); }
  /// Returns the names received so far, each followed by a semicolon.
  const std::string& received() const { return received_; }
  std::thread::id thread() const { return thread_; }

  std::function<void(const JXNotification&)> reaction;

 private:
  std::shared_ptr<JXEventListener> listener_ = JXEventListener::init();
  std::string received_;
  std::thread::id thread_;
};

}  // namespace jx::test
