// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/soak/Arguments.h"

namespace jx::soak {

// Each proof is a subcommand of the program. It prints its figures and returns the exit status, 0
// when what it proves holds.

/// Processes are killed at random instants while they execute and send; nothing that execute
/// returned for is lost.
int kills(Arguments& arguments);
/// Many events while the server refuses connections make few attempts, and little more work than
/// with a server that answers.
int offline(Arguments& arguments);
/// A long queue is delivered after the outage, by the same process and by the next.
int outage(Arguments& arguments);
/// A flush to a host that never answers ends at its deadline.
int flush(Arguments& arguments);
/// A process that ends while the host cannot be reached ends soon, and leaves its queue.
int exit(Arguments& arguments);

}  // namespace jx::soak
