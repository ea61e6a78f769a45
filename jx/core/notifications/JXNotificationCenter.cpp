// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/notifications/JXNotificationCenter.h"

#include <atomic>
#include <new>
#include <utility>

#include "jx/core/JXForkedChild.h"
#include "jx/core/notifications/JXGuardedDelivery.h"
#include "jx/core/notifications/JXPendingRequest.h"
#include "jx/core/notifications/JXPostScope.h"

namespace jx {

struct JXNotificationCenter::Registration {
  const void* observer;
  JXString name;
  Handler handler;
  bool readsUserInfo;
  std::atomic<bool> ended{false};

  bool listensFor(const JXString& posted) const { return !name.isPresent() || name == posted; }
};

JXNotificationCenter::JXNotificationCenter()
    : registrations_(std::make_shared<const Registrations>()) {}

const std::shared_ptr<JXNotificationCenter>& JXNotificationCenter::defaultCenter() {
  static const auto* const center =
      new std::shared_ptr<JXNotificationCenter>(std::make_shared<JXNotificationCenter>());
  return *center;
}

void JXNotificationCenter::addObserver(const void* observer, const JXString& name,
                                       Handler handler) {
  add(observer, name, std::move(handler), true);
}

void JXNotificationCenter::add(const void* observer, const JXString& name, Handler handler,
                               bool readsUserInfo) {
  if (JXForkedChild::ignores("JXNotificationCenter::addObserver()")) return;
  auto registration = std::make_shared<Registration>();
  registration->observer = observer;
  registration->name = name;
  registration->handler = std::move(handler);
  registration->readsUserInfo = readsUserInfo;
  const std::lock_guard<std::mutex> lock(mutex_);
  auto changed = std::make_shared<Registrations>(*registrations_);
  changed->push_back(std::move(registration));
  registrations_ = std::move(changed);
}

template <typename Predicate>
void JXNotificationCenter::removeWhere(Predicate predicate) {
  // Not logged: destructors remove their observers.
  if (JXForkedChild::isCurrent()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  for (const auto& registration : *registrations_) {
    if (predicate(*registration)) registration->ended = true;
  }
  try {
    auto changed = std::make_shared<Registrations>();
    for (const auto& registration : *registrations_) {
      if (!registration->ended) changed->push_back(registration);
    }
    registrations_ = std::move(changed);
  } catch (const std::bad_alloc&) {
    // The next call removes the registrations that have ended.
  }
}

void JXNotificationCenter::removeObserver(const void* observer) {
  removeWhere([&](const Registration& r) { return r.observer == observer; });
}

void JXNotificationCenter::removeObserver_name(const void* observer, const JXString& name) {
  removeWhere([&](const Registration& r) { return r.observer == observer && r.name == name; });
}

void JXNotificationCenter::postNotification(const JXNotification& notification) {
  if (JXForkedChild::ignores("JXNotificationCenter::postNotification()")) return;
  const JXPostScope scope(notification);
  std::shared_ptr<const Registrations> registrations;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    registrations = registrations_;
  }
  for (const auto& registration : *registrations) {
    if (registration->ended || !registration->listensFor(notification.name)) continue;
    deliverGuarded(notification, [&] {
      if (registration->readsUserInfo) JXPendingRequest::createUserInfo(notification);
      registration->handler(notification);
    });
  }
}

}  // namespace jx
