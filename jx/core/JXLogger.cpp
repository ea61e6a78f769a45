// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXLogger.h"

#include <cstdio>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogDeferral.h"

namespace jx {
namespace {

// Set while this thread is inside the sink. A sink may call the library; messages that it causes
// are dropped, because each would call the sink again.
thread_local bool insideSink = false;

using Messages = std::vector<std::pair<int, std::string>>;

thread_local int deferrals = 0;
// Null until a message is deferred, because most deferrals defer none.
thread_local Messages* deferred = nullptr;

// Uses one write, so that messages of several processes do not mix, and writes NUL bytes too.
void writeToStandardError(int level, std::string_view message) {
  std::string line = "[JX " + std::to_string(level) + "] ";
  line.append(message).append(1, '\n');
  std::fwrite(line.data(), 1, line.size(), stderr);
}

}  // namespace

JXLogger& JXLogger::sharedInstance() {
  // Never destroyed: the application may log from its own static destructors.
  // Not allocated: destructors log when memory is exhausted.
  alignas(JXLogger) static unsigned char memory[sizeof(JXLogger)];
  static JXLogger* const instance = new (memory) JXLogger();
  return *instance;
}

void JXLogger::logMessage_withLevel(std::string_view message, int level) noexcept {
  if (!printsLevel(level) || insideSink || JXForkedChild::isCurrent()) return;
  try {
    if (deferrals != 0) {
      if (deferred == nullptr) deferred = new Messages();
      deferred->emplace_back(level, message);
    } else {
      write(message, level);
    }
  } catch (...) {
    // The message is lost; the application's event is not.
  }
}

void JXLogger::logAtOnce(std::string_view message, int level) noexcept {
  const int outer = std::exchange(deferrals, 0);
  logMessage_withLevel(message, level);
  deferrals = outer;
}

void JXLogger::logInForkedChild(std::string_view message, int level) noexcept {
  if (!printsLevel(level) || insideSink) return;
  try {
    std::unique_lock<std::mutex> lock(mutex_, std::try_to_lock);
    const std::shared_ptr<const JXLogSink> sink = lock ? sink_ : nullptr;
    if (lock) lock.unlock();
    write(sink, message, level);
  } catch (...) {
    // The message is lost; the child goes on.
  }
}

void JXLogger::write(std::string_view message, int level) {
  std::shared_ptr<const JXLogSink> sink;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    sink = sink_;
  }
  write(sink, message, level);
}

// Without the lock: the sink may use locks that another thread holds while it logs.
void JXLogger::write(const std::shared_ptr<const JXLogSink>& sink, std::string_view message,
                     int level) {
  insideSink = true;
  try {
    if (sink && *sink) {
      (*sink)(level, message);
    } else {
      writeToStandardError(level, message);
    }
  } catch (...) {
    // The message is lost; the application's event is not.
  }
  insideSink = false;
}

void JXLogger::setSink(JXLogSink sink) {
  if (JXForkedChild::ignores("JXLogger::setSink()")) return;
  auto next = std::make_shared<const JXLogSink>(std::move(sink));
  const std::lock_guard<std::mutex> lock(mutex_);
  // The previous sink is destroyed after the lock is released, because its members may log.
  sink_.swap(next);
}

JXLogDeferral::JXLogDeferral() noexcept { ++deferrals; }

JXLogDeferral::~JXLogDeferral() {
  if (--deferrals != 0 || deferred == nullptr) return;
  const std::unique_ptr<Messages> messages(std::exchange(deferred, nullptr));
  for (const auto& [level, message] : *messages)
    JXLogger::sharedInstance().logMessage_withLevel(message, level);
}

}  // namespace jx
