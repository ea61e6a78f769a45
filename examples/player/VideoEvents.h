// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "jx/JXServerSide.h"

// What is known of the film and the player at one moment. Positions and lengths are seconds.
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

// Events that say what the state says. A length that the player does not know, as of a live
// stream, is told as 0: the video events count as complete with a length only.
std::shared_ptr<jx::JXVideoPlaybackEvent> playbackEvent(jx::EJXVideoPlaybackMode mode,
                                                        const FilmState& film);
std::shared_ptr<jx::JXVideoContentEvent> contentEvent(jx::EJXVideoContentMode mode,
                                                      const FilmState& film);
std::shared_ptr<jx::JXVideoSettingEvent> settingEvent(jx::EJXVideoSettingMode mode,
                                                      const FilmState& film);

// To the thousandth, which for seconds is finer than a frame.
jx::JXDecimal decimal(double number);
