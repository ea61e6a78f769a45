// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "tools/jx/Result.h"
#include "tools/jx/gateway/DrainFolder.h"
#include "tools/jx/gateway/JsonLog.h"
#include "tools/jx/gateway/NatsClient.h"
#include "tools/jx/gateway/StreamReader.h"

namespace jx {

struct DrainSettings {
  NatsServers servers;
  std::string stream = kEventsStream;
  std::string consumer = "jx-drain";
  std::filesystem::path folder;
  DrainLimits limits;
  bool stopsAtEnd = false;
};

/// Moves the messages of a stream to the files of a folder. Failures of the broker and of the disk
/// are logged, and it tries again after a pause.
class EventDrain {
 public:
  /// Waits at most this long, 0 to return immediately. Returns true when the drain should stop.
  using Pause = std::function<bool(std::chrono::milliseconds)>;

  /// Fails if the folder cannot be used.
  static Result<std::unique_ptr<EventDrain>> open(const DrainSettings& settings, JsonLog& log,
                                                  Pause pause);
  /// Returns at the end of the stream, with `stopsAtEnd`, or when it should stop. Fails if the last
  /// file cannot be finished.
  Done run();

 private:
  EventDrain(const DrainSettings& settings, JsonLog& log, Pause pause,
             std::unique_ptr<DrainFolder> folder);
  Done connect();
  bool hasOtherMessages(const std::vector<StreamMessage>& messages) const;
  Done readOnce(bool& isAtEnd);
  void logFailure(const std::string& reason);

  const DrainSettings settings_;
  JsonLog& log_;
  const Pause pause_;
  std::unique_ptr<DrainFolder> folder_;
  std::unique_ptr<StreamReader> reader_;
  bool isReadingAgain_ = false;  // from the first message
  std::string failure_;          // the last one that is logged; "" after a success
  DrainFolder::Tally total_;
};

}  // namespace jx
