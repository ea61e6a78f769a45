// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXForkedChild.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/socket.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <thread>

#include "jx/core/JXLogger.h"
#include "jx/core/JXOwnedDescriptors.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/storage/JXFile.h"
#include "jx/core/storage/JXFolder.h"
#include "jx/core/transfer/JXSocketGate.h"
#include "tests/support/ForkedChild.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using Access = JXFile::Access;

bool isOpen(int descriptor) { return ::fcntl(descriptor, F_GETFD) >= 0; }

// The number that the next descriptor of the process gets.
int nextDescriptor() {
  const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  ::close(descriptor);
  return descriptor;
}

JXFile openFile(const std::string& path, int& error) {
  return JXFile::open(path, Access::Append, error);
}

TEST(ForkedChild, IsDetectedOnlyAfterTheFirstWatch) {
  EXPECT_FALSE(JXForkedChild::isCurrent());
  EXPECT_EQ(0, statusOfForkedChild([] { return JXForkedChild::isCurrent() ? 1 : 0; }));
  JXForkedChild::watch();
  JXForkedChild::watch();
  EXPECT_FALSE(JXForkedChild::isCurrent());
  EXPECT_EQ(0, statusOfForkedChild([] {
              // A child of the child has no threads of the SDK either.
              return JXForkedChild::isCurrent()
                         ? statusOfForkedChild([] { return JXForkedChild::isCurrent() ? 0 : 2; })
                         : 1;
            }));
  EXPECT_FALSE(JXForkedChild::isCurrent());
}

TEST(ForkedChild, LogsTheFirstIgnoredCallOnly) {
  const LinePipe log;
  JXForkedChild::watch();
  JXLogger::sharedInstance().setMaxLevel(6);
  JXLogger::sharedInstance().setSink([&](int level, std::string_view message) {
    log.write(std::to_string(level) + " " + std::string(message));
  });
  EXPECT_FALSE(JXForkedChild::ignores("parent()"));
  EXPECT_EQ(0, statusOfForkedChild([] {
              JXLogger::sharedInstance().logMessage_withLevel("any other message", 2);
              if (!JXForkedChild::ignores("first()")) return 1;
              return JXForkedChild::ignores("second()") ? 0 : 2;
            }));
  EXPECT_EQ("3 first() called in a forked child process; ignored\n", log.readAll());
}

TEST(ForkedChild, KeepsNoFileLock) {
  const TemporaryFolder folder;
  JXForkedChild::watch();
  const LinePipe toChild;
  const LinePipe toParent;
  int error = 0;
  JXFile file = openFile(folder.path("file"), error);
  ASSERT_TRUE(file.tryLock(JXFile::Lock::Exclusive));
  const pid_t child = ::fork();
  if (child == 0) {
    toParent.write("forked");
    toChild.readLine();
    ::_exit(0);
  }
  EXPECT_EQ("forked", toParent.readLine());
  file.close();
  JXFile another = openFile(folder.path("file"), error);
  EXPECT_TRUE(another.tryLock(JXFile::Lock::Exclusive)) << "the sleeping child keeps the lock";
  toChild.write("end");
  ::waitpid(child, nullptr, 0);
}

TEST(ForkedChild, LeavesTheLockToTheParent) {
  const TemporaryFolder folder;
  JXForkedChild::watch();
  int error = 0;
  JXFile file = openFile(folder.path("file"), error);
  ASSERT_TRUE(file.tryLock(JXFile::Lock::Exclusive));
  EXPECT_EQ(0, statusOfForkedChild([&] {
              file.unlock();
              file.close();
              return 0;
            }));
  JXFile another = openFile(folder.path("file"), error);
  EXPECT_FALSE(another.tryLock(JXFile::Lock::Exclusive));
}

TEST(ForkedChild, ChangesNoFile) {
  const TemporaryFolder folder;
  const std::string path = folder.write("file", "content");
  JXForkedChild::watch();
  int error = 0;
  JXFile file = openFile(path, error);
  EXPECT_EQ(0, statusOfForkedChild([&] {
              char text[] = "more";
              const iovec part{text, 4};
              std::size_t count = 0;
              int failures = file.append(&part, 1, count) != 0 ? 1 : 0;
              failures += file.truncate(0) != 0 ? 1 : 0;
              failures += file.synchronize() != 0 ? 1 : 0;
              failures += file.read(0, text, 4, count) != 0 ? 1 : 0;
              failures += removeFile(path) == EPERM ? 1 : 0;
              failures += replaceFile(path, path + "2", 0) == EPERM ? 1 : 0;
              failures += makeFolder(folder.path("new")) == EPERM ? 1 : 0;
              failures += !openFile(folder.path("other"), error).isOpen() && error == EPERM ? 1 : 0;
              return failures == 8 ? 0 : failures + 1;
            }));
  std::uint64_t size = 0;
  EXPECT_EQ(0, file.size(size));
  EXPECT_EQ(7u, size);
  std::vector<std::string> names;
  listFolder(folder.path(), names);
  EXPECT_EQ(std::vector<std::string>{"file"}, names);
}

