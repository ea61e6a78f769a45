// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXErasures.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>
#include <thread>

#include "jx/core/storage/JXStoredFiles.h"
#include "tests/core/storage/JXErasuresFixture.h"
#include "tests/support/JXFailingDisk.h"
#include "tests/support/JXFakePlatform.h"

namespace jx {
namespace {

using Lines = std::vector<std::string>;

class Erasures : public ErasuresTest {};

TEST_F(Erasures, DeletesEveryFileThatTheLibraryWrites) {
  store();
  EXPECT_EQ(files(), storedFiles());
  EXPECT_EQ(found(), secrets);
  EXPECT_EQ(JXErasures(folder_.path()).erase(), Lines());
  EXPECT_EQ(files(), Lines{"erased"});
  EXPECT_EQ(found(), Lines());
  EXPECT_EQ(state(), "done");
}

TEST_F(Erasures, LeavesFilesOfTheApplication) {
  store();
  const Lines theirs{"defaults.bak",
                     "defaults.damaged-",
                     "erased.txt",
                     "notes",
                     "outbox/dead.txt",
                     "outbox/segment-1",
                     "outbox/segment-000000000000000g",
                     "outbox/stopped-0123abc"};
  for (const std::string& name : theirs)
    writeFile(folder_.file(name), "theirs");
  std::filesystem::create_directory(folder_.file("outbox/dead.purge"));
  EXPECT_EQ(JXErasures(folder_.path()).erase(), Lines());
  Lines expected = theirs;
  expected.push_back("erased");
  EXPECT_EQ(files(), sorted(expected));
  EXPECT_TRUE(std::filesystem::is_directory(folder_.file("outbox/dead.purge")));
}

TEST_F(Erasures, RecognisesNames) {
  for (const char* const name : {"defaults", "defaults.new", "defaults.damaged-0", "erased.1"})
    EXPECT_TRUE(isStoredFileName(name)) << name;
  for (const char* const name : {"", "erased", "erased.", "default", "defaults2", "defaults.new2",
                                 "defaults.damaged", "defaults.damaged-1x", "dead"})
    EXPECT_FALSE(isStoredFileName(name)) << name;
  for (const char* const name : {"dead", "dead.new", "segment-00000000000000af", "stopped-89abcdef",
                                 "segment-00000000000000af.purge.12", "stopped-89abcdef.new"})
    EXPECT_TRUE(isOutboxFileName(name)) << name;
  for (const char* const name : {"", "segment-", "segment-00000000000000AF", "stopped-", "deadly",
                                 "segment-00000000000000af.purge.", "defaults"})
    EXPECT_FALSE(isOutboxFileName(name)) << name;
}

TEST_F(Erasures, WritesANewRandomTokenEachTime) {
  JXErasures erasures(folder_.path());
  EXPECT_EQ(erasures.erase(), Lines());
  const std::string first = mark();
  EXPECT_EQ(erasures.erase(), Lines());
  EXPECT_NE(mark(), first);
  EXPECT_EQ(mark().size(), 38u);  // "done ", 32 digits and a newline
  EXPECT_EQ(erasures.count(), 2u);
}

TEST_F(Erasures, CreatesTheFolderForTheMark) {
  JXErasures erasures(folder_.file("new/state"));
  EXPECT_EQ(erasures.erase(), Lines());
  EXPECT_EQ(test::filesBelow(folder_.file("new/state")), Lines{"erased"});
}

TEST_F(Erasures, FinishesAPendingErasureAtTheStart) {
  store();
  writeFile(folder_.file("erased"), "pending 0123456789abcdef0123456789abcdef\n");
  JXLogger::sharedInstance().setMaxLevel(5);
  Process process(*this);
  EXPECT_EQ(mark(), "done 0123456789abcdef0123456789abcdef\n");
  EXPECT_EQ(found(), Lines());
  EXPECT_FALSE(process.defaults.objectForKey("#JX_SDK_ID#").isPresent());
  EXPECT_EQ(process.outbox.counters().queued, 0u);
  EXPECT_EQ(log_.with("Interrupted erase of the stored data resumed"), 1u);
}

TEST_F(Erasures, LeavesTheDataOfLaterStartsAfterACompletedErasure) {
  JXErasures(folder_.path()).erase();
  store();
  Process process(*this);
  EXPECT_EQ(process.defaults.objectForKey("#JX_SDK_ID#"), "id-value");
  EXPECT_EQ(takeAll(process.outbox), Bodies{"body-queued"});
}

TEST_F(Erasures, TreatsADamagedMarkAsPending) {
  for (const char* const content : {"", "don", "done 0123\n", "pending", "\xff\xff"}) {
    store();
    writeFile(folder_.file("erased"), content);
    const JXErasures erasures(folder_.path());
    EXPECT_EQ(found(), Lines()) << content;
    EXPECT_EQ(state(), "done") << content;
    EXPECT_EQ(mark().size(), 38u) << content;
  }
}

TEST_F(Erasures, NoticesADamagedMarkOfAnotherProcessOnce) {
  store();
  Process process(*this);
  writeFile(folder_.file("erased"), "damaged");
  EXPECT_EQ(process.erasures->check(), 1u);
  EXPECT_EQ(process.erasures->check(), 1u);
  EXPECT_EQ(state(), "done");
  EXPECT_EQ(found(), Lines());
}

TEST_F(Erasures, DropsTheRequestsOfThisProcessAsPurged) {
  Process process(*this);
  process.outbox.rememberDropped();
  add(process.outbox, event("body-queued"));
  add(process.outbox, event("body-new"));
  const std::uint64_t inFlight = process.outbox.take()->id;
  EXPECT_EQ(process.erasures->erase(), Lines());
  process.outbox.applyErasures();
  EXPECT_EQ(process.outbox.counters().queued, 0u);
  EXPECT_EQ(process.outbox.counters().purged, 2u);
  EXPECT_FALSE(process.outbox.markDelivered(inFlight));
  process.outbox.requeue(inFlight);
  EXPECT_EQ(takeAll(process.outbox), Bodies());
  Bodies dropped;
  for (const JXOutboxDrop& drop : process.outbox.takeDropped()) {
    EXPECT_EQ(drop.reason, JXDropReason::Purged);
    dropped.push_back(drop.eventId.toStdString());
  }
  EXPECT_EQ(dropped, (Bodies{"body-queued", "body-new"}));
  process.outbox.sync();
  EXPECT_EQ(found(), Lines());
}

TEST_F(Erasures, KeepsTheRequestsThatAreAddedLater) {
  Process process(*this);
  add(process.outbox, "body-queued");
  process.erasures->erase();
  add(process.outbox, "later");
  process.outbox.sync();
  EXPECT_EQ(listed(), Bodies{"later"});
  EXPECT_EQ(takeAll(process.outbox), Bodies{"later"});
  EXPECT_EQ(found(), Lines());
}

TEST_F(Erasures, DropsARequestThatWasBegunBefore) {
  Process process(*this);
  process.outbox.rememberDropped();
  {
    const JXErasureScope composing(*process.erasures);
    process.erasures->erase();
    EXPECT_EQ(add(process.outbox, "body-queued"), 0u);
    {
      const JXErasureScope nested(*process.erasures);
      EXPECT_NE(add(process.outbox, "nested"), 0u);
    }
    EXPECT_EQ(add(process.outbox, "body-new"), 0u);
  }
  EXPECT_NE(add(process.outbox, "later"), 0u);
  EXPECT_EQ(process.outbox.counters().purged, 2u);
  EXPECT_EQ(takeAll(process.outbox), (Bodies{"nested", "later"}));
}

TEST_F(Erasures, ForgetsTheValuesOfThisProcess) {
  Process process(*this);
  process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
  process.erasures->erase();
  process.defaults.applyErasures();
  EXPECT_FALSE(process.defaults.objectForKey("#JX_SDK_ID#").isPresent());
  process.defaults.setObject_forKey("1", "visits");
  process.defaults.maintain();
  EXPECT_EQ(found(), Lines());
  const JXDefaultsFile again(folder_.file("defaults"));
  EXPECT_EQ(JXDefaultsFile(folder_.file("defaults")).objectForKey("visits"), "1");
}

TEST_F(Erasures, ForgetsTheChangesOfAnOpenBatch) {
  Process process(*this);
  process.defaults.beginChanges();
  process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
  process.erasures->erase();
  process.defaults.endChanges();
  EXPECT_FALSE(process.defaults.objectForKey("#JX_SDK_ID#").isPresent());
  EXPECT_EQ(found(), Lines());
}

// Called during file operations, in the tests below.
std::function<void()>* duringCall = nullptr;

TEST_F(Erasures, DiscardsACompactionThatWasBegunBefore) {
  for (const bool byThisProcess : {true, false}) {
    Process process(*this);
    JXErasures other(folder_.path());
    for (int i = 0; i < 100; ++i)
      process.defaults.setObject_forKey(std::string(1'000, static_cast<char>('a' + i % 26)), "k");
    process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
    process.defaults.maintain();
    process.defaults.setObject_forKey("id-new", "#JX_SDK_ID#");
    int syncs = 0;
    std::function<void()> erase = [&] {
      if (++syncs == 2) (byThisProcess ? *process.erasures : other).erase();
    };
    for (int i = 0; i < 100; ++i)
      process.defaults.setObject_forKey(std::string(1'000, static_cast<char>('a' + i % 26)), "k");
    duringCall = &erase;
    JXFileCalls::current().synchronize = [](int descriptor) {
      (*duringCall)();
      return JXFileCalls::system().synchronize(descriptor);
    };
    process.defaults.maintain();
    JXFileCalls::current() = JXFileCalls::system();
    EXPECT_GE(syncs, 2);
    EXPECT_FALSE(process.defaults.objectForKey("#JX_SDK_ID#").isPresent());
    process.defaults.maintain();
    EXPECT_EQ(found(), Lines());
    EXPECT_EQ(filesNamed(folder_.path(), "defaults.new"), 0u);
  }
}

TEST_F(Erasures, DeletesADeadLetterThatIsWrittenAfterTheErasure) {
  Process process(*this);
  add(process.outbox, "body-dead");
  const std::uint64_t id = process.outbox.take()->id;
  JXErasures other(folder_.path());
  // After the request was read, and before the file is created.
  std::function<void()> erase = [&] { other.erase(); };
  duringCall = &erase;
  JXFileCalls::current().open = [](int folder, const char* name, int flags, mode_t mode) {
    if (std::string_view(name) == "dead") std::exchange(*duringCall, [] {})();
    return JXFileCalls::system().open(folder, name, flags, mode);
  };
  process.outbox.moveToDeadLetters(id, 400);
  JXFileCalls::current() = JXFileCalls::system();
  EXPECT_EQ(found(), Lines());
  EXPECT_EQ(dead(), Bodies());
}

TEST_F(Erasures, RemovesTheKeysFromTheSettingsStore) {
  test::JXFakePlatformDefaults defaults;
  defaults.preset("#JX_SDK_ID#", "id-value");
  defaults.preset("jx_last_pid", "4242");
  defaults.preset("theirs", "kept");
  JXErasures erasures("", &defaults);
  EXPECT_EQ(erasures.erase(), Lines());
  EXPECT_EQ(defaults.entries(), (std::map<std::string, JXString>{{"theirs", "kept"}}));
  EXPECT_EQ(defaults.synchronizeCount(), 1);
  EXPECT_EQ(erasures.check(), 1u);
}

TEST_F(Erasures, RemovesTheKeysWhenItFinishesAPendingErasure) {
  test::JXFakePlatformDefaults defaults;
  defaults.preset("#JX_SDK_ID#", "id-value");
  writeFile(folder_.file("erased"), "pending 0123456789abcdef0123456789abcdef\n");
  const JXErasures erasures(folder_.path(), &defaults);
  EXPECT_TRUE(defaults.entries().empty());
}

TEST_F(Erasures, ErasesOnceForEachOfEightThreads) {
  store();
  Process process(*this);
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      add(process.outbox, "body-queued");
      process.defaults.setObject_forKey("id-value", "#JX_SDK_ID#");
      EXPECT_EQ(process.erasures->erase(), Lines());
      process.outbox.applyErasures();
      process.defaults.applyErasures();
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(process.erasures->count(), 8u);
  process.outbox.sync();
  process.defaults.maintain();
  EXPECT_EQ(found(), Lines());
  EXPECT_EQ(state(), "done");
}

TEST_F(Erasures, ReportsEveryFileOfAReadOnlyDisk) {
  store();
  Process process(*this);
  Lines left;
  {
    FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing, EROFS);
    disk.includeDeletions();
    left = process.erasures->erase();
  }
  Lines expected;
  for (const std::string& name : storedFiles())
    expected.push_back(folder_.file(name) + ": Read-only file system");
  expected.push_back(
      folder_.file("erased") +
      ": Read-only file system; another process that uses the folder may write its values again");
  EXPECT_EQ(sorted(left), sorted(expected));
}

TEST_F(Erasures, ForgetsTheValuesInMemoryOnAReadOnlyDisk) {
  store();
  Process process(*this);
  FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing, EROFS);
  disk.includeDeletions();
  process.erasures->erase();
  process.outbox.applyErasures();
  EXPECT_EQ(takeAll(process.outbox), Bodies());
  EXPECT_FALSE(process.defaults.objectForKey("#JX_SDK_ID#").isPresent());
  disk.heal();
  // What was left is removed when the disk is writable again.
  process.outbox.sync();
  process.defaults.maintain();
  EXPECT_EQ(listed(), Bodies());
  EXPECT_FALSE(JXDefaultsFile(folder_.file("defaults")).objectForKey("#JX_SDK_ID#").isPresent());
}

TEST_F(Erasures, IsCompleteOnADiskThatIsFullUntilFilesAreDeleted) {
  store();
  JXErasures erasures(folder_.path());
  // The call that writes the first mark fails; the deletions succeed.
  const FailingDisk disk(0, 1, FailingDisk::Write::Nothing, ENOSPC);
  EXPECT_EQ(erasures.erase(), Lines());
  EXPECT_EQ(disk.failed(), 1);
  EXPECT_EQ(files(), Lines{"erased"});
  EXPECT_EQ(state(), "done");
}

TEST_F(Erasures, NoticesAnEraseWhoseMarkCouldNotBeReadAtFirst) {
  Process process(*this);
  add(process.outbox, "body-queued");
  EXPECT_EQ(process.erasures->check(), 0u);
  EXPECT_EQ(JXErasures(folder_.path()).erase(), Lines());
  // The time of the mark alone does not show the change, once it has been noticed.
  std::this_thread::sleep_for(std::chrono::milliseconds(150));
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Nothing, EMFILE);
    EXPECT_EQ(process.erasures->check(), 0u);
    EXPECT_EQ(disk.failed(), 1);
  }
  EXPECT_EQ(process.erasures->check(), 1u);
  EXPECT_EQ(takeAll(process.outbox), Bodies());
}

TEST_F(Erasures, DropsNothingWhenTheMarkCannotBeReadAtTheStart) {
  EXPECT_EQ(JXErasures(folder_.path()).erase(), Lines());
  {
    Process process(*this);
    add(process.outbox, "body-queued");
  }
  std::optional<JXErasures> erasures;
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Nothing, EMFILE);
    erasures.emplace(folder_.path());
    EXPECT_EQ(disk.failed(), 1);
  }
  EXPECT_EQ(erasures->check(), 0u);
  // An erase that was interrupted is finished all the same.
  writeFile(folder_.file("erased"), "pending 0123456789abcdef0123456789abcdef\n");
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Nothing, EMFILE);
    erasures.emplace(folder_.path());
    EXPECT_EQ(disk.failed(), 1);
  }
  EXPECT_EQ(erasures->check(), 1u);
  EXPECT_EQ(files(), Lines{"erased"});
  EXPECT_EQ(state(), "done");
}

