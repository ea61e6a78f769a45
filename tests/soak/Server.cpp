// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/Server.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tests/support/JXTestServer.h"

namespace jx::soak {
namespace {

constexpr std::chrono::minutes kTimeout{2};

std::vector<std::string> argumentsFor(bool tls) {
  std::vector<std::string> words{"server"};
  if (tls) words.push_back("--tls");
  return words;
}

// The body of an event contains its identifier, so different events have different bodies.
std::size_t countDifferent(const std::vector<std::string>& bodies) {
  return std::set<std::string>(bodies.begin(), bodies.end()).size();
}

}  // namespace

ServerProcess::ServerProcess(bool tls)
    : process_(std::filesystem::read_symlink("/proc/self/exe").string(), argumentsFor(tls),
               std::map<std::string, std::string>{}, ChildProcess::Input::Pipe) {
  if (!process_.waitForOutput("\n", kTimeout)) throw std::runtime_error("the server did not start");
  std::istringstream line(process_.output());
  line >> port_ >> caFile_;
  host_ = (tls ? "https" : "http") + ("://127.0.0.1:" + std::to_string(port_));
}

std::size_t ServerProcess::end() {
  process_.closeInput();
  const ChildProcess::Result result = process_.wait(kTimeout);
  if (result.status != 0) throw std::runtime_error("the server failed: " + result.errors);
  std::istringstream lines(result.output);
  std::string started;
  std::getline(lines, started);
  std::size_t events = 0;
  lines >> events;
  return events;
}

int server(Arguments& arguments) {
  test::JXTestServerOptions options;
  options.tls = arguments.has("tls");
  arguments.expectAllKnown();
  const test::JXTestServer server(options);
  std::printf("%d %s\n", server.port(), server.caFile().c_str());
  std::fflush(stdout);
  char bytes[64];
  while (::read(STDIN_FILENO, bytes, sizeof bytes) > 0) {
  }
  std::printf("%zu\n", countDifferent(server.bodies()));
  std::fflush(stdout);
  return 0;
}

}  // namespace jx::soak
