// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Runs `jx gateway drain` and a real nats-server.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <random>
#include <sstream>

#include "tests/tools/jx/NatsBroker.h"
#include "tests/tools/jx/ProgramRun.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

class DrainProgramTest : public testing::Test {
 protected:
  void SetUp() override { broker_.start(); }

  std::vector<std::string> arguments(const std::vector<std::string>& more) const {
    std::vector<std::string> all{"gateway", "drain", "--nats", broker_.url(), "--out", out_};
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  ChildProcess::Result drainOnce(const std::vector<std::string>& more = {}) const {
    std::vector<std::string> all = arguments(more);
    all.push_back("--once");
    return runJx(all);
  }
  std::map<std::string, std::string> files(const std::string& ending) const {
    std::map<std::string, std::string> found;
    if (!fs::exists(out_)) return found;
    for (const auto& entry : fs::directory_iterator(out_)) {
      if (entry.path().extension() != ending) continue;
      std::ostringstream content;
      content << std::ifstream(entry.path()).rdbuf();
      found[entry.path().filename()] = content.str();
    }
    return found;
  }
  std::string content(const std::string& ending = ".ndjson") const {
    std::string all;
    for (const auto& [name, content] : files(ending))
      all += content;
    return all;
  }
  // Counts the lines of each event in the finished files.
  std::map<std::string, int> lines() const {
    std::map<std::string, int> counts;
    std::istringstream all(content());
    for (std::string line; std::getline(all, line);) {
      const std::size_t start = line.find("\"event_id\":\"") + 12;
      ++counts[line.substr(start, line.find('"', start) - start)];
    }
    return counts;
  }
  static std::map<std::string, int> onceEach(int count) {
    std::map<std::string, int> counts;
    for (int i = 1; i <= count; ++i)
      counts["e" + std::to_string(i)] = 1;
    return counts;
  }
  // Waits until the files contain this many lines.
  void waitForLines(int count) const {
    while (linesOf(content() + content(".part")) < count)
      std::this_thread::yield();
  }
  std::uint64_t lastAcknowledged() const {
    jsConsumerInfo* info = nullptr;
    const natsStatus status =
        js_GetConsumerInfo(&info, broker_.context(), "EVENTS", "jx-drain", nullptr, nullptr);
    const std::uint64_t sequence = status == NATS_OK ? info->AckFloor.Stream : 0;
    jsConsumerInfo_Destroy(info);
    return sequence;
  }
  void waitForAcknowledgement(std::uint64_t sequence) const {
    while (lastAcknowledged() < sequence)
      std::this_thread::yield();
  }
  void stop(ChildProcess& drain) const {
    drain.signal(SIGTERM);
    const ChildProcess::Result result = drain.wait(kPatience);
    EXPECT_EQ(result.status, 0) << result.errors;
  }

  NatsBroker broker_;
  const test::TemporaryFolder folder_;
  const std::string out_ = folder_.path("out");
};

TEST_F(DrainProgramTest, WritesTheEventsOfAStream) {
  broker_.addStreams();
  broker_.publish("events.7.play",
                  "{\"event_name\":\"play\",\n\"context\":{\"event_id\":\"e1\"},"
                  "\"price\":4.90}");
  broker_.publish("events._._", "no JSON");
  const ChildProcess::Result result = drainOnce();
  EXPECT_EQ(result.status, 0) << result.errors;
  std::string text = content();
  // The times of the broker differ in each run.
  for (std::size_t at = 0; (at = text.find("\"stored_at\":\"", at)) != text.npos; ++at)
    text.replace(at + 13, 24, "T");
  EXPECT_EQ(text, R"({"sequence":1,"stored_at":"T","site":7,"event_id":"e1","event_name":"play",)"
                  R"("event":{"event_name":"play", "context":{"event_id":"e1"},"price":4.90}})"
                  "\n"
                  R"({"sequence":2,"stored_at":"T","site":null,"event_id":null,"event_name":null,)"
                  R"("event":null,"body_base64":"bm8gSlNPTg=="})"
                  "\n");
  EXPECT_TRUE(contains(result.errors, R"("level":"info","event":"stopped","sequence":2,)"
                                      R"("written":2,"repeats":0})"))
      << result.errors;
}

TEST_F(DrainProgramTest, WritesTheDiagnosticsOfInvalidEvents) {
  broker_.addStreams();
  broker_.publish("invalid.1.play", "{}", R"([{"path":"event_name"}])");
  EXPECT_EQ(drainOnce({"--stream", "INVALID_EVENTS"}).status, 0);
  EXPECT_TRUE(contains(content(), R"("diagnostics":[{"path":"event_name"}],"event":{}})"));
}

TEST_F(DrainProgramTest, DropsRepeatsThatTheBrokerStored) {
  broker_.addStreams();
  broker_.publishEvents(1, 3);
  EXPECT_EQ(drainOnce().status, 0);
  broker_.publishEvents(2, 4);
  EXPECT_EQ(drainOnce().status, 0);
  EXPECT_EQ(lines(), onceEach(4));
  EXPECT_EQ(files(".ndjson").size(), 2u);
}

TEST_F(DrainProgramTest, WritesEachEventOnceWhenItIsKilledAgainAndAgain) {
  constexpr int kKills = 30;
  broker_.addStreams();
  std::mt19937 random(18);
  const std::vector<std::string> rotation{"--rotate-bytes", "20000"};
  int events = 0;
  for (int kills = 0; kills < kKills; ++kills) {
    const int more = 1 + static_cast<int>(random() % 100);
    const auto written = static_cast<int>(linesOf(content() + content(".part")));
    broker_.publishEvents(events + 1, events + more, std::string(500, 'x'));
    events += more;
    ChildProcess drain(JX_PROGRAM, arguments(rotation));
    waitForLines(written + static_cast<int>(random() % static_cast<unsigned>(more + 1)));
    drain.signal(SIGKILL);
    EXPECT_EQ(drain.wait(kPatience).status, 128 + SIGKILL);
  }
  EXPECT_EQ(drainOnce(rotation).status, 0);
  EXPECT_EQ(files(".part").size(), 0u);
  EXPECT_EQ(lines(), onceEach(events));
}

TEST_F(DrainProgramTest, LeavesFinishedFilesUntouched) {
  broker_.addStreams();
  broker_.publishEvents(1, 10);
  EXPECT_EQ(drainOnce({"--rotate-bytes", "1"}).status, 0);
  const auto before = files(".ndjson");
  broker_.publishEvents(11, 20);
  EXPECT_EQ(drainOnce({"--rotate-bytes", "1"}).status, 0);
  auto after = files(".ndjson");
  EXPECT_GT(after.size(), before.size());
  for (const auto& [name, text] : before)
    EXPECT_EQ(after[name], text);
}

TEST_F(DrainProgramTest, FollowsTheStreamUntilASignal) {
  broker_.addStreams();
  ChildProcess drain(JX_PROGRAM, arguments({}));
  broker_.publishEvents(1, 5);
  waitForLines(5);
  broker_.publishEvents(6, 9);
  waitForLines(9);
  EXPECT_EQ(files(".ndjson").size(), 0u);
  stop(drain);
  EXPECT_EQ(files(".part").size(), 0u);
  EXPECT_EQ(lines(), onceEach(9));
}

TEST_F(DrainProgramTest, AcknowledgesWhatItHasWritten) {
  broker_.addStreams();
  broker_.publishEvents(1, 5);
  EXPECT_EQ(drainOnce().status, 0);
  EXPECT_EQ(lastAcknowledged(), 5u);
}

TEST_F(DrainProgramTest, ContinuesWhenTheBrokerReturns) {
  broker_.addStreams();
  ChildProcess drain(JX_PROGRAM, arguments({}));
  broker_.publishEvents(1, 5);
  waitForLines(5);
  broker_.kill();
  EXPECT_TRUE(drain.waitForErrors("\"event\":\"waiting\"", kPatience));
  broker_.start();
  broker_.publishEvents(6, 8);
  waitForLines(8);
  EXPECT_TRUE(drain.waitForErrors("\"event\":\"resumed\"", kPatience));
  stop(drain);
  EXPECT_EQ(lines(), onceEach(8));
}

TEST_F(DrainProgramTest, WaitsForAStreamAndLogsItOnce) {
  ChildProcess drain(JX_PROGRAM, arguments({}));
  ASSERT_TRUE(drain.waitForErrors("stream EVENTS does not exist", kPatience));
  broker_.addStreams();
  broker_.publishEvents(1, 2);
  waitForLines(2);
  drain.signal(SIGTERM);
  const ChildProcess::Result result = drain.wait(kPatience);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(lines(), onceEach(2));
  EXPECT_EQ(linesOf(result.errors), 4) << result.errors;  // started, waiting, resumed, stopped
}

TEST_F(DrainProgramTest, ReadsAStreamThatIsCreatedAgain) {
  broker_.addStreams();
  ChildProcess drain(JX_PROGRAM, arguments({}));
  broker_.publishEvents(1, 5);
  waitForLines(5);
  broker_.deleteStream();
  broker_.addStreams();
  broker_.publishEvents(4, 7);
  waitForLines(7);
  stop(drain);
  EXPECT_EQ(lines(), onceEach(7));
}

TEST_F(DrainProgramTest, WritesMessagesThatReplaceLostOnes) {
  broker_.addStreams();
  broker_.publishEvents(1, 3);
  broker_.kill();
  broker_.saveStore();
  broker_.start();
  broker_.publishEvents(4, 6);
  EXPECT_EQ(drainOnce().status, 0);
  broker_.kill();
  broker_.restoreStore();
  broker_.start();
  broker_.publishEvents(7, 10);  // the first three have the sequence numbers 4 to 6 again
  EXPECT_EQ(drainOnce().status, 0);
  EXPECT_EQ(lines(), onceEach(10));
}

TEST_F(DrainProgramTest, WritesInvalidEventsWithoutDiagnostics) {
  broker_.addStreams();
  broker_.publish("invalid.1.play", "{}");
  EXPECT_EQ(drainOnce({"--stream", "INVALID_EVENTS"}).status, 0);
  EXPECT_TRUE(contains(content(), R"("diagnostics":null,"event":{}})")) << content();
}

TEST_F(DrainProgramTest, ContinuesAfterItsConsumerIsDeleted) {
  broker_.addStreams();
  ChildProcess drain(JX_PROGRAM, arguments({}));
  broker_.publishEvents(1, 5);
  waitForLines(5);
  ASSERT_EQ(js_DeleteConsumer(broker_.context(), "EVENTS", "jx-drain", nullptr, nullptr), NATS_OK);
  broker_.publishEvents(6, 8);
  waitForLines(8);
  stop(drain);
  EXPECT_EQ(lines(), onceEach(8));
}

TEST_F(DrainProgramTest, ContinuesWhenTheDiskHasSpaceAgain) {
  broker_.addStreams();
  ChildProcess drain(JX_PROGRAM, arguments({}));
  broker_.publishEvents(1, 5);
  waitForAcknowledgement(5);
  const rlimit full{1'000, RLIM_INFINITY};
  ASSERT_EQ(::prlimit(drain.pid(), RLIMIT_FSIZE, &full, nullptr), 0);
  broker_.publishEvents(6, 20, std::string(100, 'x'));
  ASSERT_TRUE(drain.waitForErrors("File too large", kPatience));
  EXPECT_EQ(linesOf(content(".part")), 5) << "the file has its committed length";
  const rlimit space{RLIM_INFINITY, RLIM_INFINITY};
  ASSERT_EQ(::prlimit(drain.pid(), RLIMIT_FSIZE, &space, nullptr), 0);
  waitForLines(20);
  stop(drain);
  EXPECT_EQ(lines(), onceEach(20));
}

TEST_F(DrainProgramTest, RefusesAFolderThatIsInUse) {
  broker_.addStreams();
  ChildProcess first(JX_PROGRAM, arguments({}));
  ASSERT_TRUE(first.waitForErrors("\"event\":\"started\"", kPatience));
  const ChildProcess::Result second = drainOnce();
  EXPECT_EQ(second.status, 1);
  EXPECT_EQ(second.errors,
            "jx gateway drain: the state folder " + out_ + " is in use by another drain\n");
  stop(first);
}

TEST(DrainProgram, RequiresServersAndAFolder) {
  EXPECT_EQ(runJx({"gateway", "drain", "--out", "x"}).status, 2);
  EXPECT_EQ(runJx({"gateway", "drain", "--nats", "nats://127.0.0.1"}).status, 2);
  const auto stream =
      runJx({"gateway", "drain", "--nats", "nats://127.0.0.1", "--out", "x", "--stream", "OTHER"});
  EXPECT_EQ(stream.status, 2);
}

}  // namespace
}  // namespace jx
