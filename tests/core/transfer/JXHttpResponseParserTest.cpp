// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHttpResponseParser.h"

#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

TEST(HttpResponseParser, ReturnsTheStatusOnceTheHeaderSectionIsComplete) {
  JXHttpResponseParser parser;
  EXPECT_TRUE(parser.readHeader("HTTP/1.1 503 Service Unavailable\r\n"));
  EXPECT_EQ(0, parser.status());
  EXPECT_TRUE(parser.readHeader("\r\n"));
  EXPECT_EQ(503, parser.status());
}

TEST(HttpResponseParser, IgnoresInterimResponses) {
  JXHttpResponseParser parser;
  parser.readHeader("HTTP/1.1 103 Early Hints\r\n");
  parser.readHeader("Retry-After: 5\r\n");
  parser.readHeader("\r\n");
  EXPECT_EQ(0, parser.status());
  parser.readHeader("HTTP/2 200\r\n");
  parser.readHeader("\r\n");
  EXPECT_EQ(200, parser.status());
  EXPECT_EQ("", parser.retryAfter());
}

TEST(HttpResponseParser, ReportsWhetherTheProtocolIsMultiplexed) {
  const auto isMultiplexed = [](const std::string& statusLine) {
    JXHttpResponseParser parser;
    parser.readHeader(statusLine);
    return parser.isMultiplexed();
  };
  EXPECT_FALSE(isMultiplexed("HTTP/1.0 200 OK\r\n"));
  EXPECT_FALSE(isMultiplexed("HTTP/1.1 204 No Content\r\n"));
  EXPECT_TRUE(isMultiplexed("HTTP/2 200\r\n"));
  EXPECT_TRUE(isMultiplexed("HTTP/3 503\r\n"));
  EXPECT_FALSE(JXHttpResponseParser().isMultiplexed());
}

TEST(HttpResponseParser, ReadsRetryAfterInAnyCaseAndTrimsSpaces) {
  JXHttpResponseParser parser;
  parser.readHeader("HTTP/1.1 429 Slow down\r\n");
  parser.readHeader("X-Retry-After: 7\r\n");
  parser.readHeader("RETRY-aFTER:  120 \r\n");
  parser.readHeader("\r\n");
  EXPECT_EQ("120", parser.retryAfter());
}

TEST(HttpResponseParser, ReadsTheDateOfTheFinalResponse) {
  JXHttpResponseParser parser;
  parser.readHeader("HTTP/1.1 100 Continue\r\n");
  parser.readHeader("Date: Sat, 05 Nov 1994 08:49:37 GMT\r\n");
  parser.readHeader("\r\n");
  EXPECT_EQ("Sat, 05 Nov 1994 08:49:37 GMT", parser.date());
  parser.readHeader("HTTP/2 503\r\n");
  EXPECT_EQ("", parser.date());
  parser.readHeader("Update: 1\r\n");
  parser.readHeader("date:Sun, 06 Nov 1994 08:49:37 GMT \r\n");
  parser.readHeader("\r\n");
  EXPECT_EQ("Sun, 06 Nov 1994 08:49:37 GMT", parser.date());
}

TEST(HttpResponseParser, ReturnsAnEmptyRetryAfter) {
  JXHttpResponseParser parser;
  parser.readHeader("HTTP/1.1 429 Slow down\r\n");
  parser.readHeader("Retry-After:\r\n");
  parser.readHeader("\r\n");
  EXPECT_EQ("", parser.retryAfter());
}

TEST(HttpResponseParser, IgnoresTrailers) {
  JXHttpResponseParser parser;
  parser.readHeader("HTTP/1.1 503 Unavailable\r\n");
  parser.readHeader("\r\n");
  parser.readHeader("Retry-After: 9\r\n");
  EXPECT_EQ("", parser.retryAfter());
  EXPECT_EQ(503, parser.status());
}

TEST(HttpResponseParser, ReturnsZeroForAStatusLineWithoutAStatus) {
  for (const char* line :
       {"HTTP/1.1\r\n", "HTTP/1.1 2\r\n", "HTTP/1.1 abc\r\n", "HTTP/1.1 -20\r\n"}) {
    JXHttpResponseParser parser;
    parser.readHeader(line);
    parser.readHeader("\r\n");
    EXPECT_EQ(0, parser.status()) << line;
  }
}

TEST(HttpResponseParser, StopsReadingAfter64KiBOfHeaderAndBody) {
  JXHttpResponseParser parser;
  parser.readHeader("HTTP/1.1 200 Okay\r\n");  // 19 bytes
  parser.readHeader("\r\n");                   // 2 bytes
  EXPECT_TRUE(parser.readBody(65'536 - 21));
  EXPECT_FALSE(parser.readBody(1));
  EXPECT_EQ(200, parser.status());
}

TEST(HttpResponseParser, ReturnsZeroForAnEndlessHeaderSection) {
  JXHttpResponseParser parser;
  EXPECT_TRUE(parser.readHeader("HTTP/1.1 200 Okay\r\n"));
  EXPECT_TRUE(parser.readHeader(std::string(65'536 - 19, 'x')));
  EXPECT_FALSE(parser.readHeader("x"));
  EXPECT_EQ(0, parser.status());
}

}  // namespace
}  // namespace jx
