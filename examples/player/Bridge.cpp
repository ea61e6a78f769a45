// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "Bridge.h"

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <iterator>
#include <random>
#include <sstream>

#include "MpvMessages.h"
#include "Remote.h"

namespace {

// A signal handler may call few functions; a byte in a pipe wakes the loop.
int signalPipe[2] = {-1, -1};

void onSignal(int) { [[maybe_unused]] const ssize_t ignored = ::write(signalPipe[1], "!", 1); }

std::string randomName() {
  std::random_device random;
  std::ostringstream name;
  name << std::hex;
  for (int i = 0; i < 4; ++i)
    name << random();
  return name.str();
}

}  // namespace

void Bridge::catchSignals() {
  if (::pipe(static_cast<int*>(signalPipe)) != 0) return;
  struct sigaction action {};
  action.sa_handler = onSignal;
  ::sigaction(SIGINT, &action, nullptr);
  ::sigaction(SIGTERM, &action, nullptr);
}

Bridge::Bridge(MpvConnection& mpv, jx::ServerSide& serverSide)
    : mpv_(mpv), serverSide_(serverSide), translator_(randomName) {}

void Bridge::run() {
  pollfd sources[] = {
      {signalPipe[0], POLLIN, 0}, {mpv_.fd(), POLLIN, 0}, {STDIN_FILENO, POLLIN, 0}};
  while (mpv_.isOpen()) {
    if (::poll(static_cast<pollfd*>(sources), std::size(sources), -1) < 0) continue;
    if (sources[0].revents != 0) break;
    if (sources[1].revents != 0) readPlayer();
    if (sources[2].revents != 0 && !forwardInput()) sources[2].fd = -1;
  }
  handle({PlayerChange::Kind::Left});
}

void Bridge::readPlayer() {
  for (const std::string& line : mpv_.readLines()) {
    const MpvReading reading = readMpvLine(line);
    if (!reading.request.empty()) mpv_.send(reading.request);
    if (reading.change) handle(*reading.change);
  }
}

// Returns false at the end of input.
bool Bridge::forwardInput() {
  char bytes[256];
  const ssize_t count = ::read(STDIN_FILENO, static_cast<char*>(bytes), sizeof bytes);
  if (count <= 0) return false;
  typed_.append(static_cast<const char*>(bytes), static_cast<std::size_t>(count));
  for (std::size_t end = typed_.find('\n'); end != std::string::npos; end = typed_.find('\n')) {
    const std::string command = remoteCommand(typed_.substr(0, end));
    if (!command.empty()) mpv_.send(command);
    typed_.erase(0, end + 1);
  }
  return true;
}

void Bridge::handle(const PlayerChange& change) {
  const PlaybackTranslator::Events events = translator_.translate(change);
  report_.add(change, events);
  for (const auto& event : events)
    serverSide_.execute(event);
}
