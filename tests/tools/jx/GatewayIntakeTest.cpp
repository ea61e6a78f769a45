// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/GatewayIntake.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace jx {
namespace {

// Keeps the entries and reports `result` for each.
class RecordingLog final : public EventLog {
 public:
  void append(const LogEntry& entry, Stored stored) override {
    entries.push_back(entry);
    stored(result);
  }
  bool isReady() const override { return true; }

  std::vector<LogEntry> entries;
  LogResult result{true, false, ""};
};

constexpr const char* kBody = R"({"event_name":"play","context":{"event_id":"e-1"}})";

class GatewayIntakeTest : public testing::Test {
 protected:
  GatewayResponse respond(GatewayIntake& intake, const std::string& query,
                          const std::string& body = kBody, const std::string& path = "/events",
                          const std::string& method = "POST") {
    std::optional<GatewayResponse> response;
    HttpRequest request;
    request.method = method;
    request.path = path;
    request.query = query;
    request.body = body;
    intake.handle(std::move(request), [&](GatewayResponse sent) { response = std::move(sent); });
    return response.value();
  }

  static IntakeSettings allowing(AllowedSources sources) {
    IntakeSettings settings;
    settings.allowed = std::move(sources);
    return settings;
  }

  RecordingLog log_;
  GatewayMetrics metrics_;
};

TEST_F(GatewayIntakeTest, StoresAnEventUnderItsSiteAndName) {
  GatewayIntake intake(log_, {}, metrics_);
  EXPECT_EQ(respond(intake, "jx_s=7&token=key").status, 204);
  ASSERT_EQ(log_.entries.size(), 1u);
  EXPECT_EQ(log_.entries[0].site, "7");
  EXPECT_EQ(log_.entries[0].name, "play");
  EXPECT_EQ(log_.entries[0].eventId, "e-1");
  EXPECT_EQ(log_.entries[0].body, kBody);
  EXPECT_EQ(metrics_.accepted, 1u);
  EXPECT_EQ(metrics_.duplicates, 0u);
}

TEST_F(GatewayIntakeTest, AnswersARepeatAsStored) {
  GatewayIntake intake(log_, {}, metrics_);
  log_.result.isRepeat = true;
  EXPECT_EQ(respond(intake, "jx_s=7&token=key").status, 204);
  EXPECT_EQ(metrics_.accepted, 1u);
  EXPECT_EQ(metrics_.duplicates, 1u);
}

TEST_F(GatewayIntakeTest, AnswersThatTheTelevisionKeepsWhatIsNotStored) {
  GatewayIntake intake(log_, {}, metrics_);
  log_.result = {false, false, "no quorum"};
  const GatewayResponse response = respond(intake, "jx_s=7&token=key");
  EXPECT_EQ(response.status, 503);
  ASSERT_EQ(response.headers.size(), 1u);
  EXPECT_EQ(response.headers[0].first, "Retry-After");
  EXPECT_EQ(response.headers[0].second, "5");
  EXPECT_EQ(response.refusal, Refusal::BrokerRefused);
  EXPECT_EQ(response.error, "no quorum");
  EXPECT_EQ(response.site, "7");
  EXPECT_EQ(metrics_.accepted, 0u);
}

TEST_F(GatewayIntakeTest, StoresAnyBody) {
  GatewayIntake intake(log_, {}, metrics_);
  for (const char* const body : {"", "not JSON", "[]", R"({"event_name":7})"})
    EXPECT_EQ(respond(intake, "", body).status, 204) << body;
  ASSERT_EQ(log_.entries.size(), 4u);
  EXPECT_EQ(log_.entries[1].site, "");
  EXPECT_EQ(log_.entries[1].name, "");
  EXPECT_EQ(log_.entries[1].eventId, "");
  EXPECT_EQ(log_.entries[1].body, "not JSON");
}

TEST_F(GatewayIntakeTest, AcceptsOnlyAllowedSources) {
  GatewayIntake intake(log_, allowing({{7, {"key", "other"}}}), metrics_);
  EXPECT_EQ(respond(intake, "jx_s=7&token=key").status, 204);
  EXPECT_EQ(respond(intake, "jx_s=7&token=other").status, 204);
  for (const char* const query :
       {"jx_s=7&token=wrong", "jx_s=8&token=key", "jx_s=7", "token=key", ""})
    EXPECT_EQ(respond(intake, query).status, 403) << query;
  EXPECT_EQ(respond(intake, "jx_s=8&token=key").refusal, Refusal::UnknownSource);
  EXPECT_EQ(respond(intake, "jx_s=8&token=key").site, "8");
  EXPECT_EQ(log_.entries.size(), 2u);
}

TEST_F(GatewayIntakeTest, RefusesOtherRequests) {
  GatewayIntake intake(log_, {}, metrics_);
  EXPECT_EQ(respond(intake, "jx_s=7", kBody, "/").status, 404);
  const GatewayResponse response = respond(intake, "jx_s=7", kBody, "/events", "GET");
  EXPECT_EQ(response.status, 405);
  EXPECT_EQ(response.headers.at(0).second, "POST");
  EXPECT_TRUE(log_.entries.empty());
  EXPECT_EQ(response.refusal, Refusal::WrongMethod);
}

TEST_F(GatewayIntakeTest, AllowsKeysThatTheUrlEncodes) {
  GatewayIntake intake(log_, allowing({{7, {"my key#", "raw%20"}}}), metrics_);
  for (const char* const token : {"my%20key%23", "my%20key#", "raw%20"})
    EXPECT_EQ(respond(intake, std::string("jx_s=7&token=") + token).status, 204) << token;
  for (const char* const token : {"my+key%23", "my%2", "my%20key%2", "my%2zkey"})
    EXPECT_EQ(respond(intake, std::string("jx_s=7&token=") + token).status, 403) << token;
}

TEST_F(GatewayIntakeTest, MeasuresOnlyWhatWasSentToTheBroker) {
  GatewayIntake intake(log_, {}, metrics_);
  for (const LogResult::Cause cause :
       {LogResult::Cause::Unavailable, LogResult::Cause::Full, LogResult::Cause::TooLarge}) {
    log_.result = {false, false, "", cause};
    respond(intake, "jx_s=7");
  }
  log_.result = {false, false, "", LogResult::Cause::Timeout};
  respond(intake, "jx_s=7");
  log_.result = {true, false, ""};
  respond(intake, "jx_s=7");
  std::string text;
  metrics_.acknowledgement.appendTo(text, "t");
  EXPECT_NE(text.find("t_count 2\n"), std::string::npos) << text;
}

TEST_F(GatewayIntakeTest, DoesNotAllowRequestsWithoutASite) {
  GatewayIntake intake(log_, allowing({{0, {"key"}}}), metrics_);
  EXPECT_EQ(respond(intake, "token=key").status, 403);
  EXPECT_EQ(respond(intake, "jx_s=0&token=key").status, 204);
}

TEST_F(GatewayIntakeTest, DistinguishesWhyAnEventIsNotStored) {
  GatewayIntake intake(log_, {}, metrics_);
  using Cause = LogResult::Cause;
  const std::vector<std::pair<Cause, Refusal>> expected = {
      {Cause::Unavailable, Refusal::BrokerUnavailable},
      {Cause::Timeout, Refusal::BrokerTimeout},
      {Cause::Refused, Refusal::BrokerRefused},
      {Cause::Full, Refusal::TooManyPending}};
  for (const auto& [cause, refusal] : expected) {
    log_.result = {false, false, "", cause};
    const GatewayResponse response = respond(intake, "jx_s=7");
    EXPECT_EQ(response.status, 503);
    EXPECT_EQ(response.refusal, refusal) << nameOf(refusal);
  }
}

TEST_F(GatewayIntakeTest, RefusesForGoodWhatTheBrokerNeverStores) {
  GatewayIntake intake(log_, {}, metrics_);
  log_.result = {false, false, "", LogResult::Cause::TooLarge};
  const GatewayResponse response = respond(intake, "jx_s=7");
  EXPECT_EQ(response.status, 413);
  EXPECT_TRUE(response.headers.empty()) << "without Retry-After";
  EXPECT_EQ(response.refusal, Refusal::BodyTooLarge);
}

TEST_F(GatewayIntakeTest, LimitsTheRateOfEachSource) {
  IntakeSettings settings;
  settings.ratePerSource = 1;
  GatewayIntake intake(log_, settings, metrics_);
  EXPECT_EQ(respond(intake, "jx_s=7&token=a").status, 204);
  EXPECT_EQ(respond(intake, "jx_s=7&token=a").status, 204);
  const GatewayResponse response = respond(intake, "jx_s=7&token=a");
  EXPECT_EQ(response.status, 429);
  EXPECT_EQ(response.headers.at(0), (std::pair<std::string, std::string>("Retry-After", "10")));
  EXPECT_EQ(response.refusal, Refusal::RateLimited);
  EXPECT_EQ(respond(intake, "jx_s=7&token=b").status, 204);
  EXPECT_EQ(respond(intake, "jx_s=8&token=a").status, 204);
}

TEST_F(GatewayIntakeTest, StoresInvalidEventsWithTheReasons) {
  IntakeSettings settings;
  settings.validates = true;
  GatewayIntake intake(log_, settings, metrics_);
  EXPECT_EQ(respond(intake, "jx_s=7&token=a", "not JSON").status, 204);
  EXPECT_EQ(respond(intake, "jx_s=7&token=a",
                    "{\"event_name\":\"play\",\"caf\xC3\xA9\":139.12000000000001}")
                .status,
            204);
  EXPECT_TRUE(log_.entries.at(0).isInvalid);
  EXPECT_LE(log_.entries[0].diagnostics.size(), 16u * 1024);
}

TEST(ComparableId, IsAHeaderValue) {
  EXPECT_EQ(comparableId(""), "");
  EXPECT_EQ(comparableId("0B57A9A4-1C2D"), "0B57A9A4-1C2D");
  EXPECT_EQ(comparableId(std::string(128, 'a')), std::string(128, 'a'));
  // printf 'a\r\nNats-X: 1' | sha256sum
  EXPECT_EQ(comparableId("a\r\nNats-X: 1"),
            "sha256-00ce14638881ebb290824dae1d060d2ed3223ca8ad05abb291d4c17956dd79f2");
  EXPECT_NE(comparableId(std::string(129, 'a')), comparableId(std::string(130, 'a')));
  EXPECT_EQ(comparableId(std::string(129, 'a')).size(), 71u);
  EXPECT_EQ(comparableId("a b").substr(0, 7), "sha256-");
}

}  // namespace
}  // namespace jx
