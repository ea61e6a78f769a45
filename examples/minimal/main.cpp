// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/JXServerSide.h"

// minimal [HOST [CA_FILE [STORAGE_FOLDER]]]
int main(int argc, char** argv) {
  jx::JXCoreConfiguration configuration;
  if (argc > 1) configuration.collectionHost = argv[1];
  if (argc > 2) configuration.caFile = argv[2];
  if (argc > 3) configuration.storageFolder = argv[3];
  jx::JXCoreConfiguration::set(configuration);
  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey(1, "source-key");

  const auto event = jx::JXCustomEvent::initWithName("quiz_answered");
  event->setPageName("quiz");
  event->addAdditionalParameter_withValue("answer", "B");
  serverSide->execute(event);  // stored before this returns; survives a killed process

  const bool delivered = jx::JXNetworkManager::sharedInstance().flush(std::chrono::seconds(2));
  return delivered ? 0 : 1;
}
