// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "jx/core/json/JXJsonReader.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/CollectorProgram.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;

constexpr std::chrono::seconds kPatience{60};

// Returns the event names of a report, in order: the words after the arrows.
std::vector<std::string> shownNames(const std::string& report) {
  const std::string arrow = "-> ";
  std::vector<std::string> names;
  for (std::size_t at = report.find(arrow); at != std::string::npos; at = report.find(arrow, at)) {
    at += arrow.size();
    names.push_back(report.substr(at, report.find(' ', at) - at));
  }
  return names;
}

/// The example with a real player, a generated film of 20 seconds, and a collector.
class PlayerExample : public testing::Test {
 protected:
  void SetUp() override {
    const std::vector<std::string> film{"-nostdin",
                                        "-loglevel",
                                        "error",
                                        "-f",
                                        "lavfi",
                                        "-i",
                                        "testsrc=size=160x90:rate=25:duration=20",
                                        "-f",
                                        "lavfi",
                                        "-i",
                                        "sine=frequency=440:duration=20",
                                        "-c:v",
                                        "mpeg4",
                                        "-c:a",
                                        "flac",
                                        film_};
    ASSERT_EQ(ChildProcess::run(JX_FFMPEG, film, kPatience).status, 0);
  }

  /// Returns the command line of the example, followed by `more`.
  std::vector<std::string> arguments(const std::vector<std::string>& more) const {
    std::vector<std::string> all{"--to",    collector_.address(), "--ca", collector_.caFile(),
                                 "--state", folder_.path("state")};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  void type(ChildProcess& player, const std::string& line, const std::string& output) const {
    ASSERT_TRUE(player.writeInput(line + "\n"));
    ASSERT_TRUE(player.waitForOutput(output, kPatience)) << player.output();
  }
  /// Returns the names of the received events. Simultaneous events may arrive in any order.
  std::vector<std::string> arrivedNames() const {
    std::vector<std::string> names;
    const JXJsonArray events = collector_.events();
    for (const JXJsonValue& event : events.values()) {
      names.push_back(event.object().get("name").string().toStdString());
      EXPECT_TRUE(event.object().get("good").boolValue()) << names.back();
    }
    return names;
  }
  /// Returns the bodies of the events of this name, in chronological order.
  std::vector<JXJsonObject> bodies(const std::string& name) const {
    std::map<std::string, JXJsonObject> found;
    const JXJsonArray events = collector_.events();
    for (const JXJsonValue& event : events.values()) {
      if (event.object().get("name").string() != JXString(name)) continue;
      const JXString text = event.object().get("body").string();
      const JXJsonObject body = JXJsonReader::read(text.view()).value.object();
      found[body.get("context").object().get("event_timestamp").numberString().toStdString()] =
          body;
    }
    std::vector<JXJsonObject> inOrder;
    for (const auto& [time, body] : found)
      inOrder.push_back(body);
    return inOrder;
  }
  static std::string digits(const JXJsonObject& body, const char* key) {
    return body.get(key).numberString().toStdString();
  }

  TemporaryFolder folder_;
  std::string film_ = folder_.path("film.mkv");
  CollectorProgram collector_{JX_PROGRAM, folder_.path()};
  // For temporary files of the example, so that a test detects files that are not removed.
  TemporaryFolder own_;
  std::map<std::string, std::string> environment_{{"TMPDIR", own_.path()}};
};

TEST_F(PlayerExample, ReportsPauseSeekQuarterAndCompletion) {
  // Starts paused, so that a slow test does not miss a position.
  ChildProcess player(JX_EXAMPLE_PLAYER, arguments({film_, "--pause"}), environment_,
                      ChildProcess::Input::Pipe);
  ASSERT_TRUE(player.waitForOutput("video_pause at 0 of 20", kPatience)) << player.output();
  type(player, "seek 4.5", "-> video_seek_complete at 4.");
  type(player, "resume", "-> video_content_quarter_reached");
  type(player, "pause\nspeed 8", "-> video_speed");
  type(player, "seek 18", "-> video_seek_complete at 18");
  type(player, "resume", "-> video_complete");
  const ChildProcess::Result result = player.wait(kPatience);
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.errors, "");

  const std::vector<std::string> expected{"video_start",
                                          "video_content_start",
                                          "video_pause",
                                          "video_seek_start",
                                          "video_seek_complete",
                                          "video_resume",
                                          "video_content_quarter_reached",
                                          "video_pause",
                                          "video_speed",
                                          "video_seek_start",
                                          "video_seek_complete",
                                          "video_resume",
                                          "video_content_complete",
                                          "video_complete"};
  EXPECT_EQ(shownNames(result.output), expected);
  EXPECT_THAT(arrivedNames(), UnorderedElementsAreArray(expected));
  EXPECT_EQ(digits(bodies("video_complete").at(0), "total_length"), "20");
  const std::vector<JXJsonObject> seeks = bodies("video_seek_start");
  ASSERT_EQ(seeks.size(), 2u);
  EXPECT_EQ(digits(seeks[0], "cursor_position"), "0");
  EXPECT_EQ(digits(seeks[0], "seek_position"), "4.5");
  EXPECT_EQ(digits(seeks[1], "cursor_position"),
            digits(bodies("video_pause").at(1), "cursor_position"))
      << "the seek starts at the paused position";
  EXPECT_EQ(digits(seeks[1], "seek_position"), "18");
  EXPECT_TRUE(std::filesystem::is_empty(own_.path()));
}

