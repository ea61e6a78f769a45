// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreConfiguration.h"

#include <mutex>

#include "jx/core/JXCoreServices.h"

namespace jx {
namespace {

struct Held {
  std::mutex mutex;
  JXCoreConfiguration configuration;
};

// Never destroyed: the transfer thread may still ask while the process ends.
Held& held() {
  static Held* const instance = new Held();
  return *instance;
}

}  // namespace

bool JXCoreConfiguration::set(const JXCoreConfiguration& configuration) {
  bool isAccepted = false;
  {
    const std::lock_guard<std::mutex> lock(held().mutex);
    isAccepted = !JXCoreServices::hasStarted();
    if (isAccepted) held().configuration = configuration;
  }
  JXLogger& logger = JXLogger::sharedInstance();
  if (isAccepted) {
    // At once, because an event that is filled before the core starts may have something to say.
    logger.setMaxLevel(configuration.logLevel);
    logger.setSink(configuration.logSink);
  } else {
    logger.logMessage_withLevel(
        "The configuration was given after the core had started and is ignored", 3);
  }
  return isAccepted;
}

JXCoreConfiguration JXCoreConfiguration::current() {
  const std::lock_guard<std::mutex> lock(held().mutex);
  return held().configuration;
}

}  // namespace jx
