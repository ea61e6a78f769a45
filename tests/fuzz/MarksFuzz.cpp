// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <regex>
#include <string>
#include <string_view>

#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXFrame.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "jx/core/storage/JXPurgeMark.h"
#include "jx/core/storage/JXRunningTime.h"
#include "jx/core/storage/JXStopMarks.h"
#include "jx/platform/JXManualClock.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

namespace fs = std::filesystem;

const std::string& folder() {
  static const std::string path = scratchFolder() + "/state";
  return path;
}

std::string pathOf(std::string_view name) { return folder() + "/" + std::string(name); }

bool isNumber(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos &&
         (text.size() == 1 || text.front() != '0');
}

// Returns the number in a file that contains nothing else but a line break; nullopt if it is larger
// than `max`.
std::optional<std::uint64_t> wholeNumber(std::string_view text, std::uint64_t max) {
  if (!isNumber(text)) return std::nullopt;
  std::uint64_t number = 0;
  for (const char digit : text) {
    const auto value = static_cast<std::uint64_t>(digit - '0');
    if (number > (max - value) / 10) return std::nullopt;
    number = number * 10 + value;
  }
  return number;
}

// Expects a mark to apply only if it was written for this segment.
void checkPurgeMark(Input input) {
  const std::string segment = pathOf("segment-0000000000000001");
  writeFile(segment, "requests");
  const JXFileIdentity identity = JXFile::identityAt(segment);
  const bool isForSegment = (input.byte() & 1) != 0;
  std::string mark(input.rest());
  if (isForSegment) mark.insert(0, std::to_string(identity.number));
  const std::string path = segment + std::string(kJXPurgeMarkSuffix);
  writeFile(path, mark);
  int error = -1;
  const std::uint64_t size = readPurgeMark(segment, identity, error);
  require(error == 0, "any mark can be read");
  const std::string number = std::to_string(identity.number) + " ";
  std::uint64_t expected = 0;
  if (mark.substr(0, number.size()) == number && mark.back() == '\n') {
    const std::string_view rest = std::string_view(mark).substr(number.size());
    expected = wholeNumber(rest.substr(0, rest.size() - 1), UINT64_MAX).value_or(0);
  }
  require(size == expected, "exactly a mark that was written for the segment applies to it",
          std::to_string(size), mark);
  require(writePurgeMark(segment) == 0, "a mark replaces any file");
  require(readPurgeMark(segment, identity, error) == 8, "a mark contains the size of the segment");
  removePurgeMark(segment);
  require(!fs::exists(path), "a mark can be deleted");
}

// Expects a damaged file to stop all requests, and other files not to be read as stops.
void checkStopMarks(Input input) {
  constexpr std::array<std::string_view, 6> kNames{"stopped-00000007",  "stopped-0012abcd",
                                                   "stopped-0012ABCD",  "stopped-7",
                                                   "stopped-000000071", "stopped-00000007.old"};
  constexpr std::size_t kValid = 2;
  std::array<std::string, kNames.size()> contents;
  while (!input.isEmpty()) {
    std::string& content = contents[input.byte() % contents.size()];
    content += input.bytes(input.byte());
  }
  for (std::size_t i = 0; i < kNames.size(); ++i)
    writeFile(pathOf(kNames[i]), contents[i]);
  bool isComplete = false;
  std::vector<JXStopMark> marks = JXStopMarks(folder()).read(isComplete);
  require(isComplete, "a folder with any files can be read");
  require(marks.size() == kValid, "only files with the name of a mark are marks");
  std::sort(marks.begin(), marks.end(),
            [](const JXStopMark& a, const JXStopMark& b) { return a.source < b.source; });
  require(marks[0].source == 7 && marks[1].source == 0x12ABCD, "the name contains the source");
  for (std::size_t i = 0; i < kValid; ++i) {
    const std::string& content = contents[i];
    std::uint64_t expected = JXStopMarks::kAllStops;
    if (!content.empty() && content.back() == '\n') {
      const std::string_view number = std::string_view(content).substr(0, content.size() - 1);
      expected = wholeNumber(number, UINT16_MAX).value_or(0);
    }
    if (expected == 0) expected = JXStopMarks::kAllStops;
    require(marks[i].stops == expected, "a file that is not a mark stops all requests",
            std::to_string(marks[i].stops), content);
  }
}

