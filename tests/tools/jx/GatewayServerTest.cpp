// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayServer.h"

#include <gtest/gtest.h>

#include <condition_variable>
#include <deque>
#include <future>
#include <mutex>
#include <regex>

#include "tests/support/RawConnection.h"

namespace jx {
namespace {

using std::chrono::milliseconds;

constexpr const char* kHeadEnd = "\r\n\r\n";
const std::string kEvent = "POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 4\r\n\r\nabcd";

// Answers 204, or keeps the requests until the test answers them.
class GatewayServerTest : public testing::Test {
 protected:
  // The threads of the server use the members below.
  ~GatewayServerTest() override {
    if (server_) server_->stop();
  }

  struct Pending {
    HttpRequest request;
    Respond respond;
  };

  void start(GatewayLimits limits = {}, unsigned threads = 2) {
    Result<std::unique_ptr<GatewayServer>> started = GatewayServer::start(
        "127.0.0.1", 0, threads, nullptr, limits,
        [this](HttpRequest request, Respond respond) { take(std::move(request), respond); },
        [this](const GatewayExchange& exchange) { note(exchange); });
    ASSERT_TRUE(started) << started.error().text;
    server_ = std::move(*started);
  }
  void keepRequests() { keeps_ = true; }
  Pending next() {
    std::unique_lock<std::mutex> lock(mutex_);
    arrived_.wait(lock, [&] { return !pending_.empty(); });
    Pending result = std::move(pending_.front());
    pending_.pop_front();
    return result;
  }
  RawConnection connect() const { return RawConnection(server_->port()); }
  std::string responseTo(const std::string& bytes) const {
    RawConnection connection(server_->port());
    connection.send(bytes);
    return connection.readUntil(kHeadEnd);
  }
  std::vector<std::string> noted() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return noted_;
  }

  std::unique_ptr<GatewayServer> server_;

 private:
  void take(HttpRequest request, const Respond& respond) {
    if (!keeps_) return respond({});
    const std::lock_guard<std::mutex> lock(mutex_);
    pending_.push_back({std::move(request), respond});
    arrived_.notify_all();
  }

  void note(const GatewayExchange& exchange) {
    const std::lock_guard<std::mutex> lock(mutex_);
    noted_.push_back(std::to_string(exchange.status) + " " + std::string(nameOf(exchange.refusal)));
  }

