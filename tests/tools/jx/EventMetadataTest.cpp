// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventMetadata.h"

#include <gtest/gtest.h>

namespace jx {
namespace {

using Text = std::optional<std::string>;
using Number = std::optional<std::int64_t>;

TEST(EventMetadata, ReadsBodyAndQuery) {
  const EventMetadata metadata = EventMetadata::read(
      "jx_s=42&token=key-1",
      R"({"event_name": "purchase", "context": {"event_id": "e-1", "event_timestamp": 1700000000123}})");
  EXPECT_EQ(metadata.name, Text("purchase"));
  EXPECT_EQ(metadata.eventID, Text("e-1"));
  EXPECT_EQ(metadata.eventTimestamp, Number(1700000000123));
  EXPECT_EQ(metadata.site, Number(42));
  EXPECT_EQ(metadata.token, Text("key-1"));
  EXPECT_EQ(metadata.problem, Text());
}

TEST(EventMetadata, IgnoresKeysOfOtherObjects) {
  const EventMetadata metadata = EventMetadata::read("", R"({
    "event_id": "top", "items": [{"event_name": "inner", "context": {"event_id": "item"}}],
    "context": {"device": {"event_id": "device", "event_timestamp": 1}, "event_name": "inside"}})");
  EXPECT_EQ(metadata.name, Text());
  EXPECT_EQ(metadata.eventID, Text());
  EXPECT_EQ(metadata.eventTimestamp, Number());
}

TEST(EventMetadata, ReadsKeysAfterNestedObjects) {
  const EventMetadata metadata =
      EventMetadata::read("", R"({"context": {"device": {"a": [1, {"b": 2}]},
    "event_id": "e-2", "event_timestamp": 7}, "event_name": "late"})");
  EXPECT_EQ(metadata.eventID, Text("e-2"));
  EXPECT_EQ(metadata.eventTimestamp, Number(7));
  EXPECT_EQ(metadata.name, Text("late"));
}

TEST(EventMetadata, ReturnsNulloptForValuesOfAnotherType) {
  const EventMetadata metadata = EventMetadata::read(
      "jx_s=4x&token=",
      R"({"event_name": 5, "context": {"event_id": {"a": "b"}, "event_timestamp": "12"}})");
  EXPECT_EQ(metadata.name, Text());
  EXPECT_EQ(metadata.eventID, Text());
  EXPECT_EQ(metadata.eventTimestamp, Number());
  EXPECT_EQ(metadata.site, Number());
  EXPECT_EQ(metadata.token, Text(""));
  EXPECT_EQ(metadata.problem, Text());
}

TEST(EventMetadata, AcceptsNumbersOutsideTheRangeOfADouble) {
  for (const std::string& number : {std::string("1e400"), std::string(400, '9')}) {
    const EventMetadata metadata =
        EventMetadata::read("", R"({"event_name": "big", "value": )" + number +
                                    R"(, "context": {"event_id": "e-3", "event_timestamp": 7}})");
    EXPECT_EQ(metadata.problem, Text());
    EXPECT_EQ(metadata.name, Text("big"));
    EXPECT_EQ(metadata.eventID, Text("e-3"));
    EXPECT_EQ(metadata.eventTimestamp, Number(7));
  }
  EXPECT_EQ(EventMetadata::read("", "[1e400]").problem, Text("not a JSON object"));
  EXPECT_EQ(EventMetadata::read("", R"({"value": 1e400)").problem, Text("not JSON"));
}

TEST(EventMetadata, DoesNotDecodeTheToken) {
  EXPECT_EQ(EventMetadata::read("a&jx_s=-1&token=a+b%41=c", "{}").token, Text("a+b%41=c"));
}

TEST(EventMetadata, ReportsAProblemForBodiesThatAreNotObjects) {
  EXPECT_EQ(EventMetadata::read("", "").problem, Text("not JSON"));
  EXPECT_EQ(EventMetadata::read("", "[1]").problem, Text("not a JSON object"));
  EXPECT_EQ(EventMetadata::read("", "\"event_name\"").problem, Text("not a JSON object"));
  EXPECT_EQ(EventMetadata::read("", "{\"a\":\"\xC3\x28\"}").problem, Text("not UTF-8"));
  EXPECT_EQ(EventMetadata::read("", std::string("{}\0{}", 5)).problem, Text("not JSON"));
  const EventMetadata torn = EventMetadata::read("jx_s=3", R"({"event_name": "torn", "con)");
  EXPECT_EQ(torn.problem, Text("not JSON"));
  EXPECT_EQ(torn.name, Text());
  EXPECT_EQ(torn.site, Number(3));
}

TEST(EventMetadata, RejectsAMillionNestedBrackets) {
  EXPECT_EQ(EventMetadata::read("", std::string(1'000'000, '[')).problem, Text("nested too deep"));
}

}  // namespace
}  // namespace jx
