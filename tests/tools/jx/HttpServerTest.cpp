// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/HttpServer.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

#include "tests/support/RawConnection.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

constexpr const char* kHeadEnd = "\r\n\r\n";

// A server that responds to a POST with the length of its body.
class EchoServer {
 public:
  explicit EchoServer(HttpLimits limits = HttpLimits()) : server_(nullptr, limits) {
    server_.onPost(
        "/size", [](const httplib::Request&, const std::string& body, httplib::Response& response) {
          response.set_content("<" + std::to_string(body.size()) + ">", "text/plain");
        });
    server_.onGet("/header", [](const httplib::Request& request, const std::string&,
                                httplib::Response& response) {
      response.set_content("<" + request.get_header_value("X-Text") + ">", "text/plain");
    });
    server_.onGet("/throw", [](const httplib::Request&, const std::string&, httplib::Response&) {
      throw std::runtime_error("an error in a handler");
    });
    const Done started = server_.start("127.0.0.1", 0);
    if (!started) throw std::runtime_error(started.error().text);
  }

  HttpServer& server() { return server_; }
  int port() const { return server_.listeningPort(); }

  /// Sends raw bytes and returns the response head.
  std::string responseTo(std::string_view request) const {
    RawConnection connection(port());
    connection.send(request);
    return connection.readUntil(kHeadEnd);
  }

 private:
  HttpServer server_;
};

HttpLimits shortLimits() {
  HttpLimits limits;
  limits.idle = milliseconds(50);
  limits.silence = milliseconds(50);
  limits.request = milliseconds(200);
  limits.lingering = milliseconds(50);
  return limits;
}

TEST(HttpServer, ReadsABodyWithContentLength) {
  const EchoServer server;
  RawConnection connection(server.port());
  ASSERT_TRUE(
      connection.send("POST /size HTTP/1.1\r\nHost: localhost\r\nContent-Length: 5\r\n\r\nhello"));
  const std::string response = connection.readUntil(">");
  EXPECT_EQ(response.substr(0, 15), "HTTP/1.1 200 OK");
  EXPECT_EQ(response.substr(response.size() - 3), "<5>");
}

TEST(HttpServer, ReadsAChunkedBody) {
  const EchoServer server;
  RawConnection connection(server.port());
  ASSERT_TRUE(
      connection.send("POST /size HTTP/1.1\r\nHost: localhost\r\nTransfer-Encoding: chunked\r\n\r\n"
                      "3\r\nabc\r\n4\r\ndefg\r\n0\r\n\r\n"));
  const std::string response = connection.readUntil(">");
  ASSERT_GE(response.size(), 3u);
  EXPECT_EQ(response.substr(response.size() - 3), "<7>");
}

TEST(HttpServer, PassesHeadersAsSent) {
  const EchoServer server;
  RawConnection connection(server.port());
  ASSERT_TRUE(
      connection.send("GET /header HTTP/1.1\r\nHost: localhost\r\nX-Text: a%41 +b\r\n\r\n"));
  const std::string response = connection.readUntil(">");
  ASSERT_GE(response.size(), 9u);
  EXPECT_EQ(response.substr(response.size() - 9), "<a%41 +b>");
}

TEST(HttpServer, IgnoresRangeHeaders) {
  const EchoServer server;
  std::string overlapping = "Range: bytes=0-";
  while (overlapping.size() < 4000)
    overlapping += ",0-";
  for (const std::string& header :
       {std::string("Range: bytes=0-0"), std::string("range:bytes=1-"), overlapping,
        std::string("Range: garbage"), std::string("RANGE: bytes=9-1"),
        std::string("Range: bytes=0-0\r\nRange: bytes=1-1")}) {
    RawConnection connection(server.port());
    ASSERT_TRUE(connection.send("GET /header HTTP/1.1\r\nX-Text: abc\r\n" + header + "\r\n\r\n"));
    const std::string response = connection.readUntil(">");
    EXPECT_EQ(response.substr(0, 15), "HTTP/1.1 200 OK") << header.substr(0, 40);
    EXPECT_NE(response.find("\r\nContent-Length: 5\r\n"), std::string::npos) << response;
    EXPECT_EQ(response.substr(response.find(kHeadEnd) + 4), "<abc>") << header.substr(0, 40);
  }
}

TEST(HttpServer, PassesRangeHeadersToHandlers) {
  HttpServer server;
  server.onGet("/range", [](const httplib::Request& request, const std::string&,
                            httplib::Response& response) {
    response.set_content("<" + request.get_header_value("Range") + ">", "text/plain");
  });
  ASSERT_TRUE(server.start("127.0.0.1", 0));
  RawConnection connection(server.listeningPort());
  connection.send("GET /range HTTP/1.1\r\nRange: bytes=0-0\r\n\r\n");
  const std::string response = connection.readUntil(">");
  EXPECT_EQ(response.substr(response.find(kHeadEnd) + 4), "<bytes=0-0>");
}

