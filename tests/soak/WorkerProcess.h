// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <vector>

#include "tests/soak/Record.h"
#include "tests/soak/Worker.h"
#include "tests/support/ChildProcess.h"

namespace jx::soak {

/// Starts a worker with these orders.
std::unique_ptr<ChildProcess> startWorker(const WorkerOrders& orders);
/// Lets a worker that awaits it go on.
void go(ChildProcess& worker);
/// Starts a worker and waits for its end. Throws std::runtime_error when it does not end well in
/// ten minutes.
std::vector<Record> runWorkerToItsEnd(const WorkerOrders& orders);
/// The records of a worker that is ending by itself; throws as the operation above.
std::vector<Record> finish(ChildProcess& worker);

}  // namespace jx::soak
