// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <string>
#include <vector>

// The client's end of mpv's socket.
class MpvConnection {
 public:
  // Waits for the socket, which an mpv that has just been started makes a moment later. Throws
  // std::runtime_error when nobody listened there in time.
  MpvConnection(const std::string& socketPath, std::chrono::milliseconds patience);
  ~MpvConnection();
  MpvConnection(const MpvConnection&) = delete;
  MpvConnection& operator=(const MpvConnection&) = delete;

  // Readable when lines have come.
  int fd() const { return fd_; }
  // False once mpv has gone.
  bool isOpen() const { return open_; }
  // A player that has gone misses it.
  void send(const std::string& line);
  // The whole lines that have come, without waiting when fd() is readable.
  std::vector<std::string> readLines();

 private:
  int fd_ = -1;
  bool open_ = true;
  std::string unfinished_;
};
