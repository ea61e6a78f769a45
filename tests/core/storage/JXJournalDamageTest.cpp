// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "jx/core/storage/JXJournal.h"
#include "tests/core/storage/JXTemporaryFolder.h"

namespace jx {
namespace {

constexpr std::size_t kFrames = 200;

// A journal of 200 frames of different lengths, and the offset of each.
class JournalDamage : public ::testing::Test {
 protected:
  JournalDamage() : path_(folder_.file("j")) {
    int error = 0;
    JXJournal journal(JXFile::open(path_, JXFile::Access::Append, error), path_);
    journal.recover(JXJournal::Writers::One, [](const JXFrame&) {});
    for (std::size_t i = 0; i < kFrames; ++i) {
      texts_.push_back("frame " + std::to_string(i) + std::string(i * 7 % 23, '.'));
      std::uint64_t offset = 0;
      EXPECT_EQ(journal.append({texts_.back()}, &offset), 0);
      starts_.push_back(offset);
    }
    whole_ = contentOf(path_);
    starts_.push_back(whole_.size());
  }

  // Returns the number of frames that end at or before this byte.
  std::size_t framesBefore(std::size_t byte) const {
    std::size_t count = 0;
    while (count < kFrames && starts_[count + 1] <= byte)
      ++count;
    return count;
  }

  std::vector<std::string> recovered(const std::string& content) {
    writeFile(path_, content);
    int error = 0;
    JXJournal journal(JXFile::open(path_, JXFile::Access::Append, error), path_);
    std::vector<std::string> texts;
    const JXJournal::Recovery recovery = journal.recover(
        JXJournal::Writers::One, [&](const JXFrame& frame) { texts.emplace_back(frame.payload); });
    EXPECT_EQ(recovery.error, 0);
    EXPECT_EQ(journal.append({"after"}, nullptr), 0);
    return texts;
  }

  // With several writers nothing is truncated, and the next frame follows the damaged data.
  std::vector<std::string> recoveredWithSeveralWriters(const std::string& content) {
    writeFile(path_, content);
    int error = 0;
    JXJournal journal(JXFile::open(path_, JXFile::Access::Append, error), path_);
    std::vector<std::string> texts;
    const JXJournal::Recovery recovery =
        journal.recover(JXJournal::Writers::Several,
                        [&](const JXFrame& frame) { texts.emplace_back(frame.payload); });
    EXPECT_EQ(recovery.error, 0);
    EXPECT_FALSE(recovery.quarantined.copied);
    EXPECT_EQ(journal.append({"after"}, nullptr), 0);
    EXPECT_EQ(contentOf(path_).substr(0, content.size()), content);
    return texts;
  }

  std::vector<std::string> scanned() const {
    std::vector<std::string> texts;
    JXJournal::scan(path_, [&](const JXFrame& frame) { texts.emplace_back(frame.payload); });
    return texts;
  }

