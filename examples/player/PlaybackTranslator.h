// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "PlayerChange.h"
#include "VideoEvents.h"

// Turns what a player reports into video events: takes one change, gives the events that it means.
// It knows neither player nor clock nor network, so its rules can be tested one by one. The README
// tells the rules.
class PlaybackTranslator {
 public:
  using Events = std::vector<std::shared_ptr<jx::JXVideoEvent>>;

  // `newSession` names a video session; it is asked once for each film.
  explicit PlaybackTranslator(std::function<std::string()> newSession);

  Events take(const PlayerChange& change);

 private:
  struct Seek {
    std::optional<double> target;  // absent until the player told it
  };

  void takeState(const PlayerChange& change);
  void open();
  void begin();
  void setPaused(bool paused);
  void setBuffering(bool buffering);
  void moveTo(double position);
  void announceSeek(double target);
  void endSeek(double position);
  void passQuarters(double from, double to);
  void finish();
  void fail(const std::string& reason);
  void leave();

  std::shared_ptr<jx::JXVideoPlaybackEvent> send(jx::EJXVideoPlaybackMode mode);
  void send(jx::EJXVideoContentMode mode);
  void send(jx::EJXVideoSettingMode mode);

  std::function<std::string()> newSession_;
  FilmState film_;
  bool playing_ = false;
  bool waitedForLength_ = false;
  std::optional<Seek> seek_;
  std::array<bool, 3> quarterReached_{};
  Events events_;
};
