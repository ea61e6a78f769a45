// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLogger.h"

#include <cstdio>
#include <string>
#include <utility>

namespace jx {
namespace {

// Set while this thread is inside the sink, so that a sink that logs is not called recursively.
thread_local bool insideSink = false;

// Uses one write, so that messages of several processes do not mix, and writes NUL bytes too.
void writeToStandardError(int level, std::string_view message) {
  std::string line = "[JX " + std::to_string(level) + "] ";
  line.append(message).append(1, '\n');
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

JXLogger& JXLogger::sharedInstance() {
  // Never destroyed: the application may log from its own static destructors.
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
    // The message is lost; the application's event is not.
  }
  insideSink = false;
}

void JXLogger::setSink(JXLogSink sink) {
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    sink_.swap(sink);
  }
  // The previous sink is destroyed here, after the lock is released, because its members may log.
}

}  // namespace jx
