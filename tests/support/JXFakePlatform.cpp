// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXFakePlatform.h"

#include <cstdio>
#include <utility>

namespace jx::test {

JXString JXFakePlatformDefaults::objectForKey(const JXString& key) {
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto found = entries_.find(key.toStdString());
  return found == entries_.end() ? JXString() : found->second;
}

void JXFakePlatformDefaults::setObject_forKey(const JXString& value, const JXString& key) {
  const std::lock_guard<std::mutex> lock(mutex_);
  ++setCount_;
  ++setCounts_[key.toStdString()];
  store(key.toStdString(), value);
}

void JXFakePlatformDefaults::synchronize() { ++synchronizeCount_; }

void JXFakePlatformDefaults::preset(const std::string& key, const JXString& value) {
  const std::lock_guard<std::mutex> lock(mutex_);
  store(key, value);
}

std::map<std::string, JXString> JXFakePlatformDefaults::entries() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_;
}

int JXFakePlatformDefaults::setCount(const std::string& key) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto found = setCounts_.find(key);
  return found == setCounts_.end() ? 0 : found->second;
}

void JXFakePlatformDefaults::store(const std::string& key, const JXString& value) {
  if (value.isPresent()) {
    entries_[key] = value;
  } else {
    entries_.erase(key);
  }
}

int JXFakePlatform::answerUserAgent(const JXString& text) {
  std::vector<std::function<void(const JXString&)>> waiting;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    waiting.swap(waiting_);
  }
  for (const auto& answer : waiting)
    answer(text);
  return static_cast<int>(waiting.size());
}

bool JXFakePlatform::enterBackground() {
  ApplicationCallback observer;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    observer = didEnterBackground_;
  }
  if (observer) observer(application);
  return static_cast<bool>(observer);
}

bool JXFakePlatform::enterForeground() {
  ApplicationCallback observer;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    observer = willEnterForeground_;
  }
  if (observer) observer(application);
  return static_cast<bool>(observer);
}

void JXFakePlatform::requestUserAgent(std::function<void(const JXString&)> answer) {
  ++userAgentRequests_;
  if (!userAgentAnswersLater) return answer(userAgent);
  const std::lock_guard<std::mutex> lock(mutex_);
  waiting_.push_back(std::move(answer));
}

void JXFakePlatform::observeApplication(ApplicationCallback didEnterBackground,
                                        ApplicationCallback willEnterForeground) {
  const std::lock_guard<std::mutex> lock(mutex_);
  ++observeCount_;
  didEnterBackground_ = std::move(didEnterBackground);
  willEnterForeground_ = std::move(willEnterForeground);
}

JXString JXFakePlatform::newUUID() {
  char text[37];
  std::snprintf(text, sizeof text, "00000000-0000-4000-8000-%012X",
                static_cast<unsigned>(++uuidCount_));
  return JXString(static_cast<const char*>(text));
}

}  // namespace jx::test
