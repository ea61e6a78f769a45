// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Clients that together use more memory or connections than the server allows.
#include "tools/jx/collector/HttpLimits.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/support/RawConnection.h"
#include "tests/tools/jx/CollectorFixture.h"
#include "tools/jx/collector/HttpServer.h"

namespace jx {
namespace {

constexpr const char* kHeadEnd = "\r\n\r\n";
constexpr std::size_t kKibibyte = 1024;
// A head of 40 KB counts as 160 KiB, of which 64 KiB are free.
constexpr std::size_t kMemory = 100 * kKibibyte;

void addRoutes(HttpServer& server) {
  server.onPost("/size",
                [](const httplib::Request&, const std::string& body, httplib::Response& response) {
                  response.set_content("<" + std::to_string(body.size()) + ">", "text/plain");
                });
  server.onGet("/large",
               [](const httplib::Request&, const std::string&, httplib::Response& response) {
                 response.set_content(std::string(64 * kKibibyte, 'x') + ">", "text/plain");
               });
}

std::string responseTo(const HttpServer& server, std::string_view request) {
  RawConnection connection(server.listeningPort());
  connection.send(request);
  return connection.readUntil(kHeadEnd);
}

// Returns the response to `request` once it is not 503: another connection is being closed.
std::string finalResponseTo(const HttpServer& server, std::string_view request) {
  for (;;) {
    std::string response = responseTo(server, request);
    if (response.substr(0, 12) != "HTTP/1.1 503") return response;
    std::this_thread::yield();
  }
}

// A client whose request is incomplete and has a head of 40 KB.
std::unique_ptr<RawConnection> incompleteRequest(const HttpServer& server) {
  auto connection = std::make_unique<RawConnection>(server.listeningPort());
  std::string head = "POST /size HTTP/1.1\r\nContent-Length: 9\r\nExpect: 100-continue\r\n";
  for (int i = 0; i < 5; ++i)
    head += "X-Long: " + std::string(8000, 'x') + "\r\n";
  connection->send(head + "\r\n");
  EXPECT_EQ(connection->readUntil(kHeadEnd).substr(0, 12), "HTTP/1.1 100");
  return connection;
}

TEST(HttpLimits, RespondsWith503WhenBodiesInFlightUseTheMemory) {
  HttpLimits limits;
  limits.memory = kMemory;
  HttpServer server(nullptr, limits);
  addRoutes(server);
  ASSERT_TRUE(server.start("127.0.0.1", 0));
  auto other = incompleteRequest(server);
  const std::string small = "POST /size HTTP/1.1\r\nContent-Length: 4\r\n\r\nabcd";
  const std::string large =
      "POST /size HTTP/1.1\r\nContent-Length: 102400\r\n\r\n" + std::string(100 * kKibibyte, 'x');
  EXPECT_EQ(responseTo(server, small).substr(0, 12), "HTTP/1.1 200");
  const std::string refused = responseTo(server, large);
  EXPECT_EQ(refused.substr(0, 12), "HTTP/1.1 503");
  EXPECT_NE(refused.find("\r\nRetry-After: 5\r\n"), std::string::npos) << refused;
  other.reset();
  EXPECT_EQ(finalResponseTo(server, large).substr(0, 12), "HTTP/1.1 200");
}

TEST(HttpLimits, RespondsWith503WhenResponsesInFlightUseTheMemory) {
  HttpLimits limits;
  limits.memory = kMemory;
  HttpServer server(nullptr, limits);
  addRoutes(server);
  ASSERT_TRUE(server.start("127.0.0.1", 0));
  auto other = incompleteRequest(server);
  const std::string refused = responseTo(server, "GET /large HTTP/1.1\r\n\r\n");
  EXPECT_EQ(refused.substr(0, 12), "HTTP/1.1 503");
  EXPECT_NE(refused.find("\r\nContent-Length: 0\r\n"), std::string::npos) << refused;
  other.reset();
  EXPECT_EQ(finalResponseTo(server, "GET /large HTTP/1.1\r\n\r\n").substr(0, 12), "HTTP/1.1 200");
}

TEST(HttpLimits, RespondsWith429ToAClientWithTooManyConnections) {
  HttpLimits limits;
  limits.connectionsOfClient = 1;
  limits.limitsLoopback = true;
  HttpServer server(nullptr, limits);
  addRoutes(server);
  ASSERT_TRUE(server.start("127.0.0.1", 0));
  auto first = incompleteRequest(server);
  RawConnection second(server.listeningPort());
  const std::string refused = second.readToEnd();
  EXPECT_EQ(refused.substr(0, 30), "HTTP/1.1 429 Too Many Requests");
  EXPECT_NE(refused.find("\r\nRetry-After: 5\r\n"), std::string::npos) << refused;
  EXPECT_TRUE(second.sawEnd());
}

class CollectorLimits : public CollectorFixture {
 protected:
  CollectorLimits()
      : CollectorFixture([](CollectorSettings& settings) {
          settings.limits.waitingOfClient = 1;
          settings.limits.limitsLoopback = true;
          settings.limits.transfers = 1;
        }) {}
};

TEST_F(CollectorLimits, RespondsWith429ToAClientWithTooManyStreams) {
  RawConnection stream(server_->webPort());
  stream.send(streamRequest());
  stream.readUntil("event: faults");
  const auto refused = get("/api/wait?timeout=0");
  EXPECT_EQ(refused.status, 429);
  EXPECT_EQ(refused.body, R"({"error":"too many open responses of this client"})");
  EXPECT_NE(refused.headers.find("Retry-After: 5"), std::string::npos) << refused.headers;
}

TEST_F(CollectorLimits, RespondsWith503ToMoreTransfersThanAllowed) {
  RawConnection import(server_->webPort());
  import.send(
      "POST /api/import HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/json\r\n"
      "Content-Length: 9\r\nExpect: 100-continue\r\n\r\n");
  // The transfer begins after the interim response.
  import.readUntil(kHeadEnd);
  HttpsClient::Response refused = get("/api/export.ndjson");
  while (refused.status == 200)
    refused = get("/api/export.ndjson");
  EXPECT_EQ(refused.status, 503);
  EXPECT_NE(refused.headers.find("Retry-After: 5"), std::string::npos) << refused.headers;
}

}  // namespace
}  // namespace jx
