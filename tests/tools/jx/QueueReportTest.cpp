// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/queue/QueueReport.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

JXOutboxListing request(std::int64_t createdMs, const std::string& body, int status = 0) {
  return {createdMs, "https://h/events", body, status};
}

TEST(QueueReport, StatusBeginsWithNumberOfQueuedRequests) {
  EXPECT_EQ(queueStatus({}, {}), "0 requests queued, 0 bytes; 0 dead letters\n");
  EXPECT_EQ(queueStatus({request(1'000, "{}")}, {request(0, "{}", 400)}),
            "1 request queued, 18 bytes; 1 dead letter\n"
            "oldest 1970-01-01T00:00:01.000Z\nnewest 1970-01-01T00:00:01.000Z\n"
            "rejected with status 400: 1\n");
}

TEST(QueueReport, FindsOldestByTimeAfterClockWentBack) {
  EXPECT_EQ(queueStatus({request(3'000, "{}"), request(1'000, "{}"), request(2'000, "{}")}, {}),
            "3 requests queued, 54 bytes; 0 dead letters\n"
            "oldest 1970-01-01T00:00:01.000Z\nnewest 1970-01-01T00:00:03.000Z\n");
}

TEST(QueueReport, CountsDeadLettersByStatus) {
  EXPECT_EQ(queueStatus({}, {request(0, "{}", 413), request(0, "{}", 400), request(0, "{}", 413),
                             request(0, "{}", 0)}),
            "0 requests queued, 0 bytes; 4 dead letters\n"
            "not sendable: 1\nrejected with status 400: 1\nrejected with status 413: 2\n");
}

TEST(QueueReport, ListsTimeSizeNameAndIdInOneLine) {
  EXPECT_EQ(
      queueLines({request(1'000, R"({"event_name":"quiz","context":{"event_id":"A-1"}})")}, false),
      "1970-01-01T00:00:01.000Z        50  quiz                      A-1\n");
}

TEST(QueueReport, ListsStatusOfDeadLetters) {
  EXPECT_EQ(queueLines({request(0, R"({"event_name":"quiz"})", 410)}, true),
            "1970-01-01T00:00:00.000Z  410        21  quiz                      -\n");
}

TEST(QueueReport, ListsInvalidBodiesAndNamesInOneLine) {
  EXPECT_EQ(queueLines({request(0, "no JSON")}, false),
            "1970-01-01T00:00:00.000Z         7  -                         -\n");
  EXPECT_EQ(queueLines({request(0, R"({"event_name":"a\nb\u001b[0m"})")}, false),
            "1970-01-01T00:00:00.000Z        30  a b [0m                   -\n");
}

TEST(QueueReport, PrintsStoredBodiesAsJsonInOneLine) {
  EXPECT_EQ(
      queueJsonLines({request(1'000, "{\n  \"price\": 12.50,\r\n\t\"name\": \"\\n  \\u00e9\"\n}"),
                      request(0, "{}")},
                     false),
      R"({"created":"1970-01-01T00:00:01.000Z","url":"https://h/events",)"
      R"("body":{"price": 12.50,"name": "\n  \u00e9"}})"
      "\n"
      R"({"created":"1970-01-01T00:00:00.000Z","url":"https://h/events","body":{}})"
      "\n");
}

TEST(QueueReport, PrintsTheStatusOfDeadLettersAsJson) {
  EXPECT_EQ(queueJsonLines({request(0, "{}", 410)}, true),
            R"({"created":"1970-01-01T00:00:00.000Z","status":410,"url":"https://h/events",)"
            R"("body":{}})"
            "\n");
  EXPECT_EQ(queueJsonLines({}, true), "");
}

TEST(QueueReport, PrintsBodiesThatAreNotJsonObjectsAsStrings) {
  for (const auto& [body, printed] : {std::pair("no JSON", R"("no JSON")"),
                                      {"", R"("")"},
                                      {"{\"a\":", R"("{\"a\":")"},
                                      {"[1]", R"("[1]")"},
                                      {"\xEF\xBB\xBF{}", "\"\xEF\xBB\xBF{}\""},
                                      {"\xFF", "\"\xEF\xBF\xBD\""}}) {
    EXPECT_EQ(queueJsonLines({request(0, body)}, false),
              R"({"created":"1970-01-01T00:00:00.000Z","url":"https://h/events","body":)" +
                  std::string(printed) + "}\n");
  }
}

}  // namespace
}  // namespace jx
