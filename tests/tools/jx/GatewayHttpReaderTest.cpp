// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <vector>

#include "tools/jx/gateway/HttpReader.h"

namespace jx {
namespace {

using Progress = HttpReader::Progress;

constexpr std::size_t kMaxHead = 1024;
constexpr std::size_t kMaxBody = 100;
const std::string kPost = "POST /events?jx_s=1 HTTP/1.1\r\nHost: a\r\n";
const std::string kFour = kPost + "Content-Length: 4\r\n\r\n";

struct Reading {
  std::vector<HttpRequest> requests;
  int status = 0;
  Progress progress = Progress::Idle;
};

// Reads the bytes in parts of this size.
Reading reading(std::string_view bytes, std::size_t part) {
  HttpReader reader(kMaxHead, kMaxBody);
  Reading result;
  for (std::size_t i = 0; i < bytes.size() && reader.progress() != Progress::Rejected; i += part) {
    reader.read(bytes.substr(i, part));
    while (reader.progress() == Progress::Complete) {
      result.requests.push_back(reader.take());
      reader.read("");
    }
  }
  result.status = reader.status();
  result.progress = reader.progress();
  return result;
}

class GatewayHttpReader : public testing::TestWithParam<std::size_t> {
 protected:
  static Reading read(std::string_view bytes) { return reading(bytes, GetParam()); }
  static int statusOf(std::string_view bytes) { return read(bytes).status; }
};

INSTANTIATE_TEST_SUITE_P(Parts, GatewayHttpReader, testing::Values(1, 3, 7, 100'000));

TEST_P(GatewayHttpReader, ReadsARequest) {
  const Reading result = read(
      "POST /events?jx_s=1&token=k HTTP/1.1\r\nHost: a\r\n"
      "Content-Type: application/json\r\nUser-Agent: tv/1\r\n"
      "X-Request-ID: r1\r\nContent-Length: 4\r\n\r\nabcd");
  ASSERT_EQ(result.requests.size(), 1u);
  const HttpRequest& request = result.requests[0];
  EXPECT_EQ(request.method, "POST");
  EXPECT_EQ(request.path, "/events");
  EXPECT_EQ(request.query, "jx_s=1&token=k");
  EXPECT_EQ(request.body, "abcd");
  EXPECT_EQ(request.contentType, "application/json");
  EXPECT_EQ(request.userAgent, "tv/1");
  EXPECT_EQ(request.requestId, "r1");
  EXPECT_TRUE(request.keepsAlive);
  EXPECT_EQ(result.progress, Progress::Idle);
}

TEST_P(GatewayHttpReader, ReadsRequestsOneAfterTheOther) {
  const Reading result = read(kFour + "abcd\r\n" + kFour + "efgh" +
                              "GET /healthz HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
  ASSERT_EQ(result.requests.size(), 3u);
  EXPECT_EQ(result.requests[0].body, "abcd");
  EXPECT_EQ(result.requests[1].body, "efgh");
  EXPECT_EQ(result.requests[2].path, "/healthz");
  EXPECT_EQ(result.requests[2].query, "");
  EXPECT_FALSE(result.requests[2].keepsAlive);
}

TEST_P(GatewayHttpReader, RejectsContradictoryLengths) {
  EXPECT_EQ(statusOf(kPost + "Content-Length: 4\r\nContent-Length: 5\r\n\r\nabcd"), 400);
  EXPECT_EQ(statusOf(kPost + "Content-Length: 4\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n"),
            400);
}

TEST_P(GatewayHttpReader, RejectsLengthsThatAreNotNumbers) {
  for (const char* const length : {"+4", "-1", "0x4", "4 4", "", "99999999999999999999"})
    EXPECT_EQ(statusOf(kPost + "Content-Length: " + length + "\r\n\r\nabcd"), 400) << length;
}

TEST_P(GatewayHttpReader, RejectsTransferEncodings) {
  for (const char* const encoding : {"chunked", "gzip, chunked", "xchunked", "identity"}) {
    EXPECT_EQ(statusOf(kPost + "Transfer-Encoding: " + encoding + "\r\n\r\n0\r\n\r\n"), 411)
        << encoding;
  }
}

TEST_P(GatewayHttpReader, RejectsHeadersThatServersReadDifferently) {
  EXPECT_EQ(statusOf(kPost + "Content-Length : 4\r\n\r\nabcd"), 400);
  EXPECT_EQ(statusOf(kPost + std::string("X: a\0b\r\n\r\n", 11)), 400);
  EXPECT_EQ(statusOf(kPost + "X\r\n\r\n"), 400);
  EXPECT_EQ(statusOf("POST /events HTTP/1.1\r\nContent-Length: 0\r\n\r\n"), 400) << "no host";
  EXPECT_EQ(statusOf(kPost + "Host: b\r\n\r\n"), 400);
}

TEST_P(GatewayHttpReader, NeverCompletesAHeadWithoutCarriageReturns) {
  EXPECT_TRUE(read("POST /events HTTP/1.1\nHost: a\nContent-Length: 0\n\n").requests.empty());
}

TEST_P(GatewayHttpReader, RejectsOtherVersions) {
  EXPECT_EQ(statusOf("POST /events HTTP/2.0\r\nHost: a\r\n\r\n"), 505);
}

TEST_P(GatewayHttpReader, LimitsHeadAndBody) {
  EXPECT_EQ(statusOf(kPost + "X: " + std::string(2 * kMaxHead, 'a')), 431);
  EXPECT_EQ(statusOf(kPost + "Content-Length: 101\r\n\r\n"), 413);
  EXPECT_EQ(read(kPost + "Content-Length: 100\r\n\r\n" + std::string(100, 'a')).requests.size(),
            1u);
}

// The parser itself limits only what it has not parsed yet.
TEST(GatewayHttpReaderMemory, LimitsHeadsOfManyLines) {
  HttpReader reader(16'384, 1'024);
  reader.read("POST /events HTTP/1.1\r\nHost: a\r\n");
  std::string lines;
  for (int i = 0; i < 100; ++i)
    lines += "A" + std::to_string(i) + ": " + std::string(100, 'a') + "\r\n";
  EXPECT_EQ(reader.read(lines + "B"), HttpReader::Progress::Head);
  EXPECT_LT(reader.heldBytes(), 40'000u);
  EXPECT_EQ(reader.read(lines), HttpReader::Progress::Rejected);
  EXPECT_EQ(reader.status(), 431);
}

TEST(GatewayHttpReaderMemory, LimitsTheNumberOfHeaders) {
  const auto read = [](int count) {
    HttpReader reader(16'384, 1'024);
    std::string head = "GET / HTTP/1.1\r\nHost: a\r\n";
    for (int i = 0; i < count; ++i)
      head += "a:\r\n";
    return reader.read(head + "\r\n");
  };
  EXPECT_EQ(read(125), HttpReader::Progress::Complete);
  EXPECT_EQ(read(126), HttpReader::Progress::Rejected);
}

TEST(GatewayHttpReaderMemory, ReportsTheRequestIdOfARejectedRequest) {
  HttpReader reader(16'384, 4);
  reader.read("POST / HTTP/1.1\r\nHost: a\r\nX-Request-ID: r-1\r\nTransfer-Encoding: x\r\n\r\n");
  EXPECT_EQ(reader.status(), 411);
  EXPECT_EQ(reader.requestId(), "r-1");
}

TEST(GatewayHttpReaderMemory, ClosesConnectionsOfOldClients) {
  HttpReader reader(16'384, 4);
  reader.read("GET / HTTP/1.0\r\nConnection: keep-alive\r\n\r\n");
  EXPECT_FALSE(reader.take().keepsAlive);
}

TEST(GatewayHttpReaderMemory, HoldsNothingBetweenRequests) {
  HttpReader reader(kMaxHead, kMaxBody);
  EXPECT_LT(reader.heldBytes(), 32u);
  reader.read(kFour);
  EXPECT_EQ(reader.progress(), Progress::Body);
  EXPECT_GT(reader.heldBytes(), 32u);
  reader.read("abcd");
  reader.take();
  EXPECT_LT(reader.heldBytes(), 32u);
}

TEST(GatewayHttpReaderMemory, ReportsAnExpectationOnce) {
  HttpReader reader(kMaxHead, kMaxBody);
  reader.read(kPost + "Expect: 100-continue\r\nContent-Length: 4\r\n\r\n");
  EXPECT_TRUE(reader.takeExpectation());
  EXPECT_FALSE(reader.takeExpectation());
  reader.read("abcd");
  EXPECT_EQ(reader.take().body, "abcd");
  reader.read(kFour);
  EXPECT_FALSE(reader.takeExpectation());
}

}  // namespace
}  // namespace jx
