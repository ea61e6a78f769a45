// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <filesystem>
#include <set>

#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXOutboxFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

class OutboxFault : public OutboxTest {
 protected:
  // The bodies that a run accepted and acknowledged.
  struct Run {
    std::multiset<std::string> accepted;
    std::multiset<std::string> acknowledged;
    std::string rejected;
  };

  void runOutbox(Run& run, const std::string& name) {
    const auto outbox = open();
    for (int i = 0; i < 4; ++i) {
      const std::string body = name + std::to_string(i);
      if (outbox->add(kTestUrl, body).has_value()) run.accepted.insert(body);
    }
    if (const auto request = outbox->take()) {
      outbox->markDelivered(request->id);
      run.acknowledged.insert(request->body);
    }
    outbox->sync();
    if (const auto request = outbox->take()) {
      if (run.rejected.empty()) {
        outbox->moveToDeadLetters(request->id, 400);
        run.rejected = request->body;
      } else {
        outbox->requeue(request->id);
      }
    }
    outbox->sync();
  }

  // Opens an outbox twice while the system calls from `first` to `end` fail, then once without
  // failures.
  void expectNothingLost(long first, long end, FailingDisk::Write write, long& calls) {
    fs::remove_all(box_);
    Run run;
    {
      FailingDisk disk(first, end, write);
      runOutbox(run, "x");
      runOutbox(run, "y");
      calls = disk.calls();
    }
    EXPECT_EQ(run.accepted.size(), 8u);
    std::multiset<std::string> expected = run.accepted;
    for (const std::string& body : run.acknowledged)
      expected.erase(body);
    const Bodies letters = dead();
    const auto outbox = open();
    const Bodies left = takeAll(*outbox);
    // A request whose dead letter could not be written is sent again.
    const bool hasDeadLetter = letters == Bodies{run.rejected};
    EXPECT_TRUE(hasDeadLetter || letters.empty());
    if (hasDeadLetter) expected.erase(run.rejected);
    EXPECT_EQ(sorted(left), Bodies(expected.begin(), expected.end()));
  }
};

TEST_F(OutboxFault, OneFailureAtAnyCallLosesAndRepeatsNothing) {
  for (const FailingDisk::Write write : {FailingDisk::Write::Nothing, FailingDisk::Write::Half}) {
    long calls = 1;
    for (long call = 0; call < calls; ++call) {
      SCOPED_TRACE("call " + std::to_string(call));
      expectNothingLost(call, call + 1, write, calls);
    }
    EXPECT_GT(calls, 20);
  }
}

TEST_F(OutboxFault, TwoFailuresInARowAtAnyCallLoseAndRepeatNothing) {
  long calls = 1;
  for (long call = 0; call < calls; ++call) {
    SCOPED_TRACE("calls from " + std::to_string(call));
    expectNothingLost(call, call + 2, FailingDisk::Write::Half, calls);
  }
}

