// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXEventListener.h"

#include "jx/core/JXForkedChild.h"
#include "jx/core/notifications/JXEventListenerState.h"
#include "jx/core/notifications/JXNotificationHub.h"

namespace jx {

std::shared_ptr<JXEventListener> JXEventListener::init() {
  return std::shared_ptr<JXEventListener>(new JXEventListener());
}

JXEventListener::JXEventListener() : state_(std::make_shared<State>()) {
  state_->setCenter(JXNotificationCenter::defaultCenter());
  JXNotificationHub::sharedInstance().add(state_);
}

JXEventListener::~JXEventListener() {
  if (JXForkedChild::isCurrent()) return;
  JXNotificationHub::sharedInstance().remove(state_);
  state_->center()->removeObserver(state_.get());
  state_->setParent(nullptr);
}

void JXEventListener::setParent(IJXEventListenerDelegate* parent) {
  // Not logged: the destructor of a parent calls it.
  if (!JXForkedChild::isCurrent()) state_->setParent(parent);
}

void JXEventListener::listen(const JXString& name) {
  if (!name.isPresent() || JXForkedChild::ignores("JXEventListener::listen()")) return;
  const std::lock_guard<std::mutex> lock(registering_);
  if (state_->addName(name)) observe(*state_->center(), name);
}

void JXEventListener::setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center) {
  if (JXForkedChild::ignores("JXEventListener::setNotificationCenter()")) return;
  const std::lock_guard<std::mutex> lock(registering_);
  const std::shared_ptr<JXNotificationCenter> next =
      center ? center : JXNotificationCenter::defaultCenter();
  state_->setCenter(next)->removeObserver(state_.get());
  for (const JXString& name : state_->names())
    observe(*next, name);
}

void JXEventListener::observe(JXNotificationCenter& center, const JXString& name) {
  const std::weak_ptr<State> state = state_;
  center.addObserver(state_.get(), name, [state](const JXNotification& notification) {
    if (const std::shared_ptr<State> alive = state.lock()) alive->deliver(notification);
  });
}

}  // namespace jx
