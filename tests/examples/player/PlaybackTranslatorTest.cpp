// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "examples/player/PlaybackTranslator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace jx::test {
namespace {

using Kind = PlayerChange::Kind;
using Names = std::vector<std::string>;

PlayerChange flag(Kind kind, bool value) { return {kind, 0, value}; }
PlayerChange at(double position) { return {Kind::Position, position}; }

/// A film of 20 seconds. Events are represented as "name@position", with " to target" for a seek.
class Playback : public testing::Test {
 protected:
  Names translate(const PlayerChange& change) {
    Names lines;
    last_ = translator_.translate(change);
    for (const auto& event : last_) {
      lines.push_back(event->name().toStdString() + "@" + event->cursorPosition()->toString());
      const auto* const playback = dynamic_cast<const JXVideoPlaybackEvent*>(event.get());
      if (playback != nullptr && playback->seekPosition()) {
        lines.back() += " to " + playback->seekPosition()->toString();
      }
      EXPECT_TRUE(event->verifyEvent()) << event->firstFailedCondition().toStdString();
    }
    return lines;
  }
  Names translate(const std::vector<PlayerChange>& changes) {
    Names lines;
    for (const PlayerChange& change : changes) {
      const Names more = translate(change);
      lines.insert(lines.end(), more.begin(), more.end());
    }
    return lines;
  }
  Names open() {
    return translate({{Kind::PlayerName, 0, false, "mpv 0.35.1"},
                      {Kind::FilmOpened},
                      {Kind::FilmName, 0, false, "film.mkv"},
                      {Kind::FilmTitle, 0, false, "The Last Lighthouse"},
                      {Kind::Length, 20}});
  }
  void play() {
    open();
    translate(at(0));
  }
  JXJsonObject body(std::size_t index) const { return last_.at(index)->getJsonObject(); }
  JXString text(std::size_t index, const char* key) const { return body(index).get(key).string(); }
  JXString digits(std::size_t index, const char* key) const {
    return body(index).get(key).numberString();
  }

