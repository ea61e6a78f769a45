// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/ArrivalFeed.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

namespace jx {

ArrivalFeed::Watch::Watch(ArrivalFeed& feed)
    : feed_(feed), fd_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
  const std::lock_guard<std::mutex> lock(feed_.mutex_);
  next_ = feed_.firstSignal_ + feed_.signals_.size();
  feed_.watches_.push_back(this);
}

ArrivalFeed::Watch::~Watch() {
  {
    const std::lock_guard<std::mutex> lock(feed_.mutex_);
    feed_.watches_.erase(std::find(feed_.watches_.begin(), feed_.watches_.end(), this));
  }
  ::close(fd_);
}

ArrivalFeed::News ArrivalFeed::Watch::take() {
  const std::lock_guard<std::mutex> lock(feed_.mutex_);
  eventfd_t ignored = 0;
  ::eventfd_read(fd_, &ignored);
  isCalled_ = false;
  News news;
  news.last = feed_.last_;
  news.fellBehind = next_ < feed_.firstSignal_;
  const std::uint64_t from = std::max(next_, feed_.firstSignal_) - feed_.firstSignal_;
  news.signals.assign(feed_.signals_.begin() + static_cast<std::ptrdiff_t>(from),
                      feed_.signals_.end());
  next_ = feed_.firstSignal_ + feed_.signals_.size();
  return news;
}

void ArrivalFeed::arrived(std::int64_t id) {
  const std::lock_guard<std::mutex> lock(mutex_);
  last_ = std::max(last_, id);
  callWatchers();
}

void ArrivalFeed::tell(Signal signal) {
  const std::lock_guard<std::mutex> lock(mutex_);
  signals_.push_back(std::move(signal));
  if (signals_.size() > kKeptSignals) {
    signals_.pop_front();
    ++firstSignal_;
  }
  callWatchers();
}

// One call until it is heard: a flood of events costs a watcher one wake-up at a time.
void ArrivalFeed::callWatchers() {
  for (Watch* const watch : watches_) {
    if (std::exchange(watch->isCalled_, true)) continue;
    ::eventfd_write(watch->fd_, 1);
  }
}

}  // namespace jx
