// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/ArrivalTable.h"

#include <gtest/gtest.h>

#include "tests/support/ScopedEnvironment.h"

namespace jx {
namespace {

constexpr const char* kResponse = R"json({"events":[{"id":1,"repeats":2,"event_id":"ABCDEFGH-1",
  "name":"film_start","event_timestamp":1700000000000,
  "body":"{\"length\":5400.50,\"who\":\"me\",\"page_name\":\"film\",\"event_name\":\"film_start\",\"context\":{\"device\":{\"lifecycle\":{\"new_session\":true}}},\"user\":{}}"}],
  "last":1})json";

Arrival onlyOne() {
  const Result<std::vector<Arrival>> arrivals = readArrivals(kResponse, {"who"});
  EXPECT_TRUE(arrivals && arrivals->size() == 1);
  return arrivals && !arrivals->empty() ? arrivals->front() : Arrival{};
}

TEST(Arrivals, OmitsKeysCommonToAllEvents) {
  const Arrival arrival = onlyOne();
  EXPECT_EQ(arrival.name, "film_start");
  EXPECT_EQ(arrival.eventId, "ABCDEFGH-1");
  EXPECT_EQ(arrival.timestampMs, 1'700'000'000'000);
  EXPECT_EQ(arrival.repeats, 2);
  EXPECT_TRUE(arrival.opensSession);
  EXPECT_EQ(arrival.details, "page_name=\"film\" length=5400.50");
}

TEST(Arrivals, RejectsResponseWithoutEventList) {
  EXPECT_FALSE(readArrivals("{}", {}));
  EXPECT_FALSE(readArrivals("", {}));
}

TEST(ArrivalTable, IsPlainTextWithinItsWidthWithoutColours) {
  test::ScopedEnvironment environment;
  environment.set("TZ", "UTC");
  TerminalStyle style;
  style.width = 71;
  EXPECT_EQ(arrivalTable({onlyOne()}, style),
            "time      event                    event_id    bytes  summary\n"
            "-- new session\n"
            "22:13:20  film_start               ABCDEFGH      140  page_name=\"film\"\u2026\n");
}

TEST(ArrivalTable, ResetsColoursAfterText) {
  TerminalStyle style;
  style.coloured = true;
  EXPECT_EQ(style.bold("a"), "\033[1ma\033[0m");
}

}  // namespace
}  // namespace jx
