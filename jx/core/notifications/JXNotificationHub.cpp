// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXNotificationHub.h"

#include <algorithm>
#include <new>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/notifications/JXEventListenerState.h"
#include "jx/core/notifications/JXGuardedDelivery.h"
#include "jx/core/notifications/JXPendingRequest.h"
#include "jx/core/notifications/JXPostScope.h"
#include "jx/core/transfer/JXNetworkManager.h"

namespace jx {

JXNotificationHub& JXNotificationHub::sharedInstance() {
  static JXNotificationHub* const instance = new JXNotificationHub();
  return *instance;
}

JXNotificationHub::JXNotificationHub() : listeners_(std::make_shared<const Listeners>()) {
  // A consent module posts on the default center without a JXEventSender.
  observe(JXNotificationCenter::defaultCenter());
}

void JXNotificationHub::observe(const std::shared_ptr<JXNotificationCenter>& center) {
  if (JXForkedChild::isCurrent()) return;
  // Locked until the center is observed, because another thread that finds it here may post at
  // once.
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto ended = [](const auto& known) { return known.expired(); };
  centers_.erase(std::remove_if(centers_.begin(), centers_.end(), ended), centers_.end());
  for (const auto& known : centers_) {
    if (known.lock() == center) return;
  }
  centers_.push_back(center);
  center->add(
      this, nullptr,
      [this, from = center.get()](const JXNotification& notification) {
        received(notification, from);
      },
      false);
}

void JXNotificationHub::add(const std::shared_ptr<JXEventListener::State>& listener) {
  if (JXForkedChild::isCurrent()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  auto changed = std::make_shared<Listeners>(*listeners_);
  changed->push_back(listener);
  listeners_ = std::move(changed);
}

void JXNotificationHub::remove(const std::shared_ptr<JXEventListener::State>& listener) {
  if (JXForkedChild::isCurrent()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  try {
    auto changed = std::make_shared<Listeners>(*listeners_);
    changed->erase(std::remove(changed->begin(), changed->end(), listener), changed->end());
    listeners_ = std::move(changed);
  } catch (const std::bad_alloc&) {
    // It stays, without a parent to be called: a destructor must not throw.
  }
}

void JXNotificationHub::received(const JXNotification& notification,
                                 const JXNotificationCenter* from) {
  handToNetworkManager(notification);
  std::shared_ptr<const Listeners> listeners;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    listeners = listeners_;
  }
  for (const auto& listener : *listeners)
    deliverGuarded(notification, [&] { listener->deliverFromElsewhere(notification, from); });
}

void JXNotificationHub::enqueue(const JXNotification& notification) {
  const JXJsonObject& userInfo = notification.userInfo;
  const JXPendingRequest* const request = JXPendingRequest::of(notification);
  const JXString url = request ? request->url() : userInfo.get(kJXUserInfo_URLKey).string();
  const JXString body = request ? request->body() : userInfo.get(kJXUserInfo_POSTData).string();
  if (url.isPresent() && body.isPresent()) {
    JXNetworkManager::sharedInstance().enqueue(url.view(), body.view(), notification.object);
  } else {
    JXLogger::sharedInstance().logMessage_withLevel(
        "HTTP request notification has no URL or body; event discarded", 2);
  }
}

void JXNotificationHub::handToNetworkManager(const JXNotification& notification) {
  JXNetworkManager& manager = JXNetworkManager::sharedInstance();
  const std::string_view name = notification.name.view();
  if (name == kJXNotification_HTTPRequest) {
    enqueue(notification);
  } else if (name == kJXNotification_EnablingTheServerSide) {
    JXPostScope::setDecision(notification, manager.decide(true));
  } else if (name == kJXNotification_StoppingTheServerSide) {
    JXPostScope::setDecision(notification, manager.decide(false));
  } else if (name == kJXNotification_OnBackground) {
    manager.onBackground();
  } else if (name == kJXNotification_OnForeground) {
    // The connection may have changed in the background. Reading it must not start the core.
    if (JXCoreServices::hasStarted()) JXNetwork::sharedInstance().refresh();
    manager.onForeground();
  }
}

}  // namespace jx