TEST_F(OutboxFault, DiskFullFromAnyCallOnLosesNothingInTheProcess) {
  long calls = 1;
  for (long call = 0; call < calls; ++call) {
    SCOPED_TRACE("calls from " + std::to_string(call));
    fs::remove_all(box_);
    FailingDisk disk(call, 1'000'000, FailingDisk::Write::Half);
    const auto outbox = open();
    for (int i = 0; i < 6; ++i)
      add(*outbox, std::to_string(i));
    outbox->sync();
    outbox->markDelivered(outbox->take()->id);
    calls = disk.calls();
    disk.heal();
    outbox->sync();
    EXPECT_EQ(sorted(listed()), (Bodies{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(outbox->counters().inMemory, 0u);
    EXPECT_FALSE(outbox->needsSync());
    EXPECT_EQ(takeAll(*outbox), (Bodies{"1", "2", "3", "4", "5"}));
  }
  EXPECT_GT(calls, 6);
}

TEST_F(OutboxFault, LogsAFullDiskOnceAndCountsEveryFailure) {
  const auto outbox = open();
  add(*outbox, "a");
  const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing);
  for (int i = 0; i < 50; ++i)
    add(*outbox, "x");
  EXPECT_EQ(outbox->counters().storageErrors, 50u);
  EXPECT_EQ(outbox->counters().inMemory, 50u);
  EXPECT_EQ(log_.all(),
            Bodies{"3 outbox " + box_ + ": cannot append a request: No space left on device"});
}

TEST_F(OutboxFault, KeepsTheLatestThousandRequestsInMemory) {
  const auto outbox = open();
  add(*outbox, "on disk");
  FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing);
  for (int i = 0; i < 1'500; ++i)
    EXPECT_TRUE(outbox->add(kTestUrl, std::to_string(i)));
  EXPECT_EQ(outbox->counters().inMemory, 1'000u);
  EXPECT_EQ(outbox->counters().droppedNoStorage, 500u);
  EXPECT_EQ(outbox->counters().queued, 1'001u);
  EXPECT_TRUE(outbox->needsSync());
  disk.heal();
  outbox->sync();
  EXPECT_EQ(outbox->counters().inMemory, 0u);
  const Bodies left = listed();
  ASSERT_EQ(left.size(), 1'001u);
  EXPECT_EQ(left[0], "on disk");
  EXPECT_EQ(left[1], "500");
  EXPECT_EQ(left[1'000], "1499");
}

TEST_F(OutboxFault, RejectsRequestsWhenWritesFailAndMemoryIsDisabled) {
  JXOutboxBounds bounds;
  bounds.maxInMemory = 0;
  const auto outbox = open(bounds);
  const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing);
  EXPECT_FALSE(outbox->add(kTestUrl, "a").has_value());
  EXPECT_EQ(outbox->counters().droppedNoStorage, 1u);
  EXPECT_EQ(outbox->counters().added, 0u);
  EXPECT_EQ(outbox->counters().queued, 0u);
}

TEST_F(OutboxFault, DeliversAcknowledgesAndPurgesRequestsInMemory) {
  const auto outbox = open();
  const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing);
  for (const char* body : {"a", "b", "c"})
    add(*outbox, body);
  outbox->markDelivered(outbox->take()->id);
  outbox->moveToDeadLetters(outbox->take()->id, 400);
  EXPECT_EQ(outbox->counters().queued, 1u);
  EXPECT_EQ(takeAll(*outbox), Bodies{"c"});
  outbox->purge();
  EXPECT_EQ(outbox->counters().inMemory, 0u);
  EXPECT_EQ(outbox->counters().purged, 1u);
  EXPECT_FALSE(outbox->take().has_value());
}

TEST_F(OutboxFault, WritesRequestsInMemoryAtClose) {
  auto outbox = open();
  {
    const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing);
    add(*outbox, "a");
  }
  EXPECT_FALSE(fs::exists(box_ + "/segment-0000000000000001"));
  outbox.reset();
  EXPECT_EQ(listed(), Bodies{"a"});
}

TEST_F(OutboxFault, WorksInMemoryUntilTheFolderCanBeCreated) {
  writeFile(box_, "a file where the folder should be");
  const auto outbox = open();
  for (const char* body : {"a", "b"})
    add(*outbox, body);
  EXPECT_EQ(outbox->counters().inMemory, 2u);
  fs::remove(box_);
  outbox->sync();
  EXPECT_EQ(listed(), (Bodies{"a", "b"}));
  EXPECT_EQ(outbox->counters().inMemory, 0u);
}

TEST_F(OutboxFault, WorksInMemoryWithAReadOnlyFolder) {
  fs::create_directory(box_);
  ::chmod(folder_.path().c_str(), 0755);
  ::chmod(box_.c_str(), 0555);
  ChildProcess child([&](int) {
    if (!becomeOrdinaryUser()) return 1;
    const auto outbox = open();
    add(*outbox, "a");
    add(*outbox, "b");
    outbox->sync();
    if (outbox->counters().inMemory != 2) return 2;
    if (log_.with("open the folder: Permission denied") != 1) return 3;
    return takeAll(*outbox) == Bodies{"a", "b"} ? 0 : 4;
  });
  EXPECT_EQ(child.wait(), 0);
  EXPECT_EQ(files(), 0u);
}

TEST_F(OutboxFault, FileSizeLimitLeavesNoTornFrame) {
  ChildProcess child([&](int) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1'000, 1'000};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    const auto outbox = open();
    for (int i = 0; i < 30; ++i)
      add(*outbox, std::to_string(i));
    const JXOutboxCounters counters = outbox->counters();
    if (counters.queued != 30 || counters.inMemory == 0 || counters.inMemory == 30) return 2;
    return listed().size() == 30 - counters.inMemory ? 0 : 3;
  });
  EXPECT_EQ(child.wait(), 0);
  const auto outbox = open();
  EXPECT_EQ(outbox->counters().damaged, 0u);
  EXPECT_GE(outbox->counters().queued, 10u);
}

void ignoreSignal(int) {}

// A write beyond the limit raises SIGXFSZ, whose default action ends the process.
TEST_F(OutboxFault, FileSizeLimitNeverEndsTheProcess) {
  for (const rlim_t size : {0, 1, 10, 100, 500, 1'000}) {
    const std::string box = folder_.file("box" + std::to_string(size));
    ChildProcess child([&](int) {
      std::signal(SIGXFSZ, SIG_DFL);
      const rlimit limit{size, RLIM_INFINITY};
      if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
      JXOutbox outbox(box, {}, clock_);
      for (int i = 0; i < 30; ++i)
        add(outbox, std::to_string(i));
      outbox.sync();
      if (outbox.counters().queued != 30 || outbox.counters().inMemory == 0) return 2;
      const rlimit none{RLIM_INFINITY, RLIM_INFINITY};
      if (::setrlimit(RLIMIT_FSIZE, &none) != 0) return 3;
      outbox.sync();
      return outbox.counters().inMemory == 0 ? 0 : 4;
    });
    EXPECT_EQ(child.wait(), 0) << "limit " << size;
    JXOutbox outbox(box, {}, clock_);
    EXPECT_EQ(outbox.counters().queued, 30u) << "limit " << size;
  }
}

TEST_F(OutboxFault, FileSizeLimitChangesNoSignalOfTheApplication) {
  ChildProcess child([&](int) {
    // A signal of the application that it has blocked, and that is pending.
    sigset_t signal;
    sigemptyset(&signal);
    sigaddset(&signal, SIGXFSZ);
    std::signal(SIGXFSZ, &ignoreSignal);
    ::pthread_sigmask(SIG_BLOCK, &signal, nullptr);
    std::raise(SIGXFSZ);
    const rlimit limit{0, 0};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    const auto outbox = open();
    add(*outbox, "a");
    if (outbox->counters().inMemory != 1) return 2;
    sigset_t now;
    sigpending(&now);
    if (sigismember(&now, SIGXFSZ) != 1) return 3;
    ::pthread_sigmask(SIG_BLOCK, nullptr, &now);
    if (sigismember(&now, SIGXFSZ) != 1) return 4;
    return std::signal(SIGXFSZ, SIG_DFL) == &ignoreSignal ? 0 : 5;
  });
  EXPECT_EQ(child.wait(), 0);
}

}  // namespace
}  // namespace jx
