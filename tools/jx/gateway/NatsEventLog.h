// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/gateway/EventLog.h"
#include "tools/jx/gateway/NatsClient.h"

namespace jx {

struct NatsSettings {
  NatsServers servers;
  std::size_t maxPending = 4096;             ///< entries that wait for an acknowledgement
  std::chrono::milliseconds timeout{5'000};  ///< for the acknowledgement of an entry
};

/// Stores entries in a JetStream stream, which must exist. An entry is stored when the stream has
/// acknowledged it: with several replicas, when most of them have it. It connects in the background
/// and reconnects for ever, also when the servers reject its credentials; until then, entries are
/// refused.
class NatsEventLog final : public EventLog {
 public:
  static Result<std::unique_ptr<NatsEventLog>> connect(const NatsSettings& settings);
  /// Reports the waiting entries as not stored.
  ~NatsEventLog() override;

  void append(const LogEntry& entry, Stored stored) override;
  bool isReady() const override;

 private:
  using Clock = std::chrono::steady_clock;
  struct Waiting {
    Clock::time_point deadline;
    Stored stored;
  };
  struct Outgoing {
    std::uint64_t token;
    LogEntry entry;
  };

  // A connection of the library, which ends for good when the servers reject the credentials.
  struct Session {
    explicit Session(NatsEventLog& owner) : log(owner) {}

    NatsEventLog& log;
    NatsHandle<natsConnection> connection;
    NatsHandle<natsSubscription> replies;
    bool isClosed = false;
    bool isSubscriptionOver = false;
  };

  explicit NatsEventLog(const NatsSettings& settings);
  Result<std::shared_ptr<Session>> open();
  static natsStatus setCallbacks(natsOptions* options, Session& session);
  void close(Session& session);
  void publishAll();
  natsStatus publish(const Session& session, const LogEntry& entry, std::uint64_t token);
  void acknowledge(natsMsg* message);
  void finish(std::uint64_t token, const LogResult& result);
  void failAll(const std::string& reason);
  void watch();
  void expireFirst(std::unique_lock<std::mutex>& lock);
  void reopen(std::unique_lock<std::mutex>& lock);

  static void onReply(natsConnection*, natsSubscription*, natsMsg* message, void* session);
  static void onDisconnected(natsConnection*, void* session);
  static void onClosed(natsConnection*, void* session);
  static void onSubscriptionOver(void* session);
  void setFlag(bool& flag);

  const NatsSettings settings_;
  std::string inbox_;
  mutable std::mutex mutex_;
  std::shared_ptr<Session> session_;  // never null
  std::condition_variable changed_;
  std::map<std::uint64_t, Waiting> waiting_;  // tokens and deadlines have the same order
  // A thread of its own publishes, because a call of the library blocks when a server stalls.
  std::deque<Outgoing> outgoing_;
  std::condition_variable hasOutgoing_;
  std::atomic<bool> isConnected_{false};
  std::uint64_t lastToken_ = 0;
  bool isEnding_ = false;
  std::thread watching_;
  std::thread publishing_;
};

/// Returns a part of a subject: characters with a meaning in subjects, and others than letters,
/// digits, "-" and "_", become "_"; "_" for an empty text. At most 64 characters.
std::string subjectPart(std::string_view text);

}  // namespace jx
