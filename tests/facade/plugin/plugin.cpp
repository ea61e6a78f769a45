// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// A plugin that contains the library: sends one event.
#include "jx/JXServerSide.h"
#include "jx/events/JXCustomEvent.h"

extern "C" __attribute__((visibility("default"))) void executeOne(const char* folder,
                                                                  const char* host,
                                                                  const char* caFile) {
  jx::JXCoreConfiguration configuration;
  configuration.storageFolder = folder;
  configuration.collectionHost = host;
  configuration.caFile = caFile;
  configuration.proxy = "";
  jx::JXCoreConfiguration::set(configuration);
  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey(1, "key");
  serverSide->execute(jx::JXCustomEvent::initWithName("plugin"));
}