  int sessions_ = 0;
  PlaybackTranslator translator_{[this] { return "session " + std::to_string(++sessions_); }};
  PlaybackTranslator::Events last_;
};

TEST_F(Playback, StartsWithTheFirstPosition) {
  EXPECT_EQ(open(), Names{});
  EXPECT_EQ(translate(at(0)), (Names{"video_start@0", "video_content_start@0"}));
  EXPECT_EQ(translate(at(0.04)), Names{});
}

TEST_F(Playback, WritesAllKnownFieldsAtTheStart) {
  open();
  translate(
      {{Kind::Height, 180}, {Kind::FrameRate, 25}, {Kind::Bitrate, 312542}, {Kind::Volume, 80}});
  translate({flag(Kind::FullScreen, true), at(0)});
  ASSERT_EQ(last_.size(), 2u);
  EXPECT_EQ(text(0, "video_session_id"), JXString("session 1"));
  EXPECT_EQ(text(0, "video_title"), JXString("The Last Lighthouse"));
  EXPECT_EQ(text(0, "video_player"), JXString("mpv 0.35.1"));
  EXPECT_EQ(text(0, "image_quality"), JXString("180p"));
  EXPECT_EQ(body(0).get("content_asset_id").array().at(0).string(), JXString("film.mkv"));
  EXPECT_EQ(digits(0, "total_length"), JXString("20"));
  EXPECT_EQ(digits(0, "framerate"), JXString("25"));
  EXPECT_EQ(digits(0, "bitrate"), JXString("312542"));
  EXPECT_EQ(digits(0, "sound"), JXString("80"));
  EXPECT_TRUE(body(0).get("full_screen").boolValue());
  EXPECT_EQ(text(1, "video_session_id"), JXString("session 1"));
  EXPECT_EQ(text(1, "content_asset_id"), JXString("film.mkv"));
}

TEST_F(Playback, DelaysTheStartOnceIfTheLengthIsUnknown) {
  translate({{Kind::FilmOpened}, {Kind::FilmName, 0, false, "film.mkv"}});
  EXPECT_EQ(translate(at(0)), Names{});
  translate({Kind::Length, 20});
  EXPECT_EQ(translate(at(0.04)), (Names{"video_start@0.04", "video_content_start@0.04"}));
  EXPECT_EQ(digits(0, "total_length"), JXString("20"));
}

TEST_F(Playback, DelaysTheStartUntilTheNameIsKnown) {
  translate({{Kind::FilmOpened}, {Kind::Length, 20}});
  EXPECT_EQ(translate({at(0), at(0.04)}), Names{});
  translate({Kind::FilmName, 0, false, "film.mkv"});
  EXPECT_EQ(translate(at(0.08)), (Names{"video_start@0.08", "video_content_start@0.08"}));
}

TEST_F(Playback, ReportsNoQuartersForAStreamWithoutLength) {
  translate({{Kind::FilmOpened}, {Kind::FilmName, 0, false, "live"}, at(0)});
  EXPECT_EQ(translate(at(0.04)), (Names{"video_start@0.04", "video_content_start@0.04"}));
  EXPECT_EQ(digits(0, "total_length"), JXString("0"));
  EXPECT_EQ(translate({at(100), at(5000)}), Names{});
}

TEST_F(Playback, ReportsPauseAndResumeAtTheCurrentPosition) {
  play();
  translate(at(3.2));
  EXPECT_EQ(translate(flag(Kind::Paused, true)), Names{"video_pause@3.2"});
  EXPECT_EQ(translate(flag(Kind::Paused, true)), Names{}) << "reported twice, paused once";
  EXPECT_EQ(translate(flag(Kind::Paused, false)), Names{"video_resume@3.2"});
}

TEST_F(Playback, ReportsAPauseIfTheFilmStartsPaused) {
  open();
  EXPECT_EQ(translate(flag(Kind::Paused, true)), Names{});
  EXPECT_EQ(translate(at(0)), (Names{"video_start@0", "video_content_start@0", "video_pause@0"}));
}

TEST_F(Playback, DoesNotReportBufferingAsAPause) {
  play();
  translate(at(4));
  EXPECT_EQ(translate(flag(Kind::Buffering, true)), Names{"video_buffer_start@4"});
  EXPECT_EQ(translate(flag(Kind::Buffering, false)), Names{"video_buffer_complete@4"});
}

TEST_F(Playback, ReportsEachQuarterOnce) {
  play();
  EXPECT_EQ(translate({at(4.96), at(5), at(5.04)}), Names{"video_content_quarter_reached@5"});
  EXPECT_EQ(translate({at(9.96), at(10.01)}), Names{"video_content_quarter_reached@10.01"});
  EXPECT_EQ(translate({at(14.99), at(15.03)}), Names{"video_content_quarter_reached@15.03"});
  EXPECT_EQ(translate(at(19.96)), Names{}) << "the fourth quarter is reported as completion";
}

TEST_F(Playback, ReportsStartTargetAndEndOfASeek) {
  play();
  translate(at(3));
  EXPECT_EQ(translate({Kind::SeekBegan}), Names{}) << "the target is not known yet";
  EXPECT_EQ(translate(at(12)), Names{"video_seek_start@3 to 12"});
  EXPECT_EQ(translate(at(11.9)), Names{});
  EXPECT_EQ(translate({Kind::SeekEnded, 11.6}), Names{"video_seek_complete@11.6 to 12"});
}

TEST_F(Playback, DoesNotReportQuartersSkippedByASeek) {
  play();
  EXPECT_EQ(translate({{Kind::SeekBegan}, at(12), {Kind::SeekEnded, 12}, at(12.04)}),
            (Names{"video_seek_start@0 to 12", "video_seek_complete@12 to 12"}));
  EXPECT_EQ(translate({at(14.96), at(15)}), Names{"video_content_quarter_reached@15"})
      << "a quarter played after the seek is reported";
}

TEST_F(Playback, ReportsASkippedQuarterWhenItIsPlayedLater) {
  play();
  translate({at(4.96), at(5)});
  translate({{Kind::SeekBegan}, at(12), {Kind::SeekEnded, 12}});
  EXPECT_EQ(translate({{Kind::SeekBegan}, at(4), {Kind::SeekEnded, 4}}),
            (Names{"video_seek_start@12 to 4", "video_seek_complete@4 to 4"}));
  EXPECT_EQ(translate({at(4.98), at(5.02)}), Names{}) << "reported before";
  EXPECT_EQ(translate({at(9.98), at(10.02)}), Names{"video_content_quarter_reached@10.02"})
      << "skipped before, played now";
}

TEST_F(Playback, ReportsASeekThatEndsBeforeItsTargetIsKnown) {
  play();
  translate(at(3));
  EXPECT_EQ(translate({{Kind::SeekBegan}, {Kind::SeekEnded, 9}}),
            (Names{"video_seek_start@3 to 9", "video_seek_complete@9 to 9"}));
}

TEST_F(Playback, ReportsNestedSeeksAsOne) {
  play();
  translate(at(3));
  EXPECT_EQ(translate({{Kind::SeekBegan}, at(6), {Kind::SeekBegan}, at(9), {Kind::SeekEnded, 9}}),
            (Names{"video_seek_start@3 to 6", "video_seek_complete@9 to 6"}));
}

TEST_F(Playback, CompletesContentAndPlayback) {
  play();
  translate(at(19.96));
  EXPECT_EQ(translate({Kind::Finished}),
            (Names{"video_content_complete@19.96", "video_complete@19.96"}));
  EXPECT_EQ(translate({Kind::Left}), Names{}) << "already completed";
}

TEST_F(Playback, CompletesContentAndPlaybackAfterASeekToTheEnd) {
  play();
  EXPECT_EQ(translate({{Kind::SeekBegan}, at(20), {Kind::Finished}}),
            (Names{"video_seek_start@0 to 20", "video_seek_complete@20 to 20",
                   "video_content_complete@20", "video_complete@20"}));
}

TEST_F(Playback, ReportsQuittingAsAPauseWithAnInterruption) {
  play();
  translate(at(7));
  EXPECT_EQ(translate({Kind::Left}), Names{"video_pause@7"});
  EXPECT_EQ(text(0, "interruption_method"), JXString("quit"));
}

TEST_F(Playback, ReportsNothingWhenAPausedFilmIsLeft) {
  play();
  translate(flag(Kind::Paused, true));
  EXPECT_EQ(translate({Kind::Left}), Names{});
}

TEST_F(Playback, ReportsAnErrorForAFilmThatCannotBeOpened) {
  translate({{Kind::FilmOpened}, {Kind::FilmName, 0, false, "missing.mkv"}});
  EXPECT_EQ(translate({Kind::Failed, 0, false, "loading failed"}), Names{"video_error@0"});
  EXPECT_EQ(text(0, "error"), JXString("loading failed"));
  EXPECT_EQ(text(0, "video_session_id"), JXString("session 1"));
  EXPECT_EQ(body(0).get("content_asset_id").array().at(0).string(), JXString("missing.mkv"));
}

TEST_F(Playback, EndsTheSessionWithoutCompletionAfterAnError) {
  play();
  translate(at(7));
  EXPECT_EQ(translate({Kind::Failed, 0, false, "read error"}), Names{"video_error@7"});
  EXPECT_EQ(text(0, "video_session_id"), JXString("session 1"));
  EXPECT_EQ(translate({Kind::Left}), Names{});
}

TEST_F(Playback, ReportsSettingChangesDuringPlayback) {
  open();
  EXPECT_EQ(translate({Kind::Volume, 70}), Names{}) << "set before the start";
  translate(at(0));
  EXPECT_EQ(translate({Kind::Volume, 70}), Names{}) << "not changed";
  EXPECT_EQ(translate({Kind::Volume, 40}), Names{"video_volume@0"});
  EXPECT_EQ(digits(0, "sound"), JXString("40"));
  EXPECT_EQ(translate(flag(Kind::Muted, true)), Names{"video_volume@0"});
  EXPECT_EQ(digits(0, "sound"), JXString("0"));
  EXPECT_EQ(translate({Kind::Speed, 2}), Names{"video_speed@0"});
  EXPECT_EQ(translate(flag(Kind::FullScreen, true)), Names{"video_fullscreen_on@0"});
  EXPECT_EQ(translate(flag(Kind::FullScreen, false)), Names{"video_fullscreen_off@0"});
}

TEST_F(Playback, StartsANewSessionForTheNextFilm) {
  play();
  translate({at(4.96), at(5), {Kind::Finished}});
  open();
  translate(at(0));
  EXPECT_EQ(text(0, "video_session_id"), JXString("session 2"));
  EXPECT_EQ(translate({at(4.96), at(5)}), Names{"video_content_quarter_reached@5"});
}

}  // namespace
}  // namespace jx::test
