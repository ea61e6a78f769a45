// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/gateway/EventLine.h"
#include "tools/jx/gateway/NatsClient.h"

namespace jx {

/// Reads the messages of a JetStream stream in order, without gaps and repeats. After any failure,
/// continue with a new reader: it creates the durable consumer again, because only then no message
/// can be missing that was sent to the previous connection. Not thread-safe.
class StreamReader {
 public:
  struct Stream {
    std::int64_t created = 0;  ///< nanoseconds since the Unix epoch
    std::int64_t lastSequence = 0;
  };

  /// Connects and finds the stream.
  static Result<std::unique_ptr<StreamReader>> connect(const NatsServers& servers,
                                                       const std::string& stream,
                                                       const std::string& consumer);
  ~StreamReader();

  const Stream& stream() const { return info_; }
  /// Starts with the first message after `sequence`. Call it once.
  Done startAfter(std::int64_t sequence);
  /// Returns how many messages `fetch` has not returned yet.
  Result<std::int64_t> pending();
  /// Returns the next messages, which stay valid until the next call: some of the `pending` ones,
  /// or if there are none, the next one. The result is empty when that does not arrive in time.
  Result<std::vector<StreamMessage>> fetch(std::int64_t pending, std::chrono::milliseconds wait);
  /// Acknowledges all messages that `fetch` has returned. The broker counts those that are not
  /// acknowledged as pending; nothing else depends on it.
  void acknowledge();

 private:
  StreamReader(std::string stream, std::string consumer)
      : streamName_(std::move(stream)), consumer_(std::move(consumer)) {}
  Done open(const NatsServers& servers);
  Result<StreamMessage> messageOf(natsMsg* message);
  void clear();

  const std::string streamName_;
  const std::string consumer_;
  Stream info_;
  std::uint64_t delivered_ = 0;  // by the consumer
  NatsHandle<natsConnection> connection_;
  NatsHandle<jsCtx> context_;
  NatsHandle<natsSubscription> subscription_;
  natsMsgList messages_{nullptr, 0};
};

}  // namespace jx
