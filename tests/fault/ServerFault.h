// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/fault/ServerScenario.h"

namespace jx::test {

/// A fault of a server, and the expected behaviour of the library.
struct ServerFault {
  std::string name;   ///< of the test
  std::string order;  ///< position in the table; empty: no row
  std::string fault;  ///< name of the case in the table
  std::string did;    ///< behaviour of the server in the table
  std::function<void(ServerScenario&)> play;
  std::function<void(ServerScenario&)> heal = [](ServerScenario& scenario) {
    scenario.server.answerAll({});
  };
  std::string reason;            ///< part of the log message
  std::size_t requestsRead = 1;  ///< requests that the server reads during each failed attempt
  /// True if the client closes the connection, which the server notices a moment later.
  bool clientGoesFirst = false;
  std::chrono::milliseconds initialBackoff{500};
  std::chrono::milliseconds secondBackoff{1'000};
  int status = 0;  ///< of the rejecting response

  friend std::ostream& operator<<(std::ostream& out, const ServerFault& shown) {
    return out << shown.name;
  }
};

/// Faults after which the events stay queued and are sent again.
std::vector<ServerFault> transientFaults();
/// Final responses that reject the events.
std::vector<ServerFault> rejectingFaults();
/// Faults after the status of a successful response, which do not matter.
std::vector<ServerFault> deliveringFaults();

enum class HealedBefore { TheSameProcess, TheNextProcess };

/// Executes several events during the fault and expects two failed attempts. Then heals the fault,
/// for the same process or while no process runs, and expects each event to be delivered once.
/// Writes the row.
void expectDeliveryAfterFault(ServerScenario& scenario, const ServerFault& fault,
                              HealedBefore healedBefore);

}  // namespace jx::test
