// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/EventImport.h"

#include "tools/jx/collector/EventLines.h"
#include "tools/jx/collector/HarReader.h"
#include "tools/jx/collector/JsonOut.h"

namespace jx {
namespace {

constexpr std::size_t kMaxLine = std::size_t{64} * 1024 * 1024;
constexpr std::size_t kMaxArchive = std::size_t{256} * 1024 * 1024;
constexpr std::size_t kMaxArchiveValues = 4'000'000;
constexpr std::size_t kMaxRefused = 1000;

bool isBlank(std::string_view line) {
  return line.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

bool EventImport::take(std::string_view part) {
  held_.append(part);
  if (format_ == Format::Unknown) recognise();
  if (format_ == Format::Lines) takeLines(false);
  const std::size_t most = format_ == Format::Lines ? kMaxLine : kMaxArchive;
  if (error_.empty() && held_.size() > most) {
    error_ = format_ == Format::Lines ? "a line is longer than 64 MiB"
                                      : "an archive is longer than 256 MiB: import lines of JSON";
  }
  return error_.empty();
}

void EventImport::finish() {
  if (!error_.empty()) return;
  if (format_ == Format::Lines) return takeLines(true);
  takeArchive();
}

// An event on the first line that is not blank tells that lines follow. An archive is one value,
// which seldom ends on its first line; whatever else it is, is decided when all of it is there.
void EventImport::recognise() {
  for (std::size_t begin = 0;;) {
    const std::size_t end = held_.find('\n', begin);
    if (end == std::string::npos) return;
    const std::string_view line = std::string_view(held_).substr(begin, end - begin);
    begin = end + 1;
    if (isBlank(line)) continue;
    format_ = eventFromLine(line) ? Format::Lines : Format::Archive;
    return;
  }
}

void EventImport::takeLines(bool isEnd) {
  std::size_t begin = 0;
  for (;;) {
    const std::size_t end = held_.find('\n', std::max(begin, looked_));
    if (end == std::string::npos && !(isEnd && begin < held_.size())) break;
    const std::string_view line = std::string_view(held_).substr(begin, end - begin);
    begin = end == std::string::npos ? held_.size() : end + 1;
    ++number_;
    if (!isBlank(line)) takeEvent(eventFromLine(line));
    if (!error_.empty()) return;
  }
  held_.erase(0, begin);
  looked_ = held_.size();
}

void EventImport::takeArchive() {
  const JsonTree archive = JsonTree::read(held_, kMaxArchiveValues);
  if (archive.problem() == JsonTree::Problem::TooMany) {
    error_ = "an archive holds more than 4000000 values: import lines of JSON";
    return;
  }
  const std::optional<std::uint32_t> entries = harEntries(archive);
  if (!entries) {
    format_ = Format::Lines;
    looked_ = 0;
    return takeLines(true);
  }
  forEachIn(archive, *entries, [&](std::uint32_t entry) {
    ++number_;
    if (error_.empty()) takeEvent(eventFromHar(archive, entry));
  });
}

void EventImport::takeEvent(const Result<StoredEvent>& event) {
  if (!event) return refuse(event.error().text);
  const Result<bool> restored = store_.restore(*event);
  if (!restored) {
    error_ = restored.error().text;
  } else {
    ++(*restored ? imported_ : repeated_);
  }
}

void EventImport::refuse(std::string reason) {
  if (refused_.size() < kMaxRefused) refused_.emplace_back(number_, std::move(reason));
}

std::string EventImport::toJson() const {
  JsonOut out;
  out.beginObject().member("imported", imported_).member("repeated", repeated_);
  out.key("refused").beginArray();
  for (const auto& [line, reason] : refused_)
    out.beginObject().member("line", line).member("reason", reason).endObject();
  out.endArray();
  if (!error_.empty()) out.member("error", error_);
  out.endObject();
  return out.text();
}

}  // namespace jx
