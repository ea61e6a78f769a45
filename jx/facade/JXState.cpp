// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXState.h"

#include <utility>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"

namespace jx {

std::atomic<int> JXState::JX_INIT_STATE{kJXInitNever};

JXState& JXState::sharedInstance() {
  static JXOnce<JXState> once;
  return once.get([] {
    auto* const state = new JXState();
    state->init();
    return state;
  });
}

JXState::~JXState() {
  JXNotificationCenter::defaultCenter()->removeObserver(this);
  if (senderDelegate_) senderDelegate_->setParent(nullptr);
}

JXState* JXState::init() {
  if (!tryBeginInit(JX_INIT_STATE, "JXState")) return this;
  if (!baseInit()) return nullptr;
  const std::shared_ptr<JXEventSender> sender = JXEventSender::init();
  sender->setParent(this);
  setSenderDelegate(sender);
  const std::shared_ptr<JXNotificationCenter>& center = JXNotificationCenter::defaultCenter();
  center->addObserver(this, UIApplicationDidEnterBackgroundNotification,
                      [this](const JXNotification& n) { applicationDidEnterBackground(n); });
  center->addObserver(this, UIApplicationWillEnterForegroundNotification,
                      [this](const JXNotification& n) { applicationWillEnterForeground(n); });
  JX_INIT_STATE = kJXInitDone;
  return this;
}

JXState* JXState::reinit() {
  JX_INIT_STATE = kJXInitAgain;
  return init();
}

void JXState::changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center) {
  if (const auto sender = senderDelegate()) sender->setNotificationCenter(center);
}

void JXState::applicationDidEnterBackground(const JXNotification& notification) {
  didEnterBackground(notification.object);
  notifyCore(kJXNotification_OnBackground);
}

void JXState::applicationWillEnterForeground(const JXNotification& notification) {
  willEnterForeground(notification.object);
  notifyCore(kJXNotification_OnForeground);
}

void JXState::didEnterBackground(const void*) {}

void JXState::willEnterForeground(const void*) {}

std::chrono::system_clock::time_point JXState::date() const {
  return JXCoreVariables::sharedInstance().now();
}

void JXState::notifyCore(std::string_view notificationName) {
  if (const auto sender = senderDelegate()) sender->send({notificationName, this, nullptr});
}

}  // namespace jx
