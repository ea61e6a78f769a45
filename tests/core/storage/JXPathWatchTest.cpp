// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#if defined(__linux__)
#include "jx/core/storage/JXPathWatch.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/fs.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

#include "jx/core/JXForkedChild.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXFile.h"
#include "tests/core/storage/JXChildProcess.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/support/ForkedChild.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

constexpr int kMayNotMount = 77;

// A storage folder with the folder of the outbox, which are two levels below a folder of the test.
class PathWatch : public ::testing::Test {
 protected:
  PathWatch() { fs::create_directories(outbox_); }
  ~PathWatch() override { JXFileCalls::current() = JXFileCalls::system(); }

  // Returns whether `changes` returns another number once `change` has returned, and that one again
  // afterwards unless `breaksThePath`.
  template <typename Change>
  static bool reports(JXPathWatch& watch, bool breaksThePath, const Change& change) {
    watch.renew();
    const std::uint64_t before = watch.changes();
    EXPECT_EQ(watch.changes(), before);
    change();
    const std::uint64_t after = watch.changes();
    EXPECT_TRUE(breaksThePath || settles(watch));
    return after != before;
  }
  static bool settles(JXPathWatch& watch) {
    watch.changes();
    const std::uint64_t last = watch.changes();
    return watch.changes() == last;
  }
  static bool isWatching(JXPathWatch& watch) {
    const std::uint64_t last = watch.changes();
    return watch.changes() == last;
  }

  // Stands still, so that a slow test does not report changes.
  static std::chrono::milliseconds& now() {
    static std::chrono::milliseconds now{1'000'000};
    return now;
  }

  TemporaryFolder folder_;
  const std::string parent_ = folder_.file("parent");
  const std::string state_ = parent_ + "/state";
  const std::string outbox_ = state_ + "/outbox";
  JXPathWatch watch_{state_, "outbox", [] { return now(); }};
};

TEST_F(PathWatch, ReportsNothingWhileFilesAreCreatedAndWritten) {
  EXPECT_FALSE(reports(watch_, false, [&] {
    writeFile(outbox_ + "/segment", "a");
    std::ofstream(outbox_ + "/segment", std::ios::app) << "b";
    writeFile(state_ + "/defaults", "a");
    fs::create_directory(folder_.file("other"));
    fs::remove(folder_.file("other"));
  }));
}

TEST_F(PathWatch, ReportsChangesWithEachCallBeforeItWatches) {
  JXPathWatch watch(state_, "outbox", [] { return now(); });
  EXPECT_FALSE(isWatching(watch));
  watch.renew();
  EXPECT_TRUE(isWatching(watch));
}

TEST_F(PathWatch, ReportsARenameOfEachFolder) {
  const std::string elsewhere = folder_.file("elsewhere");
  for (const std::string& moved : {parent_, state_, outbox_}) {
    EXPECT_TRUE(reports(watch_, true, [&] { fs::rename(moved, elsewhere); })) << moved;
    EXPECT_FALSE(isWatching(watch_)) << moved;
    fs::rename(elsewhere, moved);
  }
}

TEST_F(PathWatch, ReportsAnExchangeOfEachFolder) {
  for (const std::string& replaced : {parent_, state_, outbox_}) {
    fs::create_directories(folder_.file("other/state/outbox"));
    fs::create_directories(folder_.file("other/outbox"));
    const auto exchange = [&] {
      ASSERT_EQ(::syscall(SYS_renameat2, AT_FDCWD, folder_.file("other").c_str(), AT_FDCWD,
                          replaced.c_str(), RENAME_EXCHANGE),
                0);
    };
    EXPECT_TRUE(reports(watch_, false, exchange)) << replaced;
    // Watches the folders that are at the path now.
    EXPECT_TRUE(reports(watch_, false, exchange)) << replaced;
    fs::remove_all(folder_.file("other"));
  }
}

TEST_F(PathWatch, ReportsFilesThatDisappearOrAreReplaced) {
  for (const std::string& place : {state_, outbox_}) {
    const std::string file = place + "/file";
    const std::string other = folder_.file("other");
    writeFile(file, "a");
    EXPECT_TRUE(reports(watch_, false, [&] { fs::rename(file, other); })) << place;
    writeFile(file, "a");
    EXPECT_TRUE(reports(watch_, false, [&] { fs::rename(other, file); })) << place;
    EXPECT_TRUE(reports(watch_, false, [&] { fs::remove(file); })) << place;
  }
}

// The folders stay open, so that only the deletion of the file is certain to be reported.
TEST_F(PathWatch, ReportsTheRemovalOfOpenFolders) {
  writeFile(outbox_ + "/segment", "a");
  int error = 0;
  const auto open = JXFolder::open(state_, "outbox", JXFolder::Missing::Fail, error);
  ASSERT_TRUE(open);
  EXPECT_TRUE(reports(watch_, true, [&] { fs::remove_all(parent_); }));
  fs::create_directories(outbox_);
  EXPECT_FALSE(isWatching(watch_));
  watch_.renew();
  EXPECT_TRUE(settles(watch_));
  EXPECT_TRUE(reports(watch_, true, [&] { fs::rename(state_, folder_.file("elsewhere")); }));
}

