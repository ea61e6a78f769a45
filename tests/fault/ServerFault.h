// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "tests/fault/ServerStory.h"

namespace jx::test {

/// One thing that a server does wrong, and what is to come of it.
struct ServerFault {
  std::string name;   ///< of the test
  std::string order;  ///< place in the table; without one there is no row
  std::string fault;  ///< the table's words for it
  std::string did;    ///< what the server did, in the table
  std::function<void(ServerStory&)> play;
  std::function<void(ServerStory&)> heal = [](ServerStory& story) { story.server.answerAll({}); };
  std::string reason;            ///< part of the log line that tells it
  std::size_t requestsRead = 1;  ///< how many requests the server read at each failed try
  /// True when the client connects and goes, which the server notices a moment later.
  bool clientGoesFirst = false;
  std::chrono::milliseconds initialBackoff{500};
  std::chrono::milliseconds secondPause{1'000};
  int status = 0;  ///< of the answer that rejects

  friend std::ostream& operator<<(std::ostream& out, const ServerFault& shown) {
    return out << shown.name;
  }
};

/// After them the events are still queued.
std::vector<ServerFault> faultsThatHold();
/// They are the receiver's last word.
std::vector<ServerFault> faultsThatReject();
/// They come too late to matter.
std::vector<ServerFault> faultsThatDeliver();

enum class HealedBefore { TheSameProcess, TheNextProcess };

/// Several events meet the fault, which pauses the pipeline twice; then it is healed, for the same
/// process or while none runs, and everything is delivered once. Writes the row.
void tellStoryOfHolding(ServerStory& story, const ServerFault& fault, HealedBefore healedBefore);

}  // namespace jx::test