TEST_F(Erasures, NoticesTheFirstEraseAfterAnUnreadableStart) {
  std::optional<JXErasures> erasures;
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Nothing, EMFILE);
    erasures.emplace(folder_.path());
    EXPECT_EQ(disk.failed(), 1);
  }
  EXPECT_EQ(erasures->check(), 0u);
  EXPECT_EQ(JXErasures(folder_.path()).erase(), Lines());
  EXPECT_EQ(erasures->check(), 1u);
}

TEST_F(Erasures, KeepsTheRecordsOfStopsUntilTheDeletionOfTheEventsIsDurable) {
  store();
  JXErasures erasures(folder_.path());
  JXFileCalls::current().synchronizeFolder = [](int) {
    errno = EIO;
    return -1;
  };
  const Lines left = erasures.erase();
  JXFileCalls::current() = JXFileCalls::system();
  EXPECT_EQ(files(), (Lines{"erased", "outbox/stopped-0123abcd", "outbox/stopped-0123abcd.4711"}));
  const std::string reason = ": Input/output error";
  EXPECT_EQ(left, (Lines{box_ + reason, box_ + "/stopped-0123abcd" + reason,
                         box_ + "/stopped-0123abcd.4711" + reason, folder_.path() + reason,
                         folder_.file("erased") + reason +
                             "; another process that uses the folder may write its values again"}));
}

