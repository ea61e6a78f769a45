// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Sends events with the HTTP client of the application instead of libcurl.
#include <cstdio>
#include <memory>

#include "BlockingHttpClient.h"
#include "WorkerTransport.h"
#include "jx/JXServerSide.h"

// transport HOST STORAGE_FOLDER
int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: transport HOST STORAGE_FOLDER\n", stderr);
    return 2;
  }
  jx::JXCoreConfiguration configuration;
  configuration.collectionHost = argv[1];
  configuration.storageFolder = argv[2];
  configuration.transport =
      std::make_shared<WorkerTransport>([](const std::string& url, const std::string& body) {
        return postJson(url, body, std::chrono::seconds(10));
      });
  configuration.onDelivery = [](const jx::JXDelivery& delivery) {
    std::printf("%s\n", delivery.outcome == jx::JXDeliveryOutcome::Delivered ? "delivered"
                                                                             : "not delivered");
  };
  jx::JXCoreConfiguration::set(configuration);

  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey(1, "source-key");
  for (const char* page : {"home", "film", "shop"}) {
    const auto event = jx::JXPageViewEvent::init();
    event->setPageName(page);
    serverSide->execute(event);
  }
  const bool delivered = jx::JXNetworkManager::sharedInstance().flush(std::chrono::seconds(5));
  return delivered ? 0 : 1;
}
