// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventBroadcaster.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace jx {

EventBroadcaster::Subscription::Subscription(EventBroadcaster& broadcaster)
    : broadcaster_(broadcaster), fd_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  const std::lock_guard<std::mutex> lock(broadcaster_.mutex_);
  next_ = broadcaster_.firstSignal_ + broadcaster_.signals_.size();
  broadcaster_.subscriptions_.push_back(this);
}

EventBroadcaster::Subscription::~Subscription() {
  {
    const std::lock_guard<std::mutex> lock(broadcaster_.mutex_);
    broadcaster_.subscriptions_.erase(
        std::find(broadcaster_.subscriptions_.begin(), broadcaster_.subscriptions_.end(), this));
  }
  ::close(fd_);
}

EventBroadcaster::Updates EventBroadcaster::Subscription::take() {
  const std::lock_guard<std::mutex> lock(broadcaster_.mutex_);
  eventfd_t ignored = 0;
  ::eventfd_read(fd_, &ignored);
  isNotified_ = false;
  Updates updates;
  updates.last = broadcaster_.last_;
  updates.fellBehind = next_ < broadcaster_.firstSignal_;
  const std::uint64_t from = std::max(next_, broadcaster_.firstSignal_) - broadcaster_.firstSignal_;
  updates.signals.assign(broadcaster_.signals_.begin() + static_cast<std::ptrdiff_t>(from),
                         broadcaster_.signals_.end());
  next_ = broadcaster_.firstSignal_ + broadcaster_.signals_.size();
  return updates;
}

void EventBroadcaster::publishArrival(std::int64_t id) {
  const std::lock_guard<std::mutex> lock(mutex_);
  last_ = std::max(last_, id);
  notifySubscribers();
}

void EventBroadcaster::publish(Signal signal) {
  const std::lock_guard<std::mutex> lock(mutex_);
  signals_.push_back(std::move(signal));
  if (signals_.size() > kKeptSignals) {
    signals_.pop_front();
    ++firstSignal_;
  }
  notifySubscribers();
}

// Notifies each subscriber once until it calls take(), so that a burst of events causes one
// wake-up.
void EventBroadcaster::notifySubscribers() {
  for (Subscription* const subscription : subscriptions_) {
    if (std::exchange(subscription->isNotified_, true)) continue;
    ::eventfd_write(subscription->fd_, 1);
  }
}

}  // namespace jx
