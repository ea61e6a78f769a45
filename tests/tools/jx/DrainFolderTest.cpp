// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/DrainFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/jx/FileCallFault.h"

namespace jx {
namespace {

namespace fs = std::filesystem;

// 2026-01-01T00:00:00Z
constexpr std::int64_t kStart = 1'767'225'600'000;

class DrainFolderTest : public testing::Test {
 protected:
  void SetUp() override { open(); }

  Result<std::unique_ptr<DrainFolder>> tryOpen(const std::string& stream = "EVENTS") {
    return DrainFolder::open(path_, stream, limits_, [this] { return now_; });
  }
  void open() {
    folder_.reset();
    auto opened = tryOpen();
    ASSERT_TRUE(opened) << opened.error().text;
    folder_ = std::move(*opened);
    folder_->useStream(1);
  }
  // Appends events with these IDs to the stream; "" for an event without an ID.
  Result<DrainFolder::Tally> append(const std::vector<std::string>& ids) {
    std::vector<std::string> bodies;
    for (const std::string& id : ids)
      bodies.push_back(id.empty() ? "{}" : R"({"context":{"event_id":")" + id + "\"}}");
    std::vector<StreamMessage> messages;
    for (const std::string& body : bodies) {
      ++sequence_;
      messages.push_back({sequence_, kStart + sequence_ + ageMs_, "events.1.x", body, {}});
    }
    return folder_->append(messages);
  }
  // Reads the event IDs of all files that have this ending, with "null" without one.
  std::vector<std::string> idsIn(const std::string& ending) const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(path_)) {
      std::ostringstream content;
      content << std::ifstream(entry.path()).rdbuf();
      if (entry.path().extension() == ending) files[entry.path().filename()] = content.str();
    }
    std::vector<std::string> ids;
    for (const auto& [name, content] : files) {
      std::istringstream lines(content);
      for (std::string line; std::getline(lines, line);) {
        const std::size_t start = line.find("\"event_id\":") + 11;
        ids.push_back(line.substr(start, line.find(',', start) - start));
      }
    }
    return ids;
  }
  std::vector<std::string> names() const {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(path_)) {
      const std::string name = entry.path().filename();
      if (name.rfind("events-", 0) == 0) found.push_back(name);
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  // Ends as a crash does: nothing is finished.
  void execute(const std::string& sql) {
    folder_.reset();
    auto database = SqliteDatabase::open(path_ / "drain.db");
    ASSERT_TRUE(database);
    const Done done = database->execute(sql);
    ASSERT_TRUE(done) << done.error().text;
  }

  using Ids = std::vector<std::string>;
  const test::TemporaryFolder temporary_;
  const fs::path path_ = temporary_.path("out");
  DrainLimits limits_;
  std::int64_t now_ = kStart;
  std::int64_t sequence_ = 0;
  std::int64_t ageMs_ = 0;
  std::unique_ptr<DrainFolder> folder_;
};

TEST_F(DrainFolderTest, WritesOneFileUntilItIsFinished) {
  ASSERT_TRUE(append({"a", "b"}));
  ASSERT_TRUE(append({"c"}));
  EXPECT_EQ(names(), Ids{"events-20260101T000000.000Z-1.ndjson.part"});
  EXPECT_EQ(idsIn(".part"), (Ids{"\"a\"", "\"b\"", "\"c\""}));
  ASSERT_TRUE(folder_->finishFile());
  EXPECT_EQ(names(), Ids{"events-20260101T000000.000Z-1.ndjson"});
  ASSERT_TRUE(append({"d"}));
  EXPECT_EQ(names(), (Ids{"events-20260101T000000.000Z-1.ndjson",
                          "events-20260101T000000.000Z-4.ndjson.part"}));
  EXPECT_EQ(idsIn(".ndjson"), (Ids{"\"a\"", "\"b\"", "\"c\""}));
}

TEST_F(DrainFolderTest, DropsRepeatsOfAnEventId) {
  const auto first = append({"a", "a", "b"});
  ASSERT_TRUE(first);
  EXPECT_EQ(first->written, 2);
  EXPECT_EQ(first->repeats, 1);
  open();
  const auto second = append({"b", "", "", "c"});
  ASSERT_TRUE(second);
  EXPECT_EQ(second->repeats, 1);
  EXPECT_EQ(idsIn(".part"), (Ids{"\"a\"", "\"b\"", "null", "null", "\"c\""}));
  EXPECT_EQ(folder_->position().sequence, 7);
}

