// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// A child process that runs mpv without video and audio output and waits for a film. The destructor
// ends it.
class MpvProcess {
 public:
  // `options` follow the default options and override them. Throws std::system_error if mpv cannot
  // be started.
  explicit MpvProcess(const std::vector<std::string>& options);
  ~MpvProcess();
  MpvProcess(const MpvProcess&) = delete;
  MpvProcess& operator=(const MpvProcess&) = delete;

  std::string socketPath() const { return folder_ + "/mpv"; }

 private:
  std::string folder_;
  pid_t pid_ = -1;
};
