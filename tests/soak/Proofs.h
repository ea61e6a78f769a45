// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/soak/Arguments.h"

namespace jx::soak {

// Each soak test is a subcommand of the program. It prints its results and returns the exit status,
// 0 if all checks passed.

/// Kills processes of one storage folder at random times while their threads execute and send, the
/// folder is renamed, they fork, and their clocks jump. No event for which execute returned is
/// lost, nor the values that it changed.
int kills(Arguments& arguments);
/// Executes many events while the server refuses connections. They cause few attempts, and little
/// more work than with a server that responds.
int offline(Arguments& arguments);
/// Delivers a long queue after an outage, in the same process and in the next one.
int outage(Arguments& arguments);
/// Flushes to servers that never respond. Each flush returns at its deadline.
int flush(Arguments& arguments);
/// Exits processes while the server is unreachable. Each exits soon and keeps its queue.
int exit(Arguments& arguments);
/// Threads that execute, post application notifications, toggle consent, change data and read
/// accessors at once: each event arrives with a valid body, and each session is marked once.
int threads(Arguments& arguments);
/// Stops and enables delivery repeatedly while events are sent. After a stop has returned, nothing
/// is written to a socket.
int stops(Arguments& arguments);
/// Toggles consent from many threads. Afterwards the state of the ServerSide decides what is sent.
int toggles(Arguments& arguments);

/// Starts a process that may open few descriptors with a long queue. It delivers every event and
/// logs nothing. The library has at most eight descriptors open in addition to sockets.
int descriptors(Arguments& arguments);
/// Runs processes through everything that opens a file. All files of the storage folder are opened
/// with O_NOFOLLOW, and all descriptors of the library with O_CLOEXEC.
int opens(Arguments& arguments);
/// The program in which `opens` must find violations.
int careless(Arguments& arguments);

}  // namespace jx::soak