// Returns the token of a mark of this state; nullopt for any other file. The token is random, so
// any characters are one.
std::optional<std::string_view> tokenOf(std::string_view mark, std::string_view state) {
  constexpr std::size_t kToken = 32;
  const bool isMark =
      mark.size() == state.size() + kToken + 1 && mark.substr(0, state.size()) == state;
  return isMark ? std::optional(mark.substr(state.size(), kToken)) : std::nullopt;
}

bool isDone(std::string_view mark) { return tokenOf(mark, "done ").has_value(); }

void writeStoredFiles() {
  writeFile(pathOf("defaults"), "values");
  writeFile(pathOf("photo.jpg"), "of the application");
}

void requireErased(bool isErased, std::string_view mark) {
  require(fs::exists(pathOf("defaults")) != isErased, "exactly an unfinished erase is finished",
          mark, {});
  require(fs::exists(pathOf("photo.jpg")), "files of the application stay");
}

// Expects an erase to be finished unless the mark says that it was.
void checkErasedMark(Input input) {
  constexpr std::array<std::string_view, 3> kBegins{"", "done ", "pending "};
  const std::string path = pathOf("erased");
  const auto nextMark = [&] {
    const std::string begin(kBegins[input.byte() % kBegins.size()]);
    return begin + std::string(input.bytes(input.byte() % 64u));
  };
  const std::string first = nextMark();
  writeFile(path, first);
  writeStoredFiles();
  JXErasures erasures(folder());
  requireErased(!isDone(first), first);
  require(isDone(contentOf(path)), "the mark says that the erase is complete", contentOf(path),
          first);
  require(erasures.check() == 0, "an unchanged mark is not another erase");
  const std::string second = nextMark();
  const std::string done = contentOf(path);
  const auto token = isDone(second) ? tokenOf(second, "done ") : tokenOf(second, "pending ");
  const bool isAnother = !token || token != tokenOf(done, "done ");
  // Another process replaces the file.
  writeFile(path + ".new", second);
  fs::rename(path + ".new", path);
  writeStoredFiles();
  require(erasures.check() == (isAnother ? 1 : 0), "another token is another erase", second, done);
  requireErased(isAnother && !isDone(second), second);
  require(!isAnother || isDone(contentOf(path)), "the mark says that this erase is complete",
          contentOf(path), second);
  require(erasures.check() == (isAnother ? 1 : 0), "an erase is noticed once", second, first);
}

