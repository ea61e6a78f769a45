// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

#include "jx/core/storage/JXFolder.h"
#include "jx/core/storage/JXJournal.h"
#include "tests/fuzz/Fuzz.h"
#include "tests/fuzz/ReferenceFrames.h"

namespace jx::fuzz {
namespace {

using Texts = std::vector<std::string>;

constexpr std::string_view kFileMark = "JXJRNL1\n";

const std::string& path() {
  static const std::string path = scratchFolder() + "/journal";
  return path;
}

void removeAllFiles() {
  std::vector<std::string> names;
  require(listFolder(scratchFolder(), names) == 0, "the folder can be listed");
  for (const std::string& name : names)
    ::unlink((scratchFolder() + "/" + name).c_str());
}

Texts scanned() {
  Texts texts;
  const int error =
      JXJournal::scan(path(), [&](const JXFrame& frame) { texts.emplace_back(frame.payload); });
  require(error == 0, "any file can be scanned");
  return texts;
}

Texts recovered(JXJournal& journal, JXJournal::Writers writers) {
  Texts texts;
  std::uint64_t end = 0;
  const JXJournal::Recovery recovery = journal.recover(writers, [&](const JXFrame& frame) {
    require(frame.offset >= end, "frames are in order and do not overlap");
    end = frame.offset + kJXFrameHeaderSize + frame.payload.size();
    texts.emplace_back(frame.payload);
  });
  require(recovery.error == 0, "any file can be recovered");
  return texts;
}

JXJournal opened() {
  int error = 0;
  JXJournal journal(JXFile::open(path(), JXFile::Access::Append, error), path());
  require(error == 0, "the file can be opened");
  return journal;
}

void requireSame(const Texts& found, const Texts& wanted, const char* property) {
  require(found == wanted, property, std::to_string(found.size()) + " frames",
          std::to_string(wanted.size()) + " frames");
}

// Expects every way of reading the file to return these frames, and appending to work.
void check(std::string_view file, const Texts& frames) {
  writeFile(path(), file);
  requireSame(scanned(), frames, "a scan finds every frame");
  {
    JXJournal journal = opened();
    requireSame(recovered(journal, JXJournal::Writers::Several), frames,
                "recovery with other writers finds every frame");
    require(contentOf(path()) == file, "recovery with other writers does not truncate the file");
  }
  Texts more = frames;
  {
    JXJournal journal = opened();
    requireSame(recovered(journal, JXJournal::Writers::One), frames, "recovery finds every frame");
    std::uint64_t offset = 0;
    const std::string_view part = "after";
    require(journal.append({part}, &offset) == 0, "a frame can be appended to a recovered file");
    std::string payload;
    require(journal.read(offset, part.size(), payload) == 0 && payload == part,
            "the appended frame is read at its offset");
    more.push_back(payload);
  }
  requireSame(scanned(), more, "a scan finds the appended frame after the others");
  requireSame(
      [] {
        JXJournal again = opened();
        return recovered(again, JXJournal::Writers::One);
      }(),
      more, "a second recovery finds the same frames");
  removeAllFiles();
}

void checkAnyBytes(std::string_view file) {
  if (file.size() > kMaxFile) return;
  Texts texts;
  for (const FoundFrame& frame : framesIn(file))
    texts.push_back(frame.payload);
  check(file, texts);
}

// Creates frames with ASCII payloads, which cannot contain the mark of a frame. Then truncates the
// file and changes bytes.
void checkDamagedFrames(Input input) {
  struct Position {
    std::size_t begin, end;
  };
  std::string file(kFileMark);
  Texts texts;
  std::vector<Position> places;
  const std::size_t count = input.byte() % 16u;
  for (std::size_t i = 0; i < count; ++i) {
    std::string payload(input.bytes(input.byte()));
    for (char& c : payload)
      c = static_cast<char>(c & 0x7F);
    const std::size_t begin = file.size();
    file += frameOf(payload);
    texts.push_back(payload);
    places.push_back({begin, file.size()});
  }
  const std::string whole = file;
  if ((input.byte() & 1) != 0) file.resize(input.number(2) % (file.size() + 1));
  while (!input.isEmpty() && !file.empty()) {
    char& place = file[input.number(2) % file.size()];
    place = static_cast<char>(place ^ input.byte());
  }
  Texts kept;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t size = places[i].end - places[i].begin;
    const bool isWhole = file.compare(std::min(places[i].begin, file.size()), size, whole,
                                      places[i].begin, size) == 0;
    if (isWhole) kept.push_back(texts[i]);
  }
  check(file, kept);
}

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::Input input(data, size);
  if ((input.byte() & 1) == 0) {
    jx::fuzz::checkAnyBytes(input.rest());
  } else {
    jx::fuzz::checkDamagedFrames(input);
  }
  return 0;
}
