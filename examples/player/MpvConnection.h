// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <string>
#include <vector>

// A client connection to the socket of mpv.
class MpvConnection {
 public:
  // Waits for the socket, which mpv creates shortly after its start. Throws std::runtime_error if
  // the connection fails for `timeout`.
  MpvConnection(const std::string& socketPath, std::chrono::milliseconds timeout);
  ~MpvConnection();
  MpvConnection(const MpvConnection&) = delete;
  MpvConnection& operator=(const MpvConnection&) = delete;

  // Readable when lines are available.
  int fd() const { return fd_; }
  // Returns false once mpv has closed the connection.
  bool isOpen() const { return open_; }
  // Sends a line; closes the connection on an error.
  void send(const std::string& line);
  // Returns the complete lines that were received. Does not block if fd() is readable.
  std::vector<std::string> readLines();

 private:
  int fd_ = -1;
  bool open_ = true;
  std::string unfinished_;
};
