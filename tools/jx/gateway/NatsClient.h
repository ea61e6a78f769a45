// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <nats/nats.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "tools/jx/Result.h"

namespace jx {

/// Where the NATS servers of a cluster are, and how to log in.
struct NatsServers {
  std::vector<std::string> urls;  ///< such as "nats://127.0.0.1:4222"; tls:// encrypts
  std::string credentialsFile;    ///< "" without credentials
  std::string authorityFile;      ///< PEM file that signs the servers; "" for that of the system
};

/// Adds the options that set `servers`.
void addNatsOptions(CLI::App& command, NatsServers& servers);

struct NatsRelease {
  void operator()(natsConnection* connection) const { natsConnection_Destroy(connection); }
  void operator()(natsSubscription* subscription) const { natsSubscription_Destroy(subscription); }
  void operator()(natsOptions* options) const { natsOptions_Destroy(options); }
  void operator()(natsMsg* message) const { natsMsg_Destroy(message); }
  void operator()(jsCtx* context) const { jsCtx_Destroy(context); }
  void operator()(jsStreamInfo* info) const { jsStreamInfo_Destroy(info); }
};
template <typename Type>
using NatsHandle = std::unique_ptr<Type, NatsRelease>;

/// Options that reconnect for ever, notice a server that has stopped without closing its
/// connections, and buffer nothing while they are not connected.
Result<NatsHandle<natsOptions>> natsOptionsFor(const NatsServers& servers, const char* name);

/// Returns "NATS: <action>: <status>".
Error natsFailure(const std::string& action, natsStatus status);

/// The streams that the gateway fills, and the first part of their subjects. A subject is
/// "<first part>.<site>.<event name>".
inline constexpr const char* kEventsStream = "EVENTS";
inline constexpr const char* kEventsSubject = "events";
inline constexpr const char* kInvalidStream = "INVALID_EVENTS";
inline constexpr const char* kInvalidSubject = "invalid";
/// Header of an invalid event: the validation errors, as a JSON array.
inline constexpr const char* kDiagnosticsHeader = "Jx-Diagnostics";
inline constexpr const char* kEventIdHeader = "Nats-Msg-Id";

}  // namespace jx
