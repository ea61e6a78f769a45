// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "jx/JXServerSide.h"
#include "jx/platform/JXManualClock.h"
#include "tools/jx/Result.h"
#include "tools/jx/replay/ReplayTally.h"
#include "tools/jx/replay/ScriptCommand.h"

namespace jx {

/// Configuration of the replayed application.
struct ReplaySettings {
  std::int32_t siteID = 1;
  std::string sourceKey = "jx-replay";
  std::int32_t behaviour = EJXDefaultBehaviour_DEFAULT;
  /// An empty address stores and sends nothing.
  std::string collectionAddress;
  std::string caFile;  ///< empty: the system's certificates
  std::filesystem::path stateFolder;
  /// Start of a manual clock that only `ScriptAdvance` advances; not set: real time.
  std::optional<std::int64_t> startMs;
  std::optional<std::string> versionName;
  int logLevel = 3;
  JXLogSink logSink;
  /// Called during `execute` with each body as it would be posted. May be empty.
  std::function<void(std::string_view body)> onBody;
};

/// An application that is driven by a script. One per process, because the library starts once.
/// Used by one thread.
class ReplaySession {
 public:
  explicit ReplaySession(const ReplaySettings& settings);
  ~ReplaySession();
  ReplaySession(const ReplaySession&) = delete;
  ReplaySession& operator=(const ReplaySession&) = delete;

  /// Runs a command; a command that fails has no effect. Before an event, this may wait for
  /// delivery when the queue is half full: a script is faster than the network, and its own first
  /// events would be evicted. `isCancelled` ends the wait.
  Done run(const ScriptCommand& command, const std::function<bool()>& isCancelled);
  /// Waits until the queue is empty. Returns early after `limit`, when delivery is blocked (no
  /// consent, background), or when `isCancelled` returns true.
  void waitForDelivery(std::chrono::milliseconds limit, const std::function<bool()>& isCancelled);

  /// Returns the number of events executed so far and their results, without bad lines.
  ReplayTally tally() const;
  /// Returns true while events are ignored for lack of consent.
  bool isDisabled() const;

 private:
  Done advance(std::int64_t ms);
  void execute(const std::shared_ptr<JXEvent>& event, const std::function<bool()>& isCancelled);
  void act(ScriptAct act);
  void waitForQueue(const std::function<bool()>& isCancelled);
  bool isDeliveryBlocked(const JXDeliveryCounters& counters) const;

  bool sends_;
  std::shared_ptr<JXManualClock> clock_;
  std::shared_ptr<ServerSide> serverSide_;
  std::uint64_t executed_ = 0;
  std::uint64_t ignored_ = 0;
  /// Delivered and rejected requests when waiting for the queue last made no progress.
  std::optional<std::uint64_t> stalledAt_;
};

}  // namespace jx
