// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXDefaultsFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <limits>
#include <string>
#include <thread>

#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXLogLines.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/support/CheckInterval.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

class DefaultsFile : public ::testing::Test {
 protected:
  DefaultsFile() : path_(folder_.file("state/defaults")) {}

  // Writes obsolete values of one entry, about 1 KiB each.
  static void fill(JXDefaultsFile& file, int times) {
    for (int i = 0; i < times; ++i) {
      file.setObject_forKey(std::to_string(i) + std::string(1'000, '.'), "filler");
    }
  }

  LogLines log_;
  TemporaryFolder folder_;
  const test::CheckInterval interval_{test::CheckInterval::kNone};
  const std::string path_;
};

TEST_F(DefaultsFile, ReturnsAValueImmediatelyAndAfterReopening) {
  {
    JXDefaultsFile file(path_);
    EXPECT_FALSE(file.objectForKey("visits").isPresent());
    file.setObject_forKey("1", "visits");
    EXPECT_EQ(file.objectForKey("visits"), "1");
    file.setObject_forKey("2", "visits");
    file.setObject_forKey("", "empty");
    EXPECT_TRUE(file.isAvailable());
  }
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("visits"), "2");
  EXPECT_EQ(again.objectForKey("empty"), "");
  EXPECT_TRUE(log_.all().empty());
}

TEST_F(DefaultsFile, NullValueRemovesTheEntry) {
  {
    JXDefaultsFile file(path_);
    file.setObject_forKey("1", "visits");
    file.setObject_forKey(nullptr, "visits");
    EXPECT_FALSE(file.objectForKey("visits").isPresent());
  }
  EXPECT_FALSE(JXDefaultsFile(path_).objectForKey("visits").isPresent());
}

TEST_F(DefaultsFile, IgnoresANullKey) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", nullptr);
  EXPECT_FALSE(file.objectForKey(nullptr).isPresent());
  EXPECT_EQ(contentOf(path_), "");
}

TEST_F(DefaultsFile, DoesNotWriteAnUnchangedValue) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  const std::string before = contentOf(path_);
  file.setObject_forKey("1", "visits");
  file.setObject_forKey(nullptr, "never set");
  EXPECT_EQ(contentOf(path_), before);
}

TEST_F(DefaultsFile, SetsAValueWithOneWriteAndNoSync) {
  JXDefaultsFile file(path_);
  const FailingDisk disk(0, 0, FailingDisk::Write::Nothing);
  file.setObject_forKey("1", "visits");
  file.synchronize();
  EXPECT_EQ(disk.calls(), 1);
}

TEST_F(DefaultsFile, NeedsMaintenanceOnlyAfterAChange) {
  JXDefaultsFile file(path_);
  file.maintain();
  EXPECT_FALSE(file.needsMaintenance());
  file.setObject_forKey("1", "visits");
  EXPECT_TRUE(file.needsMaintenance());
  file.maintain();
  EXPECT_FALSE(file.needsMaintenance());
}

TEST_F(DefaultsFile, KeepsEveryValueOfAKilledProcess) {
  ChildProcess child([&](int pipe) {
    JXDefaultsFile file(path_);
    for (int i = 0;; ++i) {
      file.setObject_forKey(std::to_string(i), "count");
      ChildProcess::writeLine(pipe, std::to_string(i));
    }
    return 0;
  });
  std::string last;
  for (int i = 0; i < 200; ++i)
    last = child.readLine();
  child.kill();
  for (std::string line = child.readLine(); !line.empty(); line = child.readLine())
    last = line;
  // The value after the last reported one may have been set without being reported.
  const int kept = std::stoi(JXDefaultsFile(path_).objectForKey("count").toStdString());
  EXPECT_GE(kept, std::stoi(last));
  EXPECT_LE(kept, std::stoi(last) + 1);
}

