// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "bench/StartLibrary.h"

#include "jx/core/notifications/JXNotificationCenter.h"

namespace jx::bench {

std::shared_ptr<ServerSide> startLibrary(const LibraryOptions& options) {
  JXCoreConfiguration configuration;
  configuration.storageFolder = options.storageFolder;
  configuration.collectionHost = options.collectionHost;
  if (!options.caFile.empty()) configuration.caFile = options.caFile;
  configuration.logLevel = 0;
  configuration.clock = options.clock;
  configuration.onDelivery = options.onDelivery;
  configuration.bundle = {"com.example.tv", "Example TV", "100", "1.2.3"};
  configuration.screen = {1920, 1080};
  if (options.keepsAll) {
    configuration.outboxBounds.maxRequests = 10'000'000;
    configuration.outboxBounds.maxBytes = std::uint64_t{64} << 30;
  }
  JXCoreConfiguration::set(configuration);
  return ServerSide::initWithSiteID_andSourceKey(3311, "a-source-key");
}

std::string bodyOf(ServerSide& serverSide, const std::shared_ptr<JXEvent>& event) {
  std::string body;
  JXNotificationCenter& center = *JXNotificationCenter::defaultCenter();
  center.addObserver(&body, kJXNotification_HTTPRequest, [&](const JXNotification& notification) {
    body = notification.userInfo.get(kJXUserInfo_POSTData).string().toStdString();
  });
  serverSide.execute(event);
  center.removeObserver(&body);
  return body;
}

}  // namespace jx::bench
