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

/// What a replayed application says to the library before its first event.
struct ReplaySettings {
  std::int32_t siteID = 1;
  std::string sourceKey = "jx-replay";
  std::int32_t behaviour = EJXDefaultBehaviour_DEFAULT;
  /// Empty: nothing is stored or sent.
  std::string collectionAddress;
  std::string caFile;  ///< empty: the system's
  std::filesystem::path stateFolder;
  /// Start of a clock that only `ScriptAdvance` moves; absent: real time.
  std::optional<std::int64_t> startMs;
  std::optional<std::string> versionName;
  int logLevel = 3;
  JXLogSink logSink;
  /// Given each body as it would be posted, while the event is executed; empty for nobody.
  std::function<void(std::string_view body)> onBody;
};

/// An application as the library sees it, played by a script. One in a process, because the library
/// starts once. Used by one thread.
class ReplaySession {
 public:
  explicit ReplaySession(const ReplaySettings& settings);
  ~ReplaySession();
  ReplaySession(const ReplaySession&) = delete;
  ReplaySession& operator=(const ReplaySession&) = delete;

  /// Does what a line says; a failure has done nothing. Before an event it may wait while requests
  /// leave, since a script comes faster than a network takes it and would push its own first
  /// events out of the queue; `isCancelled` ends that.
  Done run(const ScriptCommand& command, const std::function<bool()>& isCancelled);
  /// Waits until nothing is queued. Ends early when `limit` has passed, when what is queued cannot
  /// leave (no consent, background), or when `isCancelled`.
  void waitForDelivery(std::chrono::milliseconds limit, const std::function<bool()>& isCancelled);

  /// Events executed so far, and what became of them; without the bad lines.
  ReplayTally tally() const;
  /// True when the viewer's decision keeps events from being taken.
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
  /// How many were delivered when waiting for the queue to drain was of no use.
  std::optional<std::uint64_t> stalledAt_;
};

}  // namespace jx
