// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXJournal.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <vector>

#include "jx/core/storage/JXQuarantine.h"
#include "tests/core/storage/JXTemporaryFolder.h"
#include "tests/support/JXFailingDisk.h"

namespace jx {
namespace {

using Texts = std::vector<std::string>;

struct Opened {
  JXJournal journal;
  JXJournal::Recovery recovery;
  Texts texts;
};

Opened openJournal(const std::string& path, JXJournal::Writers writers = JXJournal::Writers::One) {
  int error = 0;
  Opened opened{JXJournal(JXFile::open(path, JXFile::Access::Append, error), path), {}, {}};
  EXPECT_EQ(error, 0);
  opened.recovery = opened.journal.recover(
      writers, [&](const JXFrame& frame) { opened.texts.emplace_back(frame.payload); });
  return opened;
}

int append(JXJournal& journal, const std::string& text, std::uint64_t* offset = nullptr) {
  return journal.append({text}, offset);
}

void appendTo(const std::string& path, const std::string& text) {
  Opened opened = openJournal(path);
  EXPECT_EQ(append(opened.journal, text), 0);
}

Texts scanned(const std::string& path) {
  Texts texts;
  EXPECT_EQ(JXJournal::scan(path, [&](const JXFrame& frame) { texts.emplace_back(frame.payload); }),
            0);
  return texts;
}

TEST(Journal, ReturnsFramesInOrder) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  {
    Opened opened = openJournal(path);
    EXPECT_EQ(append(opened.journal, "one"), 0);
    EXPECT_EQ(append(opened.journal, ""), 0);
    EXPECT_EQ(append(opened.journal, std::string(200'000, 'x')), 0);
    EXPECT_EQ(opened.journal.sync(), 0);
  }
  const Opened again = openJournal(path);
  EXPECT_EQ(again.texts, (Texts{"one", "", std::string(200'000, 'x')}));
  EXPECT_EQ(again.recovery.error, 0);
  EXPECT_FALSE(again.recovery.quarantined.copied);
}

TEST(Journal, WritesAPayloadInPartsAsOneFrame) {
  const TemporaryFolder folder;
  Opened opened = openJournal(folder.file("j"));
  std::uint64_t offset = 0;
  ASSERT_EQ(opened.journal.append({"head", "", "body"}, &offset), 0);
  std::string payload;
  ASSERT_EQ(opened.journal.read(offset, 8, payload), 0);
  EXPECT_EQ(payload, "headbody");
  EXPECT_EQ(scanned(folder.file("j")), Texts{"headbody"});
}

TEST(Journal, WritesEachFrameWithOneWrite) {
  const TemporaryFolder folder;
  Opened opened = openJournal(folder.file("j"));
  const FailingDisk disk(0, 0, FailingDisk::Write::Nothing);
  append(opened.journal, "one");
  EXPECT_EQ(disk.calls(), 1);
  append(opened.journal, "two");
  EXPECT_EQ(disk.calls(), 2);
}

TEST(Journal, CreatesFilesReadableOnlyByTheirOwner) {
  const TemporaryFolder folder;
  openJournal(folder.file("j"));
  struct stat status {};
  ASSERT_EQ(::stat(folder.file("j").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST(Journal, OpensAnEmptyFileAsAnEmptyJournal) {
  const TemporaryFolder folder;
  writeFile(folder.file("j"), "");
  EXPECT_TRUE(openJournal(folder.file("j")).texts.empty());
  EXPECT_TRUE(scanned(folder.file("j")).empty());
}

TEST(Journal, QuarantinesAForeignFileAndContinues) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  writeFile(path, "{\"not\": \"ours\"}\n");
  Opened opened = openJournal(path);
  EXPECT_TRUE(opened.texts.empty());
  EXPECT_TRUE(opened.recovery.quarantined.copied);
  EXPECT_EQ(contentOf(path + ".damaged-0"), "{\"not\": \"ours\"}\n");
  append(opened.journal, "one");
  EXPECT_EQ(openJournal(path).texts, Texts{"one"});
}

TEST(Journal, QuarantinesAndTruncatesATornLastFrame) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  appendTo(path, "one");
  const std::string whole = contentOf(path);
  writeFile(path, whole + whole.substr(8, 10));
  Opened opened = openJournal(path);
  EXPECT_EQ(opened.texts, Texts{"one"});
  EXPECT_TRUE(opened.recovery.quarantined.copied);
  EXPECT_EQ(contentOf(path), whole);
  EXPECT_EQ(contentOf(path + ".damaged-" + std::to_string(whole.size())), whole.substr(8, 10));
  append(opened.journal, "two");
  EXPECT_EQ(openJournal(path).texts, (Texts{"one", "two"}));
}

TEST(Journal, ScanIgnoresATornEndAndChangesNothing) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  appendTo(path, "one");
  const std::string torn = contentOf(path) + "torn";
  writeFile(path, torn);
  EXPECT_EQ(scanned(path), Texts{"one"});
  EXPECT_EQ(contentOf(path), torn);
  EXPECT_EQ(filesNamed(folder.path(), ""), 1u);
}

TEST(Journal, DoesNotTruncateWithSeveralWriters) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  appendTo(path, "one");
  const std::string torn = contentOf(path) + "torn";
  writeFile(path, torn);
  Opened opened = openJournal(path, JXJournal::Writers::Several);
  EXPECT_TRUE(opened.recovery.damageRemains);
  EXPECT_EQ(contentOf(path), torn);
  append(opened.journal, "two");
  EXPECT_EQ(scanned(path), (Texts{"one", "two"}));
}

TEST(Journal, TreatsAnImplausibleLengthAsDamage) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  appendTo(path, "one");
  appendTo(path, "two");
  std::string content = contentOf(path);
  // The length of the first frame, after the magic of the file and of the frame.
  for (std::size_t i = 12; i < 16; ++i)
    content[i] = '\xFF';
  writeFile(path, content);
  EXPECT_EQ(scanned(path), Texts{"two"});
}

TEST(Journal, LimitsTheNumberOfQuarantineFiles) {
  const TemporaryFolder folder;
  for (int i = 0; i < 20; ++i) {
    const std::string path = folder.file("j" + std::to_string(i));
    writeFile(path, "garbage");
    openJournal(path);
  }
  EXPECT_EQ(filesNamed(folder.path(), ".damaged-"), kJXMaxQuarantinedFiles);
  EXPECT_EQ(contentOf(folder.file("j19.damaged-0")), "garbage");
}

TEST(Journal, ReturnsEBADMSGWhenThereIsNoFrame) {
  const TemporaryFolder folder;
  Opened opened = openJournal(folder.file("j"));
  std::uint64_t offset = 0;
  append(opened.journal, "one", &offset);
  std::string payload = "unchanged";
  EXPECT_EQ(opened.journal.read(offset, 2, payload), EBADMSG);
  EXPECT_EQ(opened.journal.read(offset + 1, 3, payload), EBADMSG);
  EXPECT_EQ(opened.journal.read(offset + 1'000, 3, payload), EBADMSG);
  EXPECT_EQ(opened.journal.read(offset, 0xFFFFFFF0u, payload), EBADMSG);
  EXPECT_EQ(payload, "unchanged");
}

TEST(Journal, RevertsAShortWrite) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  Opened opened = openJournal(path);
  append(opened.journal, "one");
  const std::string before = contentOf(path);
  {
    const FailingDisk disk(0, 1, FailingDisk::Write::Half);
    EXPECT_EQ(append(opened.journal, "never"), ENOSPC);
  }
  EXPECT_EQ(contentOf(path), before);
  EXPECT_EQ(append(opened.journal, "two"), 0);
  EXPECT_EQ(scanned(path), (Texts{"one", "two"}));
}

TEST(Journal, ReadsFramesAfterAShortWriteThatCannotBeReverted) {
  const TemporaryFolder folder;
  const std::string path = folder.file("j");
  Opened opened = openJournal(path);
  append(opened.journal, "one");
  {
    const FailingDisk disk(0, 2, FailingDisk::Write::Half, EIO);
    EXPECT_NE(append(opened.journal, "never"), 0);
  }
  std::uint64_t offset = 0;
  EXPECT_EQ(append(opened.journal, "two", &offset), 0);
  std::string payload;
  EXPECT_EQ(opened.journal.read(offset, 3, payload), 0);
  EXPECT_EQ(payload, "two");
  EXPECT_EQ(openJournal(path).texts, (Texts{"one", "two"}));
}

TEST(Journal, RejectsAPathThatIsNotARegularFile) {
  const TemporaryFolder folder;
  int error = 0;
  ASSERT_EQ(::mkdir(folder.file("folder").c_str(), 0700), 0);
  JXFile::open(folder.file("folder"), JXFile::Access::Append, error);
  EXPECT_EQ(error, EISDIR);
  ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
  EXPECT_FALSE(JXFile::open(folder.file("pipe"), JXFile::Access::Read, error).isOpen());
  EXPECT_EQ(error, EINVAL);
}

TEST(Journal, AppendsSeveralFramesWithOneWrite) {
  const TemporaryFolder folder;
  std::string frames;
  for (const std::string_view text : {"one", "", "three"})
    encodeFrame({text}, frames);
  {
    Opened opened = openJournal(folder.file("journal"));
    const FailingDisk counting(0, 0, FailingDisk::Write::Nothing);
    EXPECT_EQ(opened.journal.appendFrames(frames), 0);
    EXPECT_EQ(counting.calls(), 1);
    EXPECT_EQ(opened.journal.appendFrames(frames), 0);
    std::uint64_t offset = 0;
    EXPECT_EQ(append(opened.journal, "last", &offset), 0);
    EXPECT_EQ(offset, 8u + 2 * (3 * 12 + 8));
  }
  EXPECT_EQ(openJournal(folder.file("journal")).texts,
            (Texts{"one", "", "three", "one", "", "three", "last"}));
}

}  // namespace
}  // namespace jx
