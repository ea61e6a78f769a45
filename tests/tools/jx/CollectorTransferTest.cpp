// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/jx/CollectorFixture.h"
#include "tools/jx/collector/Base64.h"
#include "tools/jx/collector/HarReader.h"

namespace jx {
namespace {

const std::vector<std::string> kNdjsonContentType{"Content-Type: application/x-ndjson"};

class CollectorTransfer : public CollectorFixture {
 protected:
  /// Returns all stored events, without the values that differ between collectors.
  std::vector<std::string> kept() const {
    std::vector<std::string> found;
    const rapidjson::Document list = json("/api/events?after=0");
    for (const rapidjson::Value& event : list["events"].GetArray()) {
      std::string text = std::to_string(event["received_ms"].GetInt64()) + " " +
                         std::to_string(event["last_seen_ms"].GetInt64()) + " " +
                         std::to_string(event["repeats"].GetInt64()) + " " +
                         event["path"].GetString() + "?" + event["query"].GetString();
      for (const rapidjson::Value& header : event["headers"].GetArray())
        text += std::string("\n") + header["name"].GetString() + ": " + header["value"].GetString();
      text += std::string("\n") + event["body"].GetString();
      if (event.HasMember("body_base64")) text += event["body_base64"].GetString();
      found.push_back(text);
    }
    return found;
  }

