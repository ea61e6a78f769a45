// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/soak/Record.h"
#include "tests/soak/Worker.h"
#include "tests/support/ChildProcess.h"

namespace jx::soak {

/// Starts a worker with these options, and with `environment` added to that of this process.
std::unique_ptr<ChildProcess> startWorker(
    const WorkerOptions& options, const std::map<std::string, std::string>& environment = {});
/// Lets workers inherit no descriptors of this process, so that those that they have open are
/// theirs.
void keepDescriptorsFromWorkers();
/// Resumes a worker that waits for a line on standard input. Throws std::runtime_error if it has
/// exited.
void resume(ChildProcess& worker);
/// Starts a worker, waits for its exit and returns its records. Throws std::runtime_error if it
/// does not exit with status 0 within ten minutes.
std::vector<Record> runWorker(const WorkerOptions& options);
/// Waits for the exit of a worker and returns its records. Throws like `runWorker`.
std::vector<Record> finish(ChildProcess& worker);

}  // namespace jx::soak
