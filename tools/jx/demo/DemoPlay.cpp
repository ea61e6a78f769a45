// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/DemoPlay.h"

#include <chrono>
#include <cstdint>
#include <utility>
#include <variant>

#include "jx/platform/JXClock.h"
#include "tools/jx/collector/EventMetadata.h"
#include "tools/jx/replay/ReplaySession.h"
#include "tools/jx/replay/ScriptLine.h"

namespace jx {
namespace {

constexpr std::chrono::seconds kDeliveryTimeout{20};

Result<std::vector<ScriptCommand>> commandsOf(std::string_view script) {
  std::vector<ScriptCommand> commands;
  while (!script.empty()) {
    const std::size_t end = script.find('\n');
    Result<ScriptCommand> command = readScriptLine(script.substr(0, end));
    if (!command) {
      return Error{"script line " + std::to_string(commands.size() + 1) + ": " +
                   command.error().text};
    }
    commands.push_back(std::move(*command));
    script.remove_prefix(end == std::string_view::npos ? script.size() : end + 1);
  }
  return commands;
}

std::int64_t lengthOf(const std::vector<ScriptCommand>& commands) {
  std::int64_t ms = 0;
  for (const ScriptCommand& command : commands) {
    if (const auto* const step = std::get_if<ScriptAdvance>(&command)) ms += step->ms;
  }
  return ms;
}

}  // namespace

Result<DemoPlayed> playDemo(std::string_view script, const DemoTarget& target,
                            const std::function<bool()>& isCancelled) {
  const Result<std::vector<ScriptCommand>> commands = commandsOf(script);
  if (!commands) return commands.error();
  DemoPlayed played;
  ReplaySettings settings;
  settings.sourceKey = "jx-demo";
  settings.collectionAddress = target.address;
  settings.caFile = target.caFile;
  settings.stateFolder = target.stateFolder;
  settings.versionName = "1.0";
  settings.startMs = JXSystemClock().nowMs() - lengthOf(*commands);
  settings.onBody = [&played](std::string_view body) {
    played.eventIds.push_back(EventMetadata::read("", body).eventID.value_or(""));
  };
  ReplaySession session(settings);
  for (const ScriptCommand& command : *commands) {
    if (isCancelled()) break;
    if (const auto* const permanent = std::get_if<ScriptPermanent>(&command)) {
      played.permanentKeys.push_back(permanent->key);
    }
    const Done ran = session.run(command, isCancelled);
    if (!ran) return ran.error();
    session.waitForDelivery(kDeliveryTimeout, isCancelled);
  }
  played.ignored = session.tally().ignored;
  return played;
}

}  // namespace jx