  void fill() {
    ASSERT_EQ(send(namedBody("login", "e-1")), 200);
    ASSERT_EQ(send(namedBody("login", "e-1")), 200);
    ASSERT_EQ(send("\xFF\x01 no UTF-8"), 200);
    ASSERT_EQ(send("<script>alert(\"1\")</script>\n"), 200);
    ASSERT_EQ(client().post(eventsUrl(), "{}", {"X-Twice: a", "X-Twice: b"}).status, 200);
  }
};

TEST_F(CollectorTransfer, ImportsExportedNdjson) {
  fill();
  const std::vector<std::string> before = kept();
  const auto exported = get("/api/export.ndjson");
  EXPECT_EQ(exported.status, 200);
  EXPECT_NE(exported.headers.find("Content-Type: application/x-ndjson"), std::string::npos);
  EXPECT_EQ(std::count(exported.body.begin(), exported.body.end(), '\n'), 4);
  ASSERT_EQ(post("/api/reset", "{}").status, 200);
  const auto imported = post("/api/import", exported.body, kNdjsonContentType);
  EXPECT_EQ(imported.status, 200);
  EXPECT_EQ(imported.body, R"({"imported":4,"repeated":0,"refused":[]})");
  EXPECT_EQ(kept(), before);
}

TEST_F(CollectorTransfer, ImportsExportedHar) {
  fill();
  const std::vector<std::string> before = kept();
  const auto exported = get("/api/export.har");
  const rapidjson::Document archive = parsed(exported.body);
  EXPECT_STREQ(archive["log"]["version"].GetString(), "1.2");
  ASSERT_EQ(archive["log"]["entries"].Size(), 4u);
  const rapidjson::Value& entry = archive["log"]["entries"][0];
  EXPECT_STREQ(entry["request"]["queryString"][0]["name"].GetString(), "jx_s");
  EXPECT_STREQ(entry["request"]["queryString"][0]["value"].GetString(), "7");
  for (const char* member : {"startedDateTime", "time", "request", "response", "cache", "timings"})
    EXPECT_TRUE(entry.HasMember(member)) << member;
  ASSERT_EQ(post("/api/reset", "{}").status, 200);
  const auto imported = post("/api/import", exported.body);
  EXPECT_EQ(imported.body, R"({"imported":4,"repeated":0,"refused":[]})");
  EXPECT_EQ(kept(), before);
}

TEST_F(CollectorTransfer, StoresEventsImportedTwiceOnce) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  const std::string lines = get("/api/export.ndjson").body;
  const std::vector<std::string> before = kept();
  EXPECT_EQ(post("/api/import", lines).body, R"({"imported":0,"repeated":1,"refused":[]})");
  EXPECT_EQ(kept(), before);
}

TEST_F(CollectorTransfer, ExportAppliesFilters) {
  for (const char* name : {"login", "quiz", "login"})
    ASSERT_EQ(send("{\"event_name\":\"" + std::string(name) + "\"}"), 200);
  const auto lines = [this](const std::string& query) {
    const std::string text = get("/api/export.ndjson?" + query).body;
    return std::count(text.begin(), text.end(), '\n');
  };
  EXPECT_EQ(lines("name=login"), 2);
  EXPECT_EQ(lines("after=1&limit=1"), 1);
  EXPECT_EQ(lines("name=none"), 0);
  EXPECT_EQ(parsed(get("/api/export.har?name=none").body)["log"]["entries"].Size(), 0u);
  EXPECT_EQ(get("/api/export.har?good=x").status, 400);
}

TEST_F(CollectorTransfer, ExportsMoreEventsThanFitIntoOnePart) {
  std::string lines;
  for (int i = 0; i < 1050; ++i)
    lines += "{\"received_ms\":5,\"body\":\"" + std::to_string(i) + "\"}\n";
  ASSERT_EQ(post("/api/import", lines).body, R"({"imported":1050,"repeated":0,"refused":[]})");
  const std::string exported = get("/api/export.ndjson").body;
  EXPECT_EQ(std::count(exported.begin(), exported.end(), '\n'), 1050);
  EXPECT_EQ(parsed(get("/api/export.har").body)["log"]["entries"].Size(), 1050u);
}

TEST_F(CollectorTransfer, ReportsInvalidLinesAndImportsTheOthers) {
  const auto response = post("/api/import",
                             "\n{\"received_ms\":1,\"body\":\"{}\"}\ngarbage\n{\"body\":\"{}\"}\n"
                             "{\"received_ms\":2}\n{\"received_ms\":3,\"body_base64\":\"%\"}\n"
                             "{\"received_ms\":4,\"body\":\"[]\"}");
  EXPECT_EQ(response.status, 200);
  EXPECT_EQ(response.body,
            R"({"imported":2,"repeated":0,"refused":[{"line":3,"reason":"not a JSON object"},)"
            R"({"line":4,"reason":"received_ms must be a non-negative integer"},)"
            R"({"line":5,"reason":"body must be a string"},)"
            R"({"line":6,"reason":"body_base64 is not valid Base64"}]})");
}

TEST_F(CollectorTransfer, ReportsNumbersAndTimesOutOfRangeByLine) {
  const std::string body = ",\"body\":\"{}\"}\n";
  const auto response =
      post("/api/import", "{\"received_ms\":1,\"repeats\":9223372036854775807" + body +
                              "{\"received_ms\":1,\"repeats\":1000000001" + body +
                              "{\"received_ms\":1,\"repeats\":99999999999999999999" + body +
                              "{\"received_ms\":1,\"repeats\":-1" + body +
                              "{\"received_ms\":253402300800000" + body +
                              "{\"received_ms\":9223372036854775807" + body +
                              "{\"received_ms\":1,\"last_seen_ms\":253402300800000" + body +
                              "{\"received_ms\":1,\"last_seen_ms\":-1" + body +
                              "{\"received_ms\":253402300799999,\"repeats\":1000000000" + body);
  const std::string repeats = "\"reason\":\"repeats must be an integer between 0 and 1000000000\"}";
  const std::string received =
      "\"reason\":\"received_ms must be at most 253402300799999, which is in the year 9999\"}";
  const std::string seen =
      "\"reason\":\"last_seen_ms must be between 0 and 253402300799999, which is in the year "
      "9999\"}";
  EXPECT_EQ(response.body, R"({"imported":1,"repeated":0,"refused":[{"line":1,)" + repeats +
                               ",{\"line\":2," + repeats + ",{\"line\":3," + repeats +
                               ",{\"line\":4," + repeats + ",{\"line\":5," + received +
                               ",{\"line\":6," + received + ",{\"line\":7," + seen +
                               ",{\"line\":8," + seen + "]}");
  EXPECT_EQ(json("/api/summary")["repeats"].GetInt64(), 1'000'000'000);
}

TEST_F(CollectorTransfer, ReportsNumbersAndTimesOutOfRangeInArchives) {
  const std::string request = R"(,"request":{"method":"POST","postData":{"text":"{}"}}})";
  const std::string year = "\"startedDateTime\":\"2026-01-02T04:04:05Z\"";
  const auto response =
      post("/api/import", R"({"log":{"entries":[{)" + year + ",\"_repeats\":9223372036854775807" +
                              request + ",{" + year + ",\"_last_seen_ms\":-5" + request +
                              R"(,{"startedDateTime":"1969-12-31T23:59:59Z")" + request + "]}}\n");
  EXPECT_EQ(response.body,
            R"({"imported":0,"repeated":0,"refused":[)"
            R"({"line":1,"reason":"_repeats must be an integer between 0 and 1000000000"},)"
            R"({"line":2,"reason":"_last_seen_ms must be between 0 and 253402300799999, )"
            R"(which is in the year 9999"},)"
            R"({"line":3,"reason":"startedDateTime must be a time between the years 1970 )"
            R"(and 9999"}]})");
}

