// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventSink.h"

#include <gtest/gtest.h>

#include <functional>
#include <future>
#include <mutex>
#include <stdexcept>

#include "tests/tools/jx/CollectorFixture.h"

namespace jx {
namespace {

// Records the events and returns the result of `react`.
class RecordingSink final : public EventSink {
 public:
  struct Seen {
    std::int64_t id;
    std::string query;
    std::string body;
    std::string eventId;
    bool isValid;
  };

  Done accept(const AcceptedEvent& event) override {
    std::function<Done()> react;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      seen_.push_back({event.id, event.request.query, event.request.body,
                       event.validation.metadata.eventID.value_or(""), event.validation.isValid()});
      react = react_;
    }
    return react ? react() : done();
  }
  void react(std::function<Done()> react) {
    const std::lock_guard<std::mutex> lock(mutex_);
    react_ = std::move(react);
  }
  std::vector<Seen> seen() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return seen_;
  }

 private:
  mutable std::mutex mutex_;
  std::function<Done()> react_;
  std::vector<Seen> seen_;
};

class CollectorSink : public CollectorFixture {
 protected:
  explicit CollectorSink(bool isStrict = false)
      : CollectorSink(std::make_shared<RecordingSink>(), isStrict) {}

  HttpsClient::Response respond(const std::string& body) {
    return client().post(eventsUrl(), body);
  }
  std::int64_t count(const char* what) const { return json("/api/summary")[what].GetInt64(); }

  const std::shared_ptr<RecordingSink> sink_;

 private:
  CollectorSink(std::shared_ptr<RecordingSink> sink, bool isStrict)
      : CollectorFixture([&](CollectorSettings& settings) {
          settings.sink = sink;
          settings.isStrict = isStrict;
        }),
        sink_(sink) {}
};

class StrictCollectorSink : public CollectorSink {
 protected:
  StrictCollectorSink() : CollectorSink(true) {}
};

TEST_F(CollectorSink, ReceivesRequestAndValidationResult) {
  const std::string valid = namedBody("play", "e-1");
  EXPECT_EQ(send(valid), 200);
  EXPECT_EQ(send("not JSON"), 200);
  const std::vector<RecordingSink::Seen> seen = sink_->seen();
  ASSERT_EQ(seen.size(), 2u);
  EXPECT_EQ(seen[0].id, 1);
  EXPECT_EQ(seen[0].query, "jx_s=7&token=key");
  EXPECT_EQ(seen[0].body, valid);
  EXPECT_EQ(seen[0].eventId, "e-1");
  EXPECT_EQ(seen[1].id, 2);
  EXPECT_EQ(seen[1].body, "not JSON");
  EXPECT_FALSE(seen[1].isValid);
}

TEST_F(CollectorSink, IsCalledAfterTheEventWasStoredAndBeforeTheResponse) {
  struct DuringCall {
    std::int64_t stored;
    std::future_status response;
  };
  // Shared, because `get` of any other future changes it while the sink reads it.
  std::shared_future<long> response;
  std::promise<void> started;
  // A promise, because the response orders the two threads only through the HTTP library, which the
  // thread sanitizer does not see.
  std::promise<DuringCall> duringCall;
  sink_->react([&] {
    started.get_future().wait();  // `response` is set
    const std::int64_t stored = count("events");
    duringCall.set_value({stored, response.wait_for(std::chrono::milliseconds(100))});
    return done();
  });
  response =
      std::async(std::launch::async, [this] { return send(namedBody("play", "e-1")); }).share();
  started.set_value();
  EXPECT_EQ(response.get(), 200);
  ASSERT_EQ(sink_->seen().size(), 1u);
  const DuringCall seen = duringCall.get_future().get();
  EXPECT_EQ(seen.stored, 1);
  EXPECT_EQ(seen.response, std::future_status::timeout);
}

TEST_F(CollectorSink, FailureMakesTheResponse503WithRetryAfter) {
  sink_->react([] { return Done(Error{"queue is full"}); });
  const HttpsClient::Response response = respond(namedBody("play", "e-1"));
  EXPECT_EQ(response.status, 503);
  EXPECT_NE(response.headers.find("Retry-After: 5\r\n"), std::string::npos) << response.headers;
  EXPECT_EQ(response.body, "");
  EXPECT_EQ(count("events"), 1) << "the event stays stored";
}

TEST_F(CollectorSink, ExceptionMakesTheResponse503) {
  sink_->react([]() -> Done { throw std::runtime_error("broken"); });
  EXPECT_EQ(send(namedBody("play", "e-1")), 503);
  sink_->react([]() -> Done { throw 1; });
  EXPECT_EQ(send(namedBody("play", "e-1")), 503);
  sink_->react(nullptr);
  EXPECT_EQ(send(namedBody("play", "e-1")), 200);
}

TEST_F(CollectorSink, ReceivesARepeatAgainWithTheSameId) {
  sink_->react([] { return Done(Error{"queue is full"}); });
  EXPECT_EQ(send(namedBody("play", "e-1")), 503);
  sink_->react(nullptr);
  EXPECT_EQ(send(namedBody("play", "e-1")), 200);
  EXPECT_EQ(send(namedBody("play", "e-2")), 200);
  const std::vector<RecordingSink::Seen> seen = sink_->seen();
  ASSERT_EQ(seen.size(), 3u);
  EXPECT_EQ(seen[0].id, 1);
  EXPECT_EQ(seen[1].id, 1);
  EXPECT_EQ(seen[2].id, 2);
  EXPECT_EQ(count("events"), 2);
  EXPECT_EQ(count("repeats"), 1);
}

TEST_F(CollectorSink, DoesNotReceiveEventsThatAFaultRejects) {
  ASSERT_EQ(post("/api/faults", R"({"status":503})").status, 200);
  EXPECT_EQ(send(namedBody("play", "e-1")), 503);
  EXPECT_TRUE(sink_->seen().empty());
}

TEST_F(CollectorSink, FailureIsNotHiddenByAFaultAndHasOneRetryAfter) {
  sink_->react([] { return Done(Error{"queue is full"}); });
  ASSERT_EQ(post("/api/faults", R"({"status":204,"retry_after":"60"})").status, 200);
  const HttpsClient::Response response = respond(namedBody("play", "e-1"));
  EXPECT_EQ(response.status, 503);
  EXPECT_NE(response.headers.find("Retry-After: 60\r\n"), std::string::npos) << response.headers;
  EXPECT_EQ(response.headers.find("Retry-After: 5\r\n"), std::string::npos) << response.headers;
}

TEST_F(StrictCollectorSink, DoesNotReceiveEventsThatStrictModeRejects) {
  EXPECT_EQ(send("not JSON"), 422);
  EXPECT_TRUE(sink_->seen().empty());
}

}  // namespace
}  // namespace jx