TEST_F(Erasures, ReportsThatTheMarkCannotBeWritten) {
  store();
  JXErasures erasures(folder_.path());
  const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing, ENOSPC);
  const Lines left = erasures.erase();
  // Only the mark, the durability of the deletions, and the records of stops, which wait for it.
  const std::string reason = ": No space left on device";
  EXPECT_EQ(left, (Lines{box_ + reason, box_ + "/stopped-0123abcd" + reason,
                         box_ + "/stopped-0123abcd.4711" + reason, folder_.path() + reason,
                         folder_.file("erased") + reason +
                             "; another process that uses the folder may write its values again"}));
  EXPECT_EQ(files(), (Lines{"outbox/stopped-0123abcd", "outbox/stopped-0123abcd.4711"}));
}

TEST_F(Erasures, ReportsThatTheMarkOfAnEarlierEraseCannotBeReplaced) {
  JXErasures erasures(folder_.path());
  const std::string pending = "pending 0123456789abcdef0123456789abcdef\n";
  writeFile(folder_.file("erased"), pending);
  JXFileCalls::current().open = [](int folder, const char* name, int flags, mode_t mode) {
    if ((flags & O_CREAT) == 0) return JXFileCalls::system().open(folder, name, flags, mode);
    errno = ENOSPC;
    return -1;
  };
  const Lines left = erasures.erase();
  JXFileCalls::current() = JXFileCalls::system();
  EXPECT_EQ(mark(), pending);
  ASSERT_FALSE(left.empty());
  EXPECT_EQ(left.back(), folder_.file("erased") +
                             ": No space left on device; another process that uses the folder may "
                             "write its values again");
}

