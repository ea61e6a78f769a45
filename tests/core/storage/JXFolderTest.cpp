// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "jx/core/storage/JXFile.h"
#include "tests/core/storage/JXTemporaryFolder.h"

namespace jx {
namespace {

using Missing = JXFolder::Missing;

class Folder : public ::testing::Test {
 protected:
  std::shared_ptr<const JXFolder> open(const std::string& path, const std::string& inner = "",
                                       Missing missing = Missing::Fail) {
    return JXFolder::open(path, inner, missing, error_);
  }
  // Returns the error of opening the file for writing.
  int errorOfFile(const std::string& path, JXFile::Access access = JXFile::Access::Append) {
    int error = 0;
    JXFile::open(path, access, error);
    return error;
  }

  const TemporaryFolder folder_;
  const std::string path_ = folder_.file("state");
  int error_ = -1;
};

TEST_F(Folder, IsCreatedWithItsParentsForThisUserOnly) {
  const auto opened = open(path_ + "/a", "outbox", Missing::Create);
  ASSERT_TRUE(opened);
  EXPECT_EQ(opened->path(), path_ + "/a/outbox");
  for (const std::string& each : {path_, path_ + "/a", path_ + "/a/outbox"}) {
    struct stat status {};
    ASSERT_EQ(::stat(each.c_str(), &status), 0) << each;
    EXPECT_EQ(status.st_mode & 0777u, 0700u) << each;
  }
}

TEST_F(Folder, IsNotCreatedUnlessToldSo) {
  EXPECT_FALSE(open(path_));
  EXPECT_EQ(error_, ENOENT);
}

TEST_F(Folder, IsRefusedIfItIsASymbolicLink) {
  ASSERT_EQ(makeFolder(folder_.file("target")), 0);
  ASSERT_EQ(::symlink("target", path_.c_str()), 0);
  EXPECT_FALSE(open(path_));
  EXPECT_EQ(error_, ELOOP);
  EXPECT_EQ(describeStorageError(error_), "It is a symbolic link");
  EXPECT_FALSE(open(path_, "outbox", Missing::Create));
  EXPECT_EQ(error_, ELOOP);
}

TEST_F(Folder, IsRefusedIfTheInnerFolderIsASymbolicLink) {
  ASSERT_EQ(makeFolder(folder_.file("target")), 0);
  ASSERT_EQ(makeFolder(path_), 0);
  ASSERT_EQ(::symlink("../target", (path_ + "/outbox").c_str()), 0);
  EXPECT_FALSE(open(path_, "outbox", Missing::Create));
  EXPECT_EQ(error_, ELOOP);
}

TEST_F(Folder, MayHaveParentsThatAreSymbolicLinks) {
  ASSERT_EQ(makeFolder(folder_.file("target")), 0);
  ASSERT_EQ(::symlink("target", folder_.file("parent").c_str()), 0);
  EXPECT_TRUE(open(folder_.file("parent") + "/state", "", Missing::Create));
}

TEST_F(Folder, IsRefusedIfOtherUsersCanWriteToIt) {
  ASSERT_EQ(makeFolder(path_), 0);
  ASSERT_EQ(::chmod(path_.c_str(), 0707), 0);
  EXPECT_FALSE(open(path_));
  EXPECT_EQ(error_, kJXErrorWritable);
  EXPECT_EQ(describeStorageError(error_), "Other users can write to it");
  ASSERT_EQ(::chmod(path_.c_str(), 0775), 0);
  EXPECT_TRUE(open(path_)) << "the group of this user";
}

TEST_F(Folder, IsRefusedIfItBelongsToAnotherUser) {
  struct stat status {};
  status.st_mode = S_IFDIR | 0700;
  status.st_uid = ::geteuid() + 1;
  EXPECT_EQ(checkAccess(status), kJXErrorForeign);
  status.st_uid = 0;
  EXPECT_EQ(checkAccess(status), 0) << "the superuser";
  EXPECT_EQ(describeStorageError(kJXErrorForeign), "It belongs to another user");
  status.st_uid = ::geteuid();
  status.st_gid = ::getegid() + 1;
  EXPECT_EQ(checkAccess(status), 0);
  status.st_mode = S_IFDIR | 0770;
  EXPECT_EQ(checkAccess(status), kJXErrorWritable) << "a group of other users";
}

TEST_F(Folder, IsAtItsPathUntilItIsRenamedOrReplaced) {
  const auto opened = open(path_, "", Missing::Create);
  EXPECT_TRUE(opened->isAtPath());
  ASSERT_EQ(std::rename(path_.c_str(), folder_.file("other").c_str()), 0);
  EXPECT_FALSE(opened->isAtPath());
  ASSERT_EQ(makeFolder(path_), 0);
  EXPECT_FALSE(opened->isAtPath());
}

TEST_F(Folder, OpensItsFilesAfterItWasRenamed) {
  const auto opened = open(path_, "", Missing::Create);
  writeFile(path_ + "/a", "old");
  ASSERT_EQ(std::rename(path_.c_str(), folder_.file("other").c_str()), 0);
  ASSERT_EQ(makeFolder(path_), 0);
  writeFile(path_ + "/a", "newer");
  std::uint64_t size = 0;
  const JXFile file = JXFile::open(*opened, "a", JXFile::Access::Read, error_);
  EXPECT_EQ(file.size(size), 0);
  EXPECT_EQ(size, 3u);
  EXPECT_EQ(removeFile(*opened, "a"), 0);
  EXPECT_EQ(contentOf(path_ + "/a"), "newer");
}

TEST_F(Folder, RefusesFilesThatAreLinks) {
  ASSERT_EQ(makeFolder(path_), 0);
  const std::string target = folder_.file("target");
  writeFile(target, "content");
  ASSERT_EQ(::symlink(target.c_str(), (path_ + "/symbolic").c_str()), 0);
  ASSERT_EQ(::link(target.c_str(), (path_ + "/hard").c_str()), 0);
  EXPECT_EQ(errorOfFile(path_ + "/symbolic"), ELOOP);
  EXPECT_EQ(errorOfFile(path_ + "/hard"), kJXErrorLinked);
  EXPECT_EQ(errorOfFile(path_ + "/symbolic", JXFile::Access::Read), ELOOP);
  EXPECT_EQ(errorOfFile(path_ + "/hard", JXFile::Access::Read), kJXErrorLinked);
  EXPECT_EQ(describeStorageError(kJXErrorLinked), "It is a hard link");
  EXPECT_EQ(contentOf(target), "content");
}

TEST_F(Folder, EmptiesAFileByReplacingItAndLeavesTheTargetOfALink) {
  ASSERT_EQ(makeFolder(path_), 0);
  const std::string target = folder_.file("target");
  writeFile(target, "content");
  ASSERT_EQ(::symlink(target.c_str(), (path_ + "/symbolic").c_str()), 0);
  ASSERT_EQ(::link(target.c_str(), (path_ + "/hard").c_str()), 0);
  EXPECT_EQ(errorOfFile(path_ + "/symbolic", JXFile::Access::AppendEmptied), 0);
  EXPECT_EQ(errorOfFile(path_ + "/hard", JXFile::Access::AppendEmptied), 0);
  EXPECT_EQ(contentOf(target), "content");
  EXPECT_EQ(contentOf(path_ + "/hard"), "");
}

TEST_F(Folder, RefusesAFileThatOthersCanWrite) {
  ASSERT_EQ(makeFolder(path_), 0);
  writeFile(path_ + "/a", "");
  ASSERT_EQ(::chmod((path_ + "/a").c_str(), 0602), 0);
  EXPECT_EQ(errorOfFile(path_ + "/a"), kJXErrorWritable);
}

TEST_F(Folder, RefusesANamedPipeWithoutWaiting) {
  ASSERT_EQ(makeFolder(path_), 0);
  ASSERT_EQ(::mkfifo((path_ + "/a").c_str(), 0600), 0);
  EXPECT_EQ(errorOfFile(path_ + "/a"), EINVAL);
}

TEST(FolderPath, IsAbsolute) {
  const TemporaryFolder folder;
  const std::string before = absolutePath(".");
  ASSERT_EQ(::chdir(folder.path().c_str()), 0);
  EXPECT_EQ(absolutePath("state/a"), folder.path() + "/state/a");
  EXPECT_EQ(absolutePath("/state"), "/state");
  EXPECT_EQ(absolutePath(""), "");
  ASSERT_EQ(::chdir(before.c_str()), 0);
}

TEST(FolderPath, HasAFolderAndAName) {
  EXPECT_EQ(nameOf("/a/b"), "b");
  EXPECT_EQ(nameOf("/a/b//"), "b");
  EXPECT_EQ(nameOf("b"), "b");
  EXPECT_EQ(nameOf("/"), "/");
  EXPECT_EQ(nameOf(""), "");
  EXPECT_EQ(folderOf("/a/b//"), "/a");
  EXPECT_EQ(folderOf("b"), ".");
}

}  // namespace
}  // namespace jx
