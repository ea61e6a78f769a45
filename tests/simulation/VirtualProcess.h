// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>

#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXOutbox.h"
#include "jx/core/storage/JXStopMarks.h"
#include "jx/core/transfer/JXConsentGate.h"
#include "jx/core/transfer/JXTransferLoop.h"
#include "tests/simulation/VirtualTransport.h"
#include "tests/simulation/World.h"

namespace jx::simulation {

/// One process of an application: the storage, the consent and the transfer of the library,
/// connected as JXCoreServices and JXNetworkManager connect them, without a thread. Each operation
/// runs to its end before the next one of the same process begins.
class VirtualProcess {
 public:
  explicit VirtualProcess(World& world);
  ~VirtualProcess();
  VirtualProcess(const VirtualProcess&) = delete;
  VirtualProcess& operator=(const VirtualProcess&) = delete;

  int number() const { return number_; }
  bool isAlive() const { return world_.disk.isAlive(number_); }
  ProcessRecord& record() { return world_.ledger.process(number_); }

  void start();
  /// Creates a ServerSide that sends to the source.
  void addMember(int source, JXStartState start);
  /// Executes an event of the ServerSide with this index.
  void execute(Event& event, std::size_t member);
  void stop();
  void enable();
  void flush();
  void purge();
  /// Returns whether everything was erased.
  bool erase();
  /// Sets a persisted value.
  void setValue(std::size_t size);
  /// Does everything that is due now.
  void work();
  /// Ends as a process does that returns from main.
  void exit();

  /// The time at which `work` has something to do.
  std::optional<std::int64_t> nextMs() const;
  JXOutboxCounters counters() const { return outbox_->counters(); }
  /// The number of dropped events that were not reported.
  std::uint64_t unreported();

 private:
  class Turn;

  JXTransferSetup setup();
  void applyConsent();
  void abortRequests();
  bool workOnce();
  void noteEnds(const std::vector<JXHttpResult>& results, long failures);
  void report(const JXDelivery& delivery);
  void checkLimits(const JXOutboxCounters& before, std::uint64_t bytes);
  void checkResources();
  void checkValue();
  std::string urlOf(int source) const;

  World& world_;
  const int number_;
  std::shared_ptr<JXErasures> erasures_;
  std::unique_ptr<JXDefaultsFile> defaults_;
  std::shared_ptr<JXOutbox> outbox_;
  std::shared_ptr<JXStopMarks> marks_;
  JXConsentGate gate_;
  std::shared_ptr<VirtualTransport> transport_;
  std::unique_ptr<JXTransferLoop> loop_;
  JXTransferCommands commands_;
  std::uint64_t endedSuspensions_ = 0;
  bool added_ = false;
  std::optional<std::chrono::steady_clock::time_point> wakeAt_;
  std::array<char, 8> members_{};  ///< the addresses identify the ServerSides
};

}  // namespace jx::simulation
