// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "PlayerChange.h"
#include "jx/core/json/JXJsonValue.h"

// Messages of mpv's JSON IPC: each line is a JSON object. Commands are sent; responses and events
// are received.

// Formats a command such as {"set_property", "pause", true}, including the newline. The response
// contains `requestId`; 0 if the response is not needed.
std::string mpvCommand(const std::vector<jx::JXJsonValue>& words, int requestId = 0);

// Returns the commands to send first. mpv then reports each relevant property, now and after each
// change.
std::vector<std::string> mpvObservations();

struct MpvReading {
  std::optional<PlayerChange> change;
  std::string request;  // a command to send in response to this line; usually empty
};

// Parses a line from mpv. Returns an empty reading for a line that is not JSON or not relevant.
MpvReading readMpvLine(const std::string& line);
