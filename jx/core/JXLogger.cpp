// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLogger.h"

#include <cstdio>

namespace jx {
namespace {

// Set while this thread is inside the sink, so that a sink that logs does not call itself.
thread_local bool insideSink = false;

void writeToStandardError(int level, std::string_view message) {
  std::fprintf(stderr, "[JX %d] %.*s\n", level, static_cast<int>(message.size()), message.data());
}

}  // namespace

JXLogger& JXLogger::sharedInstance() {
  // Never destroyed: the host may log from its own static destructors.
  static JXLogger* const instance = new JXLogger();
  return *instance;
}

void JXLogger::logMessage_withLevel(std::string_view message, int level) noexcept {
  if (!printsLevel(level) || insideSink) return;
  insideSink = true;
  try {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (sink_) {
      sink_(level, message);
    } else {
      writeToStandardError(level, message);
    }
  } catch (...) {
    // The line is lost; the host's event is not.
  }
  insideSink = false;
}

void JXLogger::setSink(JXLogSink sink) {
  const std::lock_guard<std::mutex> lock(mutex_);
  sink_ = std::move(sink);
}

}  // namespace jx
