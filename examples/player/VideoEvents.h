// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "jx/JXServerSide.h"

// State of the film and the player. Positions and lengths are in seconds.
struct FilmState {
  std::string session;
  std::string player;
  std::string name;
  std::string title;
  double position = 0;
  std::optional<double> length;
  bool paused = false;
  bool buffering = false;
  double volume = 100;
  bool muted = false;
  double speed = 1;
  bool fullScreen = false;
  std::optional<double> bitrate;
  std::optional<double> frameRate;
  std::optional<double> height;
};

// Create events from the state. An unknown length, as of a live stream, is reported as 0, because
// video events require a length.
std::shared_ptr<jx::JXVideoPlaybackEvent> playbackEvent(jx::EJXVideoPlaybackMode mode,
                                                        const FilmState& film);
std::shared_ptr<jx::JXVideoContentEvent> contentEvent(jx::EJXVideoContentMode mode,
                                                      const FilmState& film);
std::shared_ptr<jx::JXVideoSettingEvent> settingEvent(jx::EJXVideoSettingMode mode,
                                                      const FilmState& film);

// Rounds to thousandths; for seconds that is finer than a frame.
jx::JXDecimal decimal(double number);
