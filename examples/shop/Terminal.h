// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <termios.h>

#include <optional>
#include <string>

#include "Shop.h"

// A full-screen terminal without a cursor that reads single keys. The destructor restores the
// settings. If input or output is not a terminal, it is not changed.
class Terminal {
 public:
  Terminal();
  ~Terminal();
  Terminal(const Terminal&) = delete;
  Terminal& operator=(const Terminal&) = delete;

  enum class Input { Key, Second, Ended };
  // Waits for a key, for one second if `ticks`, or for the end: end of input, SIGINT, SIGTERM or
  // SIGHUP.
  Input wait(bool ticks, Key& key);

  bool drawsPages() const { return drawsPages_; }
  static void write(const std::string& text);

 private:
  std::optional<Key> nextKey();

  bool drawsPages_;
  std::optional<termios> before_;
  std::string bytes_;
};