TEST_F(Erasures, WritesTheMarkWhenTheDiskWorksAgain) {
  Process process(*this);
  {
    const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing, ENOSPC);
    process.erasures->erase();
    process.outbox.sync();
  }
  EXPECT_EQ(mark(), "");
  process.outbox.sync();
  EXPECT_EQ(state(), "done");
  // The next start erases nothing.
  add(process.outbox, "later");
  const std::string token = mark();
  EXPECT_EQ(JXErasures(folder_.path()).count(), 0u);
  EXPECT_EQ(mark(), token);
  EXPECT_EQ(listed(), Bodies{"later"});
}

TEST_F(Erasures, DoesNotReplaceTheMarkOfALaterErase) {
  Process process(*this);
  {
    const FailingDisk disk(0, 1'000'000, FailingDisk::Write::Nothing, ENOSPC);
    process.erasures->erase();
  }
  add(process.outbox, "body-queued");
  EXPECT_EQ(JXErasures(folder_.path()).erase(), Lines());
  const std::string later = mark();
  process.erasures->writeLackingMark();
  EXPECT_EQ(mark(), later);
  EXPECT_EQ(process.erasures->check(), 2u);
  EXPECT_EQ(takeAll(process.outbox), Bodies());
}

TEST_F(Erasures, CompletesAnInterruptedEraseWhenTheDiskWorksAgain) {
  writeFile(folder_.file("erased"), "pending 0123456789abcdef0123456789abcdef\n");
  std::optional<Process> process;
  JXFileCalls::current().open = [](int folder, const char* name, int flags, mode_t mode) {
    if ((flags & O_CREAT) == 0) return JXFileCalls::system().open(folder, name, flags, mode);
    errno = ENOSPC;
    return -1;
  };
  process.emplace(*this);
  JXFileCalls::current() = JXFileCalls::system();
  EXPECT_EQ(state(), "pending");
  add(process->outbox, "later");
  process->outbox.sync();
  EXPECT_EQ(mark(), "done 0123456789abcdef0123456789abcdef\n");
  EXPECT_EQ(JXErasures(folder_.path()).count(), 0u);
  EXPECT_EQ(listed(), Bodies{"later"});
}

}  // namespace
}  // namespace jx
