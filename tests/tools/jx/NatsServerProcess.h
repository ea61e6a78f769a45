// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>

#include "tests/support/ChildProcess.h"
#include "tests/support/ReservedPort.h"
#include "tests/support/TemporaryFolder.h"
#include "tools/jx/gateway/GatewaySetup.h"

namespace jx {

/// A real nats-server with JetStream, on its own port and in its own folder. It is ended with the
/// object.
class NatsServerProcess {
 public:
  std::string url() const { return "nats://127.0.0.1:" + std::to_string(port_.number()); }
  NatsServers servers() const { return {{url()}, "", ""}; }

  /// Starts the server, or starts it again with what it stored. `configuration` is added to its
  /// file.
  void start(const std::string& configuration = "") {
    const std::string file =
        folder_.write("nats.conf", "listen: 127.0.0.1:" + std::to_string(port_.number()) +
                                       "\njetstream { store_dir: \"" + folder_.path() +
                                       "/store\" }\n" + configuration);
    process_.emplace("/usr/sbin/nats-server", std::vector<std::string>{"-c", file});
    if (!process_->waitForErrors("Server is ready", std::chrono::seconds(60))) {
      throw std::runtime_error("nats-server did not start");
    }
  }
  /// Waits until the server logs a text.
  bool waitForErrors(const std::string& text) {
    return process_->waitForErrors(text, std::chrono::seconds(60));
  }
  /// Creates the streams of the gateway.
  void setUp(StreamSettings settings = {}) const {
    settings.replicas = 1;
    const Done set = setUpStreams(servers(), settings);
    if (!set) throw std::runtime_error(set.error().text);
  }
  /// Keeps what is stored now. The server must not run.
  void saveStore() const { copyStore("store", "saved"); }
  /// Brings it back, as if the disk had lost what was stored since. The server must not run.
  void restoreStore() const { copyStore("saved", "store"); }
  void kill() {
    process_->signal(SIGKILL);
    process_->wait(std::chrono::seconds(60));
  }
  /// Returns when the server has stopped, not only when the signal is sent.
  void freeze() const {
    process_->signal(SIGSTOP);
    siginfo_t info{};
    ::waitid(P_PID, static_cast<id_t>(process_->pid()), &info, WSTOPPED | WNOWAIT);
  }
  void thaw() const { process_->signal(SIGCONT); }

 private:
  void copyStore(const char* from, const char* to) const {
    std::filesystem::remove_all(folder_.path(to));
    std::filesystem::copy(folder_.path(from), folder_.path(to),
                          std::filesystem::copy_options::recursive);
  }

  const test::ReservedPort port_;
  const test::TemporaryFolder folder_;
  std::optional<ChildProcess> process_;
};

}  // namespace jx
