// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "PlayerChange.h"
#include "jx/core/json/JXJsonValue.h"

// The language of mpv's JSON IPC: a line is a JSON object, commands go there, answers and events
// come back.

// A command as mpv reads it, with its newline: {"set_property", "pause", true} and the like.
// `requestId` comes back with the answer; 0 is a command whose answer nobody waits for.
std::string mpvCommand(const std::vector<jx::JXJsonValue>& words, int requestId = 0);

// What to send first: mpv then tells each property that matters, now and whenever it changes.
std::vector<std::string> mpvObservations();

struct MpvReading {
  std::optional<PlayerChange> change;
  std::string question;  // a command to send because of this line; mostly none
};

// What a line from mpv means. A line that is no JSON, or is about something else, means nothing.
MpvReading readMpvLine(const std::string& line);
