// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "tools/jx/Console.h"
#include "tools/jx/TerminationSignals.h"
#include "tools/jx/replay/LineReader.h"
#include "tools/jx/replay/ReplayExit.h"
#include "tools/jx/replay/ReplayOptions.h"
#include "tools/jx/replay/ReplaySession.h"

namespace jx {

/// One run of `jx replay`: executes the script line by line, waits for delivery and prints a
/// summary.
class Replay {
 public:
  /// `options` contains a state folder; `script` is an open descriptor.
  Replay(const ReplayOptions& options, int script, const TerminationSignals& signals,
         std::shared_ptr<Console> console);

  /// Runs the script and returns the exit status.
  int play();

 private:
  void readLines();
  /// Returns false when reading must stop.
  bool playLine(LineReader::Result result, const std::string& line);
  Done runLine(const std::string& line);
  void printVerification(const JXEvent& event) const;
  void keepPace();
  bool isSignalled() const;
  void print(std::string_view body);
  void showProgress() const;
  int finish();

  const ReplayOptions options_;
  const TerminationSignals& signals_;
  const std::shared_ptr<Console> console_;
  LineReader reader_;
  ReplaySession session_;
  std::uint64_t lineNumber_ = 0;
  std::uint64_t badLines_ = 0;
  bool printFailed_ = false;
  std::chrono::steady_clock::time_point due_;  ///< when the next event is due, with --rate
};

}  // namespace jx
