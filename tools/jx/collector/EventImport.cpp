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

bool EventImport::consume(std::string_view part) {
  buffer_.append(part);
  if (format_ == Format::Unknown) detectFormat();
  if (format_ == Format::Lines) readLines(false);
  const std::size_t most = format_ == Format::Lines ? kMaxLine : kMaxArchive;
  if (error_.empty() && buffer_.size() > most) {
    error_ = format_ == Format::Lines
                 ? "a line must not be longer than 64 MiB"
                 : "an archive must not be larger than 256 MiB; import NDJSON instead";
  }
  return error_.empty();
}

void EventImport::finish() {
  if (!error_.empty()) return;
  if (format_ == Format::Lines) return readLines(true);
  readArchive();
}

// If the first non-blank line is an event, the format is NDJSON. Otherwise the input may be an
// archive, which is one JSON value that rarely ends on its first line; readArchive() decides when
// the input is complete.
void EventImport::detectFormat() {
  for (std::size_t begin = 0;;) {
    const std::size_t end = buffer_.find('\n', begin);
    if (end == std::string::npos) return;
    const std::string_view line = std::string_view(buffer_).substr(begin, end - begin);
    begin = end + 1;
    if (isBlank(line)) continue;
    format_ = eventFromLine(line) ? Format::Lines : Format::Archive;
    return;
  }
}

void EventImport::readLines(bool isEnd) {
  std::size_t begin = 0;
  for (;;) {
    const std::size_t end = buffer_.find('\n', std::max(begin, scanned_));
    if (end == std::string::npos && !(isEnd && begin < buffer_.size())) break;
    const std::string_view line = std::string_view(buffer_).substr(begin, end - begin);
    begin = end == std::string::npos ? buffer_.size() : end + 1;
    ++lineNumber_;
    if (!isBlank(line)) storeEvent(eventFromLine(line));
    if (!error_.empty()) return;
  }
  buffer_.erase(0, begin);
  scanned_ = buffer_.size();
}

void EventImport::readArchive() {
  const JsonTree archive = JsonTree::read(buffer_, kMaxArchiveValues);
  if (archive.problem() == JsonTree::Problem::TooMany) {
    error_ = "an archive must not contain more than 4000000 values; import NDJSON instead";
    return;
  }
  const std::optional<std::uint32_t> entries = harEntries(archive);
  if (!entries) {
    format_ = Format::Lines;
    scanned_ = 0;
    return readLines(true);
  }
  forEachIn(archive, *entries, [&](std::uint32_t entry) {
    ++lineNumber_;
    if (error_.empty()) storeEvent(eventFromHar(archive, entry));
  });
}

void EventImport::storeEvent(const Result<StoredEvent>& event) {
  if (!event) return reject(event.error().text);
  const Result<bool> restored = store_.restore(*event);
  if (!restored) {
    error_ = restored.error().text;
  } else {
    ++(*restored ? imported_ : repeated_);
  }
}

void EventImport::reject(std::string reason) {
  if (refused_.size() < kMaxRefused) refused_.emplace_back(lineNumber_, std::move(reason));
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
