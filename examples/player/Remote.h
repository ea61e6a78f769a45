// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// Converts a line of input ("pause", "resume", "seek SECONDS", "volume PERCENT", "speed FACTOR",
// "quit") to a command for mpv. Returns an empty string for any other line.
std::string remoteCommand(const std::string& line);