  std::atomic<bool> keeps_{false};
  std::mutex mutex_;
  std::condition_variable arrived_;
  std::deque<Pending> pending_;
  std::vector<std::string> noted_;
};

GatewayResponse responseOf(int status, const std::string& body = "") {
  GatewayResponse response;
  response.status = status;
  response.body = body;
  if (!body.empty()) response.contentType = "text/plain";
  return response;
}

// Each response has an ID, which differs.
std::string withoutIds(const std::string& text) {
  EXPECT_NE(text.find("X-Request-ID: "), std::string::npos) << text;
  return std::regex_replace(text, std::regex("X-Request-ID: [0-9a-f]{16}-[0-9]+\r\n"), "");
}

TEST_F(GatewayServerTest, ReportsEachResponse) {
  start();
  responseTo(kEvent);
  responseTo("GET / HTTP/1.1\r\n\r\n");
  responseTo("POST / HTTP/1.1\r\nHost: a\r\nContent-Length: 9000000\r\n\r\n");
  responseTo("GET / HTTP/1.1\r\nHost: a\r\nA: " + std::string(20'000, 'a'));
  responseTo("POST / HTTP/1.1\r\nHost: a\r\nTransfer-Encoding: chunked\r\n\r\n");
  responseTo("GET / HTTP/3.0\r\nHost: a\r\n\r\n");
  EXPECT_EQ(noted(), (std::vector<std::string>{"204 ", "400 bad_request", "413 body_too_large",
                                               "431 head_too_large", "411 length_required",
                                               "505 unsupported_version"}));
}

TEST_F(GatewayServerTest, KeepsTheRequestIdOfTheClient) {
  start();
  keepRequests();
  const auto request = [](const std::string& id) {
    return "GET / HTTP/1.1\r\nHost: a\r\nX-Request-ID: " + id + "\r\n\r\n";
  };
  RawConnection connection(server_->port());
  connection.send(request("abc-1.2_X"));
  Pending pending = next();
  EXPECT_EQ(pending.request.requestId, "abc-1.2_X");
  pending.respond({});
  EXPECT_EQ(connection.readUntil(kHeadEnd),
            "HTTP/1.1 204 No Content\r\nX-Request-ID: abc-1.2_X\r\n\r\n");
  for (const std::string& id : {std::string("a b"), std::string(65, 'a'), std::string("a\"")}) {
    connection.send(request(id));
    pending = next();
    EXPECT_NE(pending.request.requestId, id);
    pending.respond({});
    EXPECT_EQ(withoutIds(connection.readUntil(kHeadEnd)), "HTTP/1.1 204 No Content\r\n\r\n");
  }
}

TEST_F(GatewayServerTest, SendsNoBodyForHead) {
  start();
  keepRequests();
  RawConnection connection(server_->port());
  connection.send("HEAD / HTTP/1.1\r\nHost: a\r\nConnection: close\r\n\r\n");
  next().respond(responseOf(200, "body"));
  EXPECT_EQ(withoutIds(connection.readToEnd()),
            "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\nContent-Length: 4\r\n"
            "Connection: close\r\n\r\n");
}

TEST_F(GatewayServerTest, AnswersARequest) {
  start();
  EXPECT_EQ(withoutIds(responseTo(kEvent)), "HTTP/1.1 204 No Content\r\n\r\n");
}

TEST_F(GatewayServerTest, ServesSeveralRequestsOfAConnectionInOrder) {
  start();
  keepRequests();
  RawConnection connection(server_->port());
  connection.send(kEvent +
                  "POST /events HTTP/1.1\r\nHost: a\r\nConnection: close\r\n"
                  "Content-Length: 0\r\n\r\n");
  GatewayResponse first = responseOf(200, "one");
  first.headers = {{"X-A", "1"}};
  next().respond(first);
  GatewayResponse second = responseOf(503);
  second.headers = {{"Retry-After", "5"}};
  next().respond(second);
  EXPECT_EQ(withoutIds(connection.readToEnd()),
            "HTTP/1.1 200 OK\r\nX-A: 1\r\nContent-Type: text/plain\r\nContent-Length: 3\r\n\r\none"
            "HTTP/1.1 503 Service Unavailable\r\nRetry-After: 5\r\nContent-Length: 0\r\n"
            "Connection: close\r\n\r\n");
}

TEST_F(GatewayServerTest, RejectsAndClosesWhatItCannotRead) {
  start();
  RawConnection connection(server_->port());
  connection.send("POST /events HTTP/1.1\r\nHost: a\r\nTransfer-Encoding: chunked\r\n\r\n" +
                  std::string(100'000, 'x'));
  EXPECT_EQ(withoutIds(connection.readToEnd()),
            "HTTP/1.1 411 Length Required\r\nContent-Length: 0\r\nConnection: close\r\n\r\n");
  EXPECT_TRUE(connection.sawEnd());
}

TEST_F(GatewayServerTest, ASecondAnswerIsIgnored) {
  start();
  keepRequests();
  RawConnection connection(server_->port());
  connection.send(kEvent);
  const Pending first = next();
  first.respond(responseOf(200));
  EXPECT_NE(connection.readUntil(kHeadEnd).find(" 200 "), std::string::npos);
  first.respond(responseOf(400));
  connection.send(kEvent);
  const Pending second = next();
  first.respond(responseOf(400));
  second.respond(responseOf(204));
  EXPECT_NE(connection.readUntil(kHeadEnd).find(" 204 "), std::string::npos);
}

TEST_F(GatewayServerTest, AnAnswerForAClientThatHasGoneIsIgnored) {
  start();
  keepRequests();
  {
    RawConnection connection(server_->port());
    connection.send(kEvent);
  }
  next().respond({});
  RawConnection second(server_->port());
  second.send(kEvent);
  next().respond({});
  EXPECT_EQ(withoutIds(second.readUntil(kHeadEnd)), "HTTP/1.1 204 No Content\r\n\r\n");
}

TEST_F(GatewayServerTest, SendsContinueBeforeTheBody) {
  start();
  RawConnection connection(server_->port());
  connection.send(
      "POST /events HTTP/1.1\r\nHost: a\r\nExpect: 100-continue\r\nContent-Length: 4\r\n\r\n");
  EXPECT_EQ(connection.readUntil(kHeadEnd), "HTTP/1.1 100 Continue\r\n\r\n");
  connection.send("abcd");
  EXPECT_EQ(withoutIds(connection.readUntil(kHeadEnd)), "HTTP/1.1 204 No Content\r\n\r\n");
}

TEST_F(GatewayServerTest, ClosesIdleAndSlowConnections) {
  GatewayLimits limits;
  limits.idle = limits.request = milliseconds(50);
  start(limits);
  RawConnection idle(server_->port());
  EXPECT_EQ(idle.readToEnd(), "");
  RawConnection slow(server_->port());
  slow.send("POST /events HTTP/1.1\r\nHost: a\r\nContent-Le");
  EXPECT_EQ(slow.readToEnd(), "");
  EXPECT_TRUE(slow.sawEnd());
}

TEST_F(GatewayServerTest, AClientThatNeverReadsIsClosed) {
  GatewayLimits limits;
  limits.response = milliseconds(50);
  start(limits, 1);
  keepRequests();
  RawConnection connection(server_->port());
  connection.send(kEvent);
  next().respond(responseOf(200, std::string(64 * 1024 * 1024, 'a')));
  while (server_->usage().connections != 0)
    std::this_thread::yield();
  EXPECT_EQ(server_->usage().bytesInFlight, 0u);
}

TEST_F(GatewayServerTest, LimitsTheTimeOfAnEndlessRequest) {
  GatewayLimits limits;
  limits.request = milliseconds(300);
  limits.bodyBytes = std::size_t{1} << 30;
  start(limits, 1);
  RawConnection endless(server_->port());
  endless.send("POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 1073741824\r\n\r\n");
  auto sending = std::async(std::launch::async, [&] {
    const std::string part(1024 * 1024, 'a');
    while (endless.send(part)) {
    }
  });
  EXPECT_EQ(withoutIds(responseTo(kEvent)), "HTTP/1.1 204 No Content\r\n\r\n");
  sending.get();
  while (server_->usage().connections > 1)
    std::this_thread::yield();
}

TEST_F(GatewayServerTest, LimitsConnections) {
  GatewayLimits limits;
  limits.connections = 1;
  start(limits, 1);
  RawConnection first(server_->port());
  first.send(kEvent);
  EXPECT_NE(first.readUntil(kHeadEnd), "");
  RawConnection second(server_->port());
  EXPECT_EQ(second.readToEnd(), "");
  EXPECT_EQ(server_->usage().refusedConnections, 1u);
}

TEST_F(GatewayServerTest, LimitsTheBytesInFlight) {
  GatewayLimits limits;
  limits.bytesInFlight = 10'000;
  start(limits, 1);
  RawConnection large(server_->port());
  large.send("POST /events HTTP/1.1\r\nHost: a\r\nContent-Length: 50000\r\n\r\n" +
             std::string(30'000, 'a'));
  const std::string response = large.readUntil(kHeadEnd);
  EXPECT_EQ(response.substr(0, 12), "HTTP/1.1 503");
  EXPECT_NE(response.find("\r\nRetry-After: 5\r\n"), std::string::npos);
  EXPECT_EQ(noted(), std::vector<std::string>{"503 memory"});
}

TEST_F(GatewayServerTest, DrainAnswersWhatIsInFlight) {
  start({}, 1);
  keepRequests();
  RawConnection idle(server_->port());
  idle.send("\r\n");
  RawConnection waiting(server_->port());
  waiting.send(kEvent);
  const Pending pending = next();
  auto drained = std::async(std::launch::async, [&] { return server_->drain(); });
  EXPECT_EQ(idle.readToEnd(), "");
  pending.respond({});
  EXPECT_EQ(withoutIds(waiting.readToEnd()),
            "HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n");
  EXPECT_TRUE(drained.get());
}

TEST_F(GatewayServerTest, DrainEndsAfterItsTimeLimit) {
  GatewayLimits limits;
  limits.drain = milliseconds(50);
  start(limits);
  keepRequests();
  RawConnection waiting(server_->port());
  waiting.send(kEvent);
  const Pending pending = next();
  EXPECT_FALSE(server_->drain());
}

TEST_F(GatewayServerTest, DrainAnswersAllRequestsThoughAClientSendsPartOfOne) {
  GatewayLimits limits;
  limits.drain = milliseconds(50);
  start(limits, 1);
  RawConnection slow(server_->port());
  slow.send("POST /events HTTP/1.1\r\nHost: a\r\nContent-Le");
  EXPECT_NE(responseTo(kEvent), "");
  EXPECT_TRUE(server_->drain());
}

TEST(GatewayServerStart, ReportsAnAddressThatCannotBeUsed) {
  const auto handler = [](HttpRequest, const Respond&) {};
  const auto observer = [](const GatewayExchange&) {};
  EXPECT_EQ(GatewayServer::start("localhost", 0, 1, nullptr, {}, handler, observer).error().text,
            "not an IP address: localhost");
  const auto used = GatewayServer::start("127.0.0.1", 0, 1, nullptr, {}, handler, observer);
  ASSERT_TRUE(used);
  EXPECT_EQ(GatewayServer::start("203.0.113.1", 0, 1, nullptr, {}, handler, observer).error().text,
            "cannot listen on 203.0.113.1 port 0: Cannot assign requested address");
}

}  // namespace
}  // namespace jx
