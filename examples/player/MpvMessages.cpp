// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "MpvMessages.h"

#include <cstdlib>
#include <string_view>

#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXJsonWriter.h"

namespace {

using Kind = PlayerChange::Kind;

struct Property {
  std::string_view name;
  Kind kind;
};

// The position is last, so that name and length of the film are known at the first position.
constexpr Property kProperties[] = {
    {"mpv-version", Kind::PlayerName},
    {"filename", Kind::FilmName},
    {"media-title", Kind::FilmTitle},
    {"duration", Kind::Length},
    {"pause", Kind::Paused},
    {"paused-for-cache", Kind::Buffering},
    {"volume", Kind::Volume},
    {"mute", Kind::Muted},
    {"speed", Kind::Speed},
    {"fullscreen", Kind::FullScreen},
    {"video-bitrate", Kind::Bitrate},
    {"container-fps", Kind::FrameRate},
    {"height", Kind::Height},
    {"time-pos", Kind::Position},
};

constexpr int kPositionRequest = 1;

double number(const jx::JXJsonValue& value) {
  return std::strtod(value.numberString().toStdString().c_str(), nullptr);
}

std::optional<PlayerChange> propertyChange(const jx::JXJsonObject& message) {
  const jx::JXJsonValue name = message.get("name");
  const jx::JXJsonValue data = message.get("data");
  if (!data.isPresent() || data.kind() == jx::JXJsonValue::Kind::Null) return std::nullopt;
  for (const Property& property : kProperties) {
    if (name.string() != jx::JXString(property.name)) continue;
    return PlayerChange{property.kind, number(data), data.boolValue(), data.string().toStdString()};
  }
  return std::nullopt;
}

std::optional<PlayerChange> filmEnded(const jx::JXJsonObject& message) {
  const std::string reason = message.get("reason").string().toStdString();
  if (reason == "eof") return PlayerChange{Kind::Finished};
  if (reason == "stop" || reason == "quit") return PlayerChange{Kind::Left};
  if (reason != "error") return std::nullopt;  // a playlist, replaced by its entries
  PlayerChange failed{Kind::Failed};
  failed.text = message.get("file_error").string().toStdString();
  return failed;
}

}  // namespace

std::string mpvCommand(const std::vector<jx::JXJsonValue>& words, int requestId) {
  jx::JXJsonArray command;
  for (const jx::JXJsonValue& word : words)
    command.append(word);
  jx::JXJsonObject message;
  message.set("command", command);
  message.set("request_id", requestId);
  return jx::JXJsonWriter::write(message, jx::JXJsonStyle::Compact).text + "\n";
}

std::vector<std::string> mpvObservations() {
  std::vector<std::string> commands;
  int id = 0;
  for (const Property& property : kProperties)
    commands.push_back(mpvCommand({"observe_property", ++id, property.name}));
  return commands;
}

MpvReading readMpvLine(const std::string& line) {
  const jx::JXJsonObject message = jx::JXJsonReader::read(line).value.object();
  const std::string event = message.get("event").string().toStdString();
  if (event == "property-change") return {propertyChange(message), {}};
  if (event == "start-file") return {PlayerChange{Kind::FilmOpened}, {}};
  if (event == "seek") return {PlayerChange{Kind::SeekBegan}, {}};
  // The event does not contain the new position, which may differ from the target by a second.
  if (event == "playback-restart") {
    return {std::nullopt, mpvCommand({"get_property", "time-pos"}, kPositionRequest)};
  }
  if (event == "end-file") return {filmEnded(message), {}};
  if (event.empty() && message.get("request_id").decimal() == jx::JXDecimal(kPositionRequest) &&
      message.get("data").numberString().isPresent()) {
    return {PlayerChange{Kind::SeekEnded, number(message.get("data"))}, {}};
  }
  return {};
}