TEST_F(DrainFolderTest, CreatesNoFileForRepeatsOnly) {
  ASSERT_TRUE(append({"a"}));
  ASSERT_TRUE(folder_->finishFile());
  ASSERT_TRUE(append({"a"}));
  EXPECT_EQ(names(), Ids{"events-20260101T000000.000Z-1.ndjson"});
  open();
  EXPECT_EQ(folder_->position().sequence, 2);
}

TEST_F(DrainFolderTest, ForgetsEventIdsAfterTheWindow) {
  limits_.repeats = std::chrono::hours(1);
  open();
  ASSERT_TRUE(append({"a"}));  // stored 1 ms after the start
  ageMs_ = 3'600'000 - 2;
  ASSERT_TRUE(append({"b", "a"}));  // "a" exactly one hour later
  EXPECT_EQ(idsIn(".part"), (Ids{"\"a\"", "\"b\""}));
  ASSERT_TRUE(append({""}));  // later than one hour
  ASSERT_TRUE(append({"a"}));
  EXPECT_EQ(idsIn(".part"), (Ids{"\"a\"", "\"b\"", "null", "\"a\""}));
}

TEST_F(DrainFolderTest, DropsMessagesThatAreDeliveredAgain) {
  ASSERT_TRUE(append({"", ""}));
  sequence_ = 0;
  ASSERT_TRUE(append({"", "", ""}));
  EXPECT_EQ(idsIn(".part"), (Ids{"null", "null", "null"}));
}

TEST_F(DrainFolderTest, StartsAgainWithAStreamThatWasCreatedAgain) {
  ASSERT_TRUE(append({"", "a"}));
  folder_->useStream(2);
  EXPECT_EQ(folder_->position().sequence, 0);
  sequence_ = 0;
  ASSERT_TRUE(append({"", "a", "b"}));
  EXPECT_EQ(idsIn(".part"), (Ids{"null", "\"a\"", "null", "\"b\""}));
}

TEST_F(DrainFolderTest, WritesLaterMessagesOfABrokerThatLostItsLast) {
  ASSERT_TRUE(append({"", "", ""}));
  sequence_ = 1;
  ageMs_ = 1'000;
  ASSERT_TRUE(append({"", ""}));
  EXPECT_EQ(folder_->position().sequence, 3);
  EXPECT_EQ(idsIn(".part").size(), 5u);
}

TEST_F(DrainFolderTest, FinishesFilesBySize) {
  limits_.fileBytes = 300;
  open();
  ASSERT_TRUE(append({"a"}));
  const auto lineBytes = folder_->position().length;
  ASSERT_LT(lineBytes, 300);
  ASSERT_TRUE(folder_->rotateWhenDue());
  EXPECT_EQ(idsIn(".ndjson"), Ids{});
  while (folder_->position().length < 300)
    ASSERT_TRUE(append({""}));
  ASSERT_TRUE(folder_->rotateWhenDue());
  EXPECT_EQ(idsIn(".part"), Ids{});
  EXPECT_EQ(idsIn(".ndjson").size(), 3u);
}

TEST_F(DrainFolderTest, FinishesFilesByAge) {
  ASSERT_TRUE(append({"a"}));
  now_ += 299'999;
  open();
  ASSERT_TRUE(folder_->rotateWhenDue());
  EXPECT_EQ(idsIn(".ndjson"), Ids{});
  ++now_;
  ASSERT_TRUE(folder_->rotateWhenDue());
  EXPECT_EQ(idsIn(".ndjson"), Ids{"\"a\""});
}

TEST_F(DrainFolderTest, FinishesFilesWhenTheClockIsSetBack) {
  ASSERT_TRUE(append({"a"}));
  --now_;
  ASSERT_TRUE(folder_->rotateWhenDue());
  EXPECT_EQ(idsIn(".ndjson"), Ids{"\"a\""});
}

TEST_F(DrainFolderTest, NeverUsesTheNameOfAFinishedFile) {
  ASSERT_TRUE(append({"a"}));
  ASSERT_TRUE(folder_->finishFile());
  folder_->useStream(2);
  sequence_ = 0;
  ASSERT_TRUE(append({"b"}));
  ASSERT_TRUE(folder_->finishFile());
  EXPECT_EQ(names(),
            (Ids{"events-20260101T000000.000Z-1.ndjson", "events-20260101T000000.001Z-1.ndjson"}));
  EXPECT_EQ(idsIn(".ndjson"), (Ids{"\"a\"", "\"b\""}));
}