TEST_F(CollectorTransfer, ReportsAnInvalidFirstLine) {
  EXPECT_EQ(post("/api/import", "garbage\n{\"received_ms\":1,\"body\":\"{}\"}\n").body,
            R"({"imported":1,"repeated":0,"refused":[{"line":1,"reason":"not a JSON object"}]})");
  EXPECT_EQ(post("/api/import", "").body, R"({"imported":0,"repeated":0,"refused":[]})");
}

TEST_F(CollectorTransfer, ImportsPostsFromHarOfAnotherProgram) {
  const auto response = post("/api/import", R"({
  "log": {"entries": [
    {"startedDateTime": "2026-01-02T04:04:05.678+01:00", "request": {"method": "POST",
     "url": "https://collect.example/events?jx_s=3&token=k", "headers": [{"name": "A", "value": "b"}],
     "postData": {"text": "{\"event_name\":\"login\"}"}}},
    {"startedDateTime": "2026-01-02T04:04:05Z", "request": {"method": "GET", "url": "x"}},
    {"startedDateTime": "yesterday", "request": {"method": "POST", "postData": {"text": "{}"}}}
  ]}
})");
  EXPECT_EQ(response.body,
            R"({"imported":1,"repeated":0,"refused":[{"line":2,"reason":"method must be POST"},)"
            R"({"line":3,"reason":"startedDateTime must be an ISO 8601 time with an offset"}]})");
  EXPECT_EQ(kept(), std::vector<std::string>{"1767323045678 1767323045678 0 "
                                             "/events?jx_s=3&token=k\nA: b\n"
                                             "{\"event_name\":\"login\"}"});
}

TEST_F(CollectorTransfer, ImportsChunkedBodies) {
  const auto response = post("/api/import", "{\"received_ms\":1,\"body\":\"{}\"}\n",
                             {"Content-Type: application/json", "Transfer-Encoding: chunked"});
  EXPECT_EQ(response.body, R"({"imported":1,"repeated":0,"refused":[]})");
}

TEST(Base64, DecodesEncodedBytesAndRejectsMalformedInput) {
  EXPECT_EQ(toBase64(std::string("\xFF\0A", 3)), "/wBB");
  for (const std::string bytes : {"", "a", "ab", "abc", "\xFF\xFE\xFD\xFC"})
    EXPECT_EQ(fromBase64(toBase64(bytes)), std::optional<std::string>(bytes));
  for (const char* text : {"a", "ab", "abc", "ab=c", "a===", "ab c", "ab%="})
    EXPECT_EQ(fromBase64(text), std::optional<std::string>()) << text;
}

TEST(HarReader, ParsesTimesWithOffset) {
  EXPECT_EQ(msOfIsoTime("2026-01-02T03:04:05.678Z"), std::optional<std::int64_t>(1767323045678));
  EXPECT_EQ(msOfIsoTime("2026-01-02T03:04:05Z"), std::optional<std::int64_t>(1767323045000));
  EXPECT_EQ(msOfIsoTime("2026-01-01T22:04:05-05:00"), std::optional<std::int64_t>(1767323045000));
  for (const char* text : {"", "2026-01-02", "2026-01-02T03:04:05", "x"})
    EXPECT_EQ(msOfIsoTime(text), std::optional<std::int64_t>()) << text;
}

}  // namespace
}  // namespace jx
