// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <string_view>

#include "jx/core/transfer/JXDelivery.h"
#include "jx/platform/JXApi.h"

namespace jx {

class JXTransfer;
struct JXTransferSetup;

/// The core's network state machine: queues requests, pauses them while they must not be sent, and
/// passes them to the transfer thread. Every operation is thread-safe and returns immediately
/// unless documented otherwise. Before `start` (and in a dry run, which has no transfer) requests
/// are not accepted and states are only recorded. Failures are logged at level 3; no operation
/// throws.
class JX_API JXNetworkManager {
 public:
  /// Returns the manager of this process; never destroyed.
  static JXNetworkManager& sharedInstance();

  /// Sets the manager state. 0: not set; requests are sent. 1: always enabled; stop requests are
  /// ignored. 2: disabled by default; requests are paused until an enabling notification. Other
  /// values count as 0.
  void setManagerState(int state);
  /// Returns the state set last; initially 0.
  int managerState() const;
  /// Enables or pauses sending. False also aborts requests in flight, which stay queued; it is
  /// ignored while the manager state is 1.
  void changingSDKBehaviour(bool enabled);
  /// Pauses requests until the platform's user agent is known, for at most
  /// `JXRetryTimings::userAgentWait`. The user agent is then stored in JXCoreVariables and
  /// `kJXNotification_UserAgentAvailable` is posted, on the thread on which the platform returns
  /// it; in a dry run too.
  void waitForUserAgent();
  /// Allows sending while the application is in the background.
  void enableRunningInBackground() { setRunningInBackground(true); }
  /// Sets whether requests are sent while the application is in the background; initially false.
  void setRunningInBackground(bool enabled);

  /// Queues a request. It is in the outbox when this returns; the caller performs one write.
  void enqueue(std::string_view url, std::string_view body);
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
  /// failure at level 3; requests are then not accepted.
  void start(JXTransferSetup setup);
  /// Starts a dry run: only the user agent is requested. Called once by the core instead of
  /// `start`.
  void startDryRun(std::function<void(std::function<void()> known)> requestUserAgent);
  /// Requests the user agent if `waitForUserAgent` was called before the start. Called by the core
  /// after `start` or `startDryRun`, without a lock, because it may call application code.
  void requestAwaitedUserAgent();

 private:
  JXNetworkManager() = default;

  std::shared_ptr<JXTransfer> transfer() const;
  template <class Operation>
  auto withTransfer(Operation operation) const;
  void applyEnabled(bool enabled);
  void applyBackground();

  mutable std::mutex mutex_;
  std::shared_ptr<JXTransfer> transfer_;
  std::function<void(std::function<void()>)> requestUserAgent_;  // set once, by the start
  int managerState_ = 0;
  bool enabled_ = true;
  bool decided_ = false;  // whether sending was enabled or paused explicitly
  bool inBackground_ = false;
  bool runsInBackground_ = false;
  bool awaitsUserAgent_ = false;  // waitForUserAgent was called and has not requested it yet
};

}  // namespace jx
