// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "jx/core/json/JXJsonReader.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

constexpr std::chrono::seconds kPatience{60};

JXTestServerOptions plainHttp() {
  JXTestServerOptions options;
  options.tls = false;
  return options;
}

class TransportExample : public testing::Test {
 protected:
  ChildProcess::Result run() const {
    const std::string host = "http://127.0.0.1:" + std::to_string(server_.port());
    return ChildProcess::run(JX_EXAMPLE_TRANSPORT, {host, folder_.path("state")}, kPatience);
  }
  std::multiset<std::string> pages() const {
    std::multiset<std::string> pages;
    for (const std::string& body : server_.bodies()) {
      pages.insert(JXJsonReader::read(body).value.object().get("page_name").string().toStdString());
    }
    return pages;
  }

  TemporaryFolder folder_;
  JXTestServer server_{plainHttp()};
};

TEST_F(TransportExample, DeliversItsEventsWithItsOwnClient) {
  const ChildProcess::Result result = run();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "delivered\ndelivered\ndelivered\n");
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(pages(), (std::multiset<std::string>{"home", "film", "shop"}));
}

TEST_F(TransportExample, RetriesWithTheSameBytesAfterStatus503) {
  JXTestAnswer busy;
  busy.status = 503;
  busy.headers = {{"Retry-After", "1"}};
  server_.answerNext(busy);
  EXPECT_EQ(run().status, 0);
  const std::vector<std::string> bodies = server_.bodies();
  ASSERT_EQ(bodies.size(), 4u);
  EXPECT_EQ(bodies[0], bodies[1]) << "after a failure, the first request is sent again alone";
}

TEST_F(TransportExample, ReportsARejectedEvent) {
  JXTestAnswer unauthorised;
  unauthorised.status = 401;
  server_.answerNext(unauthorised);
  const ChildProcess::Result result = run();
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.output, "not delivered\ndelivered\ndelivered\n");
}

TEST_F(TransportExample, DeliversUnsentEventsInTheNextRun) {
  server_.refuse();
  EXPECT_EQ(run().status, 1);
  server_.accept();
  EXPECT_EQ(run().status, 0);
  EXPECT_EQ(pages(), (std::multiset<std::string>{"home", "home", "film", "film", "shop", "shop"}));
}

}  // namespace
}  // namespace jx::test