// Expects any file to continue with a time that the next process continues.
void checkRunningTime(Input input) {
  std::string content;
  while (!input.isEmpty()) {
    if (input.byte() % 2 == 0) {
      content += input.bytes(input.byte() % 64u);
      continue;
    }
    JXStoredTime time;
    time.series = input.byte() % 3u;
    time.dayMs = static_cast<std::int64_t>(input.number(8));
    time.runningMs = static_cast<std::int64_t>(input.number(8));
    time.systemMs = static_cast<std::int64_t>(input.number(8));
    time.systemStart = input.byte() % 3u;
    encodeFrame({encodeTime(time)}, content);
  }
  writeFile(pathOf(JXRunningTime::kFileName), content);
  int error = 0;
  const auto opened = JXFolder::open(folder(), JXFolder::Missing::Fail, error);
  const auto clock = std::make_shared<JXManualClock>(1'000'000);
  JXRunningTime time(clock);
  require(time.read(*opened) == 0, "any file can be read");
  const JXStoredTime first = time.now();
  require(first.runningMs >= 0, "no time is negative");
  clock->advance(1'000);
  require(time.write(*opened) == 0, "any file can be continued");
  const JXStoredTime second = time.now();
  constexpr std::int64_t kMaxMs = std::int64_t{1} << 50;
  require(second.runningMs == std::min(first.runningMs + 1'000, kMaxMs),
          "the time advances with the clock");
  JXRunningTime next(clock);
  require(next.read(*opened) == 0, "what was written can be read");
  require(next.now().series == second.series && next.now().runningMs == second.runningMs,
          "the next process continues the time");
}

// Builds a file name from parts of the library's names and any characters.
std::string nameFrom(Input& input) {
  constexpr std::array<std::string_view, 13> kParts{"dead",
                                                    "segment-0000000000000001",
                                                    "segment-ffffffffffffffff",
                                                    "segment-00000000000000f",
                                                    "stopped-0000000a",
                                                    ".purge",
                                                    ".new",
                                                    ".damaged-",
                                                    ".",
                                                    "12",
                                                    "lock",
                                                    "a",
                                                    "clock"};
  std::string name;
  for (std::size_t count = input.byte() % 4u + 1; count != 0; --count) {
    const std::uint8_t part = input.byte();
    name += part < 200 ? std::string(kParts[part % kParts.size()])
                       : std::string(input.bytes(part - 200u));
  }
  constexpr std::size_t kMaxName = 60;
  name = name.substr(0, kMaxName);
  const bool isName = name.find_first_of(std::string("/\0", 2)) == std::string::npos;
  return isName && name != "." && name != ".." && !name.empty() ? name : "dead";
}

// Expects a new request to be queued next to any files, and an erase to delete exactly the files
// that have the names of the library's.
void checkNames(Input input) {
  const std::regex ours(
      "clock|(dead|segment-[0-9a-f]{16}|stopped-[0-9a-f]{8})"
      "(\\.new|\\.purge|(\\.purge)?\\.(damaged-)?[0-9]+)?");
  const std::string box = pathOf("outbox");
  fs::create_directory(box);
  std::vector<std::string> others;
  while (!input.isEmpty() && others.size() < 8) {
    const std::string name = nameFrom(input);
    writeFile(box + "/" + name, "content");
    // The oldest quarantined files are deleted.
    const bool isOurs = name == "lock" || std::regex_match(name, ours) ||
                        std::regex_match(name, std::regex(".+\\.damaged-[0-9]+"));
    if (!isOurs) others.push_back(name);
  }
  {
    JXOutbox outbox(box, {}, std::make_shared<JXManualClock>(1'790'000'000'000));
    require(outbox.add("https://host.example/events", "{}").has_value(), "a request is queued");
    outbox.sync();
    require(outbox.take().has_value(), "the request is the oldest one");
  }
  std::string error;
  require(listOutbox(box, error).size() == 1 && error.empty(), "the next process finds the request",
          error, {});
  require(JXErasures(folder()).erase().empty(), "all files can be erased");
  for (const fs::directory_entry& entry : fs::directory_iterator(box)) {
    const std::string name = entry.path().filename().string();
    require(!std::regex_match(name, ours), "an erase deletes the library's files", name, {});
  }
  for (const std::string& name : others)
    require(fs::exists(box + "/" + name), "files of the application stay", name, {});
}

void check(Input input) {
  fs::remove_all(folder());
  fs::create_directory(folder());
  fs::permissions(folder(), fs::perms::owner_all);
  switch (input.byte() % 5) {
    case 0:
      return checkPurgeMark(input);
    case 1:
      return checkStopMarks(input);
    case 2:
      return checkErasedMark(input);
    case 3:
      return checkNames(input);
    default:
      return checkRunningTime(input);
  }
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::silenceLog();
  jx::fuzz::check({data, size});
  return 0;
}
