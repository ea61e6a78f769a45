// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "examples/tvos/FilmReporter.h"

#import "tests/objc/ObjectiveCTest.h"

namespace jx::objc {
namespace {

class FilmReporterEvents : public test::ObjectiveCTest {
 protected:
  using Names = std::vector<std::string>;

  void SetUp() override {
    ObjectiveCTest::SetUp();
    start();
    ::ServerSide* const serverSide = [[[::ServerSide alloc] initWithSiteID:1
                                                              andSourceKey:@"key"] autorelease];
    films_ = [[FilmReporter alloc] initWithServerSide:serverSide];
  }
  void TearDown() override {
    [films_ release];
    ObjectiveCTest::TearDown();
  }

  void play() {
    [films_ openFilm:@"film-1" title:@"A film"];
    [films_ setLength:100];
    [films_ moveTo:0];
  }
  JXJsonObject body(std::size_t index) const { return requests().at(index).body; }
  std::string field(std::size_t index, const char* key) const {
    const JXJsonValue value = body(index).get(key);
    return (value.string().isPresent() ? value.string() : value.numberString()).toStdString();
  }
  Names names(std::size_t from = 0) const {
    Names names;
    for (std::size_t i = from; i < requests().size(); ++i)
      names.push_back(field(i, "event_name"));
    return names;
  }

  FilmReporter* films_ = nil;
};

TEST_F(FilmReporterEvents, BeginWithTheFirstPosition) {
  play();
  EXPECT_EQ(names(), (Names{"video_start", "video_content_start"}));
  EXPECT_EQ(field(0, "video_title"), "A film");
  EXPECT_EQ(field(0, "total_length"), "100");
  EXPECT_EQ(field(0, "cursor_position"), "0");
  EXPECT_EQ(body(0).get("content_asset_id").array().at(0).string(), JXString("film-1"));
  EXPECT_EQ(field(1, "content_asset_id"), "film-1");
  EXPECT_EQ(field(0, "video_session_id"), field(1, "video_session_id"));
  EXPECT_EQ(field(0, "video_session_id").size(), 36u);
}

TEST_F(FilmReporterEvents, ReportPausesAndWaits) {
  play();
  [films_ setPaused:YES];
  [films_ setPaused:YES];
  [films_ setPaused:NO];
  [films_ setWaiting:YES];
  [films_ setWaiting:NO];
  EXPECT_EQ(names(2),
            (Names{"video_pause", "video_resume", "video_buffer_start", "video_buffer_complete"}));
}

TEST_F(FilmReporterEvents, ReportEachQuarterOnce) {
  play();
  [films_ moveTo:24.9];
  [films_ moveTo:25];
  [films_ moveTo:26];
  [films_ moveTo:80];
  [films_ seekFrom:80 to:10];
  [films_ moveTo:30];
  const std::string quarter = "video_content_quarter_reached";
  EXPECT_EQ(names(2),
            (Names{quarter, quarter, quarter, "video_seek_start", "video_seek_complete"}));
  EXPECT_EQ(field(5, "cursor_position"), "80");
  EXPECT_EQ(field(5, "seek_position"), "10");
  EXPECT_EQ(field(6, "cursor_position"), "10");
}

TEST_F(FilmReporterEvents, EndWithTheFilm) {
  play();
  [films_ moveTo:20.1234];
  [films_ finish];
  [films_ finish];
  EXPECT_EQ(names(2), (Names{"video_content_complete", "video_complete"}));
  EXPECT_EQ(field(2, "cursor_position"), "20.123");
}

TEST_F(FilmReporterEvents, StopAtTheEndAlsoWhileThePlayerShowsIt) {
  play();
  [films_ moveTo:20];
  [films_ finish];
  [films_ setPaused:YES];
  [films_ moveTo:20.2];
  [films_ moveTo:20.1];
  EXPECT_EQ(names(2), (Names{"video_content_complete", "video_complete"}));
}

TEST_F(FilmReporterEvents, BeginANewSessionWhenTheViewerGoesBackFromTheEnd) {
  play();
  [films_ moveTo:20];
  [films_ finish];
  [films_ moveTo:0];
  EXPECT_EQ(names(4), (Names{"video_start", "video_content_start"}));
  EXPECT_NE(field(4, "video_session_id"), field(0, "video_session_id"));
  [films_ moveTo:1];
  EXPECT_EQ(requests().size(), 6u);
}

TEST_F(FilmReporterEvents, ReportAFilmThatIsLeftAndBeginANewSession) {
  play();
  [films_ openFilm:@"film-2" title:nil];
  [films_ moveTo:0];
  EXPECT_EQ(names(2), (Names{"video_pause", "video_start", "video_content_start"}));
  EXPECT_EQ(field(2, "interruption_method"), "quit");
  EXPECT_EQ(field(3, "video_title"), "film-2");
  EXPECT_NE(field(3, "video_session_id"), field(2, "video_session_id"));
  EXPECT_TRUE(body(3).get("livestream").boolValue()) << "the length is not known";
}

TEST_F(FilmReporterEvents, ReportAFilmThatCannotBeShown) {
  [films_ openFilm:@"film-1" title:nil];
  [films_ failWithReason:@"no such file"];
  EXPECT_EQ(names(), (Names{"video_error"}));
  EXPECT_EQ(field(0, "error"), "no such file");
  [films_ moveTo:0];
  EXPECT_EQ(requests().size(), 1u) << "the film has failed";
  [films_ openFilm:@"film-1" title:nil];
  [films_ moveTo:0];
  EXPECT_EQ(names(1), (Names{"video_start", "video_content_start"}));
}

TEST_F(FilmReporterEvents, HaveNamesAndLogNothing) {
  play();
  [films_ setPaused:YES];
  [films_ seekFrom:0 to:30];
  [films_ moveTo:99];
  [films_ finish];
  for (std::size_t i = 0; i < requests().size(); ++i)
    EXPECT_FALSE(field(i, "event_name").empty());
  EXPECT_TRUE(linesUpTo(3).empty());
}

}  // namespace
}  // namespace jx::objc
