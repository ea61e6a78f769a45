// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Remote.h"

#include <sstream>

#include "MpvMessages.h"

std::string remoteCommand(const std::string& line) {
  std::istringstream words(line);
  std::string verb;
  std::string text;
  words >> verb >> text;
  const auto number = jx::JXJsonValue::numberFromString(text);
  if (verb == "pause") return mpvCommand({"set_property", "pause", true});
  if (verb == "resume") return mpvCommand({"set_property", "pause", false});
  if (verb == "quit") return mpvCommand({"quit"});
  if (!number.isPresent()) return {};
  if (verb == "seek") return mpvCommand({"seek", number, "absolute"});
  if (verb == "volume" || verb == "speed") return mpvCommand({"set_property", verb, number});
  return {};
}
