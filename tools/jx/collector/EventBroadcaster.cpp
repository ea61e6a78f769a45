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

EventBroadcaster::Subscription::Subscription(EventBroadcaster& feed)
    : feed_(feed), fd_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  const std::lock_guard<std::mutex> lock(feed_.mutex_);
  next_ = feed_.firstSignal_ + feed_.signals_.size();
  feed_.subscriptions_.push_back(this);
}

EventBroadcaster::Subscription::~Subscription() {
  {
    const std::lock_guard<std::mutex> lock(feed_.mutex_);
    feed_.subscriptions_.erase(
        std::find(feed_.subscriptions_.begin(), feed_.subscriptions_.end(), this));
  }
  ::close(fd_);
}

EventBroadcaster::Updates EventBroadcaster::Subscription::take() {
  const std::lock_guard<std::mutex> lock(feed_.mutex_);
  eventfd_t ignored = 0;
  ::eventfd_read(fd_, &ignored);
  isCalled_ = false;
  Updates updates;
  updates.last = feed_.last_;
  updates.fellBehind = next_ < feed_.firstSignal_;
  const std::uint64_t from = std::max(next_, feed_.firstSignal_) - feed_.firstSignal_;
  updates.signals.assign(feed_.signals_.begin() + static_cast<std::ptrdiff_t>(from),
                         feed_.signals_.end());
  next_ = feed_.firstSignal_ + feed_.signals_.size();
  return updates;
}

void EventBroadcaster::arrived(std::int64_t id) {
  const std::lock_guard<std::mutex> lock(mutex_);
  last_ = std::max(last_, id);
  callSubscribers();
}

void EventBroadcaster::tell(Signal signal) {
  const std::lock_guard<std::mutex> lock(mutex_);
  signals_.push_back(std::move(signal));
  if (signals_.size() > kKeptSignals) {
    signals_.pop_front();
    ++firstSignal_;
  }
  callSubscribers();
}

// One call until it is heard: a flood of events costs a watcher one wake-up at a time.
void EventBroadcaster::callSubscribers() {
  for (Subscription* const watch : subscriptions_) {
    if (std::exchange(watch->isCalled_, true)) continue;
    ::eventfd_write(watch->fd_, 1);
  }
}

}  // namespace jx
