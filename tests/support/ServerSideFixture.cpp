// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/ServerSideFixture.h"

#include <algorithm>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx::test {

ServerSideFixture::ServerSideFixture() {
  configuration.platform = platform;
  configuration.clock = clock;
  configuration.collectionHost = "https://collect.example.com";
  configuration.dryRun = true;
  configuration.logLevel = 6;
  configuration.logSink = [log = log_](int level, std::string_view message) {
    const std::lock_guard<std::mutex> lock(log->mutex);
    log->lines.push_back({level, std::string(message)});
  };
}

ServerSideFixture::~ServerSideFixture() {
  for (const auto& center : centers_)
    center->removeObserver(this);
}

void ServerSideFixture::start() {
  if (isStarted_) return;
  isStarted_ = true;
  ASSERT_TRUE(JXCoreConfiguration::set(configuration));
  record(JXNotificationCenter::defaultCenter());
}

const TemporaryFolder& ServerSideFixture::storage() {
  // Created first, so destroyed last: the library registers its exit handler when it starts.
  static const TemporaryFolder folder;
  return folder;
}

void ServerSideFixture::queueForReal() {
  configuration.storageFolder = storage().path();
  configuration.collectionHost = "http://127.0.0.1:1";
  configuration.dryRun = false;
}

std::shared_ptr<ServerSide> ServerSideFixture::make(std::int32_t defaultBehaviour) {
  start();
  return ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(1234, "key", defaultBehaviour);
}

void ServerSideFixture::record(const std::shared_ptr<JXNotificationCenter>& center) {
  centers_.push_back(center);
  center->addObserver(this, nullptr, [this](const JXNotification& n) { keep(n); });
}

void ServerSideFixture::keep(const JXNotification& notification) {
  const std::lock_guard<std::mutex> lock(keeping_);
  posted_.push_back(notification);
  if (notification.name.view() != kJXNotification_HTTPRequest) return;
  Request request;
  request.object = notification.object;
  request.userInfo = notification.userInfo;
  request.url = notification.userInfo.get(kJXUserInfo_URLKey).string();
  request.text = notification.userInfo.get(kJXUserInfo_POSTData).string().toStdString();
  request.body = JXJsonReader::read(request.text).value.object();
  requests_.push_back(request);
}

Request ServerSideFixture::execute(ServerSide& serverSide, const char* name) {
  const std::size_t before = requests_.size();
  serverSide.execute(JXCustomEvent::initWithName(name));
  EXPECT_EQ(requests_.size(), before + 1);
  return requests_.size() == before ? Request() : requests_.back();
}

JXString ServerSideFixture::variable(std::string_view key) {
  return JXPredefinedVariables::sharedInstance().getData(key);
}

std::vector<LogLine> ServerSideFixture::lines() const { return linesUpTo(6); }

std::vector<LogLine> ServerSideFixture::linesUpTo(int level) const {
  const std::lock_guard<std::mutex> lock(log_->mutex);
  std::vector<LogLine> found;
  for (const LogLine& line : log_->lines) {
    if (line.level <= level) found.push_back(line);
  }
  return found;
}

std::size_t ServerSideFixture::count(const LogLine& line) const {
  const std::vector<LogLine> all = lines();
  return static_cast<std::size_t>(std::count(all.begin(), all.end(), line));
}

void ServerSideFixture::forgetLines() {
  const std::lock_guard<std::mutex> lock(log_->mutex);
  log_->lines.clear();
}

std::vector<JXNotification> ServerSideFixture::posted(std::string_view name) const {
  std::vector<JXNotification> found;
  for (const JXNotification& notification : posted_) {
    if (notification.name.view() == name) found.push_back(notification);
  }
  return found;
}

JXJsonObject ServerSideFixture::inside(const JXJsonObject& object,
                                       const std::vector<std::string>& keys) {
  JXJsonObject found = object;
  for (const std::string& key : keys)
    found = found.get(key).object();
  return found;
}

JXJsonObject ServerSideFixture::context(const Request& request) {
  return inside(request.body, {"context"});
}

JXJsonObject ServerSideFixture::lifecycle(const Request& request) {
  return inside(request.body, {"context", "device", "lifecycle"});
}

}  // namespace jx::test
