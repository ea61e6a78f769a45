// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <termios.h>

#include <optional>
#include <string>

#include "Shop.h"

// The terminal as a television: whole screen, no cursor, one key at a time. What it changed it
// changes back when it goes. Where input or output is no terminal, that side stays as it is.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  enum class Input { Key, Second, Ended };
  // Waits for a key, for the next second to pass when `ticks`, or for the end: of the input, or by
  // SIGINT, SIGTERM, SIGHUP.
  Input wait(bool ticks, Key& key);

  bool drawsPages() const { return drawsPages_; }
  static void write(const std::string& text);

 private:
  std::optional<Key> takeKey();

  bool drawsPages_;
  std::optional<termios> before_;
  std::string bytes_;
};
