// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLogger.h"

#include <cstdio>
#include <string>
#include <utility>

namespace jx {
namespace {

// Set while this thread is inside the sink, so that a sink that logs does not call itself.
thread_local bool insideSink = false;

// In one piece, so that the lines of several processes do not mix, and whole, whatever it holds.
void writeToStandardError(int level, std::string_view message) {
  std::string line = "[JX " + std::to_string(level) + "] ";
  line.append(message).append(1, '\n');
  std::fwrite(line.data(), 1, line.size(), stderr);
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
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    sink_.swap(sink);
  }
  // The old one ends here, outside of the lock, since what it holds may log.
}

}  // namespace jx
