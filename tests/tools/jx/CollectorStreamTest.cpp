// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <chrono>

#include "tests/tools/jx/CollectorFixture.h"

namespace jx {
namespace {

constexpr const char* kArmed = "data: {\"armed\":null,\"met\":0}\n\n";

// Reads a stream in parts. Bytes after the last part stay in the buffer.
class StreamReader {
 public:
  explicit StreamReader(int port) : connection_(std::make_unique<RawConnection>(port)) {}

  bool send(const std::string& request) { return connection_->send(request); }
  /// Returns the input up to and including the mark, or all of it when the stream ends first.
  std::string readUntil(const std::string& mark) {
    for (std::size_t at = buffer_.find(mark);; at = buffer_.find(mark)) {
      if (at != std::string::npos) return take(at + mark.size());
      const std::string more = connection_->readUntil("\n");
      if (more.empty()) return take(buffer_.size());
      buffer_ += more;
    }
  }
  bool receives(const std::string& mark) { return readUntil(mark).ends_with(mark); }
  bool endsNow() {
    connection_->readToEnd();
    return connection_->sawEnd();
  }

 private:
  std::string take(std::size_t size) {
    std::string taken = buffer_.substr(0, size);
    buffer_.erase(0, size);
    return taken;
  }

  std::unique_ptr<RawConnection> connection_;
  std::string buffer_;
};

class CollectorStream : public CollectorFixture {
 protected:
  CollectorStream()
      : CollectorFixture([](CollectorSettings& settings) {
          settings.limits.waiting = 2;
          settings.limits.silence = std::chrono::milliseconds(300);
          settings.live.heartbeat = std::chrono::milliseconds(50);
          settings.live.pause = std::chrono::milliseconds(1);
        }) {}

