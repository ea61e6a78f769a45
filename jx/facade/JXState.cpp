// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXState.h"

#include <utility>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"

namespace jx {
namespace {

int JX_INIT_STATE = kJXInitNever;

}  // namespace

JXState& JXState::sharedInstance() {
  static JXState* const instance = [] {
    auto* const state = new JXState();
    state->init();
    return state;
  }();
  return *instance;
}

JXState::~JXState() {
  JXNotificationCenter::defaultCenter()->removeObserver(this);
  if (senderDelegate_) senderDelegate_->setParent(nullptr);
}

JXState* JXState::init() {
  if (!tryBeginInit(JX_INIT_STATE)) return this;
  if (!baseInit()) return nullptr;
  senderDelegate_ = JXEventSender::init();
  senderDelegate_->setParent(this);
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
  if (senderDelegate_) senderDelegate_->setNotificationCenter(center);
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
  if (senderDelegate_) senderDelegate_->send({notificationName, this, nullptr});
}

}  // namespace jx