TEST_F(DefaultsFile, CompactsAFileThatIsMostlyObsolete) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("kept", "first");
  file.setObject_forKey("x", "removed");
  file.setObject_forKey(nullptr, "removed");
  fill(file, 100);
  EXPECT_GT(std::filesystem::file_size(path_), 100'000u);
  file.maintain();
  EXPECT_LT(std::filesystem::file_size(path_), 1'200u);
  EXPECT_FALSE(std::filesystem::exists(path_ + ".new"));
  file.setObject_forKey("after", "second");
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("first"), "kept");
  EXPECT_EQ(again.objectForKey("second"), "after");
  EXPECT_FALSE(again.objectForKey("removed").isPresent());
  EXPECT_EQ(again.objectForKey("filler"), "99" + std::string(1'000, '.'));
}

TEST_F(DefaultsFile, DoesNotCompactAFileOfCurrentValues) {
  JXDefaultsFile file(path_);
  for (int i = 0; i < 100; ++i) {
    file.setObject_forKey(std::string(1'000, '.'), "key " + std::to_string(i));
  }
  const std::string before = contentOf(path_);
  file.maintain();
  EXPECT_EQ(contentOf(path_), before);
}

TEST_F(DefaultsFile, DoesNotCompactWhileAnotherInstanceHasTheFileOpen) {
  JXDefaultsFile file(path_);
  {
    JXDefaultsFile other(path_);
    fill(file, 100);
    file.maintain();
    EXPECT_GT(std::filesystem::file_size(path_), 100'000u);
    other.setObject_forKey("theirs", "other");
  }
  file.setObject_forKey("ours", "own");
  file.maintain();
  EXPECT_LT(std::filesystem::file_size(path_), 1'200u);
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("other"), "theirs");
  EXPECT_EQ(again.objectForKey("own"), "ours");
}

TEST_F(DefaultsFile, CompactionKeepsTheLaterValueOfAnotherProcess) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  file.setObject_forKey("x", "removed by the other");
  {
    JXDefaultsFile other(path_);
    other.setObject_forKey("2", "visits");
    other.setObject_forKey(nullptr, "removed by the other");
  }
  fill(file, 100);
  file.maintain();
  EXPECT_EQ(file.objectForKey("visits"), "2");
  EXPECT_FALSE(file.objectForKey("removed by the other").isPresent());
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("visits"), "2");
}

// Called during each sync in the test below.
std::function<void()>* duringSync = nullptr;

TEST_F(DefaultsFile, KeepsAValueSetDuringTheSyncOfTheCompactedFile) {
  JXDefaultsFile file(path_);
  fill(file, 100);
  file.setObject_forKey("x", "removed");
  int syncs = 0;
  std::function<void()> change = [&] {
    file.setObject_forKey(std::to_string(++syncs), "visits");
    if (syncs == 2) file.setObject_forKey(nullptr, "removed");
  };
  duringSync = &change;
  JXFileCalls::current().synchronize = [](int descriptor) {
    (*duringSync)();
    return JXFileCalls::system().synchronize(descriptor);
  };
  file.maintain();
  JXFileCalls::current() = JXFileCalls::system();
  // One sync of the old file, one of the new file.
  EXPECT_EQ(syncs, 2);
  EXPECT_LT(std::filesystem::file_size(path_), 2'000u);
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("visits"), "2");
  EXPECT_FALSE(again.objectForKey("removed").isPresent());
}

TEST_F(DefaultsFile, MaintenanceWritesNoPartOfTheValuesThatAreSetTogether) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  file.beginChanges();
  file.setObject_forKey("7", "duration");
  std::thread([&] { file.maintain(); }).join();
  EXPECT_FALSE(JXDefaultsFile(path_).objectForKey("duration").isPresent());
  file.setObject_forKey("2", "visits");
  file.endChanges();
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("duration"), "7");
  EXPECT_EQ(again.objectForKey("visits"), "2");
}

// A rewrite replaces the file by the values in memory, of which the set is not complete.
TEST_F(DefaultsFile, CompactionWritesNoPartOfTheValuesThatAreSetTogether) {
  JXDefaultsFile file(path_);
  for (int i = 0; i < 1'000; ++i)
    file.setObject_forKey(std::to_string(i) + std::string(200, '.'), "large");
  file.setObject_forKey("1", "visits");
  file.beginChanges();
  file.setObject_forKey("2", "visits");
  std::thread([&] { file.maintain(); }).join();
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("visits"), "1");
  file.endChanges();
  file.maintain();
  EXPECT_LT(std::filesystem::file_size(path_), 64u * 1024);
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("visits"), "2");
}

TEST_F(DefaultsFile, AcceptsValuesFromOtherThreadsDuringMaintenance) {
  JXDefaultsFile file(path_);
  std::thread setter([&] {
    for (int i = 0; i < 3'000; ++i) {
      file.setObject_forKey(std::to_string(i) + std::string(200, '.'), "k" + std::to_string(i % 7));
    }
  });
  for (int i = 0; i < 20; ++i)
    file.maintain();
  setter.join();
  file.maintain();
  JXDefaultsFile again(path_);
  for (int key = 0; key < 7; ++key) {
    const std::string name = "k" + std::to_string(key);
    EXPECT_TRUE(again.objectForKey(name).isPresent());
    EXPECT_EQ(again.objectForKey(name), file.objectForKey(name));
  }
  EXPECT_EQ(again.objectForKey("k3"), "2999" + std::string(200, '.'));
}

