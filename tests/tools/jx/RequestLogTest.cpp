// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/RequestLog.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

using std::chrono::microseconds;

class RequestLogTest : public testing::Test {
 protected:
  std::string text() const {
    std::ifstream stream(path_);
    std::stringstream all;
    all << stream.rdbuf();
    return all.str();
  }
  static std::ptrdiff_t linesOf(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
  }

  const test::TemporaryFolder folder_;
  const std::string path_ = folder_.path() + "/log";
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_{std::fopen(path_.c_str(), "w"),
                                                              std::fclose};
  JsonLog log_{file_.get(), JsonLog::Level::Info};
  GatewayMetrics metrics_;
};

constexpr GatewayExchange kAccepted{"id-1", 204, Refusal::None, "7", "", microseconds(300)};
constexpr GatewayExchange kRefused{
    "id-2", 503, Refusal::BrokerTimeout, "7", "no \"ack\"\n", microseconds(5'000'000)};

TEST_F(RequestLogTest, LogsRefusedRequests) {
  RequestLog requests(log_, metrics_, AccessLog::Errors);
  requests.add(kAccepted);
  requests.add(kRefused);
  const std::string line = text();
  EXPECT_EQ(linesOf(line), 1);
  EXPECT_EQ(line.substr(line.find("\"level\"")),
            "\"level\":\"warning\",\"event\":\"request\",\"request_id\":\"id-2\",\"status\":503,"
            "\"reason\":\"broker_timeout\",\"site\":\"7\",\"error\":\"no \\\"ack\\\"\\n\","
            "\"microseconds\":5000000}\n");
  EXPECT_EQ(metrics_.refused[static_cast<std::size_t>(Refusal::BrokerTimeout)], 1u);
  EXPECT_EQ(metrics_.refused[static_cast<std::size_t>(Refusal::None)], 0u);
}

TEST_F(RequestLogTest, LogsAllRequestsOnDemand) {
  RequestLog requests(log_, metrics_, AccessLog::All);
  requests.add(kAccepted);
  requests.add(kRefused);
  EXPECT_EQ(linesOf(text()), 2);
  EXPECT_NE(text().find("\"status\":204,\"reason\":\"\""), std::string::npos);
}

TEST_F(RequestLogTest, CountsWithoutLogging) {
  RequestLog requests(log_, metrics_, AccessLog::None);
  requests.add(kRefused);
  EXPECT_EQ(text(), "");
  EXPECT_EQ(metrics_.refused[static_cast<std::size_t>(Refusal::BrokerTimeout)], 1u);
}

TEST_F(RequestLogTest, LimitsTheLinesOfErrors) {
  RequestLog requests(log_, metrics_, AccessLog::Errors);
  for (int i = 0; i < 100; ++i)
    requests.add(kRefused);
  EXPECT_EQ(linesOf(text()), 20);
  requests.renew();
  EXPECT_NE(text().find("\"event\":\"requests_not_logged\",\"count\":80}"), std::string::npos);
  requests.add(kRefused);
  requests.renew();
  EXPECT_EQ(linesOf(text()), 22);
  EXPECT_EQ(metrics_.refused[static_cast<std::size_t>(Refusal::BrokerTimeout)], 101u);
}

}  // namespace
}  // namespace jx
