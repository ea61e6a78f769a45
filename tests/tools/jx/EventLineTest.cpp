// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/EventLine.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

EventLine lineOf(std::string_view subject, std::string_view body,
                 std::optional<std::string_view> diagnostics = {}) {
  return eventLineOf({42, 1'767'225'600'123, subject, body, diagnostics});
}

TEST(EventLine, CopiesTheBodyWithoutLineBreaks) {
  const EventLine line = lineOf("events.7.purchase",
                                "{\r\n  \"event_name\": \"purchase\",\n\t\"price\": 4.90,"
                                "\"big\":12345678901234567890.10e+3,"
                                "\"text\":\"a\\n\\\"\xF0\x9F\x98\x80\\u0000\","
                                "\"context\":{\"event_id\":\"id-1\"}\n}");
  EXPECT_EQ(line.eventId, "id-1");
  EXPECT_EQ(line.text,
            "{\"sequence\":42,\"stored_at\":\"2026-01-01T00:00:00.123Z\",\"site\":7,"
            "\"event_id\":\"id-1\",\"event_name\":\"purchase\",\"event\":"
            "{    \"event_name\": \"purchase\", \t\"price\": 4.90,"
            "\"big\":12345678901234567890.10e+3,"
            "\"text\":\"a\\n\\\"\xF0\x9F\x98\x80\\u0000\","
            "\"context\":{\"event_id\":\"id-1\"} }}\n");
}

TEST(EventLine, WritesNullForWhatIsMissing) {
  const EventLine line = lineOf("events._._", "{}");
  EXPECT_EQ(line.eventId, "");
  EXPECT_EQ(line.text, R"({"sequence":42,"stored_at":"2026-01-01T00:00:00.123Z","site":null,)"
                       R"("event_id":null,"event_name":null,"event":{}})"
                       "\n");
}

TEST(EventLine, WritesBodiesThatAreNoObjectAsBase64) {
  const std::string head = R"({"sequence":42,"stored_at":"2026-01-01T00:00:00.123Z","site":1,)"
                           R"("event_id":null,"event_name":null,"event":null,"body_base64":)";
  EXPECT_EQ(lineOf("events.1._", "").text, head + "\"\"}\n");
  EXPECT_EQ(lineOf("events.1._", "[]").text, head + "\"W10=\"}\n");
  EXPECT_EQ(lineOf("events.1._", "{} x\n").text, head + "\"e30geAo=\"}\n");
  EXPECT_EQ(lineOf("events.1._", "{\"a\":\"\xFF\"}").text, head + "\"eyJhIjoi/yJ9\"}\n");
  EXPECT_EQ(lineOf("events.1._", "{\"a\":\"x\ny\"}").text, head + "\"eyJhIjoieAp5In0=\"}\n");
}

TEST(EventLine, AddsTheDiagnosticsOfInvalidEvents) {
  const std::string head = R"({"sequence":42,"stored_at":"2026-01-01T00:00:00.123Z","site":1,)"
                           R"("event_id":null,"event_name":null,)";
  EXPECT_EQ(lineOf("invalid.1.x", "{}", R"([{"path":"a"}])").text,
            head + R"("diagnostics":[{"path":"a"}],"event":{}})" + "\n");
  EXPECT_EQ(lineOf("invalid.1.x", "{}", "").text,
            head + R"("diagnostics":null,"event":{}})" + "\n");
  EXPECT_EQ(lineOf("invalid.1.x", "x", "[1]").text,
            head + R"("diagnostics":[1],"event":null,"body_base64":"eA=="})" + "\n");
}

TEST(EventLine, ReadsTheSiteFromTheSubject) {
  const auto hasSite = [](std::string_view subject, const std::string& site) {
    return lineOf(subject, "{}").text.find("\"site\":" + site + ",") != std::string::npos;
  };
  EXPECT_TRUE(hasSite("events.0.play", "0"));
  EXPECT_TRUE(hasSite("events.9223372036854775807.play", "9223372036854775807"));
  EXPECT_TRUE(hasSite("events.9223372036854775808.play", "null"));
  EXPECT_TRUE(hasSite("events.7x.play", "null"));
  EXPECT_TRUE(hasSite("events.7", "7"));
  EXPECT_TRUE(hasSite("events", "null"));
}

}  // namespace
}  // namespace jx
