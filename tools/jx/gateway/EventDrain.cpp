// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/EventDrain.h"

#include <algorithm>
#include <utility>

#include "tools/jx/collector/WallClock.h"

namespace jx {
namespace {

using Level = JsonLog::Level;
using std::chrono::milliseconds;

// The longest delay after a signal, and of the rotation by age.
constexpr milliseconds kMaxWait{500};
constexpr milliseconds kRetryPause{1'000};

}  // namespace

EventDrain::EventDrain(const DrainSettings& settings, JsonLog& log, Pause pause,
                       std::unique_ptr<DrainFolder> folder)
    : settings_(settings), log_(log), pause_(std::move(pause)), folder_(std::move(folder)) {}

Result<std::unique_ptr<EventDrain>> EventDrain::open(const DrainSettings& settings, JsonLog& log,
                                                     Pause pause) {
  auto folder = DrainFolder::open(settings.folder, settings.stream, settings.limits, wallClockMs);
  if (!folder) return folder.error();
  return std::unique_ptr<EventDrain>(
      new EventDrain(settings, log, std::move(pause), std::move(*folder)));
}

Done EventDrain::run() {
  log_.write(Level::Info, "started",
             {{"stream", settings_.stream}, {"sequence", folder_->position().sequence}});
  bool isAtEnd = false;
  for (bool stops = pause_(milliseconds(0)); !stops && !isAtEnd;) {
    const Done result = readOnce(isAtEnd);
    if (result && !failure_.empty()) {
      log_.write(Level::Info, "resumed", {{"sequence", folder_->position().sequence}});
      failure_.clear();
    }
    if (!result) {
      reader_.reset();
      logFailure(result.error().text);
    }
    stops = pause_(result ? milliseconds(0) : kRetryPause);
  }
  Done finished = folder_->finishFile();
  log_.write(Level::Info, "stopped",
             {{"sequence", folder_->position().sequence},
              {"written", total_.written},
              {"repeats", total_.repeats}});
  return finished;
}

Done EventDrain::connect() {
  auto reader = StreamReader::connect(settings_.servers, settings_.stream, settings_.consumer);
  if (!reader) return reader.error();
  const StreamReader::Stream stream = (*reader)->stream();
  const std::int64_t before = folder_->position().sequence;
  folder_->useStream(stream.created);
  const std::int64_t sequence = std::min(folder_->position().sequence, stream.lastSequence);
  if (sequence < before) {
    log_.write(Level::Warning, "stream_restarted", {{"before", before}, {"sequence", sequence}});
  }
  // Starts with the last message that was written, to see whether it is still the same.
  const std::int64_t after = isReadingAgain_ ? 0 : std::max<std::int64_t>(sequence - 1, 0);
  if (Done started = (*reader)->startAfter(after); !started) return started;
  reader_ = std::move(*reader);
  return done();
}

Done EventDrain::readOnce(bool& isAtEnd) {
  if (Done rotated = folder_->rotateWhenDue(); !rotated) return rotated;
  if (!reader_) {
    if (Done connected = connect(); !connected) return connected;
  }
  const Result<std::int64_t> pending = reader_->pending();
  if (!pending) return pending.error();
  if (*pending == 0 && settings_.stopsAtEnd) {
    isAtEnd = true;
    return done();
  }
  const auto messages = reader_->fetch(*pending, kMaxWait);
  if (!messages) return messages.error();
  if (messages->empty()) return done();
  if (!isReadingAgain_ && hasOtherMessages(*messages)) {
    log_.write(Level::Warning, "stream_restarted",
               {{"before", folder_->position().sequence}, {"sequence", 0}});
    isReadingAgain_ = true;
    reader_.reset();
    return done();
  }
  const Result<DrainFolder::Tally> tally = folder_->append(*messages);
  if (!tally) return tally.error();
  isReadingAgain_ = false;
  total_.written += tally->written;
  total_.repeats += tally->repeats;
  reader_->acknowledge();
  return done();
}

// Brokers that lost the last messages of a stream give their sequence numbers to later ones. The
// folder skips those that it has written, by sequence number and time.
bool EventDrain::hasOtherMessages(const std::vector<StreamMessage>& messages) const {
  const DrainPosition& position = folder_->position();
  return messages.front().sequence == position.sequence &&
         messages.front().storedAtMs != position.storedAtMs;
}

void EventDrain::logFailure(const std::string& reason) {
  if (reason == failure_) return;
  failure_ = reason;
  log_.write(Level::Error, "waiting", {{"reason", reason}});
}

}  // namespace jx
