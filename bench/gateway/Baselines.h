// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace jx::bench {

/// Runs the server of the gateway with a handler that only responds with 204, until standard input
/// ends. Prints its port.
void serveWithoutBroker(const std::string& certificateFile, const std::string& keyFile,
                        unsigned threads);

/// Publishes events with the asynchronous interface of libnats, without a gateway. Prints one JSON
/// object: events acknowledged per second.
void publish(const std::vector<std::string>& servers, std::size_t bytes,
             std::chrono::milliseconds time);

}  // namespace jx::bench
