// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Terminal.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iterator>

namespace {

constexpr const char* kEnter = "\033[?1049h\033[?25l";
constexpr const char* kLeave = "\033[?25h\033[?1049l";

// A signal handler may call few functions; a byte in a pipe wakes the loop, which then ends
// normally.
int signalPipe[2] = {-1, -1};

void onSignal(int) { [[maybe_unused]] const ssize_t ignored = ::write(signalPipe[1], "!", 1); }

struct Sequence {
  const char* bytes;
  Key key;
};

// Longer sequences first.
constexpr Sequence kSequences[] = {
    {"\033[A", Key::Up}, {"\033[B", Key::Down}, {"\033[C", Key::Right}, {"\033[D", Key::Left},
    {"\033OA", Key::Up}, {"\033OB", Key::Down}, {"\033OC", Key::Right}, {"\033OD", Key::Left},
    {"\r", Key::Ok},     {"\n", Key::Ok},       {" ", Key::Play},       {"\177", Key::Back},
    {"b", Key::Back},    {"q", Key::Quit},
};

}  // namespace

Terminal::Terminal() : drawsPages_(::isatty(STDOUT_FILENO) == 1) {
  if (::pipe(static_cast<int*>(signalPipe)) == 0) {
    struct sigaction action {};
    action.sa_handler = onSignal;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
      ::sigaction(signal, &action, nullptr);
  }
  termios settings{};
  if (::tcgetattr(STDIN_FILENO, &settings) == 0) {
    before_ = settings;
    // Unbuffered input without echo; Ctrl-C still ends the program.
    settings.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    ::tcsetattr(STDIN_FILENO, TCSANOW, &settings);
  }
  if (drawsPages_) write(kEnter);
}

Terminal::~Terminal() {
  if (drawsPages_) write(kLeave);
  if (before_) ::tcsetattr(STDIN_FILENO, TCSANOW, &*before_);
}

void Terminal::write(const std::string& text) {
  std::size_t done = 0;
  while (done < text.size()) {
    const ssize_t count = ::write(STDOUT_FILENO, text.data() + done, text.size() - done);
    if (count < 0 && errno != EINTR) return;
    if (count > 0) done += static_cast<std::size_t>(count);
  }
}

Terminal::Input Terminal::wait(bool ticks, Key& key) {
  for (;;) {
    if (const std::optional<Key> next = nextKey()) {
      key = *next;
      return Input::Key;
    }
    pollfd sources[] = {{signalPipe[0], POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
    const int ready = ::poll(static_cast<pollfd*>(sources), std::size(sources), ticks ? 1000 : -1);
    if (ready == 0) return Input::Second;
    if (ready < 0) continue;
    if (sources[0].revents != 0) return Input::Ended;
    char bytes[64];
    const ssize_t count = ::read(STDIN_FILENO, static_cast<char*>(bytes), sizeof bytes);
    if (count == 0 || (count < 0 && errno != EINTR)) return Input::Ended;
    if (count > 0) bytes_.append(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
  }
}

// Skips bytes that do not form a key. An incomplete sequence waits for the remaining bytes.
std::optional<Key> Terminal::nextKey() {
  while (!bytes_.empty()) {
    bool isBeginning = false;
    for (const Sequence& sequence : kSequences) {
      const std::string whole = sequence.bytes;
      if (bytes_.compare(0, whole.size(), whole) == 0) {
        bytes_.erase(0, whole.size());
        return sequence.key;
      }
      isBeginning = isBeginning || whole.compare(0, bytes_.size(), bytes_) == 0;
    }
    if (isBeginning) return std::nullopt;
    bytes_.erase(0, 1);
  }
  return std::nullopt;
}