  TemporaryFolder folder_;
  const std::string path_;
  std::vector<std::string> texts_;
  std::vector<std::uint64_t> starts_;
  std::string whole_;
};

TEST_F(JournalDamage, TruncationAtAnyByteLosesOnlyTheTruncatedFrame) {
  for (std::size_t cut = 0; cut < whole_.size(); ++cut) {
    std::vector<std::string> expected(texts_.begin(),
                                      texts_.begin() + static_cast<long>(framesBefore(cut)));
    ASSERT_EQ(recovered(whole_.substr(0, cut)), expected) << "cut at " << cut;
    expected.push_back("after");
    ASSERT_EQ(scanned(), expected) << "cut at " << cut;
  }
}

TEST_F(JournalDamage, BitFlipInAnyByteLosesOnlyTheDamagedFrame) {
  for (std::size_t byte = 0; byte < whole_.size(); ++byte) {
    std::string damaged = whole_;
    damaged[byte] = static_cast<char>(damaged[byte] ^ (1 << byte % 8));
    std::vector<std::string> expected = texts_;
    // The first eight bytes identify the format; damage there loses no frame.
    if (byte >= starts_[0])
      expected.erase(expected.begin() + static_cast<long>(framesBefore(byte)));
    ASSERT_EQ(recovered(damaged), expected) << "flipped at " << byte;
    expected.push_back("after");
    ASSERT_EQ(scanned(), expected) << "flipped at " << byte;
  }
}

TEST_F(JournalDamage, WithSeveralWritersTruncationLosesOnlyTheTruncatedFrame) {
  for (std::size_t cut = 0; cut < whole_.size(); ++cut) {
    std::vector<std::string> expected(texts_.begin(),
                                      texts_.begin() + static_cast<long>(framesBefore(cut)));
    ASSERT_EQ(recoveredWithSeveralWriters(whole_.substr(0, cut)), expected) << "cut at " << cut;
    expected.push_back("after");
    ASSERT_EQ(scanned(), expected) << "cut at " << cut;
  }
}

TEST_F(JournalDamage, WithSeveralWritersBitFlipLosesOnlyTheDamagedFrame) {
  for (std::size_t byte = 0; byte < whole_.size(); ++byte) {
    std::string damaged = whole_;
    damaged[byte] = static_cast<char>(damaged[byte] ^ (0x80 >> byte % 8));
    std::vector<std::string> expected = texts_;
    if (byte >= starts_[0])
      expected.erase(expected.begin() + static_cast<long>(framesBefore(byte)));
    ASSERT_EQ(recoveredWithSeveralWriters(damaged), expected) << "flipped at " << byte;
    expected.push_back("after");
    ASSERT_EQ(scanned(), expected) << "flipped at " << byte;
  }
}

TEST_F(JournalDamage, RangeOfZerosLosesOnlyTheOverwrittenFrames) {
  for (std::size_t from = 0; from < whole_.size(); from += 61) {
    std::string damaged = whole_;
    const std::size_t to = std::min(from + 512, whole_.size());
    damaged.replace(from, to - from, to - from, '\0');
    std::vector<std::string> expected;
    for (std::size_t i = 0; i < kFrames; ++i) {
      if (starts_[i + 1] <= from || starts_[i] >= to) expected.push_back(texts_[i]);
    }
    ASSERT_EQ(recovered(damaged), expected) << "zeros from " << from;
  }
}

TEST_F(JournalDamage, StopsAfterManyFalseMagics) {
  std::string marks;
  for (int i = 0; i < 50'000; ++i)
    marks += std::string("\xF7JX\xF8\x10\x00\x00\x00????", 12);
  const std::vector<std::string> found = recovered(whole_ + marks);
  EXPECT_EQ(found, texts_);
}

// Each of the ten lengths covers the rest of the file, so all bytes are checked ten times.
TEST_F(JournalDamage, DamagedLengthsLoseNoFramesOfASmallFile) {
  std::string damaged = whole_;
  for (std::size_t i = 0; i < 10; ++i)
    putU32(&damaged[starts_[i] + 4], static_cast<std::uint32_t>(whole_.size() - starts_[i] - 12));
  const std::vector<std::string> intact(texts_.begin() + 10, texts_.end());
  EXPECT_EQ(recovered(damaged), intact);
}

// The lengths exceed the file until a frame is appended.
TEST_F(JournalDamage, AppendedFrameHidesNoOther) {
  std::string damaged = whole_;
  for (std::size_t i = 0; i < 10; ++i)
    putU32(&damaged[starts_[i] + 4], static_cast<std::uint32_t>(whole_.size() - starts_[i]));
  std::vector<std::string> expected(texts_.begin() + 10, texts_.end());
  EXPECT_EQ(recovered(damaged), expected);
  expected.emplace_back("after");
  EXPECT_EQ(scanned(), expected);
}

}  // namespace
}  // namespace jx
