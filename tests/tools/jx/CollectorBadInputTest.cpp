// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/jx/CollectorFixture.h"

namespace jx {
namespace {

// After each test, the collector must still accept and list events.
class CollectorBadInput : public CollectorFixture {
 protected:
  ~CollectorBadInput() override {
    EXPECT_EQ(send(namedBody("login", "after")), 200);
    EXPECT_EQ(json("/api/events?view=row&name=login")["events"].Size(), 1u);
  }

  std::string codeOf(const std::string& id) const {
    const rapidjson::Document event = json("/api/events/" + id);
    return event["reasons"][0]["code"].GetString();
  }
  /// Sends raw bytes to the web port. Returns the status line of the response.
  std::string statusLine(const std::string& request) const {
    RawConnection connection(server_->webPort());
    connection.send(request);
    const std::string response = connection.readUntil("\r\n\r\n");
    return response.substr(0, response.find('\r'));
  }
};

TEST_F(CollectorBadInput, ValidatesBodiesOfTenMebibytes) {
  constexpr std::size_t kSize = std::size_t{10} * 1024 * 1024;
  ASSERT_EQ(send(std::string(kSize, 'x')), 200);
  EXPECT_EQ(codeOf("1"), "not_json");
  ASSERT_EQ(send(std::string(kSize, '[')), 200);
  EXPECT_EQ(codeOf("2"), "too_deep");
  std::string zeros = "[0";
  while (zeros.size() < kSize)
    zeros += ",0";
  ASSERT_EQ(send(zeros + "]"), 200);
  EXPECT_EQ(codeOf("3"), "too_large");
  ASSERT_EQ(send(eventBody(R"("event_name":"quiz","own":")" + std::string(kSize, 'y') + "\"", "e")),
            200);
  const rapidjson::Document row = json("/api/events?view=row&name=quiz");
  ASSERT_EQ(row["events"].Size(), 1u);
  EXPECT_TRUE(row["events"][0]["good"].GetBool());
  EXPECT_LE(row["events"][0]["line"].GetStringLength(), 200u);
}

TEST_F(CollectorBadInput, ShowsNonUtf8BodiesAsTextAndBase64) {
  ASSERT_EQ(send("\xC3\x28"), 200);
  EXPECT_EQ(codeOf("1"), "not_utf8");
  const rapidjson::Document event = json("/api/events/1");
  EXPECT_STREQ(event["body"].GetString(), "\xEF\xBF\xBD(");
  EXPECT_STREQ(event["body_base64"].GetString(), "wyg=");
}

TEST_F(CollectorBadInput, RejectsRequestLinesOfAHundredKibibytes) {
  const std::string path(std::size_t{100} * 1024, 'a');
  const std::string rest = " HTTP/1.1\r\nHost: localhost\r\n\r\n";
  for (const std::string start : {"GET /", "GET /api/events?text=", "POST /api/"}) {
    const std::string line = statusLine(start + path + rest);
    EXPECT_EQ(line.substr(0, 10), "HTTP/1.1 4") << start << ": " << line;
  }
}

TEST_F(CollectorBadInput, RejectsWebSocketUpgrades) {
  for (const std::string path : {"/", "/api/stream"}) {
    EXPECT_EQ(statusLine("GET " + path +
                         " HTTP/1.1\r\nHost: localhost\r\nConnection: Upgrade\r\n"
                         "Upgrade: websocket\r\nSec-WebSocket-Version: 13\r\n"
                         "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\n\r\n"),
              "HTTP/1.1 400 Bad Request");
  }
}

TEST_F(CollectorBadInput, RequiresOneValidHostHeader) {
  const std::string line = "GET /api/summary HTTP/1.1\r\n";
  for (const std::string headers :
       {"", "Host: localhost\r\nHost: localhost\r\n", "Host:\r\n", "Host: localhost, localhost\r\n",
        "Host: local host\r\n", "Host: localhost:\r\n", "Host: localhost:x\r\n",
        "Host: localhost:65536\r\n", "Host: localhost:80:80\r\n", "Host: [::1\r\n",
        "Host: [::1]x\r\n", "Host: ::1\r\n", "Host: [localhost]\r\n", "Host: user@localhost\r\n",
        "Host: localhost/\r\n", "Host: 127.0.0.1:-1\r\n"}) {
    EXPECT_EQ(statusLine(line + headers + "\r\n"), "HTTP/1.1 400 Bad Request") << headers;
  }
  for (const std::string host :
       {"localhost", "LOCALHOST:1", "127.0.0.1:65535", "[::1]", "[::1]:80", "192.0.2.1"}) {
    EXPECT_EQ(statusLine(line + "Host: " + host + "\r\n\r\n"), "HTTP/1.1 200 OK") << host;
  }
}

TEST_F(CollectorBadInput, HandlesMaliciousQueryParameters) {
  for (const std::string query :
       {"text=%00%FF", "name=%27%3B%20DROP%20TABLE%20events%3B--", "session=%25%25",
        "text=", "after=9223372036854775807", "before=9223372036854775807", "class=%3Cscript%3E"}) {
    EXPECT_EQ(get("/api/events?" + query).status, 200) << query;
  }
  EXPECT_EQ(get("/api/events?after=9223372036854775808").status, 400);
  EXPECT_EQ(get("/api/events/9223372036854775808").status, 404);
}

TEST_F(CollectorBadInput, KeepsCompleteLinesOfAnInterruptedImport) {
  {
    RawConnection connection(server_->webPort());
    connection.send(
        "POST /api/import HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\n"
        "Content-Length: 1000\r\n\r\n{\"received_ms\":1,\"body\":\"{}\"}\n{\"received");
  }
  // The collector detects the closed connection on its next read.
  while (json("/api/summary")["events"].GetInt64() == 0) {
  }
  EXPECT_EQ(json("/api/summary")["events"].GetInt64(), 1);
}

}  // namespace
}  // namespace jx
