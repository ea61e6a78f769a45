// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An erase that is killed at each of its file operations, and a second process that uses the
// folder.

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <iostream>

#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXErasuresFixture.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;

// Kills this process at the file operation with this index.
long operationsLeft = 0;

void countDown() {
  if (operationsLeft-- == 0) ::kill(::getpid(), SIGKILL);
}

void killAtOperation(long index) {
  operationsLeft = index;
  JXFileCalls& calls = JXFileCalls::current();
  calls.open = [](int folder, const char* name, int flags, mode_t mode) {
    countDown();
    return JXFileCalls::system().open(folder, name, flags, mode);
  };
  calls.write = [](int descriptor, const iovec* parts, int count) {
    countDown();
    return JXFileCalls::system().write(descriptor, parts, count);
  };
  calls.synchronize = [](int descriptor) {
    countDown();
    return JXFileCalls::system().synchronize(descriptor);
  };
  calls.rename = [](int fromFolder, const char* from, int toFolder, const char* to) {
    countDown();
    return JXFileCalls::system().rename(fromFolder, from, toFolder, to);
  };
  calls.unlink = [](int folder, const char* name) {
    countDown();
    return JXFileCalls::system().unlink(folder, name);
  };
}

class InterruptedErasure : public ErasuresTest {
 protected:
  // Returns whether the erase was killed.
  bool eraseUntil(long index) {
    ChildProcess child([&](int) {
      JXErasures erasures(folder_.path());
      killAtOperation(index);
      erasures.erase();
      return 0;
    });
    return child.wait() != 0;
  }
};

TEST_F(InterruptedErasure, IsFinishedByTheNextStart) {
  int pending = 0;
  long index = 0;
  for (;; ++index) {
    writeFile(folder_.file("erased"), "done 00000000000000000000000000000000\n");
    store();
    if (!eraseUntil(index)) break;
    if (state() != "pending") {
      // Killed before it began, or after everything was deleted.
      EXPECT_TRUE(found() == secrets || found().empty()) << index;
      if (!found().empty()) {
        EXPECT_EQ(mark().substr(5, 8), "00000000") << index;
      }
      JXErasures(folder_.path()).erase();
      continue;
    }
    ++pending;
    Process next(*this);
    EXPECT_EQ(found(), Lines()) << index;
    EXPECT_EQ(state(), "done") << index;
    EXPECT_EQ(next.outbox.counters().queued, 0u) << index;
    EXPECT_FALSE(next.defaults.objectForKey("#JX_SDK_ID#").isPresent()) << index;
  }
  // After the operations that write the first mark: the deletion of each file, the sync of both
  // folders, and the second mark.
  EXPECT_GE(pending, 15) << "of " << index;
  std::cout << "killed at " << index << " operations, " << pending << " of them pending\n";
}

class ErasureByAnotherProcess : public ErasuresTest {
 protected:
  void eraseInAnotherProcess() {
    ChildProcess child([&](int) {
      JXErasures erasures(folder_.path());
      return erasures.erase().empty() ? 0 : 1;
    });
    EXPECT_EQ(child.wait(), 0);
  }
  void beginInAnotherProcess() {
    ChildProcess child([&](int) {
      JXErasures erasures(folder_.path());
      operationsLeft = 8;
      JXFileCalls::current().unlink = [](int folder, const char* name) {
        // One file is deleted.
        static int deletions = 0;
        if (++deletions == 2) ::kill(::getpid(), SIGKILL);
        return JXFileCalls::system().unlink(folder, name);
      };
      erasures.erase();
      return 0;
    });
    EXPECT_EQ(child.wait(), -1);
    EXPECT_EQ(state(), "pending");
  }
};

TEST_F(ErasureByAnotherProcess, DropsTheQueuedRequestsBeforeTheNextIsSent) {
  JXLogger::sharedInstance().setMaxLevel(5);
  Process process(*this);
  process.outbox.rememberDropped();
  add(process.outbox, "body-queued");
  eraseInAnotherProcess();
  EXPECT_EQ(takeAll(process.outbox), Bodies());
  EXPECT_EQ(process.outbox.counters().purged, 1u);
  ASSERT_EQ(process.outbox.takeDropped().size(), 1u);
  add(process.outbox, "later");
  process.outbox.sync();
  EXPECT_EQ(takeAll(process.outbox), Bodies{"later"});
  EXPECT_EQ(found(), Lines());
  EXPECT_EQ(log_.with("Stored data erased by another process"), 1u);
}

TEST_F(ErasureByAnotherProcess, KeepsARequestThatIsAddedAfterIt) {
  Process process(*this);
  add(process.outbox, "body-queued");
  eraseInAnotherProcess();
  add(process.outbox, "later");
  EXPECT_EQ(listed(), Bodies{"later"});
  EXPECT_EQ(takeAll(process.outbox), Bodies{"later"});
}

TEST_F(ErasureByAnotherProcess, WritesNothingOldAtTheNextSync) {
  Process process(*this);
  process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
  add(process.outbox, "body-queued");
  add(process.outbox, "body-dead");
  eraseInAnotherProcess();
  process.outbox.sync();
  process.defaults.maintain();
  process.outbox.sync();
  process.defaults.maintain();
  EXPECT_EQ(found(), Lines());
  EXPECT_FALSE(process.defaults.objectForKey("#JX_SDK_ID#").isPresent());
  EXPECT_EQ(process.outbox.counters().queued, 0u);
}

TEST_F(ErasureByAnotherProcess, WritesNothingOldWhenTheProcessEnds) {
  {
    Process process(*this);
    process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
    add(process.outbox, "body-queued");
    eraseInAnotherProcess();
  }
  EXPECT_EQ(found(), Lines());
}

TEST_F(ErasureByAnotherProcess, DropsRequestsThatAreInMemoryOnly) {
  Process process(*this);
  {
    const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing);
    add(process.outbox, "body-queued");
  }
  EXPECT_EQ(process.outbox.counters().inMemory, 1u);
  eraseInAnotherProcess();
  process.outbox.sync();
  EXPECT_EQ(process.outbox.counters().purged, 1u);
  EXPECT_EQ(found(), Lines());
}

TEST_F(ErasureByAnotherProcess, WritesNothingOldToTheDefaults) {
  Process process(*this);
  process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
  eraseInAnotherProcess();
  process.defaults.setObject_forKey("id-new", "#JX_ANONYMOUS_ID#");
  EXPECT_EQ(found(), Lines());
  process.defaults.setObject_forKey("1", "visits");
  EXPECT_EQ(found(), Lines());
  EXPECT_EQ(JXDefaultsFile(folder_.file("defaults")).objectForKey("visits"), "1");
}

TEST_F(ErasureByAnotherProcess, IsFinishedByTheProcessThatNoticesIt) {
  store();
  writeFile(folder_.file("erased"), "done 00000000000000000000000000000000\n");
  Process process(*this);
  add(process.outbox, "body-new");
  beginInAnotherProcess();
  EXPECT_FALSE(found().empty());
  EXPECT_EQ(takeAll(process.outbox), Bodies());
  EXPECT_EQ(found(), Lines());
  EXPECT_EQ(state(), "done");
}

TEST_F(ErasureByAnotherProcess, RewritesRequestsWhoseFilesAnApplicationDeleted) {
  // Files that disappear without an erase are written again.
  JXErasures(folder_.path()).erase();
  Process process(*this);
  add(process.outbox, "kept");
  std::filesystem::remove_all(box_);
  process.outbox.sync();
  EXPECT_EQ(listed(), Bodies{"kept"});
}

}  // namespace
}  // namespace jx
