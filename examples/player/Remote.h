// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// What a viewer does, from a line of text: "pause", "resume", "seek SECONDS", "volume PERCENT",
// "speed FACTOR", "quit". Gives the command for mpv, empty when the line is none of these.
std::string remoteCommand(const std::string& line);
