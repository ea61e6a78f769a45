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

/// The core's network state machine: takes requests, holds them while they must not leave, and has
/// them sent by the transfer thread. Every operation is thread-safe and returns at once unless it
/// says otherwise. Before `start` (and in a dry run, where there is no transfer) requests are not
/// taken and the states are only remembered.
class JX_API JXNetworkManager {
 public:
  /// The one manager of this process; never destroyed.
  static JXNetworkManager& sharedInstance();

  /// 0: nothing was said, requests are sent. 1: always enabled, stopping is ignored. 2: disabled
  /// by default, requests are held until an enabling notification. Other values count as 0.
  void setManagerState(int state);
  /// The state that was set last; 0 at first.
  int managerState() const;
  /// True lets requests go out; false holds them, aborting those in flight. Ignored with false
  /// while the manager state is 1.
  void changingSDKBehaviour(bool enabled);
  /// Holds requests until the platform's user agent is known, at most 10 seconds. When it is known
  /// it is stored in JXCoreVariables and `kJXNotification_UserAgentAvailable` is posted, on the
  /// thread on which the platform answers.
  void waitForUserAgent();
  /// Lets requests go out while the application is in the background.
  void enableRunningInBackground();

  /// Takes a request: it is in the outbox when this returns. Costs the caller one write.
  void enqueue(std::string_view url, std::string_view body);
  /// The application went to the background: nothing is sent until it returns, unless running in
  /// background was enabled; requests in flight are let to end.
  void onBackground();
  /// The application came back: what is queued may leave again.
  void onForeground();

  /// Waits until the queue is empty, at most until `deadline` has passed; true when it is empty.
  /// Blocks the calling thread, and never longer than the deadline. It shortens a back-off pause
  /// to the first one's length, but not a pause that the receiver asked for, and lifts no hold.
  bool flush(std::chrono::milliseconds deadline);
  /// Empties the queue and the dead letters; requests in flight are aborted.
  void purge();
  /// Something else that the core keeps on the disk was changed: it is made durable within a
  /// second.
  void storageChanged();
  /// A copy of all counts, taken at one moment.
  JXDeliveryCounters counters() const;

  /// Starts the transfer thread, which is stopped within 250 ms when the process ends. Called once
  /// by the core; a second call is ignored. When the system gives no thread it is logged, and
  /// requests are not taken.
  void start(JXTransferSetup setup);

 private:
  JXNetworkManager() = default;

  std::shared_ptr<JXTransfer> transfer() const;
  void decide(bool enabled);
  void applyBackground();
  void askForUserAgent();

  mutable std::mutex mutex_;
  std::shared_ptr<JXTransfer> transfer_;
  std::function<void(std::function<void()>)> requestUserAgent_;  // set once, before transfer_
  int managerState_ = 0;
  bool enabled_ = true;
  bool decided_ = false;  // somebody said whether requests may leave
  bool inBackground_ = false;
  bool runsInBackground_ = false;
  bool waitsForUserAgent_ = false;
};

}  // namespace jx