TEST_F(PlayerExample, ReportsBuffering) {
  std::ifstream file(film_, std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  const std::string pipe = folder_.path("stream");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const int stream = ::open(pipe.c_str(), O_RDWR | O_CLOEXEC);
  ASSERT_GE(stream, 0);
  ChildProcess player(JX_EXAMPLE_PLAYER, arguments({pipe, "--cache=yes", "--speed=8"}),
                      environment_);
  const auto half = static_cast<ssize_t>(bytes.size() / 2);
  ASSERT_EQ(::write(stream, bytes.data(), static_cast<std::size_t>(half)), half);
  EXPECT_TRUE(player.waitForOutput("video_buffer_start", kPatience)) << player.output();
  const std::string rest = bytes.substr(static_cast<std::size_t>(half));
  ASSERT_EQ(::write(stream, rest.data(), rest.size()), static_cast<ssize_t>(rest.size()));
  ::close(stream);
  const ChildProcess::Result result = player.wait(kPatience);
  EXPECT_EQ(result.status, 0) << result.errors;

  const std::vector<std::string> shown = shownNames(result.output);
  EXPECT_THAT(arrivedNames(), UnorderedElementsAreArray(shown));
  std::vector<std::string> waits;
  for (const std::string& name : shown) {
    if (name.rfind("video_buffer", 0) == 0 || name == "video_pause" || name == "video_complete") {
      waits.push_back(name);
    }
  }
  // A slow machine may buffer more than once.
  ASSERT_GE(waits.size(), 3u);
  EXPECT_EQ(waits[0], "video_buffer_start");
  EXPECT_EQ(waits[1], "video_buffer_complete");
  EXPECT_EQ(waits.back(), "video_complete");
  EXPECT_THAT(waits, Not(Contains("video_pause")));
}

TEST_F(PlayerExample, ReportsAFilmThatCannotBePlayed) {
  const ChildProcess::Result result = ChildProcess::run(
      JX_EXAMPLE_PLAYER, arguments({folder_.path("missing.mkv")}), kPatience, environment_);
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_THAT(arrivedNames(), ElementsAre("video_error"));
  EXPECT_EQ(bodies("video_error").at(0).get("error").string(), JXString("loading failed"));
}

TEST_F(PlayerExample, ReportsAPauseAndCleansUpAfterSigterm) {
  ChildProcess player(JX_EXAMPLE_PLAYER, arguments({film_}), environment_);
  ASSERT_TRUE(player.waitForOutput("video_content_start", kPatience)) << player.output();
  player.signal(SIGTERM);
  EXPECT_EQ(player.wait(kPatience).status, 0);
  EXPECT_THAT(arrivedNames(),
              UnorderedElementsAre("video_start", "video_content_start", "video_pause"));
  EXPECT_EQ(bodies("video_pause").at(0).get("interruption_method").string(), JXString("quit"));
  EXPECT_TRUE(std::filesystem::is_empty(own_.path()));
}

TEST_F(PlayerExample, ConnectsToARunningPlayerWithoutEndingIt) {
  const std::string socket = folder_.path("mpv");
  ChildProcess mpv(JX_MPV, {"--no-config", "--no-terminal", "--vo=null", "--ao=null", "--pause",
                            "--start=7", "--input-ipc-server=" + socket, film_});
  ChildProcess player(JX_EXAMPLE_PLAYER, arguments({"--socket", socket}), environment_);
  ASSERT_TRUE(player.waitForOutput("video_start at 7 of 20", kPatience)) << player.output();
  player.signal(SIGINT);
  EXPECT_EQ(player.wait(kPatience).status, 0);
  EXPECT_THAT(arrivedNames(),
              UnorderedElementsAre("video_start", "video_content_start", "video_pause"));
  EXPECT_EQ(::kill(mpv.pid(), 0), 0) << "the example must not end the player";
  mpv.signal(SIGTERM);
  EXPECT_FALSE(mpv.wait(kPatience).timedOut);
}

TEST_F(PlayerExample, ReportsAMissingPlayer) {
  const ChildProcess::Result result =
      ChildProcess::run(JX_EXAMPLE_PLAYER, arguments({film_}), kPatience, {{"PATH", own_.path()}});
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "player: cannot start mpv: No such file or directory\n");
  EXPECT_EQ(ChildProcess::run(JX_EXAMPLE_PLAYER, {}, kPatience).status, 2);
}

}  // namespace
}  // namespace jx::test
