// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// A change that a player reported, in player-independent form. A bridge to another player creates
// these from its own messages; the following steps do not change.
struct PlayerChange {
  enum class Kind {
    FilmOpened,  // the following changes belong to another film
    PlayerName,  // text
    FilmName,    // text: file name or stream URL
    FilmTitle,   // text
    Length,      // number: seconds
    Position,    // number: seconds
    Paused,      // isOn: paused by the viewer
    Buffering,   // isOn: playback waits for data
    SeekBegan,   // the next position is the target
    SeekEnded,   // number: position after the seek
    Volume,      // number: percent
    Muted,       // isOn
    Speed,       // number: 1 is normal
    FullScreen,  // isOn
    Bitrate,     // number: video bits per second
    FrameRate,   // number: frames per second
    Height,      // number: height of the video in pixels
    Finished,    // the film ended
    Failed,      // text: reason
    Left,        // the viewer stopped before the end
  };

  Kind kind;
  double number = 0;
  bool isOn = false;
  std::string text = {};
};
