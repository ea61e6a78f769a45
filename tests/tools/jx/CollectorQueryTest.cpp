// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "tests/tools/jx/CollectorFixture.h"

namespace jx {
namespace {

using Names = std::vector<std::string>;

class CollectorQuery : public CollectorFixture {};

TEST_F(CollectorQuery, RowViewContainsTheListColumns) {
  const std::string body =
      eventBody(R"("event_name":"video_pause","video_session_id":"v-1","content_asset_id":[],)"
                R"("cursor_position":12,"total_length":5400,"video_title":"Fox","own":1)",
                "e-1");
  ASSERT_EQ(send(body), 200);
  ASSERT_EQ(send(body), 200);
  const rapidjson::Document list = json("/api/events?view=row");
  ASSERT_EQ(list["events"].Size(), 1u);
  const rapidjson::Value& row = list["events"][0];
  EXPECT_STREQ(row["name"].GetString(), "video_pause");
  EXPECT_STREQ(row["class"].GetString(), "JXVideoPlaybackEvent");
  EXPECT_TRUE(row["good"].GetBool());
  EXPECT_EQ(row["errors"].GetInt64(), 0);
  EXPECT_EQ(row["notes"].GetInt64(), 1);
  EXPECT_STREQ(row["session"].GetString(), "s-1");
  EXPECT_STREQ(row["video_session"].GetString(), "v-1");
  EXPECT_STREQ(row["line"].GetString(), "Fox, at 12 of 5400");
  EXPECT_STREQ(row["event_id"].GetString(), "e-1");
  EXPECT_EQ(row["event_timestamp"].GetInt64(), 1700000000123);
  EXPECT_EQ(row["site"].GetInt64(), 7);
  EXPECT_EQ(row["repeats"].GetInt64(), 1);
  EXPECT_EQ(row["bytes"].GetUint64(), body.size());
  EXPECT_FALSE(row.HasMember("body"));
  EXPECT_EQ(list["last"].GetInt64(), row["id"].GetInt64());
}

TEST_F(CollectorQuery, AppliesEachFilter) {
  ASSERT_EQ(send(namedBody("login", "e-1", "s-1")), 200);
  ASSERT_EQ(send(namedBody("purchase", "e-2", "s-1")), 200);
  ASSERT_EQ(send(namedBody("quiz", "e-3", "s-2")), 200);
  ASSERT_EQ(send(eventBody(R"("event_name":"video_start","video_session_id":"v-9")", "e-4", "s-2")),
            200);
  ASSERT_EQ(send("no JSON"), 200);
  for (const std::string view : {"&view=row", "&view=full"}) {
    EXPECT_EQ(names("name=login" + view), Names{"login"});
    EXPECT_EQ(names("class=JXCustomEvent" + view), Names{"quiz"});
    EXPECT_EQ(names("good=true" + view), (Names{"login", "quiz"}));
    EXPECT_EQ(names("good=false" + view), (Names{"purchase", "video_start", ""}));
    EXPECT_EQ(names("session=s-1" + view), (Names{"login", "purchase"}));
    EXPECT_EQ(names("session=v-9" + view), Names{"video_start"});
    EXPECT_EQ(names("text=QUIZ" + view), Names{"quiz"});
    EXPECT_EQ(names("text=no+json" + view), Names{""});
    EXPECT_EQ(names("since=0&limit=2" + view), (Names{"video_start", ""}));
    EXPECT_EQ(names("since=99999999999999" + view), Names{});
    EXPECT_EQ(names("session=s-1&good=false&text=e-2" + view), Names{"purchase"});
  }
}

TEST_F(CollectorQuery, BeforeReturnsTheNewestOlderEvents) {
  for (const char* name : {"a", "b", "c", "d"})
    ASSERT_EQ(send(namedBody(name, name)), 200);
  const rapidjson::Document newest = json("/api/events?view=row&limit=1");
  const std::string last = std::to_string(newest["events"][0]["id"].GetInt64());
  EXPECT_EQ(names("limit=2&before=" + last), (Names{"b", "c"}));
  EXPECT_EQ(names("limit=2&after=1&before=" + last), (Names{"b", "c"}));
  EXPECT_EQ(names("before=1"), Names{});
}

TEST_F(CollectorQuery, RejectsInvalidFilters) {
  for (const char* query : {"good=yes", "before=x", "since=-1", "view=all", "limit=0"}) {
    const auto response = get(std::string("/api/events?") + query);
    EXPECT_EQ(response.status, 400) << query;
    EXPECT_TRUE(parsed(response.body).HasMember("error")) << query;
  }
}

TEST_F(CollectorQuery, EventContainsItsDiagnosticsAndRequest) {
  ASSERT_EQ(send(eventBody(R"("event_name":"purchase","items":[{"id":"1"}])", "e-1")), 200);
  const rapidjson::Document event = json("/api/events/1");
  EXPECT_FALSE(event["good"].GetBool());
  const rapidjson::Value& first = event["reasons"][0];
  EXPECT_STREQ(first["level"].GetString(), "error");
  EXPECT_STREQ(first["code"].GetString(), "missing_field");
  EXPECT_STREQ(first["key"].GetString(), "items[0].product");
  EXPECT_STREQ(first["text"].GetString(), "product must be set");
  EXPECT_EQ(event["reasons"].Size(), event["errors"].GetUint64());
  EXPECT_STREQ(event["method"].GetString(), "POST");
  EXPECT_STREQ(event["query"].GetString(), "jx_s=7&token=key");
  ASSERT_EQ(event["headers"][0].Size(), 2u);
  EXPECT_TRUE(std::any_of(event["headers"].Begin(), event["headers"].End(),
                          [](const auto& pair) { return pair[0] == "Content-Type"; }));
  EXPECT_TRUE(event["previous"].IsNull());
}

TEST_F(CollectorQuery, PreviousEventPrefersTheSameSession) {
  ASSERT_EQ(send(namedBody("login", "e-1", "s-1")), 200);
  ASSERT_EQ(send(namedBody("login", "e-2", "s-2")), 200);
  ASSERT_EQ(send(namedBody("quiz", "e-3", "s-1")), 200);
  ASSERT_EQ(send(namedBody("login", "e-4", "s-1")), 200);
  ASSERT_EQ(send(namedBody("login", "e-5", "s-3")), 200);
  EXPECT_EQ(json("/api/events/4")["previous"].GetInt64(), 1);
  EXPECT_EQ(json("/api/events/5")["previous"].GetInt64(), 4);
  EXPECT_TRUE(json("/api/events/3")["previous"].IsNull());
}

TEST_F(CollectorQuery, SummaryCountsValidAndInvalidEvents) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  ASSERT_EQ(send(eventBody(R"("event_name":"quiz","own":1)", "e-2")), 200);
  ASSERT_EQ(send(namedBody("purchase", "e-3")), 200);
  ASSERT_EQ(send(namedBody("purchase", "e-3")), 200);
  const rapidjson::Document summary = json("/api/summary");
  EXPECT_EQ(summary["requests"].GetInt64(), 4);
  EXPECT_EQ(summary["events"].GetInt64(), 3);
  EXPECT_EQ(summary["good"].GetInt64(), 2);
  EXPECT_EQ(summary["bad"].GetInt64(), 1);
  EXPECT_EQ(summary["notes"].GetInt64(), 1);
  const rapidjson::Value& purchases = summary["by_name"][1];
  EXPECT_STREQ(purchases["name"].GetString(), "purchase");
  EXPECT_EQ(purchases["count"].GetInt64(), 1);
  EXPECT_EQ(purchases["bad"].GetInt64(), 1);
  ASSERT_EQ(summary["minutes"].Size(), 60u);
  std::int64_t good = 0;
  std::int64_t bad = 0;
  for (const rapidjson::Value& minute : summary["minutes"].GetArray()) {
    EXPECT_EQ(minute["minute_ms"].GetInt64() % 60'000, 0);
    good += minute["good"].GetInt64();
    bad += minute["bad"].GetInt64();
  }
  EXPECT_EQ(good, 2);
  EXPECT_EQ(bad, 1);
}

TEST_F(CollectorQuery, ListsSessionsNewestFirstWithTheirVideos) {
  const auto video = [](const std::string& id) {
    return R"("event_name":"video_start","video_session_id":")" + id + "\"";
  };
  ASSERT_EQ(send(namedBody("login", "e-1", "s-1")), 200);
  ASSERT_EQ(send(eventBody(video("v-1"), "e-2", "s-1")), 200);
  ASSERT_EQ(send(eventBody(video("v-1"), "e-3", "s-1")), 200);
  ASSERT_EQ(send(eventBody(video("v-2"), "e-4", "s-1")), 200);
  ASSERT_EQ(send(namedBody("login", "e-5", "s-2")), 200);
  ASSERT_EQ(send("{}"), 200);
  const rapidjson::Document response = json("/api/sessions");
  const rapidjson::Value& sessions = response["sessions"];
  ASSERT_EQ(sessions.Size(), 2u);
  EXPECT_STREQ(sessions[0]["session"].GetString(), "s-2");
  const rapidjson::Value& first = sessions[1];
  EXPECT_EQ(first["events"].GetInt64(), 4);
  EXPECT_EQ(first["bad"].GetInt64(), 3);
  EXPECT_EQ(first["names"]["video_start"].GetInt64(), 3);
  EXPECT_EQ(first["names"]["login"].GetInt64(), 1);
  ASSERT_EQ(first["video_sessions"].Size(), 2u);
  EXPECT_STREQ(first["video_sessions"][0]["id"].GetString(), "v-1");
  EXPECT_EQ(first["video_sessions"][0]["events"].GetInt64(), 2);
  EXPECT_LE(first["first_ms"].GetInt64(), first["last_ms"].GetInt64());
}

TEST_F(CollectorQuery, ResetRemovesAllEventsAndDoesNotReuseIds) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  ASSERT_EQ(send(namedBody("login", "e-2")), 200);
  const auto response = post("/api/reset", "{}");
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.body, R"({"removed":2})");
  EXPECT_EQ(json("/api/summary")["requests"].GetInt64(), 0);
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  const rapidjson::Document list = json("/api/events?view=row");
  ASSERT_EQ(list["events"].Size(), 1u);
  EXPECT_EQ(list["events"][0]["id"].GetInt64(), 3);
  EXPECT_EQ(list["events"][0]["repeats"].GetInt64(), 0);
}

