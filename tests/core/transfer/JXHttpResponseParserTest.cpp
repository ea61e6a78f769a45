// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXHttpResponseParser.h"

#include <gtest/gtest.h>

#include <string>

namespace jx {
namespace {

TEST(HttpAnswer, TheStatusCountsOnceTheHeadIsComplete) {
  JXHttpResponseParser answer;
  EXPECT_TRUE(answer.readHeader("HTTP/1.1 503 Service Unavailable\r\n"));
  EXPECT_EQ(0, answer.status());
  EXPECT_TRUE(answer.readHeader("\r\n"));
  EXPECT_EQ(503, answer.status());
}

TEST(HttpAnswer, AnInterimAnswerIsNotTheAnswer) {
  JXHttpResponseParser answer;
  answer.readHeader("HTTP/1.1 103 Early Hints\r\n");
  answer.readHeader("Retry-After: 5\r\n");
  answer.readHeader("\r\n");
  EXPECT_EQ(0, answer.status());
  answer.readHeader("HTTP/2 200\r\n");
  answer.readHeader("\r\n");
  EXPECT_EQ(200, answer.status());
  EXPECT_EQ("", answer.retryAfter());
}

TEST(HttpAnswer, RetryAfterIsReadInAnyCaseAndWithoutBlanks) {
  JXHttpResponseParser answer;
  answer.readHeader("HTTP/1.1 429 Slow down\r\n");
  answer.readHeader("X-Retry-After: 7\r\n");
  answer.readHeader("RETRY-aFTER:  120 \r\n");
  answer.readHeader("\r\n");
  EXPECT_EQ("120", answer.retryAfter());
}

TEST(HttpAnswer, AnEmptyRetryAfterIsEmpty) {
  JXHttpResponseParser answer;
  answer.readHeader("HTTP/1.1 429 Slow down\r\n");
  answer.readHeader("Retry-After:\r\n");
  answer.readHeader("\r\n");
  EXPECT_EQ("", answer.retryAfter());
}

TEST(HttpAnswer, ATrailerChangesNothing) {
  JXHttpResponseParser answer;
  answer.readHeader("HTTP/1.1 503 Told\r\n");
  answer.readHeader("\r\n");
  answer.readHeader("Retry-After: 9\r\n");
  EXPECT_EQ("", answer.retryAfter());
  EXPECT_EQ(503, answer.status());
}

TEST(HttpAnswer, AStatusLineWithoutAStatusIsNoAnswer) {
  for (const char* line :
       {"HTTP/1.1\r\n", "HTTP/1.1 2\r\n", "HTTP/1.1 abc\r\n", "HTTP/1.1 -20\r\n"}) {
    JXHttpResponseParser answer;
    answer.readHeader(line);
    answer.readHeader("\r\n");
    EXPECT_EQ(0, answer.status()) << line;
  }
}

TEST(HttpAnswer, ReadingEndsBehind64KiBOfHeadAndContent) {
  JXHttpResponseParser answer;
  answer.readHeader("HTTP/1.1 200 Told\r\n");  // 19 bytes
  answer.readHeader("\r\n");                   // 2 bytes
  EXPECT_TRUE(answer.readBody(65'536 - 21));
  EXPECT_FALSE(answer.readBody(1));
  EXPECT_EQ(200, answer.status());
}

TEST(HttpAnswer, AnEndlessHeadIsNoAnswer) {
  JXHttpResponseParser answer;
  EXPECT_TRUE(answer.readHeader("HTTP/1.1 200 Told\r\n"));
  EXPECT_TRUE(answer.readHeader(std::string(65'536 - 19, 'x')));
  EXPECT_FALSE(answer.readHeader("x"));
  EXPECT_EQ(0, answer.status());
}

}  // namespace
}  // namespace jx
