// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "MpvConnection.h"
#include "PlaybackTranslator.h"
#include "Report.h"
#include "jx/JXServerSide.h"

// Waits for what mpv tells, has it translated, and executes the events; passes on what a viewer
// types. All on the thread that calls `run`.
class Bridge {
 public:
  // SIGINT and SIGTERM end `run` from now on. To be called once, before `run`.
  static void catchSignals();

  Bridge(MpvConnection& mpv, jx::ServerSide& serverSide);
  // Returns when mpv has gone or a signal came.
  void run();

 private:
  void hear();
  bool passOnTyped();
  void take(const PlayerChange& change);

  MpvConnection& mpv_;
  jx::ServerSide& serverSide_;
  PlaybackTranslator translator_;
  Report report_;
  std::string typed_;
};