TEST(ForkedChild, ClosesNoDescriptorOfTheApplication) {
  const TemporaryFolder folder;
  JXForkedChild::watch();
  int error = 0;
  const int number = nextDescriptor();
  {
    JXFile file = openFile(folder.path("file"), error);
    EXPECT_EQ(0, statusOfForkedChild([&] {
                if (isOpen(number)) return 1;
                if (::open("/dev/null", O_RDONLY) != number) return 2;
                file.close();
                file = JXFile();
                return isOpen(number) ? 0 : 3;
              }));
  }
  // The file is closed; the application reuses its number.
  const int reused = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(number, reused);
  EXPECT_EQ(0, statusOfForkedChild([&] { return isOpen(reused) ? 0 : 1; }));
  ::close(reused);
}

TEST(ForkedChild, ClosesTheSocketsOfTheTransport) {
  JXForkedChild::watch();
  JXSocketGate gate;
  const int first = gate.open(AF_INET, SOCK_STREAM, 0);
  const int duplicate = first + 1;
  ASSERT_TRUE(isOpen(duplicate));
  EXPECT_EQ(0, statusOfForkedChild([&] { return isOpen(first) || isOpen(duplicate) ? 1 : 0; }));
  EXPECT_TRUE(isOpen(first));
  EXPECT_TRUE(isOpen(duplicate));
  // libcurl closed the socket on its own, and the application reuses its number.
  ::close(first);
  const int reused = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(first, reused);
  EXPECT_EQ(0, statusOfForkedChild([&] { return isOpen(reused) && !isOpen(duplicate) ? 0 : 1; }));
  ::close(reused);
}

// Opens a device, because a fork waits only briefly, and a loaded disk may take longer.
TEST(ForkedChild, InheritsNoDescriptorThatAnotherThreadOpensDuringTheFork) {
  JXForkedChild::watch();
  std::atomic<bool> ends{false};
  std::thread opener([&] {
    while (!ends)
      closeDescriptor(openDescriptor(AT_FDCWD, "/dev/zero", O_RDONLY | O_CLOEXEC));
  });
  int leaks = 0;
  for (int i = 0; i < 300; ++i) {
    leaks += statusOfForkedChild([] {
      char target[4096];
      for (int descriptor = 3; descriptor < 64; ++descriptor) {
        const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
        const ssize_t size = ::readlink(link.c_str(), target, sizeof target);
        if (size > 0 && std::string(target, static_cast<std::size_t>(size)) == "/dev/zero") {
          return 1;
        }
      }
      return 0;
    });
  }
  ends = true;
  opener.join();
  EXPECT_EQ(0, leaks);
}

TEST(ForkedChild, IsForkedAlthoughAnOpenHangs) {
  JXForkedChild::watch();
  const LinePipe begun;
  const LinePipe end;
  std::thread hanging([&] {
    const JXOwnedDescriptors::Change change;
    begun.write("begun");
    end.readLine();
  });
  EXPECT_EQ("begun", begun.readLine());
  EXPECT_EQ(0, statusOfForkedChild([] { return JXForkedChild::isCurrent() ? 0 : 1; }));
  end.write("end");
  hanging.join();
  // The next change waits for nothing.
  const JXOwnedDescriptors::Change change;
}

TEST(ForkedChild, CreatesAnObjectThatAThreadOfTheParentIsCreating) {
  JXForkedChild::watch();
  JXOnce<int> once;
  int ofParent = 1;
  int ofChild = 2;
  const LinePipe begun;
  const LinePipe end;
  std::thread creator([&] {
    once.get([&] {
      begun.write("begun");
      end.readLine();
      return &ofParent;
    });
  });
  EXPECT_EQ("begun", begun.readLine());
  EXPECT_EQ(0,
            statusOfForkedChild([&] { return once.get([&] { return &ofChild; }) == 2 ? 0 : 1; }));
  end.write("end");
  creator.join();
  EXPECT_EQ(1, once.get([&] { return &ofChild; }));
}

}  // namespace
}  // namespace jx::test
