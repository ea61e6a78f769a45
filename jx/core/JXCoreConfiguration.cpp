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
  {
    const std::lock_guard<std::mutex> lock(held().mutex);
    if (!JXCoreServices::hasStarted()) {
      held().configuration = configuration;
      return true;
    }
  }
  JXLogger::sharedInstance().logMessage_withLevel(
      "The configuration was given after the core had started and is ignored", 3);
  return false;
}

JXCoreConfiguration JXCoreConfiguration::current() {
  const std::lock_guard<std::mutex> lock(held().mutex);
  return held().configuration;
}

}  // namespace jx