TEST_F(DrainFolderTest, RemovesWhatACrashLeftAfterTheCommittedLength) {
  ASSERT_TRUE(append({"a"}));
  const std::string name = names().at(0);
  std::ofstream(path_ / name, std::ios::app) << "{\"event_id\":\"not commit";
  open();
  EXPECT_EQ(idsIn(".part"), Ids{"\"a\""});
  ASSERT_TRUE(append({"b"}));
  EXPECT_EQ(idsIn(".part"), (Ids{"\"a\"", "\"b\""}));
}

TEST_F(DrainFolderTest, FinishesAFileWithoutTheBatchThatFailed) {
  ASSERT_TRUE(append({"a"}));
  // The write, and removing what it wrote.
  test::injectFileCallFault(test::FileCallFault::Fail, 1, 2);
  const auto failed = append({"b"});
  ASSERT_FALSE(failed);
  EXPECT_TRUE(test::isFileCallFaultOver());
  const std::string part = (path_ / names().at(0)).string();
  EXPECT_EQ(failed.error().text, "cannot write " + part + ": No space left on device");
  EXPECT_EQ(idsIn(".part").size(), 2u) << "half of a line";
  ASSERT_TRUE(folder_->finishFile());
  EXPECT_EQ(idsIn(".ndjson"), Ids{"\"a\""});
}

TEST_F(DrainFolderTest, RemovesAFileThatWasCreatedButNotCommitted) {
  ASSERT_TRUE(append({"a"}));
  ASSERT_TRUE(folder_->finishFile());
  std::ofstream(path_ / "events-20260101T000000.000Z-2.ndjson.part") << "{\"event_id\":\"b\",}\n";
  std::ofstream(path_ / "other.ndjson.part") << "{\"event_id\":\"c\",}\n";
  open();
  EXPECT_EQ(idsIn(".part"), Ids{"\"c\""}) << "files of others stay";
  ASSERT_TRUE(append({"b"}));
  EXPECT_EQ(idsIn(".part"), (Ids{"\"b\"", "\"c\""}));
}

TEST_F(DrainFolderTest, FinishesAFileThatACrashLeftBeforeItsFinalName) {
  ASSERT_TRUE(append({"a"}));
  execute("UPDATE position SET finishing = 1");
  open();
  ASSERT_TRUE(append({"b"}));
  EXPECT_EQ(idsIn(".ndjson"), Ids{"\"a\""});
  EXPECT_EQ(idsIn(".part"), Ids{"\"b\""});
}

TEST_F(DrainFolderTest, AcceptsAFileThatACrashLeftAfterItsFinalName) {
  for (const bool isMovedAway : {false, true}) {
    ASSERT_TRUE(append({""}));
    const std::string part = names().back();
    execute("UPDATE position SET finishing = 1");
    const fs::path finished = path_ / fs::path(part).stem();
    fs::rename(path_ / part, finished);
    if (isMovedAway) fs::remove(finished);
    open();
    ASSERT_TRUE(folder_->rotateWhenDue());
    EXPECT_EQ(folder_->position().file, "");
    EXPECT_EQ(idsIn(".ndjson"), Ids{"null"});
  }
}

TEST_F(DrainFolderTest, RejectsAFileThatLostCommittedLines) {
  ASSERT_TRUE(append({"a"}));
  folder_.reset();
  const fs::path part = path_ / names().at(0);
  fs::resize_file(part, fs::file_size(part) - 1);
  const auto shorter = tryOpen();
  ASSERT_FALSE(shorter);
  EXPECT_EQ(shorter.error().text, part.string() + " is shorter than its committed length");
  fs::remove(part);
  const auto missing = tryOpen();
  ASSERT_FALSE(missing);
  EXPECT_EQ(missing.error().text, "cannot open " + part.string() + ": No such file or directory");
}

TEST_F(DrainFolderTest, RejectsASecondDrainAndAnotherStream) {
  const auto second = tryOpen();
  ASSERT_FALSE(second);
  EXPECT_EQ(second.error().text,
            "the state folder " + path_.string() + " is in use by another drain");
  ASSERT_TRUE(append({"a"}));
  folder_.reset();
  const auto other = tryOpen("INVALID_EVENTS");
  ASSERT_FALSE(other);
  EXPECT_EQ(other.error().text, path_.string() + " contains the events of stream EVENTS");
}

}  // namespace
}  // namespace jx
