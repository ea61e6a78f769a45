// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/LineReader.h"

#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace jx {
namespace {

constexpr int kWaitForEver = -1;

}  // namespace

LineReader::Result LineReader::next(std::string& line) {
  bool hasInput = false;
  if (isStopped(0, hasInput)) return Result::Stopped;
  for (;;) {
    bool tooLong = false;
    if (extractLine(line, tooLong)) return tooLong ? Result::TooLong : Result::Line;
    if (ended_) return Result::End;
    switch (fill()) {
      case Filling::More:
        break;
      case Filling::End:
        ended_ = true;
        break;
      case Filling::Stopped:
        return Result::Stopped;
      case Filling::Failed:
        return Result::Failed;
    }
  }
}

// Returns true when the buffer contained a line, or the end of a line that is too long.
bool LineReader::extractLine(std::string& line, bool& tooLong) {
  const std::size_t end = buffer_.find('\n', searched_);
  const bool isWhole = end != std::string::npos;
  const std::size_t stop = isWhole ? end : buffer_.size();
  tooLong = skipping_ || stop - begin_ > kMaxLineBytes;
  if (isWhole || (ended_ && (stop > begin_ || skipping_))) {
    if (!tooLong) {
      line.assign(buffer_, begin_, stop - begin_);
      if (!line.empty() && line.back() == '\r') line.pop_back();
    }
    begin_ = searched_ = isWhole ? end + 1 : stop;
    skipping_ = false;
    return true;
  }
  searched_ = buffer_.size();
  if (tooLong) {
    skipping_ = true;
    begin_ = searched_;
  }
  return false;
}

LineReader::Filling LineReader::fill() {
  bool hasInput = false;
  if (isStopped(kWaitForEver, hasInput)) return Filling::Stopped;
  if (!hasInput) return Filling::More;
  buffer_.erase(0, begin_);
  searched_ -= begin_;
  begin_ = 0;
  std::array<char, 65'536> part;
  const ssize_t got = ::read(input_, part.data(), part.size());
  if (got < 0 && (errno == EINTR || errno == EAGAIN)) return Filling::More;
  if (got < 0) return Filling::Failed;
  if (got == 0) return Filling::End;
  buffer_.append(part.data(), static_cast<std::size_t>(got));
  return Filling::More;
}

bool LineReader::isStopped(int timeoutMs, bool& hasInput) const {
  std::array<pollfd, 2> states{pollfd{stop_, POLLIN, 0}, pollfd{input_, POLLIN, 0}};
  // Without a timeout, only `stop_` is polled: a closed pipe would be reported every time.
  const nfds_t watched = timeoutMs == 0 ? 1 : 2;
  if (::poll(states.data(), watched, timeoutMs) <= 0) return false;
  hasInput = states[1].revents != 0;
  return states[0].revents != 0;
}

}  // namespace jx
