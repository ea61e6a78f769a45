// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Report.h"

#include <cstdio>
#include <string>

namespace {

std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

std::string describe(const PlayerChange& change) {
  using Kind = PlayerChange::Kind;
  const std::string number = decimal(change.number).toString();
  switch (change.kind) {
    case Kind::FilmOpened:
      return "film opened";
    case Kind::PlayerName:
      return "player " + change.text;
    case Kind::FilmName:
      return "name " + change.text;
    case Kind::FilmTitle:
      return "title " + change.text;
    case Kind::Length:
      return "length " + number;
    case Kind::Position:
      return "position " + number;
    case Kind::Paused:
      return "paused: " + yesOrNo(change.isOn);
    case Kind::Buffering:
      return "buffering: " + yesOrNo(change.isOn);
    case Kind::SeekBegan:
      return "seek started";
    case Kind::SeekEnded:
      return "seek completed at " + number;
    case Kind::Volume:
      return "volume " + number;
    case Kind::Muted:
      return "muted: " + yesOrNo(change.isOn);
    case Kind::Speed:
      return "speed " + number;
    case Kind::FullScreen:
      return "full screen: " + yesOrNo(change.isOn);
    case Kind::Bitrate:
      return "bitrate " + number;
    case Kind::FrameRate:
      return "frame rate " + number;
    case Kind::Height:
      return "height " + number;
    case Kind::Finished:
      return "end of the film";
    case Kind::Failed:
      return "error: " + change.text;
    case Kind::Left:
      return "stopped";
  }
  return {};
}

std::string describe(const jx::JXVideoEvent& event) {
  const auto text = [](const std::optional<jx::JXDecimal>& number) {
    return number ? number->toString() : "?";
  };
  std::string description = event.name().toStdString() + " at " + text(event.cursorPosition()) +
                            " of " + text(event.totalLength());
  const auto* const playback = dynamic_cast<const jx::JXVideoPlaybackEvent*>(&event);
  if (playback != nullptr && playback->seekPosition()) {
    description += ", to " + text(playback->seekPosition());
  }
  return description;
}

}  // namespace

Report::Report() : start_(std::chrono::steady_clock::now()) {}

void Report::add(const PlayerChange& change, const PlaybackTranslator::Events& events) const {
  using Kind = PlayerChange::Kind;
  const bool isPrinted =
      change.kind != Kind::Position && change.kind != Kind::Bitrate && change.kind != Kind::Left;
  if (!isPrinted && events.empty()) return;
  const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start_;
  std::string reported = describe(change);
  if (events.empty()) std::printf("%7.3f  %s\n", time.count(), reported.c_str());
  for (const auto& event : events) {
    std::printf("%7.3f  %-24s -> %s\n", time.count(), reported.c_str(), describe(*event).c_str());
    reported.clear();
  }
  std::fflush(stdout);
}