TEST_F(DefaultsFile, DamageLosesOneEntryAndIsRemovedByMaintenance) {
  {
    JXDefaultsFile file(path_);
    file.setObject_forKey("1", "first");
    file.setObject_forKey("2", "second");
    file.setObject_forKey("3", "third");
  }
  std::string content = contentOf(path_);
  content[content.find("second")] = 'S';
  writeFile(path_, content);
  JXDefaultsFile file(path_);
  EXPECT_EQ(file.objectForKey("first"), "1");
  EXPECT_FALSE(file.objectForKey("second").isPresent());
  EXPECT_EQ(file.objectForKey("third"), "3");
  EXPECT_EQ(file.damaged(), 1u);
  EXPECT_EQ(log_.with("2 user defaults"), 1u);
  file.maintain();
  EXPECT_EQ(contentOf(path_).find("Second"), std::string::npos);
  EXPECT_EQ(JXDefaultsFile(path_).damaged(), 0u);
}

TEST_F(DefaultsFile, KeepsValuesInMemoryUntilTheFolderCanBeCreated) {
  writeFile(folder_.file("state"), "a file where the folder should be");
  JXDefaultsFile file(path_);
  EXPECT_FALSE(file.isAvailable());
  for (int i = 0; i < 5; ++i)
    file.setObject_forKey(std::to_string(i), "visits");
  EXPECT_EQ(file.objectForKey("visits"), "4");
  EXPECT_TRUE(file.needsMaintenance());
  EXPECT_EQ(log_.with("3 user defaults " + path_ + ": cannot open the file"), 1u);
  EXPECT_GE(file.storageErrors(), 5u);

  std::filesystem::remove(folder_.file("state"));
  file.maintain();
  EXPECT_TRUE(file.isAvailable());
  EXPECT_FALSE(file.needsMaintenance());
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("visits"), "4");
}

TEST_F(DefaultsFile, KeepsValuesInMemoryWhileTheDiskIsFullAndWritesThemLater) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  FailingDisk disk(0, 1'000, FailingDisk::Write::Half);
  file.setObject_forKey("2", "visits");
  file.setObject_forKey("3", "visits");
  file.maintain();
  EXPECT_FALSE(file.isAvailable());
  EXPECT_EQ(file.objectForKey("visits"), "3");
  EXPECT_EQ(log_.with("cannot write a value"), 1u);
  disk.heal();
  file.maintain();
  EXPECT_TRUE(file.isAvailable());
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("visits"), "3");
}

TEST_F(DefaultsFile, LosesNothingWhenCompactionFailsAtAnyCall) {
  bool failed = true;
  for (long call = 0; failed; ++call) {
    const std::string path = folder_.file("state/" + std::to_string(call));
    JXDefaultsFile file(path);
    file.setObject_forKey("kept", "first");
    fill(file, 100);
    {
      const FailingDisk disk(call, call + 1, FailingDisk::Write::Half);
      file.maintain();
      failed = disk.calls() > call;
    }
    file.setObject_forKey("after", "second");
    JXDefaultsFile again(path);
    EXPECT_EQ(again.objectForKey("first"), "kept") << call;
    EXPECT_EQ(again.objectForKey("second"), "after") << call;
    EXPECT_EQ(again.objectForKey("filler"), "99" + std::string(1'000, '.')) << call;
    EXPECT_EQ(file.storageErrors(), failed ? 1u : 0u) << call;
    // Sync of the file and the folder, then open, write, sync and rename of the new file.
    EXPECT_TRUE(failed || call >= 6) << call;
  }
}

TEST_F(DefaultsFile, ReadsAReadOnlyFile) {
  { JXDefaultsFile(path_).setObject_forKey("1", "visits"); }
  ::chmod(folder_.path().c_str(), 0755);
  ::chmod(folder_.file("state").c_str(), 0555);
  ::chmod(path_.c_str(), 0444);
  ChildProcess child([&](int) {
    if (!becomeOrdinaryUser()) return 1;
    JXDefaultsFile file(path_);
    if (file.isAvailable() || file.objectForKey("visits") != JXString("1")) return 2;
    file.setObject_forKey("2", "visits");
    return file.objectForKey("visits") == JXString("2") && !file.isAvailable() ? 0 : 3;
  });
  EXPECT_EQ(child.wait(), 0);
  ::chmod(folder_.file("state").c_str(), 0755);
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("visits"), "1");
}

TEST_F(DefaultsFile, RecreatesARemovedFolderWithAllValues) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  std::filesystem::remove_all(folder_.file("state"));
  file.setObject_forKey("2", "starts");
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("visits"), "1");
  EXPECT_EQ(again.objectForKey("starts"), "2");
}

