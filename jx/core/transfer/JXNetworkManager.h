// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>

#include "jx/core/transfer/JXDelivery.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXConsentGate;
class JXSendFilter;
class JXStopMarks;
class JXTransfer;
struct JXTransferSetup;

/// The state in which a ServerSide starts.
enum class JXStartState { Enabled, AlwaysEnabled, Disabled, WaitingForConsent };

/// The core's network state machine: queues requests, pauses them while they must not be sent, and
/// passes them to the transfer thread. Every operation is thread-safe and returns immediately
/// unless documented otherwise. Before `start` (and in a dry run, which has no transfer) requests
/// are not accepted and states are only recorded. Failures are logged at level 3; no operation
/// throws.
class JX_API JXNetworkManager {
 public:
  /// Returns the manager of this process; never destroyed.
  static JXNetworkManager& sharedInstance();

  /// Sets the manager state, for an application without a ServerSide; each ServerSide decides for
  /// its own requests at its start. 0: not set; requests are sent. 1: always enabled; stop requests
  /// are ignored. 2: disabled by default; requests are held until an enabling. Other values count
  /// as 0. With 0 and 1, requests of earlier processes are sent too, unless a stop was recorded for
  /// them.
  void setManagerState(int state);
  /// Returns the state set last, by `setManagerState` or by a ServerSide at its start (1: always
  /// enabled, 2: disabled by default); initially 0.
  int managerState() const;
  /// Enables sending, or stops it, for every ServerSide that is not always enabled, as their
  /// notifications do. When a stop returns, nothing of these requests is sent any more; those in
  /// flight are aborted and stay queued. The stop is recorded for the next process, which holds
  /// them until it is enabled. The call waits for neither network nor disk, except for the record,
  /// at most 5 ms. A stop is ignored while the state set by `setManagerState` is 1.
  void changingSDKBehaviour(bool enabled) { decide(enabled); }
  /// Same; returns the number of this decision, which is larger than those of earlier decisions.
  std::uint64_t decide(bool enabled);
  /// Pauses requests until the platform's user agent is known, for at most
  /// `JXRetryTimings::userAgentWait`. The user agent is then stored in JXCoreVariables and
  /// `kJXNotification_UserAgentAvailable` is posted, on the thread on which the platform returns
  /// it; in a dry run too.
  void waitForUserAgent();
  /// Allows sending while the application is in the background.
  void enableRunningInBackground() { setRunningInBackground(true); }
  /// Sets whether requests are sent while the application is in the background; initially false.
  void setRunningInBackground(bool enabled);

  /// Called by a ServerSide at its start, before it can execute an event. `url` is the URL of its
  /// requests.
  void serverSideStarted(const void* serverSide, std::string_view url, JXStartState state);
  /// Called by a ServerSide when the URL of its requests changes.
  void serverSideMoved(const void* serverSide, std::string_view url);
  /// Called by a ServerSide when it begins or ends to ignore stops; applies to later requests.
  void setAlwaysEnabled(const void* serverSide, bool isAlwaysEnabled);
  /// Called by a ServerSide at its end. Its requests stay queued.
  void serverSideEnded(const void* serverSide);

  /// Queues a request of `sender`, which is a ServerSide or any other object. It is in the outbox
  /// when this returns; the caller performs one write.
  void enqueue(std::string_view url, std::string_view body, const void* sender = nullptr);
  /// Counts and reports an event that cannot be queued because memory was exhausted before its
  /// request was complete; its report has no event ID. Returns false if nothing is sent by this
  /// process. Called by ServerSide.
  bool dropOutOfMemory() noexcept;
  /// Reports that the application entered the background. No request is started until it returns to
  /// the foreground, unless running in background is enabled; requests in flight complete.
  void onBackground();
  /// Reports that the application entered the foreground; queued requests may be sent again.
  void onForeground();

  /// Waits until the queue is empty or `deadline` has passed; returns whether it is empty. Blocks
  /// the calling thread, never longer than the deadline. Shortens a backoff to `initialBackoff`,
  /// but not a delay requested by the server, and does not resume paused delivery.
  bool flush(std::chrono::milliseconds deadline);
  /// Deletes all queued requests and dead letters; requests in flight are aborted.
  void purge();
  /// Drops the requests that were queued before an erase of the stored data, as `purge` does.
  /// Called by the core after the erase.
  void applyErasures();
  /// Reports that other persisted data of the core changed; it is made durable within
  /// `JXRetryTimings::syncDelay`.
  void storageChanged();
  /// Returns a copy of all counters, read at one moment.
  JXDeliveryCounters counters() const;

  /// Starts the transfer thread, which is stopped within 250 ms when the process exits. Called once
  /// by the core; a second call is ignored. When the system cannot create a thread, logs the
  /// failure at level 3; requests are then stored, and each one tries again to start the thread.
  /// After another failure, requests are not accepted.
  void start(JXTransferSetup setup);
  /// Starts a dry run: only the user agent is requested, and `beginStoring` called with each
  /// consent. Called once by the core instead of
  /// `start`.
  void startDryRun(std::function<void(std::function<void()> known)> requestUserAgent,
                   std::function<void()> beginStoring = nullptr);
  /// Requests the user agent if `waitForUserAgent` was called before the start. Called by the core
  /// after `start` or `startDryRun`, without a lock, because it may call application code.
  void requestAwaitedUserAgent();

 private:
  JXNetworkManager();

  std::shared_ptr<JXTransfer> transfer() const;
  template <class Operation>
  auto withTransfer(Operation operation) const;
  std::uint16_t mostStops(std::string_view url) const;
  void beginStoring();
  std::shared_ptr<const JXSendFilter> stoppedFilter() const noexcept;
  void applyConsent(bool stops);
  void applyBackground();

  mutable std::mutex mutex_;
  std::shared_ptr<JXTransfer> transfer_;
  std::function<void(std::function<void()>)> requestUserAgent_;  // set once, by the start
  std::shared_ptr<JXStopMarks> stopMarks_;                       // null before the start
  std::function<void()> beginStoring_;                           // set once, by the start
  bool hasMarks_ = false;
  const std::unique_ptr<JXConsentGate> consent_;
  const std::shared_ptr<const JXSendFilter> nothing_;
  std::uint64_t decisions_ = 0;
  int managerState_ = 0;
  bool ignoresStops_ = false;
  bool inBackground_ = false;
  bool runsInBackground_ = false;
  bool awaitsUserAgent_ = false;  // waitForUserAgent was called and has not requested it yet
};

}  // namespace jx
