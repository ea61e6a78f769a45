// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXEventListener.h"

#include "jx/core/notifications/JXEventListenerState.h"
#include "jx/core/notifications/JXNotificationHub.h"

namespace jx {

std::shared_ptr<JXEventListener> JXEventListener::init() {
  return std::shared_ptr<JXEventListener>(new JXEventListener());
}

JXEventListener::JXEventListener() : state_(std::make_shared<State>()) {
  state_->center = JXNotificationCenter::defaultCenter();
  JXNotificationHub::sharedInstance().add(state_);
}

JXEventListener::~JXEventListener() {
  JXNotificationHub::sharedInstance().remove(state_);
  const std::lock_guard<std::recursive_mutex> lock(state_->mutex);
  state_->parent = nullptr;
  state_->center->removeObserver(state_.get());
}

void JXEventListener::setParent(IJXEventListenerDelegate* parent) {
  const std::lock_guard<std::recursive_mutex> lock(state_->mutex);
  state_->parent = parent;
}

void JXEventListener::listen(const JXString& name) {
  if (!name.isPresent()) return;
  const std::lock_guard<std::recursive_mutex> lock(state_->mutex);
  if (std::find(state_->names.begin(), state_->names.end(), name) != state_->names.end()) return;
  state_->names.push_back(name);
  observe(name);
}

void JXEventListener::setNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center) {
  const std::lock_guard<std::recursive_mutex> lock(state_->mutex);
  state_->center->removeObserver(state_.get());
  state_->center = center ? center : JXNotificationCenter::defaultCenter();
  for (const JXString& name : state_->names)
    observe(name);
}

void JXEventListener::observe(const JXString& name) {
  const std::weak_ptr<State> state = state_;
  state_->center->addObserver(state_.get(), name, [state](const JXNotification& notification) {
    if (const std::shared_ptr<State> alive = state.lock()) alive->deliver(notification);
  });
}

}  // namespace jx
