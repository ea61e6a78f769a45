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

// Translates the changes that a player reports to video events. Does not depend on a player, a
// clock or the network, so each rule can be tested separately. The README lists the rules.
class PlaybackTranslator {
 public:
  using Events = std::vector<std::shared_ptr<jx::JXVideoEvent>>;

  // `newSession` returns the ID of a new video session; called once for each film.
  explicit PlaybackTranslator(std::function<std::string()> newSession);

  Events translate(const PlayerChange& change);

 private:
  struct Seek {
    std::optional<double> target;  // not set until the player reports it
  };

  void updateState(const PlayerChange& change);
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
