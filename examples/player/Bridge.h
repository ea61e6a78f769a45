// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "MpvConnection.h"
#include "PlaybackTranslator.h"
#include "Report.h"
#include "jx/JXServerSide.h"

// Reads the messages of mpv, translates them and executes the events; forwards the commands of
// the viewer. Everything runs on the thread that calls `run`.
class Bridge {
 public:
  // Makes SIGINT and SIGTERM end `run`. Call it once, before `run`.
  static void catchSignals();

  Bridge(MpvConnection& mpv, jx::ServerSide& serverSide);
  // Returns when mpv has exited or a signal was received.
  void run();

 private:
  void readPlayer();
  bool forwardInput();
  void handle(const PlayerChange& change);

  MpvConnection& mpv_;
  jx::ServerSide& serverSide_;
  PlaybackTranslator translator_;
  Report report_;
  std::string typed_;
};