TEST_F(DefaultsFile, WritesAllValuesAgainAfterTheFolderWasRenamed) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  std::filesystem::rename(folder_.file("state"), folder_.file("elsewhere"));
  file.setObject_forKey("2", "starts");
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("visits"), "1");
  EXPECT_EQ(again.objectForKey("starts"), "2");
}

TEST_F(DefaultsFile, WritesGroupedChangesToTheFolderThatReplacedItsOwn) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("1", "visits");
  std::filesystem::rename(folder_.file("state"), folder_.file("elsewhere"));
  std::filesystem::create_directory(folder_.file("state"));
  file.beginChanges();
  file.setObject_forKey("2", "starts");
  file.endChanges();
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("visits"), "1");
  EXPECT_EQ(again.objectForKey("starts"), "2");
}

TEST_F(DefaultsFile, LogSinkMayCallBack) {
  JXDefaultsFile file(path_);
  int calls = 0;
  JXLogger::sharedInstance().setSink([&](int, std::string_view) {
    ++calls;
    EXPECT_EQ(file.objectForKey("visits"), "1");
  });
  const FailingDisk disk(0, 1'000, FailingDisk::Write::Nothing);
  file.setObject_forKey("1", "visits");
  EXPECT_EQ(calls, 1);
}

TEST_F(DefaultsFile, WritesGroupedChangesOnceAndReturnsThemImmediately) {
  {
    JXDefaultsFile file(path_);
    file.setObject_forKey("0", "before");
    const FailingDisk counting(0, 0, FailingDisk::Write::Nothing);
    file.beginChanges();
    file.setObject_forKey("5", "last_call");
    file.setObject_forKey("7", "usage");
    file.setObject_forKey(nullptr, "before");
    EXPECT_EQ(file.objectForKey("usage"), "7");
    EXPECT_EQ(counting.calls(), 0);
    file.endChanges();
    EXPECT_EQ(counting.calls(), 1);
    EXPECT_TRUE(file.isAvailable());
  }
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("last_call"), "5");
  EXPECT_EQ(again.objectForKey("usage"), "7");
  EXPECT_FALSE(again.objectForKey("before").isPresent());
}

TEST_F(DefaultsFile, DoesNotDelayChangesOfAnotherThread) {
  JXDefaultsFile file(path_);
  file.setObject_forKey("0", "before");
  const FailingDisk counting(0, 0, FailingDisk::Write::Nothing);
  file.beginChanges();
  file.setObject_forKey("mine", "a");
  std::thread([&] {
    file.beginChanges();
    file.setObject_forKey("theirs", "b");
    EXPECT_EQ(counting.calls(), 1);
    file.endChanges();
  }).join();
  file.endChanges();
  // The other thread has written its own value only.
  EXPECT_EQ(counting.calls(), 2);
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("a"), "mine");
  EXPECT_EQ(JXDefaultsFile(path_).objectForKey("b"), "theirs");
}

TEST_F(DefaultsFile, RetriesGroupedChangesAfterAWriteError) {
  {
    JXDefaultsFile file(path_);
    file.setObject_forKey("0", "before");
    FailingDisk disk(0, std::numeric_limits<long>::max(), FailingDisk::Write::Half);
    file.beginChanges();
    file.setObject_forKey("5", "last_call");
    file.setObject_forKey("7", "usage");
    file.endChanges();
    EXPECT_FALSE(file.isAvailable());
    EXPECT_EQ(file.objectForKey("last_call"), "5");
    disk.heal();
    file.maintain();
    EXPECT_TRUE(file.isAvailable());
  }
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("before"), "0");
  EXPECT_EQ(again.objectForKey("last_call"), "5");
  EXPECT_EQ(again.objectForKey("usage"), "7");
}

TEST_F(DefaultsFile, KeepsAValueSetAfterTheFileWasReplaced) {
  {
    JXDefaultsFile file(path_);
    file.setObject_forKey("1", "visits");
    file.setObject_forKey("1", "calls");
    std::filesystem::copy_file(path_, path_ + ".other");
    std::filesystem::rename(path_ + ".other", path_);
    file.setObject_forKey("2", "visits");
    EXPECT_EQ(file.objectForKey("visits"), "2");
    std::filesystem::copy_file(path_, path_ + ".other");
    std::filesystem::rename(path_ + ".other", path_);
    file.beginChanges();
    file.setObject_forKey("2", "calls");
    file.endChanges();
    EXPECT_EQ(file.objectForKey("calls"), "2");
  }
  JXDefaultsFile again(path_);
  EXPECT_EQ(again.objectForKey("visits"), "2");
  EXPECT_EQ(again.objectForKey("calls"), "2");
}

}  // namespace
}  // namespace jx
