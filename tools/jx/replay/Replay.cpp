// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/Replay.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>
#include <variant>

#include "tools/jx/ExitStatus.h"
#include "tools/jx/Printable.h"
#include "tools/jx/replay/ScriptLine.h"

namespace jx {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Library log messages are interleaved with messages of the program and may come from its thread.
JXLogSink sinkTo(const std::shared_ptr<Console>& console) {
  return [console](int level, std::string_view message) {
    console->line("[JX " + std::to_string(level) + "] " + std::string(message));
  };
}

ReplaySettings completed(const ReplayOptions& options, const std::shared_ptr<Console>& console,
                         std::function<void(std::string_view)> print) {
  ReplaySettings settings = options.settings;
  if (!options.sends()) settings.collectionAddress.clear();
  settings.logSink = sinkTo(console);
  if (options.prints) settings.onBody = std::move(print);
  return settings;
}

}  // namespace

Replay::Replay(const ReplayOptions& options, int script, const TerminationSignals& signals,
               std::shared_ptr<Console> console)
    : options_(options),
      signals_(signals),
      console_(std::move(console)),
      reader_(script, signals.fd()),
      session_(completed(options, console_, [this](std::string_view body) { print(body); })),
      due_(steady_clock::now()) {}

int Replay::play() {
  readLines();
  const auto limit =
      std::chrono::duration_cast<milliseconds>(std::chrono::duration<double>(options_.waitSeconds));
  session_.waitForDelivery(limit, [this] {
    showProgress();
    return isSignalled();
  });
  return finish();
}

void Replay::readLines() {
  std::string line;
  for (;;) {
    const LineReader::Result result = reader_.next(line);
    if (result == LineReader::Result::End) return;
    if (result == LineReader::Result::Stopped) {
      signals_.wait();  // consumes the signal; a second one cancels the wait for delivery
      console_->line("stopped after line " + std::to_string(lineNumber_));
      return;
    }
    const int error = errno;
    ++lineNumber_;
    if (result == LineReader::Result::Failed) {
      ++badLines_;
      console_->line("line " + std::to_string(lineNumber_) +
                     ": read error: " + std::error_code(error, std::generic_category()).message());
      return;
    }
    if (!playLine(result, line)) return;
  }
}

bool Replay::playLine(LineReader::Result result, const std::string& line) {
  const Done played = result == LineReader::Result::TooLong
                          ? Done(Error{"a line must be at most " +
                                       std::to_string(LineReader::kMaxLineBytes >> 20) + " MiB"})
                          : runLine(line);
  if (!played) {
    ++badLines_;
    console_->line("line " + std::to_string(lineNumber_) + ": " + played.error().text);
  }
  showProgress();
  return (played || !options_.strict) && !printFailed_;
}

Done Replay::runLine(const std::string& line) {
  const Result<ScriptCommand> command = readScriptLine(line);
  if (!command) return command.error();
  if (const auto* const event = std::get_if<ScriptEvent>(&*command)) {
    if (options_.verifies) printVerification(*event->event);
    keepPace();
    if (isSignalled()) {
      --lineNumber_;  // the reader stops next; this line was not executed
      return done();
    }
  }
  return session_.run(*command, [this] { return isSignalled(); });
}

void Replay::printVerification(const JXEvent& event) const {
  const JXString failed = event.firstFailedCondition();
  const std::string result = failed.isPresent() ? "invalid: " + failed.toStdString() : "valid";
  const std::string text =
      "line " + std::to_string(lineNumber_) + ": " + std::string(event.ownEventClass().className) +
      " " + (event.name().isPresent() ? quoted(event.name().view()) : "without name") + " is " +
      result;
  if (options_.prints) return console_->line(text);  // standard output contains only bodies
  console_->clearProgress();
  std::printf("%s\n", text.c_str());
}

void Replay::keepPace() {
  if (!options_.rate) return;
  const auto left = std::chrono::ceil<milliseconds>(due_ - steady_clock::now());
  if (left > milliseconds::zero()) {
    pollfd stop{signals_.fd(), POLLIN, 0};
    ::poll(&stop, 1, static_cast<int>(left.count()));
  }
  // A delay is not compensated by a burst of events.
  const auto interval = std::chrono::duration_cast<steady_clock::duration>(
      std::chrono::duration<double>(1 / *options_.rate));
  due_ = std::max(due_ + interval, steady_clock::now());
}

bool Replay::isSignalled() const {
  pollfd stop{signals_.fd(), POLLIN, 0};
  return ::poll(&stop, 1, 0) == 1;
}

void Replay::print(std::string_view body) {
  const bool isWritten = std::fwrite(body.data(), 1, body.size(), stdout) == body.size() &&
                         std::fputc('\n', stdout) != EOF && std::fflush(stdout) == 0;
  if (isWritten || printFailed_) return;
  printFailed_ = true;
  console_->line("jx replay: cannot write to standard output: " +
                 std::error_code(errno, std::generic_category()).message());
}

void Replay::showProgress() const {
  if (!console_->wantsProgress()) return;
  const ReplayTally tally = session_.tally();
  console_->progress("line " + std::to_string(lineNumber_) + ", " + summaryOf(tally));
}

int Replay::finish() {
  console_->clearProgress();
  ReplayTally tally = session_.tally();
  tally.badLines = badLines_;
  const std::string summary = summaryOf(tally);
  if (options_.prints) {
    console_->line(summary);
  } else {
    std::printf("%s\n", summary.c_str());
    std::fflush(stdout);
  }
  return printFailed_ ? kExitUndelivered : exitStatusOf(tally);
}

}  // namespace jx