TEST_F(CollectorQuery, ServesUntrustedStringsAsInertJson) {
  const std::string evil = "<script>alert('1')</script><img src=x onerror=alert(2)>";
  ASSERT_EQ(send(eventBody(R"("event_name":")" + evil + "\"", evil, evil)), 200);
  for (const char* path : {"/api/events", "/api/events/1", "/api/sessions", "/api/summary"}) {
    const auto response = get(path);
    EXPECT_EQ(response.status, 200) << path;
    EXPECT_NE(response.headers.find("Content-Type: application/json"), std::string::npos) << path;
    EXPECT_NE(response.headers.find("X-Content-Type-Options: nosniff"), std::string::npos) << path;
    EXPECT_NE(response.headers.find("default-src 'none'; script-src 'self'"), std::string::npos);
  }
  EXPECT_EQ(names("view=row"), Names{evil});
}

TEST_F(CollectorQuery, RejectsForeignOrigins) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  const std::string own = "Origin: " + webUrl("");
  for (const std::string origin :
       {"http://attacker.example", "null", "http://localhost", "https://localhost:1"}) {
    const auto response = get("/api/events", {"Origin: " + origin});
    EXPECT_EQ(response.status, 403) << origin;
    EXPECT_EQ(response.body.find("e-1"), std::string::npos) << origin;
    EXPECT_EQ(post("/api/reset", "{}", {kJsonContentType[0], "Origin: " + origin}).status, 403)
        << origin;
  }
  EXPECT_EQ(get("/api/events", {own}).status, 200);
  EXPECT_EQ(post("/api/reset", "{}", {"Content-Type: text/plain"}).status, 415);
  EXPECT_EQ(post("/api/reset", "{}", {"Content-Type: application/x-ndjson"}).status, 415);
  EXPECT_EQ(post("/api/reset", "", {"Content-Type:"}).status, 415);
  EXPECT_EQ(json("/api/summary")["events"].GetInt64(), 1);
  EXPECT_EQ(post("/api/reset", "{}", {"Content-Type: application/json; charset=utf-8", own}).status,
            200);
}

TEST_F(CollectorQuery, RejectsUnknownPathsAndMethods) {
  EXPECT_EQ(post("/api/events", "{}").status, 405);
  EXPECT_EQ(get("/api/reset").status, 405);
  EXPECT_EQ(get("/api/nothing").status, 404);
}

class StrictCollector : public CollectorFixture {
 protected:
  StrictCollector()
      : CollectorFixture([](CollectorSettings& settings) { settings.isStrict = true; }) {}
};

TEST_F(StrictCollector, RespondsWithDiagnosticsAndStoresTheEvent) {
  const auto bad = client().post(eventsUrl(), namedBody("search", "e-1"));
  EXPECT_EQ(bad.status, 422);
  EXPECT_EQ(bad.body, R"({"reasons":[{"level":"error","code":"missing_field","key":"search_term",)"
                      R"("text":"searchTerm must be a non-empty string"}]})");
  const auto good = client().post(eventsUrl(), namedBody("login", "e-2"));
  EXPECT_EQ(good.status, 200);
  EXPECT_EQ(good.body, "");
  EXPECT_EQ(names("good=false"), Names{"search"});
  EXPECT_EQ(names("good=true"), Names{"login"});
}

}  // namespace
}  // namespace jx