  StreamReader begun(const std::string& rest = "", const std::string& headers = "") const {
    StreamReader stream(server_->webPort());
    EXPECT_TRUE(stream.send(streamRequest(rest, headers)));
    EXPECT_TRUE(stream.receives(kArmed));
    return stream;
  }
};

TEST_F(CollectorStream, BeginsWithTheArmedFault) {
  StreamReader stream(server_->webPort());
  stream.send(streamRequest());
  const std::string begin = stream.readUntil(kArmed);
  EXPECT_EQ(begin.substr(0, 17), "HTTP/1.1 200 OK\r\n");
  EXPECT_NE(begin.find("Content-Type: text/event-stream\r\n"), std::string::npos);
  EXPECT_NE(begin.find("event: faults\n"), std::string::npos);
}

TEST_F(CollectorStream, SendsArrivalsWithTheirIdAndRow) {
  StreamReader stream = begun();
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  const std::string received = stream.readUntil("\"event_id\":\"e-1\"");
  EXPECT_NE(received.find("id: 1\nevent: arrival\ndata: {\"id\":1,"), std::string::npos)
      << received;
  EXPECT_NE(received.find("\"name\":\"login\",\"class\":\"JXLoginEvent\",\"good\":true"),
            std::string::npos);
}

TEST_F(CollectorStream, StartsAfterTheGivenRow) {
  for (const char* id : {"e-1", "e-2", "e-3"})
    ASSERT_EQ(send(namedBody("login", id)), 200);
  const std::string first = begun("?after=1").readUntil("\"event_id\":\"e-3\"");
  EXPECT_EQ(first.find("e-1"), std::string::npos);
  EXPECT_NE(first.find("\"event_id\":\"e-2\""), std::string::npos);
  const std::string second =
      begun("?after=0", "Last-Event-ID: 2\r\n").readUntil("\"event_id\":\"e-3\"");
  EXPECT_EQ(second.find("e-2"), std::string::npos);
}

TEST_F(CollectorStream, StartsWithNewEventsByDefault) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  StreamReader stream = begun();
  ASSERT_EQ(send(namedBody("login", "e-2")), 200);
  const std::string received = stream.readUntil("\"event_id\":\"e-2\"");
  EXPECT_EQ(received.find("e-1"), std::string::npos);
  EXPECT_NE(received.find("e-2"), std::string::npos);
}

TEST_F(CollectorStream, SendsRepeatsResetsAndFaults) {
  StreamReader stream = begun();
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  EXPECT_TRUE(stream.receives("event: repeat\ndata: {\"id\":1,\"repeats\":1}\n\n"));
  ASSERT_EQ(post("/api/reset", "{}").status, 200);
  EXPECT_TRUE(stream.receives("event: reset\ndata: {\"last\":1}\n\n"));
  ASSERT_EQ(post("/api/faults", R"({"next":1,"status":503})").status, 200);
  EXPECT_TRUE(stream.receives("event: faults\ndata: {\"armed\":{\"next\":1,"));
  ASSERT_EQ(send(namedBody("login", "e-2")), 503);
  EXPECT_TRUE(stream.receives("event: faults\ndata: {\"armed\":null,\"met\":1}\n\n"));
  ASSERT_EQ(send(namedBody("login", "e-3")), 200);
  EXPECT_TRUE(stream.receives("\"event_id\":\"e-3\""));
}

TEST_F(CollectorStream, SendsMoreArrivalsThanFitIntoOnePart) {
  constexpr int kEvents = 1200;  // more than fit into one part
  std::string lines;
  for (int i = 0; i < kEvents; ++i)
    lines += R"({"received_ms":1,"body":"{}"})"
             "\n";
  ASSERT_EQ(post("/api/import", lines).status, 200);
  const std::string received = begun("?after=0").readUntil("id: 1200\nevent");
  std::size_t count = 0;
  for (std::size_t at = received.find("\nid: "); at != std::string::npos;
       at = received.find("\nid: ", at + 1))
    ++count;
  EXPECT_GE(count, 1199u);
}

TEST_F(CollectorStream, SendsHeartbeatsOnASilentStream) {
  StreamReader stream = begun();
  EXPECT_TRUE(stream.receives(":\n\n"));
  EXPECT_TRUE(stream.receives(":\n\n"));
}

TEST_F(CollectorStream, LimitsTheNumberOfWaitingResponses) {
  const StreamReader first = begun();
  {
    const StreamReader second = begun();
    const auto third = get("/api/wait?count=1&timeout=0");
    EXPECT_EQ(third.status, 503);
    EXPECT_NE(third.headers.find("Retry-After: 5"), std::string::npos);
  }
  // The second client has disconnected, which the server must detect without sending anything.
  long status = 503;
  for (int i = 0; i < 100'000 && status == 503; ++i)
    status = get("/api/wait?count=1&timeout=0").status;
  EXPECT_EQ(status, 200);
}

TEST_F(CollectorStream, EndsWhenTheCollectorStops) {
  StreamReader stream = begun();
  server_.reset();
  EXPECT_TRUE(stream.endsNow());
}

TEST_F(CollectorStream, DisconnectsClientsThatDoNotRead) {
  RawConnection connection(server_->webPort());
  connection.send(streamRequest("?after=0"));
  // Far more than fits into the buffers of both ends.
  const std::string line =
      R"({"received_ms":1,"body":"{\"event_name\":\")" + std::string(400, 'x') + R"(\"}"})";
  std::string lines;
  for (int i = 0; i < 20'000; ++i)
    lines += line + "\n";
  ASSERT_EQ(post("/api/import", lines).status, 200);
  // Both slots are in use until the client is disconnected.
  const StreamReader second = begun();
  long status = 503;
  for (int i = 0; i < 100'000 && status == 503; ++i)
    status = get("/api/wait?count=1&timeout=0").status;
  EXPECT_EQ(status, 200);
}

TEST_F(CollectorStream, RejectsInvalidParameters) {
  EXPECT_EQ(get("/api/stream?after=x").status, 400);
  EXPECT_EQ(get("/api/stream", {"Last-Event-ID: x"}).status, 400);
}

TEST_F(CollectorStream, WaitReturnsWhenEnoughEventsHaveArrived) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  RawConnection waiting(server_->webPort());
  waiting.send("GET /api/wait?count=2&timeout=60&name=login HTTP/1.1\r\nHost: localhost\r\n\r\n");
  ASSERT_EQ(send(namedBody("quiz", "e-2")), 200);
  ASSERT_EQ(send(namedBody("login", "e-3")), 200);
  const std::string response = waiting.readUntil("\"complete\":");
  EXPECT_NE(response.find("\"event_id\":\"e-1\""), std::string::npos);
  EXPECT_NE(response.find("\"event_id\":\"e-3\""), std::string::npos);
  EXPECT_EQ(response.find("e-2"), std::string::npos);
  const rapidjson::Document complete = json("/api/wait?count=2&name=login&timeout=0");
  EXPECT_TRUE(complete["complete"].GetBool());
  EXPECT_EQ(complete["last"].GetInt64(), 3);
}

TEST_F(CollectorStream, WaitReturnsPartialResultsOnTimeout) {
  ASSERT_EQ(send(namedBody("login", "e-1")), 200);
  const rapidjson::Document some = json("/api/wait?count=2&timeout=0");
  EXPECT_FALSE(some["complete"].GetBool());
  EXPECT_EQ(some["events"].Size(), 1u);
  EXPECT_EQ(some["last"].GetInt64(), 1);
  const rapidjson::Document none = json("/api/wait?count=1&timeout=0&after=1");
  EXPECT_EQ(none["events"].Size(), 0u);
  EXPECT_EQ(none["last"].GetInt64(), 1);
  for (const char* query : {"count=0", "count=1001", "count=x", "timeout=301", "timeout=-1"})
    EXPECT_EQ(get(std::string("/api/wait?") + query).status, 400) << query;
}

TEST_F(CollectorStream, WaitEndsWhenTheCollectorStops) {
  RawConnection waiting(server_->webPort());
  waiting.send("GET /api/wait?timeout=300 HTTP/1.1\r\nHost: localhost\r\n\r\n");
  // The response to a later request shows that the server has received the first one.
  ASSERT_EQ(get("/api/wait?timeout=0").status, 200);
  server_.reset();
  waiting.readToEnd();
  EXPECT_TRUE(waiting.sawEnd());
}

}  // namespace
}  // namespace jx
