// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreConfiguration.h"

#include <mutex>
#include <string>

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"
#include "jx/platform/JXConcat.h"

namespace jx {
namespace {

struct Shared {
  std::mutex mutex;
  JXCoreConfiguration configuration;
};

// Never destroyed: the transfer thread may still read it while the process exits.
Shared& shared() {
  static Shared* const instance = new Shared();
  return *instance;
}

}  // namespace

bool JXCoreConfiguration::set(const JXCoreConfiguration& configuration) {
  if (JXForkedChild::ignores("JXCoreConfiguration::set()")) return false;
  bool isAccepted = false;
  {
    const std::lock_guard<std::mutex> lock(shared().mutex);
    isAccepted = !JXCoreServices::hasStarted();
    if (isAccepted) shared().configuration = configuration;
  }
  JXLogger& logger = JXLogger::sharedInstance();
  if (isAccepted) {
    // Applied immediately, because an event may log while it is filled in before the core starts.
    logger.setMaxLevel(configuration.logLevel);
    logger.setSink(configuration.logSink);
  } else {
    logger.logMessage_withLevel(
        concat({"JXCoreConfiguration::set() called after the SDK started (started by ",
                JXCoreServices::startedBy(), "); ignored"}),
        3);
  }
  return isAccepted;
}

JXCoreConfiguration JXCoreConfiguration::current() {
  if (JXForkedChild::ignores("JXCoreConfiguration::current()")) return {};
  const std::lock_guard<std::mutex> lock(shared().mutex);
  return shared().configuration;
}

}  // namespace jx
