// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// One thing that a player reported, in words that every player has. A bridge to another player
// makes these from whatever that one says; all that follows stays as it is.
struct PlayerChange {
  enum class Kind {
    FilmOpened,  // what follows is about another film
    PlayerName,  // text
    FilmName,    // text: the file's name or the stream's address
    FilmTitle,   // text
    Length,      // number: seconds
    Position,    // number: seconds
    Paused,      // flag: the viewer's pause
    Buffering,   // flag: the picture stands still until more of the film has come
    SeekBegan,   // the next position is where the viewer wants to be
    SeekEnded,   // number: the position from which it plays on
    Volume,      // number: percent
    Muted,       // flag
    Speed,       // number: 1 is normal
    FullScreen,  // flag
    Bitrate,     // number: bits of video a second
    FrameRate,   // number: frames a second
    Height,      // number: lines of the picture
    Finished,    // the film came to its end
    Failed,      // text: why it cannot be played
    Left,        // the viewer stopped before the end
  };

  Kind kind;
  double number = 0;
  bool flag = false;
  std::string text = {};
};