TEST(HttpServer, RestrictsResponsesToTheirOwnOrigin) {
  const EchoServer server;
  for (const char* request : {"GET /header HTTP/1.1\r\n\r\n", "GET /nothing HTTP/1.1\r\n\r\n",
                              "garbage\r\n\r\n", "GET /throw HTTP/1.1\r\n\r\n"}) {
    EXPECT_NE(server.responseTo(request).find("\r\nCross-Origin-Resource-Policy: same-origin\r\n"),
              std::string::npos)
        << request;
  }
}

TEST(HttpServer, HandlesManyRequestsOnOneConnection) {
  const EchoServer server;
  RawConnection connection(server.port());
  for (int i = 0; i < 100; ++i) {
    ASSERT_TRUE(connection.send("POST /size HTTP/1.1\r\nContent-Length: 1\r\n\r\nx")) << i;
    ASSERT_EQ(connection.readUntil(">").substr(0, 15), "HTTP/1.1 200 OK") << i;
  }
}

struct BadRequest {
  const char* what;
  std::string text;
  std::string statusLine;
};

std::vector<BadRequest> badRequests() {
  const std::string post = "POST /size HTTP/1.1\r\nHost: localhost\r\n";
  return {
      {"not HTTP", "garbage\r\n\r\n", "HTTP/1.1 400"},
      {"an HTTP/2 preface", "PRI * HTTP/2.0\r\n\r\nSM\r\n\r\n", "HTTP/1.1 400"},
      {"a long request line", "GET /" + std::string(100 * 1024, 'a') + " HTTP/1.1\r\n\r\n",
       "HTTP/1.1 414"},
      {"a long path", "GET /" + std::string(4000, 'a') + " HTTP/1.1\r\n\r\n", "HTTP/1.1 404"},
      {"an unknown path", "GET /nothing HTTP/1.1\r\n\r\n", "HTTP/1.1 404"},
      {"a wrong method", "DELETE /size HTTP/1.1\r\n\r\n", "HTTP/1.1 405"},
      {"a WebSocket", "GET /header HTTP/1.1\r\nConnection: Upgrade\r\nUpgrade: websocket\r\n\r\n",
       "HTTP/1.1 400"},
      {"no length", post + "\r\n", "HTTP/1.1 411"},
      {"a length that is not a number", post + "Content-Length: 5x\r\n\r\nhello", "HTTP/1.1 400"},
      {"a negative length", post + "Content-Length: -5\r\n\r\nhello", "HTTP/1.1 400"},
      {"two lengths", post + "Content-Length: 5\r\nContent-Length: 4\r\n\r\nhello", "HTTP/1.1 400"},
      {"a length and chunks",
       post + "Content-Length: 5\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", "HTTP/1.1 400"},
      {"a huge length", post + "Content-Length: 99999999999999999999\r\n\r\n", "HTTP/1.1 413"},
      {"an unknown transfer encoding", post + "Transfer-Encoding: gzip\r\n\r\n", "HTTP/1.1 501"},
      {"an encoded body", post + "Content-Encoding: gzip\r\nContent-Length: 5\r\n\r\nhello",
       "HTTP/1.1 415"},
      {"multipart form data",
       post + "Content-Type: multipart/form-data\r\nContent-Length: 5\r\n\r\nhello",
       "HTTP/1.1 415"},
      {"malformed chunks", post + "Transfer-Encoding: chunked\r\n\r\nzz\r\n", "HTTP/1.1 400"},
      {"a GET with a body", "GET /header HTTP/1.1\r\nContent-Length: 5\r\n\r\nhello",
       "HTTP/1.1 400"},
      {"a handler that throws", "GET /throw HTTP/1.1\r\n\r\n", "HTTP/1.1 500"},
  };
}

TEST(HttpServer, RejectsInvalidRequestsAndServesTheNextClient) {
  const EchoServer server;
  for (const BadRequest& bad : badRequests()) {
    EXPECT_EQ(server.responseTo(bad.text).substr(0, bad.statusLine.size()), bad.statusLine)
        << bad.what;
    EXPECT_EQ(server.responseTo("GET /header HTTP/1.1\r\n\r\n").substr(0, 12), "HTTP/1.1 200")
        << bad.what;
  }
}

TEST(HttpServer, DoesNotParseARejectedBodyAsARequest) {
  const EchoServer server(shortLimits());
  RawConnection connection(server.port());
  ASSERT_TRUE(
      connection.send("POST /nothing HTTP/1.1\r\nContent-Length: 40\r\n\r\n"
                      "GET /header HTTP/1.1\r\nHost: localhost\r\n\r\n"));
  const std::string responses = connection.readToEnd();
  EXPECT_TRUE(connection.sawEnd());
  EXPECT_EQ(responses.substr(0, 12), "HTTP/1.1 404");
  EXPECT_EQ(responses.find("HTTP/1.1", 12), std::string::npos) << responses;
}

TEST(HttpServer, LimitsChunkedBodies) {
  HttpLimits limits;
  limits.bodyBytes = 10;
  const EchoServer server(limits);
  EXPECT_EQ(server
                .responseTo("POST /size HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n"
                            "6\r\nabcdef\r\n6\r\nabcdef\r\n0\r\n\r\n")
                .substr(0, 12),
            "HTTP/1.1 413");
}

