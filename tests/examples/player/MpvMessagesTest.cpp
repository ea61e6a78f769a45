// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "examples/player/MpvMessages.h"

#include <gtest/gtest.h>

#include <string>

#include "examples/player/Remote.h"

namespace jx::test {
namespace {

using Kind = PlayerChange::Kind;

PlayerChange changeOf(const std::string& line) {
  const MpvReading reading = readMpvLine(line);
  EXPECT_TRUE(reading.change.has_value()) << line;
  return reading.change.value_or(PlayerChange{Kind::Left});
}

bool isIgnored(const std::string& line) {
  const MpvReading reading = readMpvLine(line);
  return !reading.change && reading.request.empty();
}

TEST(MpvMessages, ConvertsPropertiesToChanges) {
  const PlayerChange position =
      changeOf(R"({"event":"property-change","id":4,"name":"time-pos","data":4.960000})");
  EXPECT_EQ(position.kind, Kind::Position);
  EXPECT_EQ(position.number, 4.96);
  const PlayerChange paused =
      changeOf(R"({"event":"property-change","id":5,"name":"pause","data":true})");
  EXPECT_EQ(paused.kind, Kind::Paused);
  EXPECT_TRUE(paused.isOn);
  const PlayerChange waiting =
      changeOf(R"({"event":"property-change","id":6,"name":"paused-for-cache","data":true})");
  EXPECT_EQ(waiting.kind, Kind::Buffering);
  const PlayerChange name =
      changeOf(R"({"event":"property-change","id":1,"name":"filename","data":"film.mkv"})");
  EXPECT_EQ(name.kind, Kind::FilmName);
  EXPECT_EQ(name.text, "film.mkv");
}

TEST(MpvMessages, IgnoresPropertiesWithoutAValue) {
  EXPECT_TRUE(isIgnored(R"({"event":"property-change","id":3,"name":"duration"})"));
  EXPECT_TRUE(isIgnored(R"({"event":"property-change","id":3,"name":"duration","data":null})"));
}

TEST(MpvMessages, DistinguishesTheEndOfFilmQuitAndError) {
  EXPECT_EQ(changeOf(R"({"event":"end-file","reason":"eof","playlist_entry_id":1})").kind,
            Kind::Finished);
  EXPECT_EQ(changeOf(R"({"event":"end-file","reason":"quit"})").kind, Kind::Left);
  EXPECT_EQ(changeOf(R"({"event":"end-file","reason":"stop"})").kind, Kind::Left);
  const PlayerChange failed =
      changeOf(R"({"event":"end-file","reason":"error","file_error":"loading failed"})");
  EXPECT_EQ(failed.kind, Kind::Failed);
  EXPECT_EQ(failed.text, "loading failed");
  EXPECT_TRUE(isIgnored(R"({"event":"end-file","reason":"redirect"})"));
}

TEST(MpvMessages, RequestsThePositionAfterASeek) {
  EXPECT_EQ(changeOf(R"({"event":"seek"})").kind, Kind::SeekBegan);
  const MpvReading restarted = readMpvLine(R"({"event":"playback-restart"})");
  EXPECT_FALSE(restarted.change.has_value());
  EXPECT_EQ(restarted.request, R"({"command":["get_property","time-pos"],"request_id":1})"
                               "\n");
  const PlayerChange landed = changeOf(R"({"data":16.023000,"request_id":1,"error":"success"})");
  EXPECT_EQ(landed.kind, Kind::SeekEnded);
  EXPECT_EQ(landed.number, 16.023);
  EXPECT_TRUE(isIgnored(R"({"request_id":1,"error":"property unavailable"})"));
  EXPECT_TRUE(isIgnored(R"({"data":16.0,"request_id":0,"error":"success"})"));
}

TEST(MpvMessages, IgnoresUnknownLines) {
  for (const char* line : {"", "{", "[]", "7", R"({"event":7})", R"({"event":"audio-reconfig"})",
                           R"({"event":"property-change"})",
                           R"({"event":"property-change","name":"unasked","data":1})"}) {
    EXPECT_TRUE(isIgnored(line)) << line;
  }
}

TEST(Remote, ConvertsInputToMpvCommands) {
  EXPECT_EQ(remoteCommand("pause"), R"({"command":["set_property","pause",true],"request_id":0})"
                                    "\n");
  EXPECT_EQ(remoteCommand("seek 12.50"), R"({"command":["seek",12.50,"absolute"],"request_id":0})"
                                         "\n");
  EXPECT_EQ(remoteCommand("volume 40"), R"({"command":["set_property","volume",40],"request_id":0})"
                                        "\n");
  for (const char* line : {"", "dance", "seek", "seek there", "volume"})
    EXPECT_EQ(remoteCommand(line), "") << line;
}

}  // namespace
}  // namespace jx::test
