// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// An mpv of our own, without picture and sound, that waits for a film. Ended with this object.
class MpvProcess {
 public:
  // `options` come behind ours and so may bring picture and sound back. Throws std::system_error
  // when mpv cannot be started.
  explicit MpvProcess(const std::vector<std::string>& options);
  ~MpvProcess();
  MpvProcess(const MpvProcess&) = delete;
  MpvProcess& operator=(const MpvProcess&) = delete;

  std::string socketPath() const { return folder_ + "/mpv"; }

 private:
  std::string folder_;
  pid_t pid_ = -1;
};