TEST(HttpServer, ClosesConnectionsWithAnEndlessHead) {
  HttpLimits limits;
  limits.headBytes = 1000;
  const EchoServer server(limits);
  RawConnection connection(server.port());
  connection.send("GET /header HTTP/1.1\r\n");
  for (int i = 0; i < 100; ++i) {
    if (!connection.send("X-More: " + std::to_string(i) + "\r\n")) break;
  }
  connection.readToEnd();
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, ClosesConnectionsWithAnEndlessChunkSize) {
  HttpLimits limits;
  limits.bodyBytes = 10;
  limits.headBytes = 1000;
  const EchoServer server(limits);
  RawConnection connection(server.port());
  ASSERT_TRUE(connection.send("POST /size HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n"));
  for (int i = 0; i < 100; ++i) {
    if (!connection.send(std::string(100, '0'))) break;
  }
  connection.readToEnd();
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, ClosesIdleConnections) {
  const EchoServer server(shortLimits());
  RawConnection connection(server.port());
  EXPECT_EQ(connection.readToEnd(), "");
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, ClosesConnectionsThatStallInsideARequest) {
  const EchoServer server(shortLimits());
  RawConnection connection(server.port());
  ASSERT_TRUE(connection.send("POST /size HTTP/1.1\r\nContent-Length: 100\r\n\r\nhello"));
  connection.readToEnd();
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, ClosesSlowConnectionsAtTheRequestTimeLimit) {
  HttpLimits limits = shortLimits();
  limits.silence = milliseconds(10'000);
  const EchoServer server(limits);
  RawConnection connection(server.port());
  connection.send("POST /size HTTP/1.1\r\nContent-Length: 16000000\r\n\r\n");
  // The body stays incomplete within the limit; the server gives up although bytes keep arriving.
  while (connection.send("x")) {
  }
  connection.readToEnd();
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, StopClosesIdleConnectionsImmediately) {
  HttpLimits limits;
  limits.idle = milliseconds(3'600'000);
  EchoServer server(limits);
  RawConnection connection(server.port());
  ASSERT_TRUE(connection.send("GET /header HTTP/1.1\r\n\r\n"));
  ASSERT_EQ(connection.readUntil(">").substr(0, 12), "HTTP/1.1 200");
  server.server().stopServing();
  EXPECT_EQ(connection.readToEnd(), "");
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, StopClosesUnfinishedRequests) {
  HttpLimits limits;
  limits.silence = milliseconds(3'600'000);
  limits.request = milliseconds(3'600'000);
  limits.stopGrace = milliseconds(20);
  EchoServer server(limits);
  RawConnection connection(server.port());
  ASSERT_TRUE(
      connection.send("POST /size HTTP/1.1\r\nContent-Length: 9\r\nExpect: 100-continue\r\n"
                      "\r\n"));
  // The server has begun to read the body.
  ASSERT_EQ(connection.readUntil(kHeadEnd).substr(0, 12), "HTTP/1.1 100");
  server.server().stopServing();
  connection.readToEnd();
  EXPECT_TRUE(connection.sawEnd());
}

TEST(HttpServer, QueuesConnectionsWhenAllThreadsAreBusy) {
  HttpLimits limits = shortLimits();
  limits.threads = 2;
  const EchoServer server(limits);
  std::vector<std::unique_ptr<RawConnection>> connections;
  for (int i = 0; i < 8; ++i) {
    connections.push_back(std::make_unique<RawConnection>(server.port()));
    ASSERT_TRUE(connections.back()->send("GET /header HTTP/1.1\r\n\r\n"));
  }
  for (const auto& connection : connections) {
    EXPECT_EQ(connection->readUntil(">").substr(0, 12), "HTTP/1.1 200");
  }
}

TEST(HttpServer, DelaysConnectionsAboveTheLimit) {
  HttpLimits limits;
  limits.connections = 1;
  const EchoServer server(limits);
  auto first = std::make_unique<RawConnection>(server.port());
  ASSERT_TRUE(first->send("GET /header HTTP/1.1\r\n\r\n"));
  ASSERT_EQ(first->readUntil(">").substr(0, 12), "HTTP/1.1 200");
  RawConnection second(server.port());
  ASSERT_TRUE(second.send("GET /header HTTP/1.1\r\n\r\n"));
  first.reset();
  EXPECT_EQ(second.readUntil(">").substr(0, 12), "HTTP/1.1 200");
}

TEST(HttpServer, ReportsAPortInUse) {
  const EchoServer server;
  HttpServer second;
  const Done started = second.start("127.0.0.1", server.port());
  ASSERT_FALSE(started);
  EXPECT_EQ(started.error().text, "cannot listen on 127.0.0.1 port " +
                                      std::to_string(server.port()) +
                                      ": the port is already in use");
}

TEST(HttpServer, ReportsAnAddressOfAnotherMachine) {
  HttpServer server;
  const Done started = server.start("192.0.2.1", 0);
  ASSERT_FALSE(started);
  EXPECT_NE(started.error().text.find("cannot listen on 192.0.2.1 port 0"), std::string::npos);
}

}  // namespace
}  // namespace jx