TEST_F(PathWatch, DoesNotWatchAPathWithASymbolicLink) {
  fs::create_directory_symlink(parent_, folder_.file("link"));
  JXPathWatch watch(folder_.file("link/state"), "outbox");
  watch.renew();
  EXPECT_FALSE(isWatching(watch));
}

TEST_F(PathWatch, StopsWatchingWhenALinkReplacesAFolder) {
  EXPECT_TRUE(reports(watch_, true, [&] {
    fs::rename(parent_, folder_.file("elsewhere"));
    fs::create_directory_symlink(folder_.file("elsewhere"), parent_);
  }));
  EXPECT_FALSE(isWatching(watch_));
}

TEST_F(PathWatch, ReportsChangesWithEachCallWhenTheSystemHasNoWatch) {
  JXFileCalls::current().openWatch = [] {
    errno = ENOSYS;
    return -1;
  };
  watch_.renew();
  EXPECT_FALSE(isWatching(watch_));
}

TEST_F(PathWatch, ReportsAChangeAfterHundredMilliseconds) {
  watch_.renew();
  const std::uint64_t before = watch_.changes();
  now() += std::chrono::milliseconds(99);
  EXPECT_EQ(watch_.changes(), before);
  now() += std::chrono::milliseconds(1);
  EXPECT_NE(watch_.changes(), before);
  EXPECT_TRUE(isWatching(watch_));
}

TEST_F(PathWatch, LeavesTheDescriptorsOfAProcessThatMayOpenFew) {
  rlimit limit{};
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &limit), 0);
  const rlim_t before = limit.rlim_cur;
  limit.rlim_cur = 32;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  watch_.renew();
  EXPECT_FALSE(isWatching(watch_));
  limit.rlim_cur = before;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  watch_.renew();
  EXPECT_TRUE(isWatching(watch_));
}

TEST_F(PathWatch, ReportsAMoveThatFollowsMoreChangesThanTheSystemKeeps) {
  long kept = 0;
  std::ifstream("/proc/sys/fs/inotify/max_queued_events") >> kept;
  ASSERT_GT(kept, 0);
  writeFile(outbox_ + "/a", "");
  EXPECT_TRUE(reports(watch_, true, [&] {
    for (long i = 0; i < kept / 2; ++i) {  // two changes each
      fs::rename(outbox_ + "/a", outbox_ + "/b");
      fs::rename(outbox_ + "/b", outbox_ + "/a");
    }
    fs::rename(state_, folder_.file("elsewhere"));
  }));
  fs::rename(folder_.file("elsewhere"), state_);
  watch_.renew();
  EXPECT_TRUE(settles(watch_));
}

TEST_F(PathWatch, ReportsAFileSystemThatIsMountedOverAFolder) {
  ChildProcess child([&](int) {
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0 && ::unshare(CLONE_NEWNS) != 0)
      return kMayNotMount;
    if (::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return kMayNotMount;
    watch_.renew();
    if (!isWatching(watch_)) return 1;
    const std::uint64_t before = watch_.changes();
    if (::mount("none", parent_.c_str(), "tmpfs", 0, nullptr) != 0) return kMayNotMount;
    now() += JXPathWatch::kMaxAge;
    if (watch_.changes() == before) return 2;
    watch_.renew();
    return isWatching(watch_) ? 3 : 0;  // the mounted folder is empty
  });
  const int status = child.wait();
  EXPECT_TRUE(status == 0 || status == kMayNotMount) << status;
}

TEST_F(PathWatch, AForkedChildDoesNotConsumeTheChangesOfItsParent) {
  JXForkedChild::watch();
  watch_.renew();
  const std::uint64_t before = watch_.changes();
  fs::rename(state_, folder_.file("elsewhere"));
  const int status = test::statusOfForkedChild([&] {
    watch_.renew();
    for (int i = 0; i < 10; ++i) {
      if (watch_.changes() != before) return 1;
    }
    return 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_NE(watch_.changes(), before);
}

TEST_F(PathWatch, AForkedChildKeepsNoDescriptor) {
  const auto descriptors = [] {
    int count = 0;
    for (int number = 0; number < 256; ++number)
      count += ::fcntl(number, F_GETFD) >= 0 ? 1 : 0;
    return count;
  };
  JXForkedChild::watch();
  const int before = descriptors();
  watch_.renew();
  EXPECT_EQ(descriptors(), before + 1);
  EXPECT_EQ(test::statusOfForkedChild([&] { return descriptors() - before; }), 0);
  EXPECT_TRUE(isWatching(watch_));
}

}  // namespace
}  // namespace jx
#endif
